#pragma once

#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

#include <optional>
#include <vector>

class QVBoxLayout;

namespace quillbox {

class CurrentCoordinator;

/// A small window above all others that shows how long the recording has been going on, and ends it: for desktops
/// without a tray. Thread: main.
class StopControl : public QWidget {
    Q_OBJECT

public:
    /// How far it stays away from what is recorded; the frame around that lies between. Device-independent pixels.
    static constexpr int distance = 12;

    /// @pre `coordinator` outlives the view.
    explicit StopControl(CurrentCoordinator& coordinator, QWidget* parent = nullptr);

    /// Adds a line below.
    void setHint(const QString& text);

    /// Shows it beside `region`, where there is room. @return whether there is
    /// @param screens  The one that is recorded first. Global coordinates, as the region.
    [[nodiscard]] bool appear(const QRect& region, const std::vector<QRect>& screens);

    /// The corner of something of that size that lies on one screen and outside the region: below it, above it, beside
    /// it, or on another screen. None where the region leaves no room.
    [[nodiscard]] static std::optional<QPoint> place(
        const QSize& size, const QRect& region, const std::vector<QRect>& screens);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_lines;
};

} // namespace quillbox
