#include "Views/Panel.h"

#include "Platform/WindowSystem.h"
#include "Views/Controls/Card.h"
#include "Views/Controls/FlatButton.h"
#include "Views/Controls/Scroller.h"
#include "Views/Controls/SwitchLine.h"
#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TextLabel.h"
#include "Views/CutOffLine.h"
#include "Views/History/HistoryPanel.h"
#include "Views/PanelPlacement.h"
#include "Views/RecorderHUD.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace quillbox {
namespace {

constexpr int usualWidth = 384; // the status of a finished clip in one line; longer texts widen it
constexpr int outlineWidth = 1;

Panel::Corners usualCorners()
{
    return toolkitWindowSystem() == WindowSystem::Wayland ? Panel::Corners::Rounded : Panel::Corners::Square;
}

} // namespace

Panel::Panel(CurrentCoordinator& coordinator, UpdaterController& updater, HistoryStore& store, FileReveal& fileReveal,
    Clock clock, std::optional<std::chrono::milliseconds> progressDelay)
    : m_clock(std::move(clock))
    , m_corners(usualCorners())
    , m_contents(new QWidget(this))
    , m_introductionArea(makeIntroductionArea())
    , m_hud(new RecorderHUD(coordinator, updater, this, progressDelay.value_or(RecorderHUD::usualProgressDelay)))
    , m_clipLine(makeClipLine())
    , m_history(new HistoryPanel(store, fileReveal, this))
    , m_switch(new SwitchLine(this))
    , m_scroller(makeColumn())
{
    setWindowTitle(tr("Quillbox"));
    setAttribute(Qt::WA_QuitOnClose, false); // the tray icon stays
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(outlineWidth, outlineWidth, outlineWidth, outlineWidth);
    whole->setSizeConstraint(QLayout::SetNoConstraint); // fit() decides
    whole->addWidget(m_scroller);
    becomeA(Form::Popup);

    connect(m_hud, &RecorderHUD::settingsRequested, this, &Panel::settingsRequested);
    connect(m_hud, &RecorderHUD::clipRequested, m_history, &HistoryPanel::carryOut);
    connect(m_hud, &RecorderHUD::quitRequested, this, &Panel::quitRequested);
    connect(m_hud, &RecorderHUD::saveElsewhereRequested, this, &Panel::saveElsewhereRequested);
    connect(&coordinator, &CurrentCoordinator::phaseChanged, m_history, [this, &coordinator] {
        m_history->setPreviewing(!coordinator.isBusy()); // it is in no clip
    });
    connect(
        &coordinator, &CurrentCoordinator::phaseAboutToChange, this, [this](const RecordingCoordinator::Phase& next) {
            if (std::holds_alternative<RecordingCoordinator::SelectingRegion>(next))
                hide();
        });
}

Scroller* Panel::makeColumn()
{
    auto* column = new QVBoxLayout(m_contents);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_introductionArea);
    column->addWidget(m_hud);
    column->addWidget(m_clipLine);
    column->addWidget(new Divider(this));
    column->addWidget(m_history, 1);
    column->addWidget(m_switch);
    const auto spareHeight = [history = m_history] {
        return history->sizeHint().height() - history->minimumSizeHint().height();
    };
    return new Scroller(m_contents, spareHeight, this);
}

QWidget* Panel::makeClipLine()
{
    auto* line = new QWidget(this);
    auto* column = new QVBoxLayout(line);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Divider(line));
    auto* row = new QHBoxLayout;
    row->setContentsMargins(Theme::margin, 8, Theme::margin, 8);
    row->setSpacing(Theme::tightSpacing);
    auto* copy = new FlatButton(FlatButton::Kind::Small, tr("Copy"), std::nullopt, line);
    copy->setToolTip(plainToolTip(tr("Puts the clip on the clipboard")));
    connect(copy, &FlatButton::clicked, this, &Panel::copyRequested);
    row->addWidget(new SymbolLabel(Symbol::InfoCircle, Role::Accent, Theme::symbolSize, line));
    row->addWidget(new TextLabel(tr("The clip is not on the clipboard yet."), TextStyle::Caption, Role::Primary,
                       TextLabel::Overflow::Wrap, line),
        1);
    row->addWidget(copy);
    column->addLayout(row);
    line->hide();
    return line;
}

QWidget* Panel::makeIntroductionArea()
{
    auto* area = new QWidget(this);
    auto* column = new QVBoxLayout(area);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(new Divider(area));
    area->hide();
    return area;
}

void Panel::setIntroduction(const std::optional<FirstUseCard::Facts>& facts)
{
    if (facts && m_introduction == nullptr) {
        m_introduction = new FirstUseCard(m_introductionArea);
        connect(m_introduction, &FirstUseCard::understood, this, &Panel::introductionUnderstood);
        qobject_cast<QVBoxLayout*>(m_introductionArea->layout())->insertWidget(0, m_introduction);
    }
    if (facts)
        m_introduction->setFacts(*facts);
    m_introductionArea->setVisible(facts.has_value());
}

void Panel::setNotice(const QString& notice)
{
    m_hud->setNotice(notice);
}

void Panel::setSwitch(QAction* action)
{
    m_switch->setAction(action);
}

void Panel::setClipPending(bool isPending)
{
    m_clipLine->setVisible(isPending);
    m_hud->setClipPending(isPending);
}

void Panel::showCutOff(CutOffOffer& offer)
{
    auto* const column = qobject_cast<QVBoxLayout*>(m_contents->layout());
    column->insertWidget(column->indexOf(m_clipLine), new CutOffLine(offer, this));
}

void Panel::becomeA(Form form)
{
    const bool rounded = form == Form::Popup && m_corners == Corners::Rounded;
    const auto flags = form == Form::Popup ? Qt::Tool | Qt::FramelessWindowHint : Qt::WindowFlags(Qt::Window);
    if (testAttribute(Qt::WA_WState_Created) && (form != m_form || rounded != m_rounded))
        destroy(); // a window's kind and its translucency are settled when the window system creates it
    m_form = form;
    m_rounded = rounded;
    setAttribute(Qt::WA_TranslucentBackground, rounded);
    if (windowFlags() != flags)
        setWindowFlags(flags);
}

void Panel::openNear(const QRect& anchor, const QRect& availableGeometry)
{
    if (!isVisible())
        becomeA(Form::Popup);
    m_anchor = anchor;
    m_available = availableGeometry;
    present();
}

void Panel::openAsWindow()
{
    if (!isVisible())
        becomeA(Form::Window);
    const QScreen* screen = QGuiApplication::primaryScreen();
    m_anchor = QRect();
    m_available = screen ? screen->availableGeometry() : QRect();
    present();
}

void Panel::present()
{
    setAttribute(Qt::WA_KeyboardFocusChange, false);
    fit();
    show();
    raise();
    activateWindow();
    m_hud->focusMainButton();
}

/// As large as its contents want to be, and the screen allows.
QSize Panel::fittingSize()
{
    ensurePolished();
    const int around = 2 * outlineWidth;
    const int frame = m_form == Form::Window ? PanelPlacement::titleBarHeight : 0;
    const int highest
        = m_available.isValid() ? m_available.height() - 2 * PanelPlacement::gap - frame : QWIDGETSIZE_MAX;
    const QSize wanted = m_scroller->fittingSize(usualWidth - around, highest - around) + QSize(around, around);
    // A long list gets most of the screen; a panel that fills it would be in everything's way.
    const int comfortable = m_available.isValid() ? m_available.height() * 4 / 5 : wanted.height();
    const int height = std::min(wanted.height(), std::max(wanted.height() - m_history->spareHeight(), comfortable));
    return QSize(wanted.width(), std::min(height, highest));
}

void Panel::fit()
{
    const QSize size = fittingSize();
    if (m_form == Form::Window) {
        setMinimumSize(size.width(), 0);
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        if (!isVisible() || height() < size.height())
            resize(size);
        return;
    }
    setFixedSize(size);
    // A compositor doesn't move it; the toolkit would only lose the right idea of the screen that it is on.
    if (isVisible() && toolkitWindowSystem() == WindowSystem::Wayland)
        return;
    const QScreen* screen = QGuiApplication::screenAt(m_available.center());
    move(PanelPlacement::place(size, m_anchor, m_available, screen ? screen->geometry() : m_available).topLeft());
}

bool Panel::wasJustClosed() const
{
    return m_deactivated != std::chrono::steady_clock::time_point() && m_clock() - m_deactivated < justNow;
}

void Panel::setVisible(bool visible)
{
    m_hiding = !visible; // what is hidden loses the activation, too
    QWidget::setVisible(visible);
    m_hiding = false;
}

bool Panel::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::WindowDeactivate && m_form == Form::Popup && isVisible() && !m_hiding) {
        m_deactivated = m_clock();
        hide();
    } else if (event->type() == QEvent::LayoutRequest && isVisible() && fittingSize() != size()) {
        fit(); // a longer status, another clip
    }
    return handled;
}

void Panel::paintEvent(QPaintEvent* /*event*/)
{
    const Theme theme(palette());
    QPainter painter(this);
    if (m_form == Form::Window) {
        painter.fillRect(rect(), theme.surface());
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing, m_rounded);
    Theme::drawFrame(painter, rect(), m_rounded ? Theme::panelRadius : 0, theme.border(), theme.surface());
}

void Panel::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close))
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace quillbox

#include "moc_Panel.cpp"
