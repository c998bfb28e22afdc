#pragma once

#include "PostCapture/ClipEntry.h"

#include <QBuffer>
#include <QMovie>
#include <QRect>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <memory>
#include <optional>

class QLabel;

namespace quillbox {

class TextLabel;

/// A clip, playing, with its date and its size in pixels, beside the row that the pointer rests on. Takes no clicks.
/// Thread: main.
class ClipPreview : public QWidget {
    Q_OBJECT

public:
    /// How long the pointer rests before it appears.
    static constexpr std::chrono::milliseconds delay{400};
    /// A clip that is larger is shown smaller.
    static constexpr QSize largest{288, 216};

    explicit ClipPreview(QWidget* parent = nullptr);

    /// Shows the clip after a while, unless it can't be read.
    /// @param row     Of the clip, global coordinates. @param window  What the preview is to stand beside.
    /// @param screen  Where there is room.
    void await(const ClipEntry& entry, const QRect& row, const QRect& window, const QRect& screen);
    /// Shows nothing, or nothing any more.
    void leave();

    /// Where something of that size goes: beside the window, at the height of the row, within the screen where it fits.
    [[nodiscard]] static QRect place(const QSize& size, const QRect& row, const QRect& window, const QRect& screen);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void read();
    void play(const QByteArray& gif);

    QLabel* m_picture;
    TextLabel* m_date;
    TextLabel* m_pixels;
    QTimer* m_rest;
    ClipEntry m_entry;
    QRect m_row, m_window, m_screen;
    std::int64_t m_number = 0; // of the clip that is awaited: an answer about another one comes too late
    QBuffer m_bytes;
    std::unique_ptr<QMovie> m_movie; // reads m_bytes
};

} // namespace quillbox
