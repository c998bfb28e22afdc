// Runs one class of tests with a home folder of its own.
#include "support/QtTests.h"

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    qputenv("LC_ALL", "C.UTF-8");
    const QApplication application(argc, argv);
    return quillbox::test::runTestClass(argc, argv);
}
