// Renders every state of the views, in light and dark, as PNGs: views_screenshots FOLDER. QT_SCALE_FACTOR sets the
// scale. Fails when a text is cut off that should not be.
#include "Find.h"
#include "Palettes.h"
#include "PanelPictures.h"
#include "TemporaryHome.h"
#include "ViewsFixture.h"

#include "Translation/Catalogues.h"
#include "Views/Controls/ProgressBar.h"
#include "Views/History/ClipPreview.h"
#include "Views/History/HistoryRow.h"
#include "Views/Panel.h"
#include "Views/SettingsView.h"
#include "Views/UpdateView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QEnterEvent>
#include <QMenu>
#include <QPainter>
#include <QTest>
#include <QThreadPool>
#include <QTranslator>

namespace quillbox::test {
namespace {

/// Every text a third longer, as in a language that needs more words.
class LongTexts : public QTranslator {
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char*, const char* text, const char*, int) const override
    {
        const QString english = QString::fromUtf8(text);
        if (english.size() < 3)
            return english;
        return english + QLatin1Char(' ') + QString((english.size() * 3 + 9) / 10 - 1, QLatin1Char('m'));
    }
};

/// Two and a half seconds of a chart that moves.
std::vector<RGBAFrame> movingChart()
{
    constexpr int bars = 9;
    std::vector<RGBAFrame> frames;
    for (int tick = 0; tick < 75; ++tick) {
        QImage picture(640, 400, QImage::Format_RGBA8888);
        picture.fill(QColor(24, 30, 44));
        QPainter painter(&picture);
        painter.fillRect(0, 0, 640, 44, QColor(52, 62, 86));
        for (int i = 0; i < bars; ++i) {
            const int height = 120 + (i * 83 + tick * 8) % 200;
            painter.fillRect(40 + 64 * i, 376 - height, 44, height, QColor::fromHsv(i * 40, 120, 220));
        }
        painter.end();
        frames.emplace_back(640, 400, Bytes(picture.constBits(), picture.constBits() + picture.sizeInBytes()));
    }
    return frames;
}
/// What is read of a clip in the background is there.
const Prepare allRead = [](ViewsFixture&, Panel&) {
    QThreadPool::globalInstance()->waitForDone();
};

using Reason = UpdateError::Reason;

void takeUpdates(ScreenshotWriter& writer, const QString& prefix)
{
    const Update newer{.version = QStringLiteral("1.1-2"), .id = QStringLiteral("quillbox;1.1-2;amd64;stable")};
    ViewsFixture fixture;
    UpdateView view(fixture.updater);
    view.setSoftwareCenter(true);
    const auto take = [&](const QString& name) {
        view.show();
        (void)QTest::qWaitForWindowExposed(&view);
        writer.take(view, prefix + name);
    };
    const auto look = [&](const auto& answer) {
        fixture.updater.checkForUpdates();
        fixture.updates->answer(answer);
        QTRY_VERIFY(!fixture.updater.isIn<UpdaterController::Looking>());
    };
    fixture.updater.checkForUpdates();
    Q_EMIT fixture.updates->progressed(35);
    take(QStringLiteral("looking"));
    fixture.updater.dismiss();
    look(UpdateService::Finding{.installedVersion = QStringLiteral("1.0-1")});
    take(QStringLiteral("none"));
    look(UpdateService::Finding{
        .installedVersion = QStringLiteral("1.0-1"), .staleness = UpdateError(Reason::NoNetwork)});
    take(QStringLiteral("none-known"));
    for (const auto& [name, reason] :
        {std::pair("refused", Reason::Refused), std::pair("vanished", Reason::Vanished)}) {
        look(UpdateError(reason));
        take(QLatin1String(name));
    }
    look(UpdateError(Reason::Failed, QStringLiteral("E: The package cache was built for a different architecture")));
    take(QStringLiteral("failed"));
    look(UpdateService::Finding{.update = newer});
    take(QStringLiteral("available"));
    fixture.updater.install();
    Q_EMIT fixture.updates->progressed(60);
    take(QStringLiteral("installing"));
    fixture.updates->answer();
    QTRY_VERIFY(fixture.updater.isIn<UpdaterController::Installed>());
    take(QStringLiteral("installed"));
    view.setBusy(true);
    take(QStringLiteral("installed-busy"));
}

void takeAll(ScreenshotWriter& writer)
{
    const auto many = [](ViewsFixture& fixture, Panel&) {
        fill(*fixture.history, 9);
    };
    takePanel(writer, QStringLiteral("panel-idle-empty"), nothing);
    takePanel(writer, QStringLiteral("panel-idle"), many);
    takePanel(writer, QStringLiteral("panel-selecting"), [](ViewsFixture& fixture, Panel&) { fixture.select(); });
    takePanel(writer, QStringLiteral("panel-recording"), [](ViewsFixture& fixture, Panel&) {
        fill(*fixture.history, 3);
        fixture.record();
    });
    takePanel(writer, QStringLiteral("panel-processing"), processing, [](ViewsFixture&, Panel& panel) {
        panel.findChild<ProgressBar*>()->hide(); // as in the first half second
        button(panel, QStringLiteral("Finish now"))->hide();
    });
    takePanel(writer, QStringLiteral("panel-progress"), processing, partlyDone);
    takePanel(writer, QStringLiteral("panel-progress-keyboard"), processing, [](ViewsFixture& fixture, Panel& panel) {
        partlyDone(fixture, panel);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    });
    takePanel(writer, QStringLiteral("panel-progress-finishing"), processing, [](ViewsFixture& fixture, Panel& panel) {
        partlyDone(fixture, panel);
        fixture.coordinator.finishNow();
        panel.findChild<ProgressBar*>()->setFraction(0.84);
    });
    takePanel(
        writer, QStringLiteral("panel-done"),
        [](ViewsFixture& fixture, Panel&) {
            fill(*fixture.history, 1);
            fixture.recorder->frames = movingChart();
            fixture.finish();
        },
        allRead);
    takePanel(writer, QStringLiteral("panel-done-other-preset"), [](ViewsFixture& fixture, Panel&) {
        fill(*fixture.history, 1);
        fixture.finish();
        fixture.coordinator.get().setPreset(ExportPreset::github);
    });
    takePanel(writer, QStringLiteral("panel-done-pictures-lost"), pictureLoss);
    takePanel(writer, QStringLiteral("panel-done-precise"), [](ViewsFixture& fixture, Panel&) {
        fill(*fixture.history, 1);
        fixture.coordinator.setKeepsEveryChange(true);
        fixture.finish();
    });
    takePanel(writer, QStringLiteral("panel-not-saved"), notSaved);
    takePanel(writer, QStringLiteral("panel-keyboard-every-change"), nothing, [](ViewsFixture&, Panel&) {
        for (int i = 0; i < 5; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    });
    takePanel(writer, QStringLiteral("panel-failed"), [](ViewsFixture& fixture, Panel&) {
        fill(*fixture.history, 2);
        fixture.fail("No display to record");
    });
    takePanel(writer, QStringLiteral("panel-failed-long"), [](ViewsFixture& fixture, Panel&) {
        fill(*fixture.history, 2);
        fixture.fail(
            "The folder /home/anna/Videos/averylongnamewithoutanyblanksinitwhichmustbebrokensomewhere/Quillbox "
            "can't be created because the file system is mounted for reading only and the administrator of this "
            "machine has not yet answered");
    });
    takePanel(writer, QStringLiteral("panel-notice"), [](ViewsFixture& fixture, Panel& panel) {
        fill(*fixture.history, 2);
        fixture.updates->setAvailable(false);
        panel.setNotice(QStringLiteral("Another program uses Super+Shift+2. Start from here instead."));
    });

    takePanel(writer, QStringLiteral("panel-rounded"), [&](ViewsFixture& fixture, Panel& panel) {
        many(fixture, panel);
        panel.setCorners(Panel::Corners::Rounded);
    });
    const auto tab = [](int times) {
        return [times](ViewsFixture&, Panel&) {
            for (int i = 0; i < times; ++i)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        };
    };
    takePanel(writer, QStringLiteral("panel-history-cleared"), many,
        [](ViewsFixture&, Panel& panel) { QTest::mouseClick(button(panel, QStringLiteral("Clear")), Qt::LeftButton); });
    takePanel(writer, QStringLiteral("panel-history-trash"), many, [](ViewsFixture&, Panel& panel) {
        QTest::keyClick(visible<HistoryRow>(panel).first()->findChild<FlatButton*>(), Qt::Key_Delete);
    });
    takePanel(writer, QStringLiteral("panel-history-menu"), many, [](ViewsFixture&, Panel& panel) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
        QCoreApplication::sendEvent(visible<HistoryRow>(panel).first(), &event);
        panel.findChild<QMenu*>()->close();
    });
    takePanel(
        writer, QStringLiteral("panel-with-preview"), [](ViewsFixture& fixture, Panel&) { fixture.finish(); },
        [&writer](ViewsFixture&, Panel& panel) {
            QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
            QCoreApplication::sendEvent(visible<HistoryRow>(panel).first(), &enter);
            auto* const preview = panel.findChild<ClipPreview*>();
            QTRY_VERIFY(preview->isVisible());
            writer.take(*preview, QStringLiteral("preview"));
        });
    takePanel(writer, QStringLiteral("panel-keyboard-update"), many, tab(1));
    takePanel(writer, QStringLiteral("panel-keyboard-reveal"), many, tab(5));
    takePanel(writer, QStringLiteral("panel-keyboard-preset"), nothing, tab(4));
    takePanel(writer, QStringLiteral("panel-keyboard-record"), nothing, tab(6));
    takePanel(writer, QStringLiteral("panel-pointer"), many, [](ViewsFixture&, Panel& panel) {
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(panel.findChildren<HistoryRow*>().last(), &enter);
    });

    SettingsView settings(QStringLiteral("⌘ is the Super key here: press Super+Shift+2 to record."));
    settings.show();
    (void)QTest::qWaitForWindowExposed(&settings);
    writer.take(settings, QStringLiteral("settings"));
    settings.hide();

    takeUpdates(writer, QStringLiteral("update-"));

    LongTexts longTexts;
    QCoreApplication::installTranslator(&longTexts);
    takePanel(writer, QStringLiteral("panel-long-texts"), many);
    takePanel(writer, QStringLiteral("panel-long-texts-empty"), nothing);
    takePanel(writer, QStringLiteral("panel-long-texts-progress"), processing, partlyDone);
    takePanel(writer, QStringLiteral("panel-long-texts-pictures-lost"), pictureLoss);
    takePanel(writer, QStringLiteral("panel-long-texts-not-saved"), notSaved);
    SettingsView longSettings(QStringLiteral(
        "⌘ is the Super key, and ⇧ the Shift key of this keyboard: press Super+Shift+2 to record, or Record Region."));
    longSettings.show();
    (void)QTest::qWaitForWindowExposed(&longSettings);
    writer.take(longSettings, QStringLiteral("settings-long-texts"));
    takeUpdates(writer, QStringLiteral("update-long-texts-"));
    QCoreApplication::removeTranslator(&longTexts);
}

/// What differs from language to language.
void takeLanguages(ScreenshotWriter& writer)
{
    for (const QString& language : Catalogues::languages()) {
        Catalogues::use(language);
        takePanel(writer, language + QStringLiteral("-first-use"), firstUse);
        takePanel(writer, language + QStringLiteral("-first-use-no-tray"), [](ViewsFixture&, Panel& panel) {
            panel.setIntroduction(FirstUseCard::Facts{.hasTray = false, .clipsFolder = QStringLiteral("/srv/clips")});
        });
        takePanel(writer, language + QStringLiteral("-progress"), processing, partlyDone);
        takePanel(writer, language + QStringLiteral("-recording"), [](ViewsFixture& fixture, Panel&) {
            fill(*fixture.history, 2);
            fixture.record();
        });
        takePanel(writer, language + QStringLiteral("-done"), pictureLoss);
        takePanel(writer, language + QStringLiteral("-not-saved"), notSaved);
        SettingsView settings(
            QCoreApplication::translate("HotkeyNotice", "⌘ is the Super key: press %1 in any program.")
                .arg(QStringLiteral("Super + Shift + 2")));
        settings.show();
        (void)QTest::qWaitForWindowExposed(&settings);
        writer.take(settings, language + QStringLiteral("-settings"));
    }
    Catalogues::use(QStringLiteral("en"));
}

} // namespace
} // namespace quillbox::test

int main(int argc, char** argv)
{
    using namespace quillbox::test;
    const TemporaryHome home;
    const QApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        qWarning("usage: views_screenshots FOLDER");
        return 2;
    }
    quillbox::Catalogues::use(QStringLiteral("en"));
    bool clean = true;
    for (const auto& [name, palette] : {std::pair("light", lightPalette()), std::pair("dark", darkPalette())}) {
        QApplication::setPalette(palette);
        ScreenshotWriter writer(QString::fromLocal8Bit(argv[1]), QLatin1String(name));
        takeAll(writer);
        if (QLatin1String(name) == QLatin1String("light") && application.devicePixelRatio() == 1)
            takeLanguages(writer);
        clean = clean && writer.clean();
    }
    return clean ? 0 : 1;
}
