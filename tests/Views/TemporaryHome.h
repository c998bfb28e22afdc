#pragma once

#include <QTemporaryDir>

namespace quillbox::test {

/// A home folder for what the program writes; it goes with the object. Made before the application object.
class TemporaryHome {
public:
    TemporaryHome()
    {
        qputenv("HOME", m_folder.path().toUtf8());
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    }

private:
    QTemporaryDir m_folder;
};

} // namespace quillbox::test
