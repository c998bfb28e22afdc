#pragma once

#include "Capture/CaptureRegion.h"

#include <QColor>
#include <QPixmap>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QWidget>

#include <functional>
#include <optional>

namespace quillbox {

/// The dimmed overlay: one drag of the mouse selects, Escape and the right button cancel, every other key is ignored.
/// Says so until the drag begins. In front of everything on its screen, with the keyboard. Serves one gesture and
/// deletes itself then. Thread: main.
class SelectionWindow : public QWidget {
    Q_OBJECT

public:
    /// The colour of the selection.
    [[nodiscard]] static QColor accentColor();
    /// How much of that colour lies over the selection, above what is dimmed by `dimming`.
    static constexpr float fillOpacity = 0.15F;
    /// How much of black lies over the screen.
    static constexpr float dimming = 0.25F;

    using ResultCallback = std::function<void(std::optional<CaptureRegion>)>;

    /// @param screenFrame  The main display, in the window system's coordinates.
    /// @param backdrop     What to show dimmed; null to let the desktop show through.
    /// @param onResult     Called once, after the window was hidden; compositors may show it a little longer.
    SelectionWindow(const QRect& screenFrame, QPixmap backdrop, ResultCallback onResult);
    ~SelectionWindow() override;

    /// Shows the window in front and takes the keyboard.
    void makeKeyAndOrderFront();

    /// Leaves the screen without a result: the gesture was made elsewhere.
    void withdraw();

Q_SIGNALS:
    /// The gesture is over and the window has left the screen; `onResult` has yet to be called.
    void finished();
    /// A button was pressed outside the window, at a point of the desktop, which is no part of the gesture. On an X
    /// server only.
    void pressedElsewhere(const QPoint& place);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void finish(std::optional<CaptureRegion> region);
    static void drawTag(QPainter& painter, const QRectF& tag, const QString& text);
    void drawSelection(QPainter& painter) const;
    [[nodiscard]] static QString hintText();
    [[nodiscard]] QRectF hintTag() const;
    [[nodiscard]] QString sizeText() const;
    [[nodiscard]] QRectF sizeTag() const;
    [[nodiscard]] QRect drawnArea() const;

    ResultCallback m_onResult; // empty once it was called
    std::optional<QPointF> m_startPoint;
    QRectF m_selection; // drawn only; may leave the screen
    QPixmap m_backdrop;
    bool m_isPressElsewhere = false; // the button that is held was pressed outside
    bool m_isFinished = false;
};

} // namespace quillbox
