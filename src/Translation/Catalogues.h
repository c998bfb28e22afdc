#pragma once

#include <QString>
#include <QStringList>

namespace quillbox {

/// The program's texts in other languages, and in English the plurals. The catalogues are part of the program. Thread:
/// main.
namespace Catalogues {

/// Every language there is a catalogue of, English first, as in the catalogues' names: "zh_CN".
[[nodiscard]] const QStringList& languages();

/// The first of `wishes` that there is a catalogue of; English if there is none.
/// @param wishes  Names of languages or locales, such as "pt", "de_AT" or "zh_CN.UTF-8", the dearest first.
[[nodiscard]] QString languageFor(const QStringList& wishes);

/// What the environment asks for by LANGUAGE, LC_ALL, LC_MESSAGES and LANG; English in the locale C, whatever LANGUAGE
/// says.
/// @see GNU gettext, "Specifying a Priority List of Languages"
[[nodiscard]] QString userLanguage();

/// Makes all texts from now on those of `language`, one of `languages()`: translate()'s, and those of the application
/// object, if there is one. Before another thread makes texts.
void use(const QString& language);

/// Gives the language in use to an application object made since.
void install();

} // namespace Catalogues
} // namespace quillbox
