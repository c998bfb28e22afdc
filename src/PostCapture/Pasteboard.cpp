#include "PostCapture/Pasteboard.h"

#include "Capture/CaptureError.h"
#include "PostCapture/X11/SelectionOwner.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>

#include <memory>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

/// What the toolkit offers on every desktop. On X11 it adds the URL as text, of its own accord.
class ToolkitPasteboard : public Pasteboard {
public:
    ToolkitPasteboard()
    {
        connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
            if (std::exchange(m_isOurs, ownsContent()) && !m_isOurs)
                Q_EMIT lost();
        });
    }
    void setClip(const QUrl& fileURL, const std::optional<QByteArray>& gifData) override
    {
        auto* const content = new QMimeData; // the clipboard owns it
        content->setUrls({fileURL});
        if (gifData)
            content->setData(QStringLiteral("image/gif"), *gifData);
        QGuiApplication::clipboard()->setMimeData(content);
        m_isOurs = ownsContent();
    }
    [[nodiscard]] bool ownsContent() const override { return QGuiApplication::clipboard()->ownsClipboard(); }
    void clear() override
    {
        m_isOurs = false;
        if (ownsContent())
            QGuiApplication::clipboard()->clear();
    }

private:
    bool m_isOurs = false;
};

/// The CLIPBOARD selection of an X server.
class X11Pasteboard : public Pasteboard {
public:
    /// @throws CaptureError  NoDisplay
    X11Pasteboard() { connect(&m_owner, &SelectionOwner::lost, this, &Pasteboard::lost); }
    void setClip(const QUrl& fileURL, const std::optional<QByteArray>& gifData) override
    {
        std::vector<SelectionOwner::Offer> offers{{"text/uri-list", fileURL.toEncoded() + "\r\n"}};
        if (gifData)
            offers.push_back({"image/gif", *gifData});
        m_owner.own(std::move(offers));
    }
    [[nodiscard]] bool ownsContent() const override { return m_owner.owns(); }
    void clear() override { m_owner.disown(); }

private:
    SelectionOwner m_owner{"CLIPBOARD"};
};

std::unique_ptr<Pasteboard> makePasteboard()
{
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        try {
            return std::make_unique<X11Pasteboard>();
        } catch (const CaptureError&) { // the server takes no more programs; the toolkit is connected already
        }
    }
    return std::make_unique<ToolkitPasteboard>();
}

} // namespace

Pasteboard& Pasteboard::general()
{
    static QPointer<Pasteboard> pasteboard;
    if (!pasteboard) {
        pasteboard = makePasteboard().release();
        pasteboard->setParent(QCoreApplication::instance());
    }
    return *pasteboard;
}

} // namespace quillbox
