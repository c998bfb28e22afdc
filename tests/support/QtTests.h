#pragma once

#include <QObject>
#include <QTest>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace quillbox::test {

/// The test classes of a program by name: `PROGRAM CLASS [QTEST ARGUMENT]…` runs one. Several in one program are
/// compiled and linked in a fraction of the time.
inline std::map<std::string, std::function<std::unique_ptr<QObject>()>>& testClasses()
{
    static std::map<std::string, std::function<std::unique_ptr<QObject>()>> classes;
    return classes;
}

template <typename Test> struct Registration {
    explicit Registration(const char* name)
    {
        testClasses()[name] = [] {
            return std::make_unique<Test>();
        };
    }
};

/// Runs the class that the command line names. Precondition: there is an application object.
/// @return the program's exit status, 2 where no such class is registered.
inline int runTestClass(int argc, char** argv)
{
    const auto& classes = testClasses();
    const auto wanted = argc > 1 ? classes.find(argv[1]) : classes.end();
    if (wanted == classes.end()) {
        qWarning("usage: %s CLASS [ARGUMENT]...", argv[0]);
        return 2;
    }
    argv[1] = argv[0];
    return QTest::qExec(wanted->second().get(), argc - 1, argv + 1);
}

} // namespace quillbox::test
