#include "Views/History/HistoryRow.h"

#include "Views/ByteFormat.h"
#include "Views/Controls/FlatButton.h"
#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TextLabel.h"
#include "Views/FixedPoint.h"
#include "Views/History/ShownName.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHBoxLayout>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QStringList>
#include <QUrl>
#include <QVBoxLayout>

namespace quillbox {
namespace {

QString titleOf(const ClipEntry& entry)
{
    return entry.outputPath ? shownName(*entry.outputPath) : HistoryRow::tr("clip");
}

QString detailsOf(const ClipEntry& entry)
{
    QStringList details(entry.preset);
    if (entry.byteCount)
        details.append(QStringLiteral("· ") + ByteFormat::shortText(*entry.byteCount));
    if (entry.durationSeconds)
        details.append(HistoryRow::tr("· %1s").arg(fixedPoint(*entry.durationSeconds, 1)));
    return details.join(QLatin1Char(' '));
}

} // namespace

HistoryRow::HistoryRow(const ClipEntry& entry, QWidget* parent)
    : QWidget(parent)
    , m_symbol(new SymbolLabel(Symbol::Film, Role::Accent, 20, this))
    , m_title(new TextLabel(QString(), TextStyle::Body, Role::Primary, TextLabel::Overflow::ElideMiddle, this))
    , m_details(new TextLabel(QString(), TextStyle::Callout, Role::Secondary, TextLabel::Overflow::ElideMiddle, this))
{
    setAttribute(Qt::WA_Hover);
    auto* reveal
        = new FlatButton(FlatButton::Kind::Symbol, tr("Reveal in Finder"), Symbol::MagnifyingglassCircle, this);
    connect(reveal, &FlatButton::clicked, this, &HistoryRow::revealRequested);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(m_title);
    texts->addWidget(m_details);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(sideInset, 6, 6, 6);
    row->setSpacing(Theme::spacing);
    row->addWidget(m_symbol);
    row->addLayout(texts, 1);
    row->addWidget(reveal);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setEntry(entry);
}

void HistoryRow::setEntry(const ClipEntry& entry)
{
    m_entry = entry;
    m_symbol->setSymbol(entry.format == QLatin1String("GIF") ? Symbol::PhotoStack : Symbol::Film, Role::Accent);
    m_title->setText(titleOf(entry));
    m_title->setToolTip(plainToolTip(m_title->text()));
    m_details->setText(detailsOf(entry));
    setAccessibleName(m_title->text());
    setAccessibleDescription(m_details->text());
    for (auto* button : findChildren<FlatButton*>())
        button->setAccessibleDescription(m_title->text()); // all of them have the same name
}

void HistoryRow::contextMenuEvent(QContextMenuEvent* event)
{
    Q_EMIT hoverChanged(false);
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto offer = [this, menu](const QString& text, const QKeySequence& key, ClipAction action) {
        auto* const item = menu->addAction(text);
        item->setShortcut(key); // only shown: the row itself takes the key
        item->setShortcutContext(Qt::WidgetShortcut);
        item->setShortcutVisibleInContextMenu(true);
        item->setEnabled(m_entry.outputPath.has_value());
        connect(item, &QAction::triggered, this, [this, action] { Q_EMIT requested(action); });
    };
    offer(tr("Copy"), QKeySequence::Copy, ClipAction::Copy);
    offer(tr("Open"), QKeySequence::Open, ClipAction::Open);
    offer(tr("Show"), {}, ClipAction::Show);
    menu->addSeparator();
    offer(tr("Move to Trash…"), QKeySequence::Delete, ClipAction::Trash);
    menu->popup(event->globalPos());
}

void HistoryRow::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        Q_EMIT requested(ClipAction::Copy);
    else if (event->matches(QKeySequence::Open))
        Q_EMIT requested(ClipAction::Open);
    else if (event->matches(QKeySequence::Delete))
        Q_EMIT requested(ClipAction::Trash);
    else
        QWidget::keyPressEvent(event);
}

void HistoryRow::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->pos();
    findChild<FlatButton*>()->setFocus(Qt::MouseFocusReason); // the keys are for this clip now
}

void HistoryRow::mouseMoveEvent(QMouseEvent* event)
{
    const bool isFar = (event->pos() - m_pressed).manhattanLength() >= QApplication::startDragDistance();
    if (isFar && (event->buttons() & Qt::LeftButton) != 0 && m_entry.outputPath)
        drag();
}

void HistoryRow::drag()
{
    Q_EMIT hoverChanged(false);
    auto* const contents = new QMimeData; // the drag owns it
    contents->setUrls({QUrl::fromLocalFile(*m_entry.outputPath)});
    auto* const gesture = new QDrag(this); // the toolkit deletes it
    gesture->setMimeData(contents);
    gesture->setPixmap(m_symbol->grab());
    (void)gesture->exec(Qt::CopyAction); // the toolkit has no drag without a loop of its own
}

void HistoryRow::enterEvent(QEnterEvent* /*event*/)
{
    Q_EMIT hoverChanged(true);
}

void HistoryRow::leaveEvent(QEvent* /*event*/)
{
    Q_EMIT hoverChanged(false);
}

void HistoryRow::hideEvent(QHideEvent* /*event*/)
{
    Q_EMIT hoverChanged(false);
}

void HistoryRow::paintEvent(QPaintEvent* /*event*/)
{
    if (!underMouse())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme(palette()).hovered());
    painter.drawRoundedRect(rect(), Theme::controlRadius, Theme::controlRadius);
}

} // namespace quillbox

#include "moc_HistoryRow.cpp"
