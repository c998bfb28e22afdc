// The views on a screen whose room is scarce: views_small_screens FOLDER LANGUAGE WIDTHxHEIGHT (in pixels). Takes their
// pictures, and fails when a widget is smaller than it has to be, a text is cut off, or something is off the screen.
#include "Find.h"
#include "Palettes.h"
#include "PanelPictures.h"
#include "TemporaryHome.h"

#include "Translation/Catalogues.h"
#include "Views/Controls/Scroller.h"
#include "Views/History/HistoryPanel.h"
#include "Views/SettingsView.h"

#include <QApplication>
#include <QScreen>
#include <QTest>

#include <cstdlib>

namespace quillbox::test {
namespace {

constexpr int barHeight = 28; // of the desktop's own bar along the top

QRect available()
{
    return QGuiApplication::primaryScreen()->geometry().adjusted(0, barHeight, 0, 0);
}

/// One sentence for each visible widget below `root` that is not as high as it asks to be at least.
QStringList crushed(const QWidget& root)
{
    QStringList complaints;
    for (const QWidget* widget : root.findChildren<QWidget*>()) {
        const bool scrolls = qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
        const bool givesWay = widget->sizePolicy().verticalPolicy() == QSizePolicy::Ignored;
        const bool holdsHistory = widget->findChild<HistoryPanel*>() != nullptr; // which gives way itself
        if (!widget->isVisible() || scrolls || givesWay || holdsHistory)
            continue;
        const int needed = widget->hasHeightForWidth() ? widget->heightForWidth(widget->width())
                                                       : widget->minimumSizeHint().height();
        if (widget->height() < needed)
            complaints.append(QStringLiteral("%1 is %2 high, but needs %3")
                                  .arg(QLatin1String(widget->metaObject()->className()))
                                  .arg(widget->height())
                                  .arg(needed));
    }
    return complaints;
}

bool isInView(const QWidget& widget, const Scroller& scroller)
{
    const QRect place(widget.mapTo(scroller.viewport(), QPoint()), widget.size());
    return scroller.viewport()->rect().contains(place);
}

/// The button that records or stops.
FlatButton* mainButton(const Panel& panel)
{
    for (FlatButton* const each : visible<FlatButton>(panel))
        if (each->kind() == FlatButton::Kind::Prominent)
            return each;
    return nullptr;
}

class SmallScreen {
public:
    SmallScreen(ScreenshotWriter& writer, QString prefix)
        : m_writer(writer)
        , m_prefix(std::move(prefix))
    {
    }

    void take(QWidget& view, const QString& name)
    {
        m_writer.take(view, m_prefix + name);
        if (!view.isVisible())
            m_writer.complain(name, QStringLiteral("is not on the screen"));
        for (const QString& complaint : crushed(view))
            m_writer.complain(name, complaint);
        const auto room = available();
        if (view.height() > room.height() || view.width() > room.width())
            m_writer.complain(name, QStringLiteral("is larger than the screen"));
        const auto* const scroller = view.findChild<Scroller*>();
        if (scroller->widget()->width() > scroller->viewport()->width())
            m_writer.complain(name, QStringLiteral("is wider than its window"));
    }

    /// @param needsNoScrolling  The button that records has to be in view at once.
    void takePanel(
        const QString& name, const Prepare& prepare, bool needsNoScrolling = true, const Prepare& whenOpen = &nothing)
    {
        const auto open = [](Panel& panel) {
            panel.openNear(QRect(), available());
        };
        withPanel(prepare, open, [&](ViewsFixture& fixture, Panel& panel) {
            whenOpen(fixture, panel);
            take(panel, name);
            checkMainButton(panel, name, needsNoScrolling);
        });
    }

    void takeWindow(const QString& name, const Prepare& prepare)
    {
        const auto open = [](Panel& panel) {
            panel.openAsWindow();
        };
        withPanel(prepare, open, [&](ViewsFixture&, Panel& panel) {
            take(panel, name);
            checkMainButton(panel, name, false);
        });
    }

private:
    void checkMainButton(Panel& panel, const QString& name, bool needsNoScrolling)
    {
        const auto& scroller = *panel.findChild<Scroller*>();
        const auto* const button = mainButton(panel);
        if (needsNoScrolling && (scroller.isScrolling() || !isInView(*button, scroller)))
            m_writer.complain(name, QStringLiteral("has to be scrolled"));
        for (int i = 0; i < 40 && panel.focusWidget() != button; ++i)
            QTest::keyClick(panel.focusWidget(), Qt::Key_Tab);
        QTest::keyClick(panel.focusWidget(), Qt::Key_Tab); // away, and back
        QTest::keyClick(panel.focusWidget(), Qt::Key_Backtab);
        if (panel.focusWidget() != button || !isInView(*button, scroller))
            m_writer.complain(name, QStringLiteral("does not scroll to the button that has the keyboard"));
    }

    ScreenshotWriter& m_writer;
    QString m_prefix;
};

/// What is said of the hotkey, in the language of the pictures.
QString notice(const char* text)
{
    return QCoreApplication::translate("HotkeyNotice", text);
}

void takeAll(SmallScreen& screen)
{
    const auto many = [](ViewsFixture& fixture, Panel&) {
        fill(*fixture.history, 12);
    };
    screen.takePanel(QStringLiteral("panel-empty"), &nothing);
    screen.takePanel(QStringLiteral("panel-idle"), many);
    screen.takePanel(QStringLiteral("panel-progress"), &processing, true, &partlyDone);
    screen.takePanel(QStringLiteral("panel-done"), &pictureLoss, false);
    screen.takePanel(QStringLiteral("panel-not-saved"), &notSaved, false);
    screen.takePanel(
        QStringLiteral("panel-notice"),
        [](ViewsFixture& fixture, Panel& panel) {
            fill(*fixture.history, 4);
            panel.setClipPending(true);
            panel.setNotice(notice("Press “Record Region”, not ⌘⇧2.") + QLatin1Char(' ')
                + notice("This desktop has no global hotkeys. Bind “quillbox toggle” to a key in its settings."));
        },
        false);
    screen.takePanel(QStringLiteral("panel-cleared"), many, true, [](ViewsFixture&, Panel& panel) {
        const auto buttons = visible<FlatButton>(*panel.findChild<HistoryPanel*>());
        QTest::mouseClick(buttons.first(), Qt::LeftButton); // clears
    });
    screen.takePanel(QStringLiteral("first-use"), &firstUse, false);
    screen.takeWindow(QStringLiteral("first-use-window"), &firstUse);
    screen.takeWindow(QStringLiteral("window"), many);

    SettingsView settings(
        notice("⌘ is the Super key: press %1 in any program.").arg(QStringLiteral("Super + Shift + 2")));
    settings.show();
    (void)QTest::qWaitForWindowExposed(&settings);
    screen.take(settings, QStringLiteral("settings"));
    settings.resize(settings.width(), 160);
    screen.take(settings, QStringLiteral("settings-low"));
}

} // namespace
} // namespace quillbox::test

int main(int argc, char** argv)
{
    using namespace quillbox::test;
    const TemporaryHome home;
    const QApplication application(argc, argv);
    if (argc != 4 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        qWarning("usage: views_small_screens FOLDER LANGUAGE WIDTHxHEIGHT");
        return 2;
    }
    const auto language = QString::fromLocal8Bit(argv[2]);
    quillbox::Catalogues::use(language);
    QApplication::setPalette(lightPalette());
    const auto pixels = QString::fromLocal8Bit(argv[3]);
    ScreenshotWriter writer(QString::fromLocal8Bit(argv[1]), QStringLiteral("light"));
    const QSize size = (QSizeF(QGuiApplication::primaryScreen()->size()) * application.devicePixelRatio()).toSize();
    const QSize wanted(pixels.section(QLatin1Char('x'), 0, 0).toInt(), pixels.section(QLatin1Char('x'), 1, 1).toInt());
    if (std::abs(size.width() - wanted.width()) > 1 || std::abs(size.height() - wanted.height()) > 1) // whole points
        writer.complain(pixels, QStringLiteral("is not the size of the screen"));
    SmallScreen screen(writer, QStringLiteral("small-%1-%2-").arg(pixels, language));
    takeAll(screen);
    return writer.clean() ? 0 : 1;
}
