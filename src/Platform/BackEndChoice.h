#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quillbox {

/// What a seam to the desktop uses here, and why.
/// @tparam BackEnd  The seam's enumeration of its back ends, of which `None` is none at all.
template <typename BackEnd> struct BackEndChoice {
    BackEnd backEnd = BackEnd::None;
    std::string reason{}; ///< one sentence for the user, UTF-8, without a full stop; told at least where there is none
};

/// What the environment variable of a seam calls its back ends, in the order in which the user is told of them.
template <typename BackEnd, std::size_t count>
using BackEndNames = std::array<std::pair<std::string_view, BackEnd>, count>;

/// "VARIABLE is "value", which is none of …", in the user's language. Thread: any.
[[nodiscard]] std::string unknownBackEnd(const char* variable, const QByteArray& value, const std::string& known);

/// The back end that an environment variable asks for; nothing where it is unset or empty. With a value that is not
/// among `names` it is none, and only then there is a reason. Thread: any.
template <typename BackEnd, std::size_t count>
std::optional<BackEndChoice<BackEnd>> backEndByEnvironment(
    const char* variable, const BackEndNames<BackEnd, count>& names)
{
    const QByteArray wanted = qgetenv(variable);
    if (wanted.isEmpty())
        return std::nullopt;
    std::string known;
    for (const auto& [name, backEnd] : names) {
        if (wanted.toStdString() == name)
            return BackEndChoice<BackEnd>{backEnd};
        known.append(known.empty() ? "" : ", ").append(name);
    }
    return BackEndChoice<BackEnd>{BackEnd::None, unknownBackEnd(variable, wanted, known)};
}

} // namespace quillbox
