#include "PostCapture/OutputFile.h"

#include "Translation/Translate.h"

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

namespace quillbox {
namespace {

std::string descriptionOf(const std::filesystem::path& path, OutputFileError::Reason reason, int errorNumber)
{
    switch (reason) {
    case OutputFileError::Reason::AlreadyExists:
        return translate("OutputFileError", "the file exists already; use --force to replace it");
    case OutputFileError::Reason::FolderMissing:
        return withArguments(
            translate("OutputFileError", "there is no folder %1; create it first"), {path.parent_path().string()});
    case OutputFileError::Reason::IsFolder:
        return translate("OutputFileError", "it is a folder; name a file");
    case OutputFileError::Reason::IsInput:
        return translate("OutputFileError", "it is an input itself; name another file with -o");
    case OutputFileError::Reason::NoSpace:
        return translate("OutputFileError", "no space left; free some or save elsewhere");
    case OutputFileError::Reason::TooLarge:
        return translate("OutputFileError", "it is larger than a file may be here (ulimit -f)");
    case OutputFileError::Reason::Refused:
        break;
    }
    return std::generic_category().message(errorNumber);
}

} // namespace

OutputFileError::OutputFileError(std::filesystem::path path, Reason reason, int errorNumber)
    : m_path(std::move(path))
    , m_reason(reason)
    , m_errorNumber(errorNumber)
    , m_description(descriptionOf(m_path, reason, errorNumber))
    , m_message(withArguments(translate("OutputFileError", "%1: can't be saved: %2"), {m_path.string(), m_description}))
{
}

OutputFileError OutputFileError::fromErrorNumber(const std::filesystem::path& path, int errorNumber)
{
    switch (errorNumber) {
    case EEXIST:
        return {path, Reason::AlreadyExists};
    case ENOENT:
    case ENOTDIR:
        return {path, Reason::FolderMissing};
    case EISDIR:
        return {path, Reason::IsFolder};
    case ENOSPC:
    case EDQUOT:
        return {path, Reason::NoSpace};
    case EFBIG:
        return {path, Reason::TooLarge};
    default:
        return {path, Reason::Refused, errorNumber};
    }
}

} // namespace quillbox
