#pragma once

#include <QByteArray>
#include <QObject>
#include <QUrl>

#include <optional>

namespace quillbox {

/// The desktop's clipboard. Thread: main, of a program with a display.
class Pasteboard : public QObject {
    Q_OBJECT

public:
    /// The clipboard of this desktop; lives as long as the application object.
    [[nodiscard]] static Pasteboard& general();

    /// Replaces what is on it by a list of exactly one file URL and, if given, the bytes as image/gif, in that order.
    /// They stay until another program puts something there, or this one ends and no clipboard manager takes them over.
    /// Whether the desktop accepted them is not reported.
    virtual void setClip(const QUrl& fileURL, const std::optional<QByteArray>& gifData) = 0;
    /// Whether what this program put there is still there.
    [[nodiscard]] virtual bool ownsContent() const = 0;
    /// Empties it, if what is there is this program's.
    virtual void clear() = 0;

Q_SIGNALS:
    /// Another program has put something there.
    void lost();
};

} // namespace quillbox
