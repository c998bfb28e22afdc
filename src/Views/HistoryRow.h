#pragma once

#include "PostCapture/ClipEntry.h"

#include <QWidget>

namespace quillbox {

class SymbolLabel;
class TextLabel;

/// One clip of the history. Thread: main.
class HistoryRow : public QWidget {
    Q_OBJECT

public:
    static constexpr int sideInset = 10; ///< before the contents, device-independent pixels

    explicit HistoryRow(const ClipEntry& entry, QWidget* parent = nullptr);

    [[nodiscard]] const QUuid& id() const { return m_id; }
    /// Shows an entry, be it the same or another.
    void setEntry(const ClipEntry& entry);

Q_SIGNALS:
    /// The user wants to see the entry's file.
    void revealRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QUuid m_id;
    SymbolLabel* m_symbol;
    TextLabel* m_title;
    TextLabel* m_details;
};

} // namespace quillbox
