#include "PostCapture/ClipboardExporter.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QCalendar>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QTimeZone>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

namespace quillbox {
namespace {

namespace fs = std::filesystem;

/// A home folder of its own, with nothing set.
class ClipsDirectory : public testing::Test {
protected:
    void SetUp() override
    {
        qputenv("HOME", home().toUtf8());
        qunsetenv("XDG_CONFIG_HOME");
        fs::create_directory(m_folder.path() / ".config");
    }
    void TearDown() override { qputenv("HOME", m_homeBefore); }

    [[nodiscard]] QString home() const { return QString::fromStdString(m_folder.path().string()); }
    void setVideosFolder(const std::string& value) const
    {
        std::ofstream(m_folder.path() / ".config/user-dirs.dirs") << "XDG_VIDEOS_DIR=\"" << value << "\"\n";
    }

private:
    QByteArray m_homeBefore = qgetenv("HOME");
    support::TemporaryFolder m_folder;
};

TEST_F(ClipsDirectory, LiesInTheVideoFolderAndIsCreatedWithIt)
{
    setVideosFolder("$HOME/Films/Mine");
    EXPECT_EQ(ClipboardExporter::clipsDirectory(), home() + "/Films/Mine/Quillbox");
    EXPECT_TRUE(QFileInfo(home() + "/Films/Mine/Quillbox").isDir());
}

TEST_F(ClipsDirectory, LiesDirectlyInTheHomeFolderWhereThereIsNoVideoFolder)
{
    setVideosFolder("$HOME/"); // how user-dirs.dirs says that there is none
    EXPECT_EQ(ClipboardExporter::clipsDirectory(), home() + "/Quillbox");
}

TEST_F(ClipsDirectory, LiesInTheHomeFolderWhenTheVideoFolderIsRelative)
{
    setVideosFolder("Films");
    EXPECT_EQ(ClipboardExporter::clipsDirectory(), home() + "/Quillbox");
    EXPECT_FALSE(QFileInfo("Films").exists());
}

TEST_F(ClipsDirectory, UsesTheUsualVideoFolderWhenNothingIsConfigured)
{
    EXPECT_EQ(ClipboardExporter::clipsDirectory(), home() + "/Videos/Quillbox");
}

TEST_F(ClipsDirectory, IsTheSameTheSecondTime)
{
    const auto first = ClipboardExporter::clipsDirectory();
    EXPECT_EQ(ClipboardExporter::clipsDirectory(), first);
}

TEST_F(ClipsDirectory, IsNamedEvenWhenItCannotBeCreated)
{
    setVideosFolder("$HOME/Films");
    fs::create_directory((home() + "/Films").toStdString());
    std::ofstream((home() + "/Films/Quillbox").toStdString()) << "a file";
    EXPECT_EQ(ClipboardExporter::clipsDirectory(), home() + "/Films/Quillbox");
    EXPECT_TRUE(QFileInfo(home() + "/Films/Quillbox").isFile());
}

QString nameAt(const QDateTime& date, QCalendar calendar = QCalendar())
{
    return ClipboardExporter::fileName(date, QStringLiteral("gif"), calendar);
}

TEST(ClipFileName, SaysTheDayAndTheTime)
{
    EXPECT_EQ(nameAt(QDateTime(QDate(2026, 11, 16), QTime(9, 5, 7))), "Quillbox 2026-11-16 at 09.05.07.gif");
}

TEST(ClipFileName, CountsTheHoursTo24)
{
    EXPECT_EQ(nameAt(QDateTime(QDate(2026, 1, 2), QTime(23, 59, 59))), "Quillbox 2026-01-02 at 23.59.59.gif");
    EXPECT_EQ(nameAt(QDateTime(QDate(2026, 1, 2), QTime(0, 0, 0))), "Quillbox 2026-01-02 at 00.00.00.gif");
}

TEST(ClipFileName, IsTheSameWithinASecond)
{
    const QDate day(2026, 11, 16);
    EXPECT_EQ(nameAt(QDateTime(day, QTime(9, 5, 7, 1))), nameAt(QDateTime(day, QTime(9, 5, 7, 999))));
    EXPECT_NE(nameAt(QDateTime(day, QTime(9, 5, 7, 999))), nameAt(QDateTime(day, QTime(9, 5, 8))));
}

TEST(ClipFileName, UsesTheLocalTimeWhateverZoneTheDateCameIn)
{
    const QDateTime local(QDate(2026, 6, 1), QTime(12, 0));
    EXPECT_EQ(nameAt(local.toUTC()), nameAt(local));
    EXPECT_EQ(nameAt(local.toOffsetFromUtc(5 * 3600)), nameAt(local));
}

TEST(ClipFileName, CountsYearsMonthsAndDaysByTheGivenCalendar)
{
    const QDateTime date(QDate(2026, 11, 16), QTime(9, 5, 7));
    EXPECT_EQ(nameAt(date, QCalendar(QCalendar::System::Jalali)), "Quillbox 1405-08-25 at 09.05.07.gif");
    EXPECT_EQ(nameAt(date, QCalendar(QCalendar::System::Julian)), "Quillbox 2026-11-03 at 09.05.07.gif");
}

TEST(ClipFileName, UsesASCIIDigitsInEveryLanguage)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(nameAt(QDateTime(QDate(2026, 11, 16), QTime(9, 5, 7))), "Quillbox 2026-11-16 at 09.05.07.gif");
    QLocale::setDefault(before);
}

TEST(ClipFileName, TakesTheExtensionAsItIs)
{
    const QDateTime date(QDate(2026, 11, 16), QTime(9, 5, 7));
    EXPECT_EQ(
        ClipboardExporter::fileName(date, QStringLiteral(".gif"), QCalendar()), "Quillbox 2026-11-16 at 09.05.07..gif");
    EXPECT_EQ(ClipboardExporter::fileName(date, QString(), QCalendar()), "Quillbox 2026-11-16 at 09.05.07.");
}

} // namespace
} // namespace quillbox
