// Renders every state of the views, in light and dark, as PNGs: views_screenshots FOLDER. QT_SCALE_FACTOR sets the
// scale. Fails when a text is cut off that should not be.
#include "Desk.h"
#include "Find.h"
#include "Palettes.h"
#include "TextCheck.h"

#include "Translation/Catalogues.h"
#include "Views/HistoryRow.h"
#include "Views/Panel.h"
#include "Views/ProgressBar.h"
#include "Views/SettingsView.h"
#include "Views/UpdateView.h"

#include <QApplication>
#include <QDir>
#include <QEnterEvent>
#include <QTest>
#include <QTranslator>

#include <functional>

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

class Studio {
public:
    Studio(const QString& folder, QString theme)
        : m_folder(folder)
        , m_theme(std::move(theme))
    {
    }

    void take(QWidget& widget, const QString& name)
    {
        QCoreApplication::processEvents();
        for (const QString& complaint : clippedTexts(widget)) {
            qWarning().noquote() << name << m_theme << complaint;
            m_clean = false;
        }
        const QString scale = QString::number(qRound(widget.devicePixelRatioF() * 100));
        const QString file = QStringLiteral("%1-%2-%3.png").arg(name, m_theme, scale);
        if (!widget.grab().save(m_folder.filePath(file))) {
            qWarning().noquote() << "can't write" << file;
            m_clean = false;
        }
    }
    [[nodiscard]] bool clean() const { return m_clean; }

private:
    QDir m_folder;
    QString m_theme;
    bool m_clean = true;
};

void fill(HistoryStore& history, int clips)
{
    for (int i = clips; i > 0; --i) {
        ClipEntry entry = clip(QStringLiteral("/home/anna/Videos/Quillbox/Quillbox 2026-11-%1 at 09.05.07.gif")
                                   .arg(i, 2, 10, QLatin1Char('0')),
            i * 345'678, i * 1.7);
        if (i == 2) {
            entry.format = QStringLiteral("MP4");
            entry.byteCount.reset();
            entry.durationSeconds.reset();
        }
        if (i == 3)
            entry.outputPath = QStringLiteral("/tmp/a <b>name that is much too long for one line of the list.gif");
        if (i == 4)
            entry.outputPath.reset();
        history.record(entry);
    }
}

using Prepare = std::function<void(Desk&, Panel&)>;

const Prepare nothing = [](Desk&, Panel&) {
};
/// A clip whose making takes a while.
const Prepare processing = [](Desk& desk, Panel&) {
    fill(*desk.history, 3);
    desk.recorder->holdsStop = true;
    desk.process();
};
/// Its progress, once that is shown.
const Prepare partlyDone = [](Desk&, Panel& panel) {
    auto* bar = panel.findChild<ProgressBar*>();
    QTRY_VERIFY(bar->isVisible());
    bar->setFraction(0.42);
};

void takePanel(Studio& studio, const QString& name, const Prepare& prepare, const Prepare& whenOpen = nothing)
{
    Desk desk;
    Panel panel(desk.coordinator, desk.updater, *desk.history, desk.reveal, &std::chrono::steady_clock::now,
        std::chrono::milliseconds(0));
    prepare(desk, panel);
    panel.openNear(QRect(), QRect(0, 0, 1280, 800));
    (void)QTest::qWaitForWindowActive(&panel);
    whenOpen(desk, panel);
    studio.take(panel, name);
    panel.hide();
    desk.recorder->release();
    QTRY_VERIFY(!desk.isIn<RecordingCoordinator::Processing>());
}

using Reason = UpdateError::Reason;

void takeUpdates(Studio& studio, const QString& prefix)
{
    const Update newer{.version = QStringLiteral("1.1-2"), .id = QStringLiteral("quillbox;1.1-2;amd64;stable")};
    Desk desk;
    UpdateView view(desk.updater);
    view.setSoftwareCenter(true);
    const auto take = [&](const QString& name) {
        view.show();
        (void)QTest::qWaitForWindowExposed(&view);
        studio.take(view, prefix + name);
    };
    const auto look = [&](const auto& answer) {
        desk.updater.checkForUpdates();
        desk.updates->answer(answer);
        QTRY_VERIFY(!desk.updater.isIn<UpdaterController::Looking>());
    };
    desk.updater.checkForUpdates();
    Q_EMIT desk.updates->progressed(35);
    take(QStringLiteral("looking"));
    desk.updater.dismiss();
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
    desk.updater.install();
    Q_EMIT desk.updates->progressed(60);
    take(QStringLiteral("installing"));
    desk.updates->answer();
    QTRY_VERIFY(desk.updater.isIn<UpdaterController::Installed>());
    take(QStringLiteral("installed"));
    view.setBusy(true);
    take(QStringLiteral("installed-busy"));
}

void takeAll(Studio& studio)
{
    const auto many = [](Desk& desk, Panel&) {
        fill(*desk.history, 9);
    };
    takePanel(studio, QStringLiteral("panel-idle-empty"), nothing);
    takePanel(studio, QStringLiteral("panel-idle"), many);
    takePanel(studio, QStringLiteral("panel-selecting"), [](Desk& desk, Panel&) { desk.select(); });
    takePanel(studio, QStringLiteral("panel-recording"), [](Desk& desk, Panel&) {
        fill(*desk.history, 3);
        desk.record();
    });
    takePanel(studio, QStringLiteral("panel-processing"), processing, [](Desk&, Panel& panel) {
        panel.findChild<ProgressBar*>()->hide(); // as in the first half second
        button(panel, QStringLiteral("Finish now"))->hide();
    });
    takePanel(studio, QStringLiteral("panel-progress"), processing, partlyDone);
    takePanel(studio, QStringLiteral("panel-progress-keyboard"), processing, [](Desk& desk, Panel& panel) {
        partlyDone(desk, panel);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    });
    takePanel(studio, QStringLiteral("panel-progress-finishing"), processing, [](Desk& desk, Panel& panel) {
        partlyDone(desk, panel);
        desk.coordinator.finishNow();
        panel.findChild<ProgressBar*>()->setFraction(0.84);
    });
    takePanel(studio, QStringLiteral("panel-done"), [](Desk& desk, Panel&) {
        fill(*desk.history, 1);
        desk.finish();
    });
    takePanel(studio, QStringLiteral("panel-failed"), [](Desk& desk, Panel&) {
        fill(*desk.history, 2);
        desk.fail("No display to record");
    });
    takePanel(studio, QStringLiteral("panel-failed-long"), [](Desk& desk, Panel&) {
        fill(*desk.history, 2);
        desk.fail("The folder /home/anna/Videos/averylongnamewithoutanyblanksinitwhichmustbebrokensomewhere/Quillbox "
                  "can't be created because the file system is mounted for reading only and the administrator of this "
                  "machine has not yet answered");
    });
    takePanel(studio, QStringLiteral("panel-notice"), [](Desk& desk, Panel& panel) {
        fill(*desk.history, 2);
        desk.updates->setAvailable(false);
        panel.setNotice(QStringLiteral("Another program uses Super+Shift+2. Start from here instead."));
    });

    takePanel(studio, QStringLiteral("panel-rounded"), [&](Desk& desk, Panel& panel) {
        many(desk, panel);
        panel.setCorners(Panel::Corners::Rounded);
    });
    const auto tab = [](int times) {
        return [times](Desk&, Panel&) {
            for (int i = 0; i < times; ++i)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        };
    };
    takePanel(studio, QStringLiteral("panel-keyboard-update"), many, tab(1));
    takePanel(studio, QStringLiteral("panel-keyboard-reveal"), many, tab(5));
    takePanel(studio, QStringLiteral("panel-keyboard-preset"), nothing, tab(4));
    takePanel(studio, QStringLiteral("panel-keyboard-record"), nothing, tab(5));
    takePanel(studio, QStringLiteral("panel-pointer"), many, [](Desk&, Panel& panel) {
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
        QCoreApplication::sendEvent(panel.findChildren<HistoryRow*>().last(), &enter);
    });

    SettingsView settings(QStringLiteral("⌘ is the Super key here: press Super+Shift+2 to record."));
    settings.show();
    (void)QTest::qWaitForWindowExposed(&settings);
    studio.take(settings, QStringLiteral("settings"));
    settings.hide();

    takeUpdates(studio, QStringLiteral("update-"));

    LongTexts longTexts;
    QCoreApplication::installTranslator(&longTexts);
    takePanel(studio, QStringLiteral("panel-long-texts"), many);
    takePanel(studio, QStringLiteral("panel-long-texts-empty"), nothing);
    takePanel(studio, QStringLiteral("panel-long-texts-progress"), processing, partlyDone);
    SettingsView longSettings(QStringLiteral(
        "⌘ is the Super key, and ⇧ the Shift key of this keyboard: press Super+Shift+2 to record, or Record Region."));
    longSettings.show();
    (void)QTest::qWaitForWindowExposed(&longSettings);
    studio.take(longSettings, QStringLiteral("settings-long-texts"));
    takeUpdates(studio, QStringLiteral("update-long-texts-"));
    QCoreApplication::removeTranslator(&longTexts);
}

const Prepare firstUse = [](Desk&, Panel& panel) {
    panel.setIntroduction(FirstUseCard::Facts{.clipsFolder = QDir::homePath() + QStringLiteral("/Videos/Quillbox")});
};

/// What differs from language to language.
void takeLanguages(Studio& studio)
{
    for (const QString& language : Catalogues::languages()) {
        Catalogues::use(language);
        takePanel(studio, language + QStringLiteral("-first-use"), firstUse);
        takePanel(studio, language + QStringLiteral("-first-use-no-tray"), [](Desk&, Panel& panel) {
            panel.setIntroduction(FirstUseCard::Facts{.hasTray = false, .clipsFolder = QStringLiteral("/srv/clips")});
        });
        takePanel(studio, language + QStringLiteral("-progress"), processing, partlyDone);
        takePanel(studio, language + QStringLiteral("-recording"), [](Desk& desk, Panel&) {
            fill(*desk.history, 2);
            desk.record();
        });
        takePanel(studio, language + QStringLiteral("-done"), [](Desk& desk, Panel&) { desk.finish(); });
        SettingsView settings(
            QCoreApplication::translate("HotkeyNotice", "⌘ is the Super key: press Super + Shift + 2 in any program."));
        settings.show();
        (void)QTest::qWaitForWindowExposed(&settings);
        studio.take(settings, language + QStringLiteral("-settings"));
    }
    Catalogues::use(QStringLiteral("en"));
}

} // namespace
} // namespace quillbox::test

int main(int argc, char** argv)
{
    using namespace quillbox::test;
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    const QApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        qWarning("usage: views_screenshots FOLDER");
        return 2;
    }
    bool clean = true;
    for (const auto& [name, palette] : {std::pair("light", lightPalette()), std::pair("dark", darkPalette())}) {
        QApplication::setPalette(palette);
        Studio studio(QString::fromLocal8Bit(argv[1]), QLatin1String(name));
        takeAll(studio);
        if (QLatin1String(name) == QLatin1String("light") && application.devicePixelRatio() == 1)
            takeLanguages(studio);
        clean = clean && studio.clean();
    }
    return clean ? 0 : 1;
}
