#include "PostCapture/FileReveal.h"

#include "Platform/DBus/SessionBus.h"
#include "Platform/Portal/DesktopPortal.h"
#include "Platform/Sandbox.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <fcntl.h>
#include <unistd.h>

#include <functional>

namespace quillbox {
namespace {

/// Asks the desktop's services in turn: the file manager, the portal (which a sandbox lets through), whatever opens
/// folders. @see the freedesktop.org file manager interface; xdg-desktop-portal, org.freedesktop.portal.OpenURI
class DesktopFileReveal : public FileReveal {
public:
    void reveal(const QString& path) override
    {
        if (isInSandbox())
            openByPortal(path);
        else
            selectInFileManager(path);
    }

private:
    void selectInFileManager(const QString& path)
    {
        auto call = QDBusMessage::createMethodCall(QLatin1String(fileManagerService),
            QStringLiteral("/org/freedesktop/FileManager1"), QLatin1String(fileManagerService),
            QStringLiteral("ShowItems"));
        const auto uri = QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
        call << QStringList(uri) << QString();
        send(call, [this, path] { openByPortal(path); });
    }

    void openByPortal(const QString& path)
    {
        const int descriptor = ::open(QFile::encodeName(path).constData(), O_PATH | O_CLOEXEC);
        if (descriptor < 0) { // the clip is gone; its folder may be there
            openFolder(path);
            return;
        }
        QDBusUnixFileDescriptor file;
        file.giveFileDescriptor(descriptor);
        auto call = QDBusMessage::createMethodCall(QLatin1String(DesktopPortal::service),
            QLatin1String(DesktopPortal::path), QLatin1String(portalInterface), QStringLiteral("OpenDirectory"));
        call << QString() << QVariant::fromValue(file) << QVariantMap();
        send(call, [path] { openFolder(path); });
    }

    static void openFolder(const QString& path)
    {
        (void)QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath())); // the last resort
    }

    /// Sends `call` and goes on with `otherwise` if it is refused or nobody answers.
    void send(const QDBusMessage& call, const std::function<void()>& otherwise)
    {
        auto* const watcher = new QDBusPendingCallWatcher(SessionBus::connection().asyncCall(call), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [otherwise](QDBusPendingCallWatcher* finished) {
            finished->deleteLater();
            if (finished->isError())
                otherwise();
        });
    }
};

} // namespace

std::unique_ptr<FileReveal> makeFileReveal()
{
    return std::make_unique<DesktopFileReveal>();
}

} // namespace quillbox

#include "moc_FileReveal.cpp"
