#include "Views/HistoryRow.h"

#include "Views/ByteFormat.h"
#include "Views/FixedPoint.h"
#include "Views/FlatButton.h"
#include "Views/SymbolLabel.h"
#include "Views/TextLabel.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPainter>
#include <QStringList>
#include <QVBoxLayout>

namespace quillbox {
namespace {

QString titleOf(const ClipEntry& entry)
{
    return entry.outputPath ? QFileInfo(QDir::cleanPath(*entry.outputPath)).fileName() : HistoryRow::tr("clip");
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
    m_id = entry.id;
    m_symbol->setSymbol(entry.format == QLatin1String("GIF") ? Symbol::PhotoStack : Symbol::Film, Role::Accent);
    m_title->setText(titleOf(entry));
    m_title->setToolTip(plainToolTip(m_title->text()));
    m_details->setText(detailsOf(entry));
    setAccessibleName(m_title->text());
    setAccessibleDescription(m_details->text());
    for (auto* button : findChildren<FlatButton*>())
        button->setAccessibleDescription(m_title->text()); // all of them have the same name
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
