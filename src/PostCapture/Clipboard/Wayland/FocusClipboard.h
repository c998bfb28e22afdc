#pragma once

#include "PostCapture/Clipboard/Clipboard.h"

namespace quillbox {

/// The toolkit's clipboard on a Wayland compositor that takes a clip only from the program that has the focus. Sets it
/// at once where one of our windows has it, else, and where the compositor refuses, when one gets it. Thread: main.
/// @see Wayland protocol, wl_data_device
class FocusClipboard : public Clipboard {
    Q_OBJECT

public:
    FocusClipboard();

    void setClip(const QUrl& fileURL, const std::optional<QByteArray>& gifData) override;
    void retry() override { offer(); }
    void clear() override;

private:
    struct Clip {
        QUrl fileURL;
        std::optional<QByteArray> gifData;
    };

    void offer();
    void look();

    std::optional<Clip> m_clip; // as long as it is not accepted
    bool m_isOffering = false;
    bool m_isOffered = false; // and not answered yet
};

} // namespace quillbox
