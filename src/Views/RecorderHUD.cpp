#include "Views/RecorderHUD.h"

#include "Views/ByteFormat.h"
#include "Views/ClipOffers.h"
#include "Views/Controls/Card.h"
#include "Views/Controls/FlatButton.h"
#include "Views/Controls/ProgressBar.h"
#include "Views/Controls/SegmentedPicker.h"
#include "Views/Controls/Switch.h"
#include "Views/Controls/SymbolLabel.h"
#include "Views/Controls/TextLabel.h"
#include "Views/PresetTexts.h"
#include "Views/Recording/ClipResult.h"
#include "Views/Recording/NoticeLine.h"
#include "Views/Recording/TimeLabel.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace quillbox {
namespace {

/// How one phase looks in the status row.
struct Status {
    QString text;
    Symbol symbol;
    Role role;
};

struct StatusOf {
    Status operator()(const RecordingCoordinator::Idle&) const
    {
        return {RecorderHUD::tr("Press ⌘⇧2 or Record to capture a region."), Symbol::InfoCircle, Role::Secondary};
    }
    Status operator()(const RecordingCoordinator::SelectingRegion&) const
    {
        return {RecorderHUD::tr("Drag to select a region…"), Symbol::RectangleDashed, Role::Primary};
    }
    Status operator()(const RecordingCoordinator::Recording&) const
    {
        return {RecorderHUD::tr("Recording…"), Symbol::RecordCircle, Role::Red};
    }
    Status operator()(const RecordingCoordinator::Processing&) const
    {
        return {RecorderHUD::tr("Optimizing GIF…"), Symbol::WandAndStars, Role::Primary};
    }
    Status operator()(const RecordingCoordinator::Done& done) const
    {
        return {RecorderHUD::tr("Copied — %1 · %2")
                    .arg(ByteFormat::shortText(done.byteCount), QFileInfo(done.path).fileName()),
            Symbol::CheckmarkCircleFill, Role::Green};
    }
    Status operator()(const RecordingCoordinator::Failed& failed) const
    {
        return {failed.message, Symbol::ExclamationmarkTriangleFill, Role::Red};
    }
};

QHBoxLayout* rowIn(QWidget* parent)
{
    auto* row = new QHBoxLayout(parent);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::tightSpacing);
    return row;
}

constexpr int barGap = 5; // between the status and the progress bar

/// Whether `widget` takes its place also when it is not shown.
void keepPlace(QWidget& widget, bool keep)
{
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(keep);
    widget.setSizePolicy(policy);
}

} // namespace

RecorderHUD::RecorderHUD(CurrentCoordinator& coordinator, UpdaterController& updater, QWidget* parent,
    std::chrono::milliseconds progressDelay)
    : QWidget(parent)
    , m_coordinator(coordinator)
    , m_updater(updater)
    , m_progressDelay(new QTimer(this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Theme::margin, Theme::margin - 2, Theme::margin, Theme::spacing);
    column->setSpacing(Theme::spacing);
    column->addWidget(makeHeader());
    column->addWidget(makePresetPicker());
    column->addWidget(new Divider(this));
    column->addWidget(makeStatusRow());
    column->addWidget(new Divider(this));
    column->addWidget(makeMainButton());
    column->addWidget(new Divider(this));
    column->addWidget(makeFooter());

    m_progressDelay->setSingleShot(true);
    m_progressDelay->setInterval(progressDelay);
    connect(m_progressDelay, &QTimer::timeout, this, &RecorderHUD::revealProgress);
    connect(&m_coordinator, &CurrentCoordinator::phaseChanged, this, &RecorderHUD::showPhase);
    connect(&m_coordinator, &CurrentCoordinator::progressChanged, this, &RecorderHUD::showProgress);
    connect(&m_coordinator, &CurrentCoordinator::presetChanged, this, &RecorderHUD::showPreset);
    connect(&m_coordinator, &CurrentCoordinator::keepsEveryChangeChanged, this, &RecorderHUD::showPrecision);
    connect(&m_updater, &UpdaterController::canCheckForUpdatesChanged, this, &RecorderHUD::showUpdater);
    showPhase();
    showPrecision();
    showUpdater();
}

void RecorderHUD::focusMainButton()
{
    m_mainButton->setFocus(Qt::ActiveWindowFocusReason);
}

void RecorderHUD::setNotice(const QString& notice)
{
    m_noticeText = notice;
    showNotice();
}

void RecorderHUD::showNotice()
{
    m_notice->setText(m_coordinator.isBusy() ? QString() : m_noticeText);
}

void RecorderHUD::setClipPending(bool isPending)
{
    m_result->setOffersCopy(!isPending); // there is another button that copies
}

QWidget* RecorderHUD::makeHeader()
{
    auto* header = new QWidget(this);
    auto* row = rowIn(header);
    row->setSpacing(8);
    row->addWidget(new SymbolLabel(Symbol::RectangleDashedBadgeRecord, Role::Accent, 20, header));
    row->addWidget(
        new TextLabel(tr("Quillbox"), TextStyle::Headline, Role::Primary, TextLabel::Overflow::None, header));
    row->addStretch();
    return header;
}

QWidget* RecorderHUD::makePresetPicker()
{
    auto* section = new QWidget(this);
    std::vector<QString> titles;
    titles.reserve(ExportPreset::allCases.size());
    for (const ExportPreset preset : ExportPreset::allCases)
        titles.push_back(PresetTexts::title(preset));
    const QString title = tr("Preset");
    m_presets = new SegmentedPicker(title, titles, section);
    connect(m_presets, &SegmentedPicker::chosen, this, [this](int index) {
        m_coordinator.get().setPreset(ExportPreset::allCases.at(static_cast<std::size_t>(index)));
    });
    m_subtitle = new TextLabel(QString(), TextStyle::Caption, Role::Secondary, TextLabel::Overflow::Wrap, section);
    m_everyChange = new Switch(tr("Keep every change"), section);
    m_everyChange->setToolTip(plainToolTip(tr("Shows all that changed, as sharp as the size allows")));
    connect(m_everyChange, &Switch::toggled, &m_coordinator, &CurrentCoordinator::setKeepsEveryChange);

    auto* column = new QVBoxLayout(section);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::tightSpacing);
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::spacing);
    row->addWidget(new TextLabel(title, TextStyle::Callout, Role::Primary, TextLabel::Overflow::None, section));
    row->addWidget(m_presets, 1);
    column->addLayout(row);
    column->addWidget(m_subtitle);
    column->addWidget(m_everyChange, 0, Qt::AlignLeft);
    return section;
}

QWidget* RecorderHUD::makeStatusRow()
{
    auto* status = new QWidget(this);
    auto* rows = new QVBoxLayout(status);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::spacing);
    auto* offers = new ClipOffers(m_coordinator, status);
    connect(offers, &ClipOffers::saveElsewhereRequested, this, &RecorderHUD::saveElsewhereRequested);
    rows->addLayout(row);
    m_notice = new NoticeLine(status);
    rows->addWidget(m_notice);
    m_result = new ClipResult(m_coordinator, status);
    connect(m_result, &ClipResult::requested, this, &RecorderHUD::clipRequested);
    rows->addWidget(m_result);
    rows->addWidget(offers);
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    auto* sentence = new QHBoxLayout;
    sentence->setSpacing(Theme::tightSpacing);
    m_statusSymbol = new SymbolLabel(Symbol::InfoCircle, Role::Secondary, Theme::symbolSize, status);
    m_statusText = new TextLabel(QString(), TextStyle::Caption, Role::Secondary, TextLabel::Overflow::Wrap, status);
    sentence->addWidget(m_statusSymbol, 0, Qt::AlignTop);
    sentence->addWidget(m_statusText, 1, Qt::AlignVCenter);
    m_time = new TimeLabel(m_coordinator.recordingClock(), TextStyle::Caption, Role::Red, status);
    sentence->addWidget(m_time, 0, Qt::AlignVCenter);
    m_progress = new ProgressBar(tr("Progress"), status);
    m_finishButton = new FlatButton(FlatButton::Kind::Small, tr("Finish now"), std::nullopt, status);
    m_finishButton->setToolTip(plainToolTip(tr("Ends with the smallest file made so far")));
    connect(m_finishButton, &FlatButton::clicked, &m_coordinator, &CurrentCoordinator::finishNow);
    column->addSpacing(barGap + m_progress->sizeHint().height()); // the sentence stays in the middle
    column->addLayout(sentence);
    column->addSpacing(barGap);
    column->addWidget(m_progress);
    row->addLayout(column, 1);
    row->addWidget(m_finishButton, 0, Qt::AlignVCenter);
    keepPlace(*m_progress, true); // nothing moves when it comes
    m_progress->hide();
    m_finishButton->hide();
    return status;
}

QWidget* RecorderHUD::makeMainButton()
{
    m_mainButton = new FlatButton(FlatButton::Kind::Prominent, QString(), std::nullopt, this);
    connect(m_mainButton, &FlatButton::clicked, this, [this] {
        if (m_coordinator.isIn<RecordingCoordinator::Recording>())
            m_coordinator.stop();
        else
            m_coordinator.begin();
    });
    return m_mainButton;
}

QWidget* RecorderHUD::makeFooter()
{
    auto* footer = new QWidget(this);
    auto* row = rowIn(footer);
    m_updateButton = new FlatButton(FlatButton::Kind::Small, tr("Check for Updates…"), std::nullopt, footer);
    auto* settings = new FlatButton(FlatButton::Kind::Link, tr("Settings"), std::nullopt, footer);
    auto* quit = new FlatButton(FlatButton::Kind::Small, tr("Quit"), std::nullopt, footer);
    row->addWidget(m_updateButton);
    row->addStretch();
    row->addWidget(settings);
    row->addWidget(quit);
    connect(m_updateButton, &FlatButton::clicked, &m_updater, &UpdaterController::checkForUpdates);
    connect(settings, &FlatButton::clicked, this, &RecorderHUD::settingsRequested);
    connect(quit, &FlatButton::clicked, this, &RecorderHUD::quitRequested);
    return footer;
}

void RecorderHUD::showPhase()
{
    const Status status = std::visit(StatusOf{}, m_coordinator.phase());
    m_statusSymbol->setSymbol(status.symbol, status.role);
    m_statusText->setText(status.text);
    m_statusText->setRole(status.role);
    if (m_coordinator.isIn<RecordingCoordinator::Recording>())
        m_mainButton->setLabel(tr("Stop & Copy"), Symbol::StopCircleFill);
    else
        m_mainButton->setLabel(tr("Record Region"), Symbol::RectangleDashedBadgeRecord);
    m_time->setVisible(m_coordinator.isIn<RecordingCoordinator::Recording>());
    m_mainButton->setIdle(m_coordinator.isIn<RecordingCoordinator::Processing>());
    awaitProgress();
    showNotice();
    showPreset(); // another coordinator may have another one
}

void RecorderHUD::showPreset()
{
    const ExportPreset preset = m_coordinator.get().preset();
    const auto& all = ExportPreset::allCases;
    m_presets->setChoice(static_cast<int>(std::find(all.begin(), all.end(), preset) - all.begin()));
    m_subtitle->setText(PresetTexts::subtitle(preset));
}

void RecorderHUD::showPrecision()
{
    m_everyChange->setChecked(m_coordinator.keepsEveryChange());
}

void RecorderHUD::awaitProgress()
{
    const bool processing = m_coordinator.isIn<RecordingCoordinator::Processing>();
    keepPlace(*m_finishButton, processing); // other texts need it
    if (!processing) {
        m_progressDelay->stop();
        m_progress->hide();
        m_finishButton->hide();
    } else if (!m_progressDelay->isActive() && m_progress->isHidden()) {
        m_progressDelay->start();
        showProgress();
    }
}

void RecorderHUD::revealProgress()
{
    m_progress->show();
    m_finishButton->show();
}

void RecorderHUD::showProgress()
{
    const auto progress = m_coordinator.progress();
    m_progress->setFraction(progress ? progress->fraction() : 0);
    m_finishButton->setEnabled(!m_coordinator.isFinishing());
}

void RecorderHUD::showUpdater()
{
    m_updateButton->setEnabled(m_updater.canCheckForUpdates());
    m_updateButton->setToolTip(plainToolTip(m_updater.obstacle()));
}

} // namespace quillbox

#include "moc_RecorderHUD.cpp"
