#include "Views/History/HistoryPanel.h"

#include "Views/Controls/FlatButton.h"
#include "Views/Controls/Scroller.h"
#include "Views/Controls/TextLabel.h"
#include "Views/History/ClipActions.h"
#include "Views/History/ClipPreview.h"
#include "Views/History/EmptyState.h"
#include "Views/History/HistoryNotice.h"
#include "Views/History/HistoryRow.h"
#include "Views/History/ShownName.h"

#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quillbox {
namespace {

constexpr double fewestRows = 3; // an empty list is as high as this many
constexpr double fewRows = 4.5;  // of a list that may be longer: half a row shows that there is more
constexpr double minRows = 1.5;  // on a small screen

} // namespace

HistoryPanel::HistoryPanel(HistoryStore& store, FileReveal& fileReveal, QWidget* parent)
    : QWidget(parent)
    , m_store(store)
    , m_fileReveal(fileReveal)
    , m_actions(new ClipActions(store, fileReveal, this))
    , m_preview(new ClipPreview(this))
    , m_header(makeHeader())
    , m_notice(new HistoryNotice(this))
    , m_emptyState(new EmptyState(
          Symbol::RectangleOnRectangleAngled, tr("No clips yet"), tr("Your recorded clips will show up here."), this))
    , m_list(makeList())
    , m_contents(new QStackedWidget(this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, Theme::tightSpacing, 0, Theme::tightSpacing);
    column->setSpacing(2);
    column->addWidget(m_header);
    column->addWidget(m_notice);
    m_contents->addWidget(m_emptyState);
    m_contents->addWidget(m_list);
    m_contents->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored); // this object says how high
    column->addWidget(m_contents, 1);

    connect(&m_store, &HistoryStore::entriesChanged, this, &HistoryPanel::showEntries);
    connect(m_actions, &ClipActions::failed, m_notice, &HistoryNotice::tell);
    showEntries();
}

/// A row that is hidden says so, and rows are hidden after this object was what it is.
HistoryPanel::~HistoryPanel()
{
    for (HistoryRow* const row : m_rows)
        row->disconnect(this);
}

QWidget* HistoryPanel::makeHeader()
{
    auto* header = new QWidget(this);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(Theme::margin, 0, Theme::margin, 0);
    row->addWidget(
        new TextLabel(tr("Recent Clips"), TextStyle::Headline, Role::Primary, TextLabel::Overflow::None, header));
    row->addStretch();
    m_clear = new FlatButton(FlatButton::Kind::Small, tr("Clear"), std::nullopt, header);
    connect(m_clear, &FlatButton::clicked, this, &HistoryPanel::clear);
    row->addWidget(m_clear);
    header->setMinimumHeight(m_clear->sizeHint().height()); // nothing moves when the button goes
    return header;
}

QScrollArea* HistoryPanel::makeList()
{
    auto* list = new QScrollArea(this);
    list->setFrameShape(QFrame::NoFrame);
    list->setWidgetResizable(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setFocusPolicy(Qt::NoFocus); // its buttons have it, and scroll into view
    list->setAccessibleName(tr("Recent Clips"));
    auto* rows = new QWidget;
    m_rowLayout = new QVBoxLayout(rows);
    m_rowLayout->setContentsMargins(
        Theme::margin - HistoryRow::sideInset, 0, Theme::margin - HistoryRow::sideInset, Theme::tightSpacing);
    m_rowLayout->setSpacing(0);
    m_rowLayout->addStretch();
    list->setWidget(rows);
    rows->setAutoFillBackground(false); // the panel's surface shows through
    list->viewport()->setAutoFillBackground(false);
    Scroller::style(*list->verticalScrollBar());
    return list;
}

void HistoryPanel::showEntries()
{
    const std::vector<ClipEntry>& entries = m_store.entries();
    // A row stays with its entry, so that the keyboard stays where it is when a clip comes in above.
    std::vector<HistoryRow*> known = std::exchange(m_rows, {});
    for (const ClipEntry& entry : entries) {
        const auto same = std::find_if(
            known.begin(), known.end(), [&entry](const HistoryRow* row) { return row->id() == entry.id; });
        HistoryRow* row = nullptr;
        if (same != known.end()) {
            row = *same;
            known.erase(same);
            row->setEntry(entry);
        } else {
            row = makeRow(entry);
        }
        const int place = static_cast<int>(m_rows.size());
        if (m_rowLayout->indexOf(row) != place)
            m_rowLayout->insertWidget(place, row);
        row->show();
        m_rows.push_back(row);
    }
    for (HistoryRow* gone : known) {
        gone->hide();
        gone->deleteLater(); // its button may be what was pressed
        m_rowLayout->removeWidget(gone);
    }
    QWidget* before = m_clear;
    for (HistoryRow* row : m_rows) {
        auto* button = row->findChild<FlatButton*>();
        setTabOrder(before, button);
        before = button;
    }
    m_clear->setVisible(!entries.empty());
    m_contents->setCurrentWidget(entries.empty() ? m_emptyState : m_list);
    updateGeometry();
}

HistoryRow* HistoryPanel::makeRow(const ClipEntry& entry)
{
    auto* const row = new HistoryRow(entry);
    connect(row, &HistoryRow::revealRequested, this, [this, row] { reveal(row); });
    connect(row, &HistoryRow::requested, this, [this, row](ClipAction action) { carryOut(action, row->entry()); });
    connect(row, &HistoryRow::hoverChanged, this, [this, row](bool isHovered) {
        if (isHovered && m_isPreviewing)
            preview(*row);
        else
            m_preview->leave();
    });
    return row;
}

void HistoryPanel::setPreviewing(bool isPreviewing)
{
    m_isPreviewing = isPreviewing;
    if (!isPreviewing)
        m_preview->leave();
}

void HistoryPanel::preview(const HistoryRow& row)
{
    m_preview->await(row.entry(), QRect(row.mapToGlobal(QPoint()), row.size()), window()->frameGeometry(),
        screen()->availableGeometry());
}

void HistoryPanel::clear()
{
    const auto forgotten = m_store.entries();
    m_store.clear();
    m_notice->offerUndo(tr("The files are still there."), [this, forgotten] { m_store.restore(forgotten); });
}

void HistoryPanel::carryOut(ClipAction action, const ClipEntry& entry)
{
    if (action != ClipAction::Trash) {
        m_actions->carryOut(action, entry);
    } else if (entry.outputPath) {
        m_notice->ask(tr("Move “%1” to the trash?").arg(shownName(*entry.outputPath)), tr("Move to Trash"),
            [this, entry] { m_actions->carryOut(ClipAction::Trash, entry); });
    }
}

void HistoryPanel::reveal(const HistoryRow* row) const
{
    const auto place = std::find(m_rows.begin(), m_rows.end(), row) - m_rows.begin();
    const ClipEntry& entry = m_store.entries().at(static_cast<std::size_t>(place));
    if (entry.outputPath)
        m_fileReveal.reveal(*entry.outputPath);
}

double HistoryPanel::rowHeight() const
{
    const QFontMetrics title(Theme::font(TextStyle::Body));
    const QFontMetrics details(Theme::font(TextStyle::Callout));
    return m_rows.empty() ? title.height() + details.height() + 13 : m_rows.front()->sizeHint().height();
}

int HistoryPanel::heightAround(int contents) const
{
    const int notice = m_notice->isHidden() ? 0 : m_notice->sizeHint().height() + layout()->spacing();
    return m_clear->sizeHint().height() + notice + contents + layout()->spacing() + 3 * Theme::tightSpacing;
}

QSize HistoryPanel::sizeHint() const
{
    const double rows = std::max(static_cast<double>(m_rows.size()), fewestRows);
    const int contents = std::max(static_cast<int>(rows * rowHeight()), m_emptyState->sizeHint().height());
    return QSize(layout()->sizeHint().width(), heightAround(contents));
}

QSize HistoryPanel::minimumSizeHint() const
{
    const double rows = std::min(static_cast<double>(m_rows.size()), minRows);
    return QSize(layout()->minimumSize().width(), heightAround(static_cast<int>(rows * rowHeight())));
}

int HistoryPanel::spareHeight() const
{
    return std::max(0, static_cast<int>((static_cast<double>(m_rows.size()) - fewRows) * rowHeight()));
}

} // namespace quillbox

#include "moc_HistoryPanel.cpp"
