// Runs one class of tests with a home folder of its own: views_tests CLASS [QTEST ARGUMENT]…
#include "ViewTests.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    const auto& tests = quillbox::test::viewTests();
    const auto wanted = argc > 1 ? tests.find(argv[1]) : tests.end();
    if (wanted == tests.end()) {
        qWarning("usage: views_tests CLASS");
        return 2;
    }
    qputenv("LC_ALL", "C.UTF-8");
    const QApplication application(argc, argv);
    argv[1] = argv[0];
    return QTest::qExec(wanted->second().get(), argc - 1, argv + 1);
}
