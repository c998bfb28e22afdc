#include "App/Workflow/ClipExport.h"

#include "CoordinatorFixture.h"
#include "PostCapture/ClipboardExporter.h"
#include "PostCapture/OutputFile.h"
#include "support/QtTests.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <array>
#include <memory>

namespace quillbox {

/// Saving clips, in a home folder of the test's own.
class ClipExportTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<test::CoordinatorFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void namesAClipAfterItsDate();
    void takesTheNextFreeSecondWhereAClipHasTheName();
    void passesByAFolderOfThatName();
    void saysWhyTheFolderCanNotBeMade();

private:
    static QString nameOf(const QString& path) { return QFileInfo(path).fileName(); }

    const QDateTime m_date{QDate(2026, 11, 16), QTime(23, 59, 58)};
    const std::array<std::uint8_t, 3> m_bytes{1, 2, 3};
    std::unique_ptr<test::CoordinatorFixture> m_fixture;
};

void ClipExportTest::namesAClipAfterItsDate()
{
    const auto path = ClipExport::save(m_bytes, m_date);
    QCOMPARE(path, ClipboardExporter::clipsDirectory() + "/Quillbox 2026-11-16 at 23.59.58.gif");
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("\1\2\3"));
}

void ClipExportTest::takesTheNextFreeSecondWhereAClipHasTheName()
{
    const std::array<std::uint8_t, 1> other{9};
    const auto first = ClipExport::save(m_bytes, m_date);
    QCOMPARE(nameOf(ClipExport::save(other, m_date)), QString("Quillbox 2026-11-16 at 23.59.59.gif"));
    QCOMPARE(nameOf(ClipExport::save(other, m_date)), QString("Quillbox 2026-11-17 at 00.00.00.gif"));
    QCOMPARE(QFileInfo(first).size(), 3);
}

void ClipExportTest::passesByAFolderOfThatName()
{
    QVERIFY(QDir(ClipboardExporter::clipsDirectory()).mkdir("Quillbox 2026-11-16 at 23.59.58.gif"));
    QCOMPARE(nameOf(ClipExport::save(m_bytes, m_date)), QString("Quillbox 2026-11-16 at 23.59.59.gif"));
}

void ClipExportTest::saysWhyTheFolderCanNotBeMade()
{
    const auto folder = ClipboardExporter::clipsDirectory();
    QVERIFY(QDir(folder).removeRecursively());
    QFile inTheWay(folder);
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    QVERIFY_THROWS_EXCEPTION(std::exception, (void)ClipExport::save(m_bytes, m_date));
}

namespace {
const test::Registration<ClipExportTest> registeredClipExportTest("ClipExport");
} // namespace

} // namespace quillbox

#include "ClipExportTest.moc"
