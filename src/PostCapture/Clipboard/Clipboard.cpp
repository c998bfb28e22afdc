#include "PostCapture/Clipboard/Clipboard.h"

#include "Platform/CaptureError.h"
#include "PostCapture/Clipboard/ClipboardChoice.h"
#include "PostCapture/Clipboard/ClipMimeData.h"
#include "PostCapture/Clipboard/MimeItem.h"
#include "PostCapture/Clipboard/Wayland/DataControl.h"
#include "PostCapture/Clipboard/Wayland/FocusClipboard.h"
#include "PostCapture/Clipboard/X11/SelectionOwner.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

#include <memory>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

/// A clip's forms, in the order in which they are offered.
std::vector<MimeItem> formsOf(const QUrl& fileURL, const std::optional<QByteArray>& gifData)
{
    std::vector<MimeItem> forms{{"text/uri-list", fileURL.toEncoded() + "\r\n"}};
    if (gifData)
        forms.push_back({"image/gif", *gifData});
    return forms;
}

/// What the toolkit offers on every desktop. On X11 it adds the URL as text, of its own accord.
class ToolkitClipboard : public Clipboard {
public:
    ToolkitClipboard()
    {
        connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
            if (state() != State::Accepted || ownsContent())
                return;
            setState(State::Empty);
            Q_EMIT lost();
        });
    }
    void setClip(const QUrl& fileURL, const std::optional<QByteArray>& gifData) override
    {
        QGuiApplication::clipboard()->setMimeData(makeMimeData(fileURL, gifData)); // which owns it
        setState(ownsContent() ? State::Accepted : State::Empty);
    }
    void clear() override
    {
        setState(State::Empty);
        if (ownsContent())
            QGuiApplication::clipboard()->clear();
    }

private:
    [[nodiscard]] static bool ownsContent() { return QGuiApplication::clipboard()->ownsClipboard(); }
};

/// The CLIPBOARD selection of an X server.
class X11Pasteboard : public Clipboard {
public:
    /// @throws CaptureError  NoDisplay
    X11Pasteboard()
    {
        connect(&m_owner, &SelectionOwner::lost, this, [this] {
            setState(State::Empty);
            Q_EMIT lost();
        });
    }
    void setClip(const QUrl& fileURL, const std::optional<QByteArray>& gifData) override
    {
        m_owner.own(formsOf(fileURL, gifData));
        setState(m_owner.owns() ? State::Accepted : State::Empty);
    }
    void clear() override
    {
        m_owner.disown();
        setState(State::Empty);
    }

private:
    SelectionOwner m_owner{"CLIPBOARD"};
};

/// The clipboard of a Wayland compositor that takes it from any program. A clip that the connection to it broke under
/// is pending until there is another connection.
class DataControlClipboard : public Clipboard {
public:
    explicit DataControlClipboard(std::unique_ptr<DataControl> control)
    {
        use(std::move(control));
        connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow* window) {
            if (window != nullptr)
                retry();
        });
    }
    void setClip(const QUrl& fileURL, const std::optional<QByteArray>& gifData) override
    {
        m_forms = formsOf(fileURL, gifData);
        offer();
    }
    void retry() override
    {
        if (state() == State::Pending)
            offer();
    }
    void clear() override
    {
        m_control->disown();
        setState(State::Empty);
    }

private:
    void use(std::unique_ptr<DataControl> control)
    {
        m_control = std::move(control);
        connect(m_control.get(), &DataControl::lost, this, [this] {
            setState(m_control->isConnected() ? State::Empty : State::Pending);
            Q_EMIT lost();
        });
    }
    void offer()
    {
        if (!m_control->isConnected())
            if (auto control = DataControl::open())
                use(std::move(control));
        m_control->own(m_forms);
        setState(m_control->owns() ? State::Accepted : State::Pending);
    }

    std::unique_ptr<DataControl> m_control;
    std::vector<MimeItem> m_forms; // what was set last
};

/// Where there is no clipboard.
class NoClipboard : public Clipboard {
public:
    void setClip(const QUrl& /*fileURL*/, const std::optional<QByteArray>& /*gifData*/) override { }
    void clear() override { }
};

std::unique_ptr<Clipboard> makeClipboard()
{
    const auto choice = chooseClipboard();
    switch (choice.backEnd) {
    case ClipboardBackEnd::X11:
        try {
            return std::make_unique<X11Pasteboard>();
        } catch (const CaptureError&) { // the server takes no more programs; the toolkit is connected already
            return std::make_unique<ToolkitClipboard>();
        }
    case ClipboardBackEnd::DataControl:
        if (auto control = DataControl::open())
            return std::make_unique<DataControlClipboard>(std::move(control));
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

void Clipboard::setState(State state)
{
    if (state == std::exchange(m_state, state))
        return;
    Q_EMIT stateChanged();
}

} // namespace quillbox
