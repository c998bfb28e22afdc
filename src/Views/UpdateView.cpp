#include "Views/UpdateView.h"

#include "Views/Controls/Card.h"
#include "Views/Controls/FlatButton.h"
#include "Views/Controls/ProgressBar.h"
#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TextLabel.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace quillbox {
namespace {

constexpr int updateWidth = 420; // of the window, device-independent pixels
constexpr int symbolSide = 32;

} // namespace

/// How one phase looks.
struct UpdateView::Content {
    Symbol symbol = Symbol::ArrowDownCircle;
    Role role = Role::Accent;
    QString title{};
    QString text{};
    QString note{};
    QString closeLabel{};
    bool showsProgress = false;
};

struct UpdateView::ContentOf {
    Content operator()(const UpdaterController::Idle&) const { return {}; } // the window is closed
    Content operator()(const UpdaterController::Looking&) const
    {
        return {.symbol = Symbol::MagnifyingglassCircle,
            .title = UpdateView::tr("Looking for updates…"),
            .text = UpdateView::tr("The system is asked whether it knows a newer version."),
            .closeLabel = UpdateView::tr("Cancel"),
            .showsProgress = true};
    }
    Content operator()(const UpdaterController::UpToDate& found) const
    {
        Content content{.symbol = Symbol::CheckmarkCircleFill,
            .role = Role::Green,
            .title = UpdateView::tr("Quillbox is up to date"),
            .text = UpdateView::tr("%1 is the newest version on offer.").arg(found.version),
            .closeLabel = UpdateView::tr("Close")};
        if (!found.staleness.isEmpty() || found.version.isEmpty()) {
            content.symbol = Symbol::InfoCircle;
            content.role = Role::Secondary;
            content.title = UpdateView::tr("No newer version is known");
            content.text = found.version.isEmpty() ? UpdateView::tr("No newer version has been announced.")
                                                   : UpdateView::tr("Version %1 is installed.").arg(found.version);
            content.note = found.staleness;
        }
        return content;
    }
    Content operator()(const UpdaterController::Available& found) const
    {
        return {.title = found.update.version.isEmpty()
                ? UpdateView::tr("A new version of Quillbox is available")
                : UpdateView::tr("Quillbox %1 is available").arg(found.update.version),
            .text = UpdateView::tr("The system installs it, and may ask for your password."),
            .note = found.staleness,
            .closeLabel = UpdateView::tr("Later")};
    }
    Content operator()(const UpdaterController::Installing& now) const
    {
        return {.title = now.update.version.isEmpty()
                ? UpdateView::tr("Installing the new version…")
                : UpdateView::tr("Installing Quillbox %1…").arg(now.update.version),
            .text = UpdateView::tr("You can go on working meanwhile."),
            .closeLabel = UpdateView::tr("Hide"),
            .showsProgress = true};
    }
    Content operator()(const UpdaterController::Installed& now) const
    {
        return {.symbol = Symbol::CheckmarkCircleFill,
            .role = Role::Green,
            .title = now.update.version.isEmpty() ? UpdateView::tr("The new version is installed")
                                                  : UpdateView::tr("Quillbox %1 is installed").arg(now.update.version),
            .text = UpdateView::tr("Restart Quillbox to use it."),
            .closeLabel = UpdateView::tr("Later")};
    }
    Content operator()(const UpdaterController::Failed& failed) const
    {
        return {.symbol = Symbol::ExclamationmarkTriangleFill,
            .role = Role::Red,
            .title = failed.title,
            .text = failed.message,
            .closeLabel = UpdateView::tr("Close")};
    }
};

UpdateView::UpdateView(UpdaterController& updater, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint)
    , m_updater(updater)
{
    setWindowTitle(tr("Update"));
    setAttribute(Qt::WA_QuitOnClose, false); // the tray icon stays
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->setSizeConstraint(QLayout::SetNoConstraint); // fit() decides
    column->addLayout(makeMessage(), 1);
    column->addWidget(new Divider(this));
    column->addLayout(makeButtons());
    connect(&m_updater, &UpdaterController::phaseChanged, this, &UpdateView::showPhase);
    connect(&m_updater, &UpdaterController::progressed, this, [this](int percent) {
        m_progress->setValue(std::max(m_progress->value(), percent)); // of several steps, each with its own count
    });
    showPhase();
}

QLayout* UpdateView::makeMessage()
{
    auto* row = new QHBoxLayout;
    row->setContentsMargins(Theme::margin + 4, Theme::margin + 4, Theme::margin + 4, Theme::margin);
    row->setSpacing(Theme::margin);
    m_symbol = new SymbolLabel(Symbol::ArrowDownCircle, Role::Accent, symbolSide, this);
    row->addWidget(m_symbol, 0, Qt::AlignTop);
    auto* column = new QVBoxLayout;
    column->setSpacing(Theme::tightSpacing);
    m_title = new TextLabel(QString(), TextStyle::Headline, Role::Primary, TextLabel::Overflow::Wrap, this);
    m_text = new TextLabel(QString(), TextStyle::Callout, Role::Secondary, TextLabel::Overflow::Wrap, this);
    m_note = new TextLabel(QString(), TextStyle::Callout, Role::Secondary, TextLabel::Overflow::Wrap, this);
    m_progress = new ProgressBar(tr("Progress"), this);
    column->addWidget(m_title);
    column->addWidget(m_text);
    column->addWidget(m_note);
    column->addSpacing(Theme::tightSpacing);
    column->addWidget(m_progress);
    column->addStretch();
    row->addLayout(column, 1);
    return row;
}

QLayout* UpdateView::makeButtons()
{
    auto* row = new QHBoxLayout;
    row->setContentsMargins(Theme::margin, Theme::spacing, Theme::margin, Theme::spacing);
    row->setSpacing(Theme::spacing);
    const auto prominent = [this](const QString& label) {
        auto* const button = new FlatButton(FlatButton::Kind::Prominent, label, std::nullopt, this);
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); // it is not alone in its row
        return button;
    };
    m_softwareCenter = new FlatButton(FlatButton::Kind::Small, tr("Show in Software Center"), std::nullopt, this);
    m_close = new FlatButton(FlatButton::Kind::Small, QString(), std::nullopt, this);
    m_install = prominent(tr("Install"));
    m_restart = prominent(tr("Restart Quillbox"));
    row->addWidget(m_softwareCenter);
    row->addStretch();
    row->addWidget(m_close);
    row->addWidget(m_install);
    row->addWidget(m_restart);
    connect(m_softwareCenter, &FlatButton::clicked, this, &UpdateView::softwareCenterRequested);
    connect(m_close, &FlatButton::clicked, this, &UpdateView::close);
    connect(m_install, &FlatButton::clicked, &m_updater, &UpdaterController::install);
    connect(m_restart, &FlatButton::clicked, this, &UpdateView::restartRequested);
    return row;
}

void UpdateView::setSoftwareCenter(bool isThere)
{
    m_hasSoftwareCenter = isThere;
    showPhase();
}

void UpdateView::setBusy(bool isBusy)
{
    m_isBusy = isBusy;
    showPhase();
}

void UpdateView::showPhase()
{
    if (m_updater.isIn<UpdaterController::Idle>()) {
        hide();
        return;
    }
    auto content = std::visit(ContentOf{}, m_updater.phase());
    const bool isInstalled = m_updater.isIn<UpdaterController::Installed>();
    if (isInstalled && m_isBusy)
        content.note = tr("It can be restarted once your clip is done.");
    m_symbol->setSymbol(content.symbol, content.role);
    m_title->setText(content.title);
    m_text->setText(content.text);
    m_note->setText(content.note);
    m_note->setVisible(!content.note.isEmpty());
    if (m_progress->isVisibleTo(this) != content.showsProgress)
        m_progress->setValue(0);
    m_progress->setVisible(content.showsProgress);

    const auto* const failure = std::get_if<UpdaterController::Failed>(&m_updater.phase());
    m_softwareCenter->setVisible(m_hasSoftwareCenter && failure != nullptr && failure->canTrySoftwareCenter);
    m_close->setLabel(content.closeLabel, std::nullopt);
    m_install->setVisible(m_updater.isIn<UpdaterController::Available>());
    m_restart->setVisible(isInstalled && !m_isBusy);
    fit();
    for (FlatButton* const button : {m_install, m_restart, m_close})
        if (button->isVisibleTo(this)) {
            button->setFocus(Qt::ActiveWindowFocusReason); // what Return does now
            break;
        }
}

void UpdateView::fit()
{
    ensurePolished();
    for (FlatButton* const button : {m_softwareCenter, m_close})
        button->setFixedHeight(m_install->sizeHint().height()); // as high as what they stand beside
    layout()->activate();
    const int width = std::max(updateWidth, layout()->totalMinimumSize().width());
    setFixedSize(width, layout()->totalHeightForWidth(width)); // texts wrap, so it depends on the width
}

void UpdateView::setVisible(bool visible)
{
    if (visible)
        fit();
    QWidget::setVisible(visible);
}

void UpdateView::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    m_updater.dismiss();
}

void UpdateView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), Theme(palette()).surface());
}

void UpdateView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close))
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace quillbox

#include "moc_UpdateView.cpp"
