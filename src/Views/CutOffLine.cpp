#include "Views/CutOffLine.h"

#include "App/Workflow/CutOffOffer.h"
#include "Views/Controls/Card.h"
#include "Views/Controls/FlatButton.h"
#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TextLabel.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QLocale>
#include <QVBoxLayout>

namespace quillbox {
namespace {

/// "14:03", after the date unless that is today's.
QString textOf(const QDateTime& began)
{
    auto time = began.toString(QStringLiteral("HH:mm"));
    if (began.date() == QDate::currentDate())
        return time;
    return QLocale().toString(began.date(), QLocale::ShortFormat) + QLatin1Char(' ') + time;
}

QString described(const CutOffOffer& offer)
{
    if (offer.isDamaged())
        return CutOffLine::tr("A recording was cut off and is damaged; nothing can be made of it.");
    return CutOffLine::tr("A recording from %1 was cut off (%2 s).")
        .arg(textOf(offer.began()), QLocale().toString(qlonglong{offer.seconds()}));
}

} // namespace

CutOffLine::CutOffLine(CutOffOffer& offer, QWidget* parent)
    : QWidget(parent)
    , m_offer(offer)
    , m_text(new TextLabel(QString(), TextStyle::Caption, Role::Primary, TextLabel::Overflow::Wrap, this))
    , m_problem(new TextLabel(QString(), TextStyle::Caption, Role::Red, TextLabel::Overflow::Wrap, this))
    , m_make(new FlatButton(FlatButton::Kind::Small, tr("Make the clip"), std::nullopt, this))
    , m_discard(new FlatButton(FlatButton::Kind::Small, tr("Discard"), std::nullopt, this))
    , m_confirm(new FlatButton(FlatButton::Kind::Small, tr("Discard for good"), std::nullopt, this))
    , m_keep(new FlatButton(FlatButton::Kind::Small, tr("Keep it"), std::nullopt, this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Divider(this));
    auto* row = new QHBoxLayout;
    row->setContentsMargins(Theme::margin, 8, Theme::margin, 8);
    row->setSpacing(Theme::tightSpacing);
    row->addWidget(new SymbolLabel(Symbol::InfoCircle, Role::Accent, Theme::symbolSize, this), 0, Qt::AlignTop);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(Theme::tightSpacing);
    lines->addWidget(m_text);
    lines->addWidget(m_problem);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Theme::tightSpacing);
    for (QWidget* const button : {m_make, m_discard, m_confirm, m_keep})
        buttons->addWidget(button);
    buttons->addStretch();
    lines->addLayout(buttons);
    row->addLayout(lines, 1);
    column->addLayout(row);

    connect(m_make, &FlatButton::clicked, &m_offer, &CutOffOffer::makeClip);
    connect(m_discard, &FlatButton::clicked, this, [this] { ask(true); });
    connect(m_keep, &FlatButton::clicked, this, [this] { ask(false); });
    connect(m_confirm, &FlatButton::clicked, this, [this] {
        ask(false);
        m_offer.discard();
    });
    connect(&m_offer, &CutOffOffer::changed, this, &CutOffLine::follow);
    follow();
}

void CutOffLine::ask(bool isAsking)
{
    m_isAsking = isAsking;
    follow();
    (isAsking ? m_keep : m_discard)->setFocus(Qt::OtherFocusReason); // the one that was pressed is gone
}

void CutOffLine::follow()
{
    const bool isOffered = m_offer.found() != nullptr;
    setVisible(isOffered);
    if (!isOffered) {
        m_isAsking = false;
        return;
    }
    m_text->setText(described(m_offer));
    m_problem->setText(m_offer.problem());
    m_problem->setVisible(!m_offer.problem().isEmpty());
    m_make->setVisible(!m_isAsking && !m_offer.isDamaged());
    m_make->setEnabled(m_offer.canMakeClip());
    m_discard->setVisible(!m_isAsking);
    m_discard->setEnabled(m_offer.canDiscard());
    m_confirm->setVisible(m_isAsking);
    m_keep->setVisible(m_isAsking);
}

} // namespace quillbox

#include "moc_CutOffLine.cpp"
