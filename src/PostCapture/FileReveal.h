#pragma once

#include <QObject>
#include <QString>

#include <memory>

namespace quillbox {

/// Shows files in the user's file manager. Thread: main.
class FileReveal : public QObject {
    Q_OBJECT

public:
    /// Opens the folder of `path` with the file selected, and returns at once. Whether the file still exists is not
    /// looked at first. Where the desktop has no way to select it, the folder is opened; nothing is reported.
    virtual void reveal(const QString& path) = 0;

    // Whom it asks on the session bus.
    static constexpr auto fileManagerService = "org.freedesktop.FileManager1"; ///< its interface is called the same
    static constexpr auto portalInterface = "org.freedesktop.portal.OpenURI";
};

/// The way of this desktop.
[[nodiscard]] std::unique_ptr<FileReveal> makeFileReveal();

} // namespace quillbox
