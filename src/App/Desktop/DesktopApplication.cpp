#include "App/Desktop/DesktopApplication.h"

#include "Platform/DisplayError.h"
#include "Platform/QtArguments.h"
#include "Platform/WindowSystem.h"
#include "Platform/X11/X11Queries.h"
#include "Translation/Catalogues.h"
#include "Translation/Translate.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibraryInfo>
#include <QPluginLoader>
#include <QStringList>

namespace quillbox {

namespace {

/// How Qt can talk to a window system here: the names of its plugins.
QStringList installedPlatforms()
{
    QStringList names;
    const QDir folder(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
    for (const QString& file : folder.entryList(QDir::Files)) {
        const auto about = QPluginLoader(folder.filePath(file)).metaData().value(QStringLiteral("MetaData")).toObject();
        for (const auto& key : about.value(QStringLiteral("Keys")).toArray())
            names << key.toString();
    }
    return names;
}

/// Where QT_QPA_PLATFORM names nothing that there is, Qt ends the process. The first of its list that works counts.
void checkPlatform()
{
    const QString wanted = qEnvironmentVariable("QT_QPA_PLATFORM");
    if (wanted.isEmpty())
        return;
    const QStringList names = installedPlatforms();
    bool isKnown = names.isEmpty(); // Qt knows better where they are
    for (const QString& choice : wanted.split(QLatin1Char(';')))
        isKnown = isKnown || names.contains(choice.section(QLatin1Char(':'), 0, 0), Qt::CaseInsensitive);
    if (!isKnown) {
        throw NoDesktopError(
            withArguments(translate("DesktopApplication", "QT_QPA_PLATFORM is \"%1\", which is none of %2; unset it"),
                {wanted.toStdString(), names.join(QStringLiteral(", ")).toStdString()}));
    }
}

/// Without a display Qt ends the process; better to know before.
int& checked(int& count)
{
    checkPlatform();
    if (!toolkitNeedsX11())
        return count;
    try {
        X11Queries::checkDisplay();
    } catch (const DisplayError& error) {
        throw NoDesktopError(withArguments(
            translate("DesktopApplication", "%1. quillbox record and encode work from a terminal"), {error.what()}));
    }
    return count;
}

} // namespace

DesktopApplication::DesktopApplication()
    : m_application(checked(QtArguments::count), QtArguments::values)
{
    Catalogues::install();
    QCoreApplication::setApplicationName(QStringLiteral("quillbox"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUILLBOX_VERSION));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Quillbox"));
    QGuiApplication::setDesktopFileName(QStringLiteral(QUILLBOX_APP_ID));
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

} // namespace quillbox
