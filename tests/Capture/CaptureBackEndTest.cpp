#include "Capture/ScreenSession.h"

#include "Capture/Portal/PortalStream.h"
#include "Capture/X11/X11Stream.h"
#include "support/QtTests.h"

#include <QTest>

namespace quillbox {

/// The choice of a back end.
class CaptureBackEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theBackEndCanBeChosenByName_data();
    void theBackEndCanBeChosenByName();
    void theBackEndIsTheSessions_data();
    void theBackEndIsTheSessions();
};

void CaptureBackEndTest::theBackEndCanBeChosenByName_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("none") << QByteArray("none")
                          << QStringLiteral("Screen capture is switched off by QUILLBOX_CAPTURE_BACKEND");
    QTest::newRow("unknown") << QByteArray(
        "mirror") << QStringLiteral("QUILLBOX_CAPTURE_BACKEND is \"mirror\", which is none of x11, portal, none");
}

void CaptureBackEndTest::theBackEndCanBeChosenByName()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QString, sentence);
    qputenv("QUILLBOX_CAPTURE_BACKEND", name);
    QString said;
    try {
        (void)ScreenSession().makeStream();
    } catch (const CaptureError& error) {
        QVERIFY(error.reason() == CaptureError::Reason::Unavailable);
        said = QString::fromUtf8(error.what());
    }
    QCOMPARE(said, sentence);
}

void CaptureBackEndTest::theBackEndIsTheSessions_data()
{
    QTest::addColumn<QByteArray>("chosen");
    QTest::addColumn<QByteArray>("waylandDisplay");
    QTest::addColumn<QByteArray>("sessionType");
    QTest::addColumn<bool>("isPortal");
    QTest::newRow("X11") << QByteArray() << QByteArray() << QByteArray("x11") << false;
    QTest::newRow("nothing is told") << QByteArray() << QByteArray() << QByteArray() << false;
    QTest::newRow("a Wayland display") << QByteArray() << QByteArray("wayland-1") << QByteArray() << true;
    QTest::newRow("a Wayland session") << QByteArray() << QByteArray() << QByteArray("wayland") << true;
    QTest::newRow("the portal on X11") << QByteArray("portal") << QByteArray() << QByteArray("x11") << true;
    QTest::newRow("X11 on Wayland") << QByteArray("x11") << QByteArray("wayland-1") << QByteArray("wayland") << false;
}

void CaptureBackEndTest::theBackEndIsTheSessions()
{
    QFETCH(const QByteArray, chosen);
    QFETCH(const QByteArray, waylandDisplay);
    QFETCH(const QByteArray, sessionType);
    QFETCH(const bool, isPortal);
    qputenv("QUILLBOX_CAPTURE_BACKEND", chosen);
    qputenv("WAYLAND_DISPLAY", waylandDisplay);
    qputenv("XDG_SESSION_TYPE", sessionType);
    const auto stream = ScreenSession().makeStream();
    QCOMPARE(dynamic_cast<const PortalStream*>(stream.get()) != nullptr, isPortal);
    QCOMPARE(dynamic_cast<const X11Stream*>(stream.get()) != nullptr, !isPortal);
}

namespace {
const test::Registration<CaptureBackEndTest> registeredCaptureBackEndTest("CaptureBackEnd");
} // namespace

} // namespace quillbox

#include "CaptureBackEndTest.moc"
