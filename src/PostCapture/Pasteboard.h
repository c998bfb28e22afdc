#pragma once

#include <QByteArray>
#include <QUrl>

#include <memory>
#include <optional>

namespace quillbox {

/// The desktop's clipboard. Thread: main, of a program with a display.
class Pasteboard {
public:
    Pasteboard() = default;
    Pasteboard(const Pasteboard&) = delete;
    Pasteboard& operator=(const Pasteboard&) = delete;
    virtual ~Pasteboard() = default;

    /// Replaces what is on it by a list of exactly one file URL and, if given, the bytes as image/gif, in that order.
    /// They stay until another program puts something there, or this one ends and no clipboard manager takes them over.
    /// Whether the desktop accepted them is not reported.
    virtual void setClip(const QUrl& fileURL, const std::optional<QByteArray>& gifData) = 0;
};

/// The clipboard of this desktop.
[[nodiscard]] std::unique_ptr<Pasteboard> makePasteboard();

} // namespace quillbox
