#include "Views/History/ClipPreview.h"

#include "PostCapture/SavedClip.h"
#include "Views/Controls/TextLabel.h"

#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QtConcurrent/QtConcurrentRun>
#include <QVBoxLayout>

#include <algorithm>

namespace quillbox {
namespace {

constexpr int previewInset = 8;
constexpr int gapToWindow = 8;

} // namespace

ClipPreview::ClipPreview(QWidget* parent)
    : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput)
    , m_picture(new QLabel(this))
    , m_date(new TextLabel(QString(), TextStyle::Caption, Role::Primary, TextLabel::Overflow::None, this))
    , m_pixels(new TextLabel(QString(), TextStyle::Caption, Role::Secondary, TextLabel::Overflow::None, this))
    , m_rest(new QTimer(this))
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(previewInset, previewInset, previewInset, previewInset);
    column->setSpacing(2);
    column->addWidget(m_picture, 0, Qt::AlignCenter);
    column->addSpacing(4);
    column->addWidget(m_date);
    column->addWidget(m_pixels);
    m_rest->setSingleShot(true);
    m_rest->setInterval(delay);
    connect(m_rest, &QTimer::timeout, this, &ClipPreview::read);
}

void ClipPreview::await(const ClipEntry& entry, const QRect& row, const QRect& window, const QRect& screen)
{
    leave();
    m_entry = entry;
    m_row = row;
    m_window = window;
    m_screen = screen;
    if (entry.outputPath)
        m_rest->start();
}

void ClipPreview::leave()
{
    ++m_number;
    m_rest->stop();
    hide();
    m_movie.reset();
    m_bytes.close();
    m_bytes.setData({});
}

void ClipPreview::read()
{
    QtConcurrent::run(&SavedClip::read, *m_entry.outputPath)
        .then(this, [this, number = m_number](const std::optional<QByteArray>& gif) {
            if (gif && number == m_number)
                play(*gif);
        });
}

void ClipPreview::play(const QByteArray& gif)
{
    m_bytes.setData(gif);
    (void)m_bytes.open(QIODevice::ReadOnly); // memory always opens
    m_movie = std::make_unique<QMovie>(&m_bytes, "gif");
    if (!m_movie->jumpToFrame(0))
        return;
    const QSize pixels = m_movie->currentPixmap().size();
    const bool isSmall = pixels.width() <= largest.width() && pixels.height() <= largest.height();
    const QSize shown = (isSmall ? pixels : pixels.scaled(largest, Qt::KeepAspectRatio)).expandedTo(QSize(1, 1));
    m_movie->setScaledSize(shown);
    m_picture->setFixedSize(shown);
    m_picture->setMovie(m_movie.get());
    m_date->setText(QLocale().toString(m_entry.date.toLocalTime(), QLocale::ShortFormat));
    m_pixels->setText(tr("%1 × %2 pixels").arg(pixels.width()).arg(pixels.height()));
    m_movie->start();
    setFixedSize(sizeHint());
    setGeometry(place(size(), m_row, m_window, m_screen));
    show();
}

QRect ClipPreview::place(const QSize& size, const QRect& row, const QRect& window, const QRect& screen)
{
    const int left = window.left() - gapToWindow - size.width();
    const int right = window.left() + window.width() + gapToWindow;
    QPoint corner(left, row.top());
    if (left < screen.left())
        corner.setX(right);
    if (corner.x() + size.width() > screen.left() + screen.width()) { // beside neither: then below the row, or above
        const int below = row.top() + row.height() + gapToWindow;
        const bool fits = below + size.height() <= screen.top() + screen.height();
        corner = QPoint(row.left(), fits ? below : row.top() - gapToWindow - size.height());
    }
    const int lowest = screen.top() + screen.height() - size.height();
    corner.setY(std::max(screen.top(), std::min(corner.y(), lowest)));
    return QRect(corner, size);
}

void ClipPreview::paintEvent(QPaintEvent* /*event*/)
{
    const Theme theme(palette());
    QPainter painter(this);
    Theme::drawFrame(painter, rect(), 0, theme.border(), theme.surface());
}

} // namespace quillbox

#include "moc_ClipPreview.cpp"
