#include "App/CommandLine/Environment.h"

#include "App/CommandLine/Arguments/ArgumentText.h"
#include "App/CommandLine/Arguments/Options.h"
#include "Platform/BackEndChoice.h"
#include "Translation/Translate.h"

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quillbox {
namespace {

struct BackEndVariable {
    const char* name;
    std::string_view known; ///< what it may say, with ", " between
};

constexpr std::array backEnds{
    BackEndVariable{"QUILLBOX_CAPTURE_BACKEND", "x11, portal, none"},
    BackEndVariable{"QUILLBOX_HOTKEY_BACKEND", "x11, portal, none"},
    BackEndVariable{"QUILLBOX_CLIPBOARD_BACKEND", "x11, data-control, toolkit, none"},
    BackEndVariable{"QUILLBOX_UPDATE_BACKEND", "packagekit, flatpak, none"},
};

std::string valueOf(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool isAmong(std::string_view known, std::string_view value)
{
    constexpr std::string_view between = ", ";
    for (;;) {
        const auto end = known.find(between);
        if (known.substr(0, end) == value)
            return true;
        if (end == std::string_view::npos)
            return false;
        known.remove_prefix(end + between.size());
    }
}

} // namespace

std::optional<std::string> Environment::complaint()
{
    const std::string memory = valueOf("QUILLBOX_RECORDING_MEMORY");
    if (!memory.empty() && !ArgumentText::number(memory)) {
        return withArguments(
            translate("Usage", "QUILLBOX_RECORDING_MEMORY is \"%1\"; make it a whole number of megabytes, or unset it"),
            {memory});
    }
    const std::string journal = valueOf("QUILLBOX_JOURNAL");
    if (!journal.empty() && journal != "off") {
        return withArguments(
            translate("Usage", "QUILLBOX_JOURNAL is \"%1\"; set it to off to keep no recording on disk, or unset it"),
            {journal});
    }
    for (const auto& [name, known] : backEnds) {
        const std::string value = valueOf(name);
        if (!value.empty() && !isAmong(known, value))
            return unknownBackEnd(name, QByteArray::fromStdString(value), std::string(known));
    }
    return std::nullopt;
}

void Environment::check()
{
    if (const auto message = complaint())
        throw UsageError(*message);
}

} // namespace quillbox
