#pragma once

#include "PostCapture/ClipEntry.h"
#include "Views/History/ClipActions.h"

#include <QPoint>
#include <QWidget>

namespace quillbox {

class SymbolLabel;
class TextLabel;

/// One clip of the history. It has a menu, and keys while its button has the keyboard, and can be dragged out into
/// another program. Thread: main.
class HistoryRow : public QWidget {
    Q_OBJECT

public:
    static constexpr int sideInset = 10; ///< before the contents, device-independent pixels

    explicit HistoryRow(const ClipEntry& entry, QWidget* parent = nullptr);

    [[nodiscard]] const QUuid& id() const { return m_entry.id; }
    [[nodiscard]] const ClipEntry& entry() const { return m_entry; }
    /// Shows an entry, be it the same or another.
    void setEntry(const ClipEntry& entry);

Q_SIGNALS:
    /// The user wants to see the entry's file.
    void revealRequested();
    /// The user wants something done with it, by the menu or a key.
    void requested(quillbox::ClipAction action);
    /// The pointer has come, or has gone, or does something else.
    void hoverChanged(bool isHovered);

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void drag();

    ClipEntry m_entry;
    QPoint m_pressed; // where a drag may begin
    SymbolLabel* m_symbol;
    TextLabel* m_title;
    TextLabel* m_details;
};

} // namespace quillbox
