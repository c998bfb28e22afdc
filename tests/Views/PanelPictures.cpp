#include "PanelPictures.h"

#include "TextCheck.h"

#include "Views/Controls/ProgressBar.h"

#include <QTest>

#include <utility>

namespace quillbox::test {

ScreenshotWriter::ScreenshotWriter(const QString& folder, QString theme)
    : m_folder(folder)
    , m_theme(std::move(theme))
{
}

void ScreenshotWriter::take(QWidget& widget, const QString& name)
{
    QCoreApplication::processEvents();
    for (const QString& complaint : clippedTexts(widget))
        complain(name, complaint);
    const QString scale = QString::number(qRound(widget.devicePixelRatioF() * 100));
    const QString file = QStringLiteral("%1-%2-%3.png").arg(name, m_theme, scale);
    if (!widget.grab().save(m_folder.filePath(file)))
        complain(name, QStringLiteral("can't be written as ") + file);
}

void ScreenshotWriter::complain(const QString& name, const QString& complaint)
{
    qWarning().noquote() << name << m_theme << complaint;
    m_clean = false;
}

void nothing(ViewsFixture& /*fixture*/, Panel& /*panel*/) { }

void processing(ViewsFixture& fixture, Panel& /*panel*/)
{
    fill(*fixture.history, 3);
    fixture.recorder->holdsStop = true;
    fixture.process();
}

void partlyDone(ViewsFixture& /*fixture*/, Panel& panel)
{
    auto* bar = panel.findChild<ProgressBar*>();
    QTRY_VERIFY(bar->isVisible());
    bar->setFraction(0.42);
}

void pictureLoss(ViewsFixture& fixture, Panel& /*panel*/)
{
    fill(*fixture.history, 1);
    fixture.recorder->frames = smallChanges(84);
    fixture.finish();
}

void notSaved(ViewsFixture& fixture, Panel& /*panel*/)
{
    fill(*fixture.history, 2);
    const ClipsFolderInTheWay obstacle;
    fixture.stopInVain();
}

void firstUse(ViewsFixture& /*fixture*/, Panel& panel)
{
    panel.setIntroduction(FirstUseCard::Facts{.clipsFolder = QDir::homePath() + QStringLiteral("/Videos/Quillbox")});
}

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

void withPanel(const Prepare& prepare, const std::function<void(Panel&)>& open, const Prepare& whenOpen)
{
    ViewsFixture fixture;
    Panel panel(fixture.coordinator, fixture.updater, *fixture.history, fixture.reveal, &std::chrono::steady_clock::now,
        std::chrono::milliseconds(0));
    prepare(fixture, panel);
    open(panel);
    (void)QTest::qWaitForWindowActive(&panel);
    whenOpen(fixture, panel);
    panel.hide();
    fixture.recorder->release();
    QTRY_VERIFY(!fixture.isIn<RecordingCoordinator::Processing>());
}

void takePanel(ScreenshotWriter& writer, const QString& name, const Prepare& prepare, const Prepare& whenOpen)
{
    const auto open = [](Panel& panel) {
        panel.openNear(QRect(), QRect(0, 0, 1280, 800));
    };
    withPanel(prepare, open, [&](ViewsFixture& fixture, Panel& panel) {
        whenOpen(fixture, panel);
        writer.take(panel, name);
    });
}

} // namespace quillbox::test
