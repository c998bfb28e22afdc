#include "Views/SettingsView.h"

#include "Views/Controls/Card.h"
#include "Views/Controls/Scroller.h"
#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TabStrip.h"
#include "Views/Controls/TextLabel.h"
#include "Views/Icons.h"
#include "Views/PanelPlacement.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quillbox {
namespace {

constexpr int settingsWidth = 440; // of the window, device-independent pixels
constexpr int widest = 640;        // with a long footer notice, which wraps beyond
constexpr int rowPadding = 6 + 4;  // of a row, and of the frame around it
constexpr int cardSpacing = 14;

QWidget* makeCaptureCard(QWidget* parent)
{
    auto* card = new Card(SettingsView::tr("Capture"), parent);
    auto* row = new QHBoxLayout(card->body());
    row->setContentsMargins(rowPadding, rowPadding, rowPadding, rowPadding);
    row->addWidget(new TextLabel(
        SettingsView::tr("Global hotkey"), TextStyle::Body, Role::Primary, TextLabel::Overflow::None, card->body()));
    row->addStretch();
    auto* shortcut = new TextLabel(
        SettingsView::tr("⌘⇧2"), TextStyle::Monospaced, Role::Secondary, TextLabel::Overflow::None, card->body());
    row->addWidget(shortcut);
    return card;
}

QWidget* makePrivacyCard(QWidget* parent)
{
    auto* card = new Card(SettingsView::tr("Privacy"), parent);
    auto* row = new QHBoxLayout(card->body());
    row->setContentsMargins(rowPadding, rowPadding, rowPadding, rowPadding);
    row->setSpacing(Theme::spacing);
    row->addWidget(new SymbolLabel(Symbol::LockShield, Role::Secondary, 20, card->body()), 0, Qt::AlignTop);
    row->addWidget(new TextLabel(SettingsView::tr("Everything stays on your Mac. No cloud, no telemetry, no account."),
                       TextStyle::Callout, Role::Secondary, TextLabel::Overflow::Wrap, card->body()),
        1, Qt::AlignVCenter);
    return card;
}

} // namespace

SettingsView::SettingsView(const QString& footerNotice, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_footer(new TextLabel(footerNotice, TextStyle::SmallCaption, Role::Tertiary, TextLabel::Overflow::Wrap, this))
{
    setWindowTitle(tr("Settings"));
    setAttribute(Qt::WA_QuitOnClose, false); // the tray icon stays
    auto* const contents = new QWidget(this);
    auto* tabs = new TabStrip(contents);
    tabs->setAccessibleName(tr("Settings"));
    tabs->addTab(Icons::icon(Symbol::Gearshape, Role::Accent), tr("General"));
    auto* pages = new QStackedWidget(contents);
    pages->addWidget(makeGeneralTab());
    connect(tabs, &TabStrip::currentChanged, pages, &QStackedWidget::setCurrentIndex);

    auto* column = new QVBoxLayout(contents);
    column->setContentsMargins(0, Theme::tightSpacing, 0, 0);
    column->setSpacing(Theme::tightSpacing);
    column->addWidget(tabs, 0, Qt::AlignHCenter);
    column->addWidget(new Divider(contents));
    column->addWidget(pages, 1);
    m_scroller = new Scroller(contents, nullptr, this);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_scroller);
    fit();
}

void SettingsView::setFooterNotice(const QString& notice)
{
    m_footer->setText(notice);
    fit();
}

QWidget* SettingsView::makeGeneralTab()
{
    auto* general = new QWidget(this);
    auto* column = new QVBoxLayout(general);
    column->setContentsMargins(Theme::margin + 4, Theme::margin, Theme::margin + 4, Theme::margin);
    column->setSpacing(cardSpacing);
    column->addWidget(makeCaptureCard(general));
    column->addWidget(makePrivacyCard(general));
    column->addStretch();
    column->addWidget(m_footer);
    return general;
}

void SettingsView::fit()
{
    ensurePolished();
    const int oneLine = m_footer->fontMetrics().horizontalAdvance(m_footer->text()) + 2 * (Theme::margin + 6);
    const int highest = screen()->availableGeometry().height() - PanelPlacement::titleBarHeight;
    const QSize wanted = m_scroller->fittingSize(std::clamp(oneLine, settingsWidth, widest), highest);
    setMinimumWidth(wanted.width());
    resize(wanted.boundedTo(QSize(wanted.width(), highest)));
}

void SettingsView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), Theme(palette()).surface());
}

void SettingsView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close))
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace quillbox

#include "moc_SettingsView.cpp"
