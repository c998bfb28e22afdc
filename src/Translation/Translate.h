#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quillbox {

/// For texts that are made without the toolkit, or while it has no application object: `text` in the user's language,
/// UTF-8, or as it stands where no translator has been set. lupdate finds the texts by this function's name, so the
/// first two arguments are literals, or marked by QT_TRANSLATE_NOOP elsewhere. Thread: any.
/// @param context  What part of the program says it.
/// @param comment  Tells equal texts apart; none where there is no doubt.
/// @param count    Replaces %n, and chooses among singular and plural; negative for a text without a number.
[[nodiscard]] std::string translate(
    const char* context, const char* text, const char* comment = nullptr, int count = -1);

/// `text` with %1 to %9 replaced by the arguments, which are taken letter by letter.
[[nodiscard]] std::string withArguments(std::string_view text, std::initializer_list<std::string_view> arguments);

/// Translates as QTranslator::translate() does; empty for a text that it does not know.
using Translator = std::function<std::string(const char* context, const char* text, const char* comment, int count)>;

/// Has translate() ask `translator` from now on. To be called before a second thread may be translating.
void setTranslator(Translator translator);

} // namespace quillbox
