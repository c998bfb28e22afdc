#pragma once

#include "App/Workflow/CurrentCoordinator.h"

#include <QWidget>

#include <optional>

namespace quillbox {

class FlatButton;
class TextLabel;

/// What can be made of a recording once more, below the status of its clip: more precisely, for another preset, or
/// after a failure. Tells, too, where a clip is too large or lacks pictures. Hidden where there is nothing to offer.
/// Holds no state. Thread: main.
class ClipOffers : public QWidget {
    Q_OBJECT

public:
    /// @pre `coordinator` outlives the view.
    explicit ClipOffers(CurrentCoordinator& coordinator, QWidget* parent = nullptr);

Q_SIGNALS:
    /// The user wants to say where the clip that could not be saved goes.
    void saveElsewhereRequested();

private:
    /// A further clip.
    struct Offer {
        QString label;
        ClipRequest request;
    };

    [[nodiscard]] std::optional<Offer> offer() const;
    void show();

    CurrentCoordinator& m_coordinator;
    TextLabel* m_shortfall;
    FlatButton* m_remake;
    FlatButton* m_retry;
    FlatButton* m_saveElsewhere;
};

} // namespace quillbox
