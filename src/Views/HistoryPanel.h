#pragma once

#include "PostCapture/FileReveal.h"
#include "PostCapture/HistoryStore.h"

#include <QWidget>

#include <vector>

class QScrollArea;
class QStackedWidget;
class QVBoxLayout;

namespace quillbox {

class FlatButton;
class HistoryRow;

/// The lower part of the panel: the clips made lately. Shows what the store holds, whenever it changes. Thread: main.
class HistoryPanel : public QWidget {
    Q_OBJECT

public:
    /// @pre Both outlive the view.
    HistoryPanel(HistoryStore& store, FileReveal& fileReveal, QWidget* parent = nullptr);

    /// As high as a few rows; the others are scrolled to.
    [[nodiscard]] QSize sizeHint() const override;
    /// Takes the height that it is given.
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }

private:
    QWidget* makeHeader();
    QWidget* makeEmptyState();
    QScrollArea* makeList();
    void showEntries();
    void reveal(const HistoryRow* row) const;

    HistoryStore& m_store;
    FileReveal& m_fileReveal;
    FlatButton* m_clear = nullptr;
    QVBoxLayout* m_rowLayout = nullptr;
    QWidget* m_header;
    QWidget* m_emptyState;
    QScrollArea* m_list;
    QStackedWidget* m_contents;
    std::vector<HistoryRow*> m_rows; // in the order of the store
};

} // namespace quillbox
