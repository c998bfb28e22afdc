#include "Views/Recording/ClipResult.h"

#include "PostCapture/SavedClip.h"
#include "Views/Controls/FlatButton.h"

#include <QBuffer>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QPixmap>
#include <QtConcurrent/QtConcurrentRun>

namespace quillbox {
namespace {

constexpr int textInset = Theme::symbolSize + Theme::tightSpacing; // below the text of the status

/// The clip's first picture as large as it is shown; null where there is none. For a worker thread.
QImage firstPicture(const QString& path, QSize largest)
{
    auto gif = SavedClip::read(path);
    if (!gif)
        return {};
    QBuffer bytes(&*gif);
    QImage picture = QImageReader(&bytes, "gif").read();
    if (picture.width() <= largest.width() && picture.height() <= largest.height())
        return picture;
    return picture.scaled(largest, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

ClipResult::ClipResult(CurrentCoordinator& coordinator, QWidget* parent)
    : QWidget(parent)
    , m_coordinator(coordinator)
    , m_picture(new QLabel(this))
    , m_copy(new FlatButton(FlatButton::Kind::Small, tr("Copy"), std::nullopt, this))
{
    m_picture->setFixedSize(largest); // nothing moves when it comes
    m_picture->setAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    auto* show = new FlatButton(FlatButton::Kind::Small, tr("Show"), std::nullopt, this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(textInset, 0, 0, Theme::tightSpacing);
    row->setSpacing(Theme::tightSpacing);
    row->addWidget(m_picture);
    row->addStretch();
    row->addWidget(show);
    row->addWidget(m_copy);
    const auto ask = [this](ClipAction action) {
        ClipEntry entry;
        entry.outputPath = m_path;
        Q_EMIT requested(action, entry);
    };
    connect(show, &FlatButton::clicked, this, [ask] { ask(ClipAction::Show); });
    connect(m_copy, &FlatButton::clicked, this, [ask] { ask(ClipAction::Copy); });
    connect(&coordinator, &CurrentCoordinator::phaseChanged, this, &ClipResult::follow);
    follow();
}

void ClipResult::setOffersCopy(bool offersCopy)
{
    m_copy->setVisible(offersCopy);
}

void ClipResult::follow()
{
    const auto* const done = std::get_if<RecordingCoordinator::Done>(&m_coordinator.phase());
    setVisible(done != nullptr);
    m_path = done == nullptr ? QString() : done->path;
    m_picture->clear();
    if (done == nullptr)
        return;
    const qreal scale = devicePixelRatioF();
    QtConcurrent::run(&firstPicture, m_path, largest * scale).then(this, [this, path = m_path](const QImage& picture) {
        showPicture(path, picture);
    });
}

/// An answer about another clip comes too late.
void ClipResult::showPicture(const QString& path, const QImage& picture)
{
    if (path != m_path || picture.isNull())
        return;
    auto pixmap = QPixmap::fromImage(picture);
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    m_picture->setPixmap(pixmap);
}

} // namespace quillbox

#include "moc_ClipResult.cpp"
