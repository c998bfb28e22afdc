#pragma once

#include "PostCapture/Clipboard/MimeItem.h"

#include <QObject>

#include <memory>
#include <string_view>
#include <vector>

namespace quillbox {

/// Owns a selection of the X server, such as CLIPBOARD, and gives what was put there to whoever asks, however large, to
/// several programs at a time. Has a connection of its own. Thread: main.
/// @see Inter-Client Communication Conventions Manual, 2.2 "Responsibilities of the Selection Owner", 2.7.2
/// "Incremental Transfers"
class SelectionOwner : public QObject {
    Q_OBJECT

public:
    /// @throws CaptureError  NoDisplay
    explicit SelectionOwner(std::string_view selection);
    ~SelectionOwner() override;

    /// Takes the selection from whoever has it. Nothing else is offered than what `forms` names, in that order, and
    /// what the conventions ask of every owner.
    void own(std::vector<MimeItem> forms);
    /// Leaves the selection to nobody, if it is still ours.
    void disown();
    [[nodiscard]] bool owns() const;

Q_SIGNALS:
    /// Another program has taken the selection, or the display is gone.
    void lost();

private:
    struct State;

    void takeEvents();

    std::unique_ptr<State> m_state;
};

} // namespace quillbox
