#include "Views/ClipOffers.h"

#include "Views/ByteFormat.h"
#include "Views/Controls/FlatButton.h"
#include "Views/Controls/TextLabel.h"
#include "Views/PresetTexts.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace quillbox {
namespace {

constexpr int indent = Theme::symbolSize + Theme::tightSpacing; // below the text of the status
constexpr int linkInset = 8;                                    // of a link's text in its button

/// The preset that allows the largest files.
ExportPreset mostGenerous()
{
    const auto& all = ExportPreset::allCases;
    return *std::max_element(all.begin(), all.end(),
        [](ExportPreset one, ExportPreset other) { return one.targetBytes() < other.targetBytes(); });
}

/// How a clip falls short of its recording or its preset; empty where it does not.
QString shortfall(const FinishedClip& clip)
{
    if (!clip.exceedsBudget() && !clip.lacksPictures())
        return {};
    const ExportPreset preset = clip.request.preset;
    QString excess = clip.exceedsBudget()
        ? ClipOffers::tr("%1 over the %2 budget of %3")
              .arg(ByteFormat::inLocale(clip.byteCount - preset.targetBytes()),
                  ByteFormat::inLocale(preset.targetBytes()), PresetTexts::title(preset))
        : QString();
    if (!clip.lacksPictures())
        return excess;
    const auto count = std::min<std::int64_t>(clip.recordedPictures, std::numeric_limits<int>::max());
    if (clip.exceedsBudget())
        return excess
            + ClipOffers::tr(" · shows %1 of %Ln recorded picture(s)", nullptr, static_cast<int>(count))
                  .arg(QLocale().toString(qlonglong{clip.shownPictures}));
    return ClipOffers::tr("%1 of %2 · shows %3 of %Ln recorded picture(s)", nullptr, static_cast<int>(count))
        .arg(ByteFormat::inLocale(clip.byteCount), ByteFormat::inLocale(clip.request.preset.targetBytes()),
            QLocale().toString(qlonglong{clip.shownPictures}));
}

} // namespace

ClipOffers::ClipOffers(CurrentCoordinator& coordinator, QWidget* parent)
    : QWidget(parent)
    , m_coordinator(coordinator)
    , m_shortfall(new TextLabel(QString(), TextStyle::Caption, Role::Secondary, TextLabel::Overflow::Wrap, this))
    , m_remake(new FlatButton(FlatButton::Kind::Link, tr("Make it sharper"), std::nullopt, this))
    , m_retry(new FlatButton(FlatButton::Kind::Small, tr("Try again"), std::nullopt, this))
    , m_saveElsewhere(new FlatButton(FlatButton::Kind::Small, tr("Save elsewhere…"), std::nullopt, this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(indent - linkInset, 0, 0, 0);
    column->setSpacing(0);
    auto* line = new QHBoxLayout;
    line->addSpacing(linkInset);
    line->addWidget(m_shortfall);
    column->addLayout(line);
    column->addWidget(m_remake, 0, Qt::AlignLeft);
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::tightSpacing);
    row->addSpacing(linkInset);
    row->addWidget(m_retry);
    row->addWidget(m_saveElsewhere);
    row->addStretch();
    column->addLayout(row);

    connect(m_remake, &FlatButton::clicked, this, [this] {
        if (const auto further = offer())
            m_coordinator.makeAgain(further->request);
    });
    connect(m_retry, &FlatButton::clicked, this, [this] {
        if (m_coordinator.canTryAgain())
            m_coordinator.makeAgain(ClipRequest(m_coordinator.latestRequest()));
    });
    connect(m_saveElsewhere, &FlatButton::clicked, this, &ClipOffers::saveElsewhereRequested);
    connect(&m_coordinator, &CurrentCoordinator::phaseChanged, this, &ClipOffers::show);
    connect(&m_coordinator, &CurrentCoordinator::presetChanged, this, &ClipOffers::show);
    show();
}

std::optional<ClipOffers::Offer> ClipOffers::offer() const
{
    const auto* const clip = m_coordinator.finishedClip();
    if (clip == nullptr)
        return std::nullopt;
    const auto again = [](ExportPreset preset, bool isPrecise) {
        return Offer{tr("Again as %1").arg(PresetTexts::title(preset)), {.preset = preset, .isPrecise = isPrecise}};
    };
    const ExportPreset made = clip->request.preset;
    const ExportPreset chosen = m_coordinator.get().preset();
    if (chosen != made)
        return again(chosen, clip->request.isPrecise || m_coordinator.keepsEveryChange());
    if (!clip->request.isPrecise)
        return Offer{tr("Make it sharper"), {.preset = made, .isPrecise = true}};
    if ((clip->exceedsBudget() || clip->lacksPictures()) && made != mostGenerous())
        return again(mostGenerous(), true);
    return std::nullopt;
}

void ClipOffers::show()
{
    const auto* const clip = m_coordinator.finishedClip();
    const QString text = clip == nullptr ? QString() : shortfall(*clip);
    m_shortfall->setText(text);
    m_shortfall->setRole(clip != nullptr && clip->exceedsBudget() ? Role::Amber : Role::Secondary);
    m_shortfall->setVisible(!text.isEmpty());
    const auto further = offer();
    if (further)
        m_remake->setLabel(further->label, std::nullopt);
    m_remake->setVisible(further.has_value());
    const bool canTryAgain = m_coordinator.canTryAgain();
    m_retry->setVisible(canTryAgain);
    m_saveElsewhere->setVisible(canTryAgain);
    setVisible(!text.isEmpty() || further || canTryAgain);
}

} // namespace quillbox

#include "moc_ClipOffers.cpp"
