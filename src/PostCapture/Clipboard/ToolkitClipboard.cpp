#include "PostCapture/Clipboard/ToolkitClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QStringList>
#include <QVariant>
#include <QWindow>

#include <utility>

namespace quillbox {
namespace {

const auto gifType = QStringLiteral("image/gif");

/// Reads the picture only when somebody wants it.
class GIFMimeData : public QMimeData {
public:
    explicit GIFMimeData(ClipboardBytes gif)
        : m_gif(std::move(gif))
    {
    }
    [[nodiscard]] QStringList formats() const override { return QMimeData::formats() << gifType; }
    /// Lets go of the picture: something else is on the clipboard.
    void forget() { m_gif = ClipboardBytes(QByteArray()); }

protected:
    [[nodiscard]] QVariant retrieveData(const QString& mimeType, QMetaType type) const override
    {
        return mimeType == gifType ? QVariant(m_gif.read()) : QMimeData::retrieveData(mimeType, type);
    }

private:
    ClipboardBytes m_gif;
};

} // namespace

QMimeData* makeMimeData(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData)
{
    auto* const content = gifData ? new GIFMimeData(*gifData) : new QMimeData;
    content->setUrls({fileURL});
    return content;
}

namespace {

/// On Wayland the toolkit (6.4) never deletes what it was given before.
void giveToToolkit(QMimeData* content)
{
    static QPointer<QMimeData> offered;
    const QPointer before = std::exchange(offered, content);
    QGuiApplication::clipboard()->setMimeData(content);
    if (auto* const clip = dynamic_cast<GIFMimeData*>(before.data()); clip != nullptr && before != offered)
        clip->forget();
}

bool toolkitOwnsClipboard()
{
    return QGuiApplication::clipboard()->ownsClipboard();
}

} // namespace

ToolkitClipboard::ToolkitClipboard()
{
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
        if (state() != State::Accepted || toolkitOwnsClipboard())
            return;
        setState(State::Empty);
        Q_EMIT lost();
    });
}

void ToolkitClipboard::setClip(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData)
{
    giveToToolkit(makeMimeData(fileURL, gifData));
    setState(toolkitOwnsClipboard() ? State::Accepted : State::Empty);
}

void ToolkitClipboard::clear()
{
    setState(State::Empty);
    if (toolkitOwnsClipboard())
        QGuiApplication::clipboard()->clear();
}

FocusClipboard::FocusClipboard()
{
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &FocusClipboard::look);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow* window) {
        if (window == nullptr)
            m_isOffered = false; // what has not been answered by now was not heard
        else
            offer();
    });
}

void FocusClipboard::setClip(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData)
{
    m_clip = Clip{fileURL, gifData};
    m_isOffered = false;
    setState(State::Pending);
    offer();
}

void FocusClipboard::clear()
{
    const bool isThere = state() == State::Accepted;
    m_clip.reset();
    m_isOffered = false;
    setState(State::Empty);
    if (isThere)
        QGuiApplication::clipboard()->clear();
}

/// Without the focus nothing is even tried: a compositor that refuses may have dropped what was there before. And
/// nothing is tried again while an answer is on its way, where a click has given the focus and wants a copy at once:
/// mutter 43 ignores a second offer for one and the same click, and the first one is gone by then.
void FocusClipboard::offer()
{
    if (!m_clip || m_isOffered || QGuiApplication::focusWindow() == nullptr)
        return;
    m_isOffering = true;
    giveToToolkit(makeMimeData(m_clip->fileURL, m_clip->gifData));
    m_isOffering = false;
    m_isOffered = true;
}

/// The toolkit announces a change when it sets something itself, when the compositor refuses or replaces what it has
/// set, and when the compositor tells the program that has the focus what the clipboard holds now.
void FocusClipboard::look()
{
    if (m_isOffering)
        return;
    const bool isOurs = toolkitOwnsClipboard();
    if (state() == State::Pending && m_isOffered) {
        m_isOffered = isOurs;
        if (isOurs) {
            m_clip.reset(); // the toolkit has it
            setState(State::Accepted);
        }
    } else if (state() == State::Accepted && !isOurs) {
        setState(State::Empty);
        Q_EMIT lost();
    }
}

} // namespace quillbox

#include "moc_ToolkitClipboard.cpp"
