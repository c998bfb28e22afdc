#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>

class QScreen;

namespace quillbox {

/// The line that says on which monitor recording is possible, where another one was pressed. Thread: main.
class MonitorNotice : public QWidget {
    Q_OBJECT

public:
    /// @param recordable  Where recording is possible.
    explicit MonitorNotice(const QScreen& recordable);

    /// Where it stands on a monitor that was pressed at a point: above the point, as far as there is room. All in one
    /// system of points.
    [[nodiscard]] QRect place(const QPoint& pressed, const QRect& monitor) const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillbox
