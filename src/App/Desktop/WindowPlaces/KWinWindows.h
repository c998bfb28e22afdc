#pragma once

#include "App/Desktop/WindowPlaces/WindowPlaces.h"

namespace quillbox {

/// Asks KWin over the session bus: its search for windows knows which there are, and its main object where each is.
class KWinWindows : public WindowPlaces {
    Q_OBJECT

public:
    KWinWindows() = default;

    void ask(const QString& title) override;

    /// What getWindowInfo answers of one of our windows; see told().
    [[nodiscard]] static std::optional<QRect> placeIn(const QVariantMap& window);

private:
    void find();
    void look(const QStringList& windows);
    void tell(const std::optional<QRect>& place);

    QString m_title;  ///< empty while no answer is awaited
    QString m_window; ///< KWin's name of the window that was found last; empty: none
};

} // namespace quillbox
