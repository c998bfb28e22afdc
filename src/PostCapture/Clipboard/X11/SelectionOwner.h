#pragma once

#include "PostCapture/Clipboard/ClipboardOwner.h"

#include <memory>
#include <string_view>
#include <vector>

namespace quillbox {

/// Owns a selection of the X server, such as CLIPBOARD.
/// @see Inter-Client Communication Conventions Manual, 2.2 "Responsibilities of the Selection Owner", 2.7.2
/// "Incremental Transfers"
class SelectionOwner : public ClipboardOwner {
    Q_OBJECT

public:
    /// @throws DisplayError  NoDisplay
    explicit SelectionOwner(std::string_view selection);
    ~SelectionOwner() override;

    void own(std::vector<MimeItem> items) override;
    void disown() override;
    [[nodiscard]] bool owns() const override;
    [[nodiscard]] bool isConnected() const override;

private:
    struct State;

    void takeEvents();

    std::unique_ptr<State> m_state;
};

} // namespace quillbox
