#pragma once

#include "PostCapture/FileReveal.h"
#include "PostCapture/HistoryStore.h"

#include <QWidget>

#include <vector>

class QScrollArea;
class QStackedWidget;
class QVBoxLayout;

namespace quillbox {

class ClipActions;
class ClipPreview;
class FlatButton;
class HistoryNotice;
class HistoryRow;
enum class ClipAction;

/// The lower part of the panel: the clips made lately. Shows what the store holds, whenever it changes. Thread: main.
class HistoryPanel : public QWidget {
    Q_OBJECT

public:
    /// @pre Both outlive the view.
    HistoryPanel(HistoryStore& store, FileReveal& fileReveal, QWidget* parent = nullptr);
    ~HistoryPanel() override;

    /// Whether resting on a row shows the clip; at first it does.
    void setPreviewing(bool isPreviewing);

    /// Does something with a clip; asks before it goes to the trash.
    void carryOut(ClipAction action, const ClipEntry& entry);

    /// As high as all rows, and as the empty list at least.
    [[nodiscard]] QSize sizeHint() const override;
    /// As high as a row and a half; without rows, as the header alone: the empty list gives way.
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// How much of the height of its size hint it can do without easily: what is beyond a few rows is scrolled to.
    [[nodiscard]] int spareHeight() const;
    /// Takes the height that it is given.
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }

private:
    QWidget* makeHeader();
    QScrollArea* makeList();
    void showEntries();
    [[nodiscard]] HistoryRow* makeRow(const ClipEntry& entry);
    [[nodiscard]] double rowHeight() const;
    [[nodiscard]] int heightAround(int contents) const;
    void reveal(const HistoryRow* row) const;
    void clear();
    void preview(const HistoryRow& row);

    HistoryStore& m_store;
    FileReveal& m_fileReveal;
    FlatButton* m_clear = nullptr;
    QVBoxLayout* m_rowLayout = nullptr;
    ClipActions* m_actions;
    ClipPreview* m_preview;
    bool m_isPreviewing = true;
    QWidget* m_header;
    HistoryNotice* m_notice;
    QWidget* m_emptyState;
    QScrollArea* m_list;
    QStackedWidget* m_contents;
    std::vector<HistoryRow*> m_rows; // in the order of the store
};

} // namespace quillbox
