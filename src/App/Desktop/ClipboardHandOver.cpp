#include "App/Desktop/ClipboardHandOver.h"

#include "Platform/X11/SelectionRequest.h"
#include "PostCapture/Clipboard/Clipboard.h"

#include <chrono>

namespace quillbox {
namespace {

/// Enough for tens of megabytes; there are managers that never answer.
constexpr std::chrono::seconds managerPatience{3};

bool hasClip()
{
    return Clipboard::general().state() == Clipboard::State::Accepted;
}

} // namespace

ClipboardHandOver::ClipboardHandOver(QObject* parent)
    : QObject(parent)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(managerPatience);
    connect(&m_patience, &QTimer::timeout, this, &ClipboardHandOver::giveUp);
    connect(&Clipboard::general(), &Clipboard::lost, this, &ClipboardHandOver::endWhenDone);
}

ClipboardHandOver::~ClipboardHandOver() = default;

void ClipboardHandOver::begin()
{
    if (m_hasBegun)
        return;
    m_hasBegun = true;
    if (!hasClip()) {
        end();
        return;
    }
    m_request = SelectionRequest::ask("CLIPBOARD_MANAGER", "SAVE_TARGETS");
    if (!m_request) { // nobody who could answer; on Wayland managers fetch a clip as soon as it is set
        end();
        return;
    }
    connect(m_request.get(), &SelectionRequest::answered, this, [this] {
        m_isAnswered = true;
        endWhenDone();
    });
    m_patience.start();
}

/// The manager says that it is done, and becomes the clipboard's owner; we hear of the two in any order.
void ClipboardHandOver::endWhenDone()
{
    if (m_isAnswered && !hasClip())
        end();
}

void ClipboardHandOver::giveUp()
{
    Clipboard::general().clear(); // else the toolkit, where the clip is its, asks again, and waits for longer
    end();
}

void ClipboardHandOver::end()
{
    if (m_isOver)
        return;
    m_isOver = true;
    m_patience.stop();
    Q_EMIT ended();
}

} // namespace quillbox

#include "moc_ClipboardHandOver.cpp"
