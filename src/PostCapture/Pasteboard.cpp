#include "PostCapture/Pasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace quillbox {
namespace {

/// What the toolkit offers on every desktop.
class ToolkitPasteboard : public Pasteboard {
public:
    void setClip(const QUrl& fileURL, const std::optional<QByteArray>& gifData) override
    {
        auto* const content = new QMimeData; // the clipboard owns it
        content->setUrls({fileURL});
        if (gifData)
            content->setData(QStringLiteral("image/gif"), *gifData);
        QGuiApplication::clipboard()->setMimeData(content);
    }
};

} // namespace

std::unique_ptr<Pasteboard> makePasteboard()
{
    return std::make_unique<ToolkitPasteboard>();
}

} // namespace quillbox
