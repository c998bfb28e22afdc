#include "Views/History/ShownName.h"

#include <QDir>
#include <QFileInfo>

namespace quillbox {
namespace {

bool isMisleading(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    case QChar::Other_Format: {
        constexpr char16_t nonJoiner = 0x200C; // words and signs are spelt with this one and the next
        constexpr char16_t joiner = 0x200D;
        return character != nonJoiner && character != joiner;
    }
    default:
        return false;
    }
}

} // namespace

QString shownName(const QString& path)
{
    QString name = QFileInfo(QDir::cleanPath(path)).fileName();
    for (QChar& character : name)
        if (isMisleading(character))
            character = QChar::ReplacementCharacter;
    return name;
}

} // namespace quillbox
