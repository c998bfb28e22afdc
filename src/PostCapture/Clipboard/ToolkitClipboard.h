#pragma once

#include "PostCapture/Clipboard/Clipboard.h"

class QMimeData;

namespace quillbox {

/// A clip as the toolkit's clipboard takes it, which then owns it: exactly the file's URL and, if given, its bytes as
/// image/gif.
[[nodiscard]] QMimeData* makeMimeData(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData);

/// The toolkit's clipboard, on any desktop. On X11 it adds the URL as text, of its own accord. Thread: main.
class ToolkitClipboard : public Clipboard {
    Q_OBJECT

public:
    ToolkitClipboard();

    void setClip(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData) override;
    void clear() override;
};

/// The same on a Wayland compositor that takes a clip only from the program that has the focus. Sets it
/// at once where one of our windows has it, else, and where the compositor refuses, when one gets it. Thread: main.
/// @see Wayland protocol, wl_data_device
class FocusClipboard : public Clipboard {
    Q_OBJECT

public:
    FocusClipboard();

    void setClip(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData) override;
    void retry() override { offer(); }
    void clear() override;

private:
    struct Clip {
        QUrl fileURL;
        std::optional<ClipboardBytes> gifData;
    };

    void offer();
    void look();

    std::optional<Clip> m_clip; // as long as it is not accepted
    bool m_isOffering = false;
    bool m_isOffered = false; // and not answered yet
};

} // namespace quillbox
