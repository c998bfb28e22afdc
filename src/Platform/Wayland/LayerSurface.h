#pragma once

#include <QImage>
#include <QObject>
#include <QPointF>
#include <QRect>
#include <QSize>
#include <QString>

#include <memory>

namespace quillbox {

/// An output of a Wayland compositor that lets programs place pictures above all windows, as sway and KWin do: by
/// zwlr_layer_shell_v1, on a connection of its own. Thread: main, with an event loop.
class LayerOutput {
public:
    /// Connects to the compositor that WAYLAND_DISPLAY names. Waits for its answers, for at most two seconds each.
    /// @param name  As QScreen::name() has it.
    /// @return null where there is no such output, or the compositor lets nobody do that, as mutter
    [[nodiscard]] static std::shared_ptr<LayerOutput> open(const QString& name);
    ~LayerOutput();
    LayerOutput(const LayerOutput&) = delete;
    LayerOutput& operator=(const LayerOutput&) = delete;

    [[nodiscard]] QSize points() const;
    /// Pixels a point that pictures should have, at least 1: the output's scale, rounded up.
    [[nodiscard]] int scale() const;
    /// Whether the edge of every point is the edge of a pixel.
    [[nodiscard]] bool hasWholeScale() const;

private:
    friend class LayerSurface;
    struct Connection;

    explicit LayerOutput(std::unique_ptr<Connection> connection);

    std::unique_ptr<Connection> m_connection;
};

/// A rectangle of an output that shows a picture above all windows, as long as this object and the output last. It
/// takes no keys. Thread: main.
class LayerSurface : public QObject {
    Q_OBJECT

public:
    enum class Pointer {
        Passed, ///< to what lies below
        Taken,  ///< and told by the signals
        Hidden, ///< likewise, and not to be seen
    };

    /// @param place  Points of the output, from its top left corner; not empty, and on the output.
    LayerSurface(std::shared_ptr<LayerOutput> output, const QRect& place, Pointer pointer, QObject* parent = nullptr);
    ~LayerSurface() override;

    /// From now on shows `picture`, which has scale() times as many pixels each way as the place has points.
    void show(const QImage& picture);
    /// From now on shows what lies below; the pointer is taken all the same.
    void showNothing();
    /// Whether the pointer is not to be seen while it is there.
    [[nodiscard]] bool hidesPointer() const { return m_pointer == Pointer::Hidden; }
    /// Takes it off the screen for good. A slot of the signals may do so, but not destroy the object.
    void remove();

Q_SIGNALS:
    // Of the pointer, which may be gone from the place while a button is held; points from the place's corner.
    void pointerMoved(QPointF position);
    void pointerLeft();
    /// The left button.
    void pressed(QPointF position);
    void released(QPointF position);

private:
    struct State;

    std::shared_ptr<LayerOutput> m_output;
    Pointer m_pointer;
    std::unique_ptr<State> m_state; // null once removed
};

} // namespace quillbox
