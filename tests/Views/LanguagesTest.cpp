#include "Find.h"
#include "ScriptedUpdates.h"
#include "TextCheck.h"
#include "ViewsFixture.h"

#include "App/Desktop/TrayIcon.h"
#include "Capture/Region/SelectionWindow.h"
#include "support/QtTests.h"
#include "Translation/Catalogues.h"
#include "Views/Controls/ProgressBar.h"
#include "Views/Panel.h"
#include "Views/SettingsView.h"
#include "Views/UpdateView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QSet>
#include <QTabBar>
#include <QTest>
#include <QTranslator>

#include <functional>
#include <vector>

namespace quillbox {
namespace {

using test::ViewsFixture;

/// Every text that goes through the translation system in brackets.
class Brackets : public QTranslator {
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char*, const char* text, const char*, int) const override
    {
        return QStringLiteral("⟦%1⟧").arg(QString::fromUtf8(text));
    }
};

/// Every text that `root` shows or tells, which is not data.
QStringList textsIn(const QWidget& root)
{
    QStringList texts = test::texts(root);
    for (const auto* widget : root.findChildren<QWidget*>())
        texts << widget->toolTip() << widget->accessibleName() << widget->accessibleDescription();
    for (const auto* button : root.findChildren<QAbstractButton*>())
        texts << button->text();
    for (const auto* tabs : root.findChildren<QTabBar*>())
        for (int i = 0; i < tabs->count(); ++i)
            texts << tabs->tabText(i) << tabs->tabToolTip(i);
    texts << root.windowTitle() << root.toolTip() << root.accessibleName();
    texts.removeAll(QString());
    texts.removeDuplicates();
    return texts;
}

QMenu* trayMenu()
{
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (auto* const menu = qobject_cast<QMenu*>(window))
            return menu;
    return nullptr;
}

struct State {
    const char* name;
    std::function<void(ViewsFixture&, Panel&)> prepare;
    std::function<void(Panel&)> whenOpen = {};
};

/// Between them they show every text of the panel.
const std::vector<State>& states()
{
    static const std::vector<State> all{
        {"empty",
            [](ViewsFixture& fixture, Panel&) {
                fixture.history->clear();
            }},
        {"first use",
            [](ViewsFixture&, Panel& panel) {
                panel.setIntroduction(FirstUseCard::Facts{.clipsFolder = "/clips"});
            }},
        {"first use without a tray",
            [](ViewsFixture&, Panel& panel) {
                panel.setIntroduction(FirstUseCard::Facts{.hasTray = false, .clipsFolder = "/clips"});
            }},
        {"selecting",
            [](ViewsFixture& fixture, Panel&) {
                fixture.select();
            }},
        {"recording",
            [](ViewsFixture& fixture, Panel&) {
                fixture.record();
            }},
        {"processing",
            [](ViewsFixture& fixture, Panel&) {
                fixture.recorder->holdsStop = true;
                fixture.process();
            },
            [](Panel& panel) {
                QTRY_VERIFY(panel.findChild<ProgressBar*>()->isVisible());
            }},
        {"done",
            [](ViewsFixture& fixture, Panel&) {
                fixture.finish();
            }},
        {"a clip that lacks pictures",
            [](ViewsFixture& fixture, Panel&) {
                fixture.recorder->frames = test::smallChanges(30);
                fixture.finish();
            }},
        {"a clip that may be made again for another preset",
            [](ViewsFixture& fixture, Panel&) {
                fixture.finish();
                fixture.coordinator.get().setPreset(ExportPreset::github);
            }},
        {"a clip that could not be saved",
            [](ViewsFixture& fixture, Panel&) {
                const test::ClipsFolderInTheWay obstacle;
                fixture.stopInVain();
            }},
        {"without frames",
            [](ViewsFixture& fixture, Panel&) {
                fixture.recorder->frames.clear();
                fixture.record();
                fixture.coordinator.stop();
                QTRY_VERIFY(fixture.isIn<RecordingCoordinator::Failed>());
            }},
        {"a clip that is not on the clipboard yet",
            [](ViewsFixture&, Panel& panel) {
                panel.setClipPending(true);
            }},
        {"not started",
            [](ViewsFixture& fixture, Panel&) {
                fixture.fail("⟦a reason⟧");
            }},
    };
    return all;
}

/// A fixture with a clip, and an open panel in that state.
struct Scene {
    explicit Scene(const State& state)
        : panel(fixture.coordinator, fixture.updater, *fixture.history, fixture.reveal, &std::chrono::steady_clock::now,
            std::chrono::milliseconds(0))
    {
        fixture.history->record(test::clip("/clips/a-clip.gif"));
        state.prepare(fixture, panel);
        panel.openNear(QRect(), QRect(0, 0, 1280, 800));
        if (state.whenOpen)
            state.whenOpen(panel);
        QCoreApplication::processEvents();
    }
    ~Scene()
    {
        fixture.recorder->release();
        QTRY_VERIFY(!fixture.isIn<RecordingCoordinator::Processing>());
    }

    ViewsFixture fixture;
    Panel panel;
};

/// A file's name, and what is kept in the history as it was stored.
bool isData(const QString& text)
{
    return text.endsWith(".gif") || text.startsWith("Slack · ") || text == RecordingClock::text({});
}

/// Shows `look` what the window about updates says from a look to a restart, and of one that failed.
void walkThroughUpdates(const std::function<void(const UpdateView&)>& look)
{
    const auto walk
        = [&look](const std::vector<std::function<void(test::ScriptedUpdates&, UpdaterController&)>>& steps) {
              auto service = std::make_unique<test::ScriptedUpdates>();
              auto& updates = *service;
              UpdaterController updater(std::move(service));
              UpdateView view(updater);
              view.setSoftwareCenter(true);
              updater.checkForUpdates();
              view.show();
              for (const auto& step : steps) {
                  step(updates, updater);
                  QCoreApplication::processEvents();
                  look(view);
              }
              view.setBusy(true);
              QCoreApplication::processEvents();
              look(view);
          };
    const auto wait = [](auto&, auto&) {
    };
    const auto offer = [](test::ScriptedUpdates& service, auto&) {
        service.answer({.update = Update{.version = QStringLiteral("⟦1.1⟧"), .id = QStringLiteral("an id")}});
    };
    const auto install = [](auto&, UpdaterController& updater) {
        updater.install();
    };
    const auto finish = [](test::ScriptedUpdates& service, auto&) {
        service.answer();
    };
    const auto fail = [](test::ScriptedUpdates& service, auto&) {
        service.answer(UpdateError(UpdateError::Reason::Untrusted));
    };
    const auto refuse = [](test::ScriptedUpdates& service, auto&) {
        service.answer(UpdateError(UpdateError::Reason::NotPackaged));
    };
    walk({wait, offer, install, finish});
    walk({offer, install, fail});
    walk({refuse});
    walk({finish});
}

class LanguagesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { Catalogues::use("en"); }

    void translateEveryTextOfThePanel()
    {
        Brackets brackets;
        QCoreApplication::installTranslator(&brackets);
        for (const State& state : states()) {
            const Scene scene(state);
            for (const QString& text : textsIn(scene.panel))
                QVERIFY2(text.contains("⟦") || isData(text), qPrintable(state.name + (": " + text)));
        }
    }

    void translateEveryTextOfTheSettings()
    {
        Brackets brackets;
        QCoreApplication::installTranslator(&brackets);
        const SettingsView settings(QString{});
        for (const QString& text : textsIn(settings))
            QVERIFY2(text.contains("⟦"), qPrintable(text));
    }

    void translateEveryTextAboutUpdates()
    {
        Brackets brackets;
        QCoreApplication::installTranslator(&brackets);
        int looks = 0;
        walkThroughUpdates([&looks](const UpdateView& view) {
            ++looks;
            for (const QString& text : textsIn(view))
                QVERIFY2(text.contains("⟦"), qPrintable(text));
        });
        QCOMPARE(looks, 13);
    }

    void translateEveryEntryOfTheTraysMenu()
    {
        Brackets brackets;
        QCoreApplication::installTranslator(&brackets);
        ViewsFixture fixture;
        const TrayIcon tray(fixture.coordinator);
        QCOMPARE(trayMenu()->actions().size(), 6);
        for (const bool recording : {false, true}) {
            if (recording)
                fixture.record();
            for (const QAction* action : trayMenu()->actions())
                QVERIFY2(action->isSeparator() || action->text().startsWith("⟦"), qPrintable(action->text()));
        }
    }

    void translateTheOverlaysTitle()
    {
        Brackets brackets;
        QCoreApplication::installTranslator(&brackets);
        const SelectionWindow overlay(QRect(0, 0, 8, 8), QPixmap(), [](auto) {});
        QCOMPARE(overlay.windowTitle(), QString("⟦Select a region⟧"));
    }

    void cutNoTextOff_data()
    {
        QTest::addColumn<QString>("language");
        for (const QString& language : Catalogues::languages())
            QTest::newRow(qPrintable(language)) << language;
    }
    void cutNoTextOff()
    {
        QFETCH(const QString, language);
        Catalogues::use(language);
        for (const State& state : states()) {
            const Scene scene(state);
            QCOMPARE(test::clippedTexts(scene.panel), QStringList());
            QVERIFY2(scene.panel.width() <= widest, qPrintable(QString::number(scene.panel.width())));
        }
        SettingsView settings(QStringLiteral("A notice."));
        settings.show();
        QCoreApplication::processEvents();
        QCOMPARE(test::clippedTexts(settings), QStringList());
    }

    void cutNoTextAboutUpdatesOff_data() { cutNoTextOff_data(); }
    void cutNoTextAboutUpdatesOff()
    {
        QFETCH(const QString, language);
        Catalogues::use(language);
        walkThroughUpdates([](const UpdateView& view) {
            QCOMPARE(test::clippedTexts(view), QStringList());
            QVERIFY2(view.width() <= widest, qPrintable(QString::number(view.width())));
        });
    }

    void markNoKeyTwiceInTheTraysMenu_data() { cutNoTextOff_data(); }
    void markNoKeyTwiceInTheTraysMenu()
    {
        QFETCH(const QString, language);
        Catalogues::use(language);
        ViewsFixture fixture;
        const TrayIcon tray(fixture.coordinator);
        QSet<QString> keys;
        for (const QAction* action : trayMenu()->actions()) {
            const auto key = QKeySequence::mnemonic(action->text()).toString();
            QVERIFY2(key.isEmpty() || !keys.contains(key), qPrintable(action->text()));
            keys.insert(key);
        }
    }

private:
    static constexpr int widest = 440; // a sixth more than in English
};

const test::Registration<LanguagesTest> registeredLanguagesTest("Languages");

} // namespace
} // namespace quillbox

#include "LanguagesTest.moc"
