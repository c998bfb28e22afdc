// A program of test classes that show no widgets.
#include "support/QtTests.h"

#include <QGuiApplication>

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    return quillbox::test::runTestClass(argc, argv);
}
