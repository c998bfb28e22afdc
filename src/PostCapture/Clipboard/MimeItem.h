#pragma once

#include <QByteArray>

#include <string>

namespace quillbox {

/// One form of what is on the clipboard; a program that pastes picks one of several.
struct MimeItem {
    std::string type; ///< MIME
    QByteArray data;  ///< as that type has it
};

} // namespace quillbox
