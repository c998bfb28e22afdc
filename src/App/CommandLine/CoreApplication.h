#pragma once

#include <QCoreApplication>

namespace quillbox {

/// Qt without a display, for the parts of a command that need it: image plugins, events. Qt's and its plugins' own
/// remarks are dropped, as everything that matters to the user comes back as an error; fatal ones still end the
/// process.
class CoreApplication {
public:
    CoreApplication();

private:
    QCoreApplication m_application;
};

} // namespace quillbox
