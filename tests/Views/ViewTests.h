#pragma once

#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace quillbox::test {

/// The test classes of this program by name; `views_tests NAME` runs one.
inline std::map<std::string, std::function<std::unique_ptr<QObject>()>>& viewTests()
{
    static std::map<std::string, std::function<std::unique_ptr<QObject>()>> tests;
    return tests;
}

template <typename Test> struct Registration {
    explicit Registration(const char* name)
    {
        viewTests()[name] = [] {
            return std::make_unique<Test>();
        };
    }
};

} // namespace quillbox::test
