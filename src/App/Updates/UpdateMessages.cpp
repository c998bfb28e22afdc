#include "App/Updates/UpdateMessages.h"

#include <QCoreApplication>

namespace quillbox {
namespace {

using Reason = UpdateError::Reason;

struct UpdateText {
    Q_DECLARE_TR_FUNCTIONS(UpdaterController)
};

/// What a package manager says, cut to what fits into a window.
QString shortened(const QString& details)
{
    constexpr int longest = 200; // characters
    return details.size() <= longest ? details : details.left(longest) + QStringLiteral("…");
}

} // namespace

QString UpdateMessages::describe(const UpdateError& error)
{
    switch (error.reason()) {
    case Reason::Unreachable:
        return UpdateText::tr("The system's software service can't be reached.");
    case Reason::Vanished:
        return UpdateText::tr("The system's software service ended while it was working.");
    case Reason::NotPackaged:
        return UpdateText::tr("This copy of Quillbox was not installed as a package, so the system can't update it.");
    case Reason::NotOffered:
        return UpdateText::tr("None of this computer's package sources offers Quillbox.");
    case Reason::Refused:
        return UpdateText::tr("You were not allowed to do this, or no password was given.");
    case Reason::NoNetwork:
        return UpdateText::tr("The package sources can't be reached. Is this computer online?");
    case Reason::Untrusted:
        return UpdateText::tr("The new version isn't signed by anybody this system trusts, so it was not installed.");
    case Reason::Busy:
        return UpdateText::tr("Another program is installing software. Try again once it is done.");
    case Reason::Cancelled:
        return UpdateText::tr("The update was cancelled.");
    case Reason::NotInstalled:
        return UpdateText::tr("The system reported success, but the old version is still installed.");
    case Reason::Failed:
        break;
    }
    if (error.details().isEmpty())
        return UpdateText::tr("The system's software service didn't say why.");
    return UpdateText::tr("The system's software service says: %1").arg(shortened(error.details()));
}

QString UpdateMessages::staleness(const UpdateError& error)
{
    switch (error.reason()) {
    case Reason::NoNetwork:
        return UpdateText::tr("The package sources can't be reached, so there may be a newer version still.");
    case Reason::Refused:
        return UpdateText::tr("The package sources were not asked anew, so there may be a newer version still.");
    default:
        return UpdateText::tr("The package sources couldn't be read anew, so there may be a newer version still.");
    }
}

QString UpdateMessages::describe(UpdateService::Obstacle obstacle)
{
    switch (obstacle) {
    case UpdateService::Obstacle::NoService:
        return describe(UpdateError(Reason::Unreachable));
    case UpdateService::Obstacle::NotPackaged:
        return describe(UpdateError(Reason::NotPackaged));
    case UpdateService::Obstacle::SwitchedOff:
        return UpdateText::tr("Updates are switched off by QUILLBOX_UPDATE_BACKEND.");
    case UpdateService::Obstacle::None:
    case UpdateService::Obstacle::Busy:
        break;
    }
    return {};
}

} // namespace quillbox
