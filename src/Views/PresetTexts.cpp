#include "Views/PresetTexts.h"

#include <QCoreApplication>

#include <string>

namespace quillbox {
namespace {

/// For translators: what `ExportPreset` says of its cases.
[[maybe_unused]] constexpr const char* presetTexts[] = {
    QT_TRANSLATE_NOOP("ExportPreset", "Slack"),
    QT_TRANSLATE_NOOP("ExportPreset", "Tiny GIF under 2 MB"),
    QT_TRANSLATE_NOOP("ExportPreset", "GitHub"),
    QT_TRANSLATE_NOOP("ExportPreset", "GIF under 10 MB"),
    QT_TRANSLATE_NOOP("ExportPreset", "Docs"),
    QT_TRANSLATE_NOOP("ExportPreset", "Crisp, balanced quality"),
};

QString translated(std::string_view presetText)
{
    return QCoreApplication::translate("ExportPreset", std::string(presetText).c_str());
}

} // namespace

QString PresetTexts::title(ExportPreset preset)
{
    return translated(preset.title());
}

QString PresetTexts::subtitle(ExportPreset preset)
{
    return translated(preset.subtitle());
}

} // namespace quillbox
