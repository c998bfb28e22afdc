#pragma once

#include "PostCapture/Clipboard/ClipboardOwner.h"

#include <memory>
#include <vector>

namespace quillbox {

/// The clipboard of a Wayland compositor that lets programs set it whether or not they have the focus. Of several
/// seats, it is the first one's clipboard.
/// @see Wayland protocols ext-data-control-v1, wlr-data-control-unstable-v1
class DataControl : public ClipboardOwner {
    Q_OBJECT

public:
    /// The name of what the compositor that WAYLAND_DISPLAY names offers; null where there is none, or nobody who could
    /// paste. Waits for the answer, for at most two seconds. Thread: any.
    [[nodiscard]] static const char* offered();
    /// Connects to that compositor. @return null where offered() is
    [[nodiscard]] static std::unique_ptr<DataControl> open();
    ~DataControl() override;

    void own(std::vector<MimeItem> items) override;
    void disown() override;
    [[nodiscard]] bool owns() const override;
    /// Also false once the seat has gone.
    [[nodiscard]] bool isConnected() const override;

private:
    struct State;

    explicit DataControl(std::unique_ptr<State> state);
    void takeEvents();
    void send();

    std::unique_ptr<State> m_state;
};

} // namespace quillbox
