// Draws an icon for desktops that want pictures: render-icon ICON.svg [SIZE OUT.png]...   SIZE in pixels.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

int main(int argc, char** argv)
{
    const auto argument = [argv](int index) {
        return QString::fromLocal8Bit(argv[index]);
    };
    if (argc < 2 || argc % 2 != 0) {
        qWarning("usage: render-icon ICON.svg [SIZE OUT.png]...");
        return 2;
    }
    QSvgRenderer drawing(argument(1));
    if (!drawing.isValid()) {
        qWarning("render-icon: %s can't be drawn", argv[1]);
        return 1;
    }
    for (int i = 2; i < argc; i += 2) {
        const int side = argument(i).toInt();
        QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
        if (picture.isNull()) {
            qWarning("render-icon: %s is not a size", argv[i]);
            return 2;
        }
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        if (!picture.save(argument(i + 1), "PNG")) {
            qWarning("render-icon: %s can't be written", argv[i + 1]);
            return 1;
        }
    }
    return 0;
}
