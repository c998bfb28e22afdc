#include "Platform/DisplayError.h"
#include "PostCapture/Clipboard/Clipboard.h"
#include "PostCapture/Clipboard/ClipboardChoice.h"
#include "PostCapture/Clipboard/ClipboardOwner.h"
#include "PostCapture/Clipboard/ToolkitClipboard.h"
#include "PostCapture/Clipboard/Wayland/DataControl.h"
#include "PostCapture/Clipboard/X11/SelectionOwner.h"

#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

/// A clip in the order in which it is offered.
std::vector<MimeItem> itemsOf(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData)
{
    std::vector<MimeItem> items{{"text/uri-list", QByteArray(fileURL.toEncoded() + "\r\n")}};
    if (gifData)
        items.push_back({"image/gif", *gifData});
    return items;
}

std::unique_ptr<ClipboardOwner> openSelection()
{
    try {
        return std::make_unique<SelectionOwner>("CLIPBOARD");
    } catch (const DisplayError&) {
        return nullptr;
    }
}

/// A clipboard that a back end owns. A clip that the connection broke under is pending until there is another one.
class OwnedClipboard : public Clipboard {
public:
    using Open = std::function<std::unique_ptr<ClipboardOwner>()>;

    /// @param open  Connects anew; null where that fails.
    OwnedClipboard(std::unique_ptr<ClipboardOwner> owner, Open open)
        : m_open(std::move(open))
    {
        use(std::move(owner));
        connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow* window) {
            if (window != nullptr)
                retry();
        });
    }
    void setClip(const QUrl& fileURL, const std::optional<ClipboardBytes>& gifData) override
    {
        m_items = itemsOf(fileURL, gifData);
        offer();
    }
    void retry() override
    {
        if (state() == State::Pending)
            offer();
    }
    void clear() override
    {
        m_owner->disown();
        setState(State::Empty);
    }

private:
    void use(std::unique_ptr<ClipboardOwner> owner)
    {
        m_owner = std::move(owner);
        connect(m_owner.get(), &ClipboardOwner::lost, this, [this] {
            setState(stateWithoutOwning());
            Q_EMIT lost();
        });
    }
    void offer()
    {
        if (!m_owner->isConnected())
            if (auto owner = m_open())
                use(std::move(owner));
        m_owner->own(m_items);
        setState(m_owner->owns() ? State::Accepted : stateWithoutOwning());
    }
    [[nodiscard]] State stateWithoutOwning() const { return m_owner->isConnected() ? State::Empty : State::Pending; }

    Open m_open;
    std::unique_ptr<ClipboardOwner> m_owner;
    std::vector<MimeItem> m_items; // what was set last
};

/// Where there is no clipboard.
class NoClipboard : public Clipboard {
public:
    void setClip(const QUrl& /*fileURL*/, const std::optional<ClipboardBytes>& /*gifData*/) override { }
    void clear() override { }
};

std::unique_ptr<Clipboard> makeClipboard()
{
    switch (chooseClipboard().backEnd) {
    case ClipboardBackEnd::X11:
        if (auto owner = openSelection())
            return std::make_unique<OwnedClipboard>(std::move(owner), &openSelection);
        return std::make_unique<ToolkitClipboard>(); // the server takes no more programs; the toolkit is connected
    case ClipboardBackEnd::DataControl:
        if (auto owner = DataControl::open())
            return std::make_unique<OwnedClipboard>(std::move(owner), &DataControl::open);
        break;
    case ClipboardBackEnd::Toolkit:
        return std::make_unique<ToolkitClipboard>();
    case ClipboardBackEnd::FocusedToolkit:
        return std::make_unique<FocusClipboard>();
    case ClipboardBackEnd::None:
        break;
    }
    return std::make_unique<NoClipboard>();
}

} // namespace

Clipboard& Clipboard::general()
{
    static QPointer<Clipboard> pasteboard;
    if (!pasteboard) {
        pasteboard = makeClipboard().release();
        pasteboard->setParent(QCoreApplication::instance());
    }
    return *pasteboard;
}

} // namespace quillbox
