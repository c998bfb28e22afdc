// Runs one class of tests with a home folder of its own.
#include "TemporaryHome.h"

#include "support/QtTests.h"

#include <QApplication>

int main(int argc, char** argv)
{
    const quillbox::test::TemporaryHome home;
    qputenv("LC_ALL", "C.UTF-8");
    const QApplication application(argc, argv);
    return quillbox::test::runTestClass(argc, argv);
}
