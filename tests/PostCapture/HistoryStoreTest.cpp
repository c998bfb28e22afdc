#include "HistoryFixture.h"

#include "Platform/FolderLock.h"
#include "PostCapture/HistoryFile.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace quillbox {
namespace {

namespace fs = std::filesystem;
using test::clip;
using test::clips;
using test::HistoryStoreTest;
using test::paths;
using test::Store;

TEST_F(HistoryStoreTest, StartsEmptyAndWritesNothingWithoutAFile)
{
    const HistoryStore store(url());
    EXPECT_TRUE(store.entries().empty());
    EXPECT_TRUE(fs::is_empty(folder()));
}

TEST_F(HistoryStoreTest, PutsTheNewestInFront)
{
    Store store(url());
    store.record(clip(1));
    store.record(clip(2));
    ASSERT_EQ(store.entries().size(), 2U);
    EXPECT_EQ(store.entries()[0].outputPath, "/clips/2.gif");
    EXPECT_EQ(HistoryFile::decode(written()), store.entries());
}

TEST_F(HistoryStoreTest, LoadsWhatAnotherWrote)
{
    Store(url()).record(clip(7));
    EXPECT_EQ(HistoryStore(url()).entries().front().outputPath, "/clips/7.gif");
}

TEST_F(HistoryStoreTest, DropsTheOldestWhenTheTwentyFirstComes)
{
    Store store(url());
    for (int i = 0; i < 21; ++i)
        store.record(clip(i));
    EXPECT_EQ(store.entries().size(), 20U);
    EXPECT_EQ(store.entries().back().outputPath, "/clips/1.gif");
    EXPECT_EQ(HistoryFile::decode(written()).value().size(), 20U);
}

TEST_F(HistoryStoreTest, LoadsALongerFileWholeAndCutsItAtTheNextRecord)
{
    write(HistoryFile::encode(clips(25)));
    Store store(url());
    EXPECT_EQ(store.entries().size(), 25U);
    store.record(clip(59));
    EXPECT_EQ(store.entries().size(), 20U);
    EXPECT_EQ(store.entries().front().outputPath, "/clips/59.gif");
}

TEST_F(HistoryStoreTest, ClearsTheListAndTheFile)
{
    Store store(url());
    store.record(clip(1));
    store.clear();
    EXPECT_TRUE(store.entries().empty());
    EXPECT_EQ(written(), "[]\n");
}

TEST_F(HistoryStoreTest, ForgetsASingleClip)
{
    Store store(url());
    for (const auto& each : clips(3))
        store.record(each);
    store.remove(store.entries()[1].id);
    ASSERT_EQ(store.entries().size(), 2U);
    EXPECT_EQ(store.entries()[0].outputPath, "/clips/2.gif");
    EXPECT_EQ(store.entries()[1].outputPath, "/clips/0.gif");
    EXPECT_EQ(HistoryFile::decode(written()), store.entries());
    store.remove(QUuid::createUuid());
    EXPECT_EQ(store.entries().size(), 2U);
}

TEST_F(HistoryStoreTest, PutsWhatWasClearedBehindWhatCameSince)
{
    Store store(url());
    for (const auto& each : clips(20))
        store.record(each);
    const auto before = store.entries();
    store.clear();
    store.record(clip(30));
    store.restore(before);
    ASSERT_EQ(store.entries().size(), 20U) << "no more than are kept";
    EXPECT_EQ(store.entries()[0].outputPath, "/clips/30.gif");
    EXPECT_EQ(store.entries()[1], before[0]);
    EXPECT_EQ(store.entries()[19], before[18]);
    EXPECT_EQ(HistoryFile::decode(written()), store.entries());
}

TEST_F(HistoryStoreTest, AnnouncesEachChangeBeforeAndAfterIt)
{
    Store store(url());
    std::vector<std::pair<std::size_t, std::size_t>> before; // the sizes then and announced
    int after = 0;
    QObject::connect(&store, &HistoryStore::entriesAboutToChange, &store,
        [&](const std::vector<ClipEntry>& next) { before.emplace_back(store.entries().size(), next.size()); });
    QObject::connect(&store, &HistoryStore::entriesChanged, &store, [&] { ++after; });
    store.record(clip(1));
    store.clear();
    EXPECT_EQ(before, (std::vector<std::pair<std::size_t, std::size_t>>{{0, 1}, {1, 0}}));
    EXPECT_EQ(after, 2);
}

TEST_F(HistoryStoreTest, CuttingTheListIsAChangeOfItsOwn)
{
    write(HistoryFile::encode(clips(20)));
    Store store(url());
    std::vector<std::size_t> sizes;
    QObject::connect(&store, &HistoryStore::entriesChanged, &store, [&] { sizes.push_back(store.entries().size()); });
    store.record(clip(30));
    EXPECT_EQ(sizes, (std::vector<std::size_t>{21, 20}));
}

TEST_F(HistoryStoreTest, KeepsTheBytesOfAnUnreadableFileAside)
{
    write("not \xFF json");
    std::ofstream(corruptFile()) << "an earlier one";
    Store store(url());
    EXPECT_TRUE(store.entries().empty());
    EXPECT_EQ(support::readFile(corruptFile()), "not \xFF json");
    EXPECT_EQ(written(), "not \xFF json") << "left in place until it is overwritten";
    store.record(clip(1));
    EXPECT_EQ(HistoryFile::decode(written()).value().size(), 1U);
}

TEST_F(HistoryStoreTest, IsSilentWhenTheBytesCannotBeKeptAside)
{
    write("{}");
    fs::create_directory(corruptFile());
    EXPECT_TRUE(HistoryStore(url()).entries().empty());
}

TEST_F(HistoryStoreTest, DoesNotReadAFileOfAnAbsurdSizeButKeepsIt)
{
    write("{}");
    fs::resize_file(file(), 100 << 20);
    std::ofstream(corruptFile()) << "an earlier one";
    Store store(url());
    EXPECT_TRUE(store.entries().empty());
    store.record(clip(1));
    EXPECT_EQ(HistoryFile::decode(written()), store.entries());
    EXPECT_EQ(fs::file_size(corruptFile()), 100 << 20);
}

TEST_F(HistoryStoreTest, WaitsForNoPipe)
{
    ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
    Store store(url());
    store.record(clip(1));
    EXPECT_EQ(store.entries().size(), 1U);
    EXPECT_TRUE(fs::is_fifo(file()));
}

TEST_F(HistoryStoreTest, KeepsTheEntryInMemoryWhenItCannotBeWritten)
{
    fs::create_directory(file());
    Store store(url());
    store.record(clip(1));
    EXPECT_EQ(store.entries().size(), 1U);
    EXPECT_TRUE(fs::is_directory(file()));
}

TEST_F(HistoryStoreTest, ReplacesTheFileInOneStep)
{
    Store store(url());
    store.record(clip(1));
    const auto before = fs::path(folder() / "hard link to the old list");
    fs::create_hard_link(file(), before);
    store.record(clip(2));
    EXPECT_EQ(HistoryFile::decode(QByteArray::fromStdString(support::readFile(before))).value().size(), 1U);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder()), {}), 2) << "nothing temporary is left";
}

TEST_F(HistoryStoreTest, KeepsWhatAnotherProcessRecordedMeanwhile)
{
    Store one(url());
    Store other(url());
    one.record(clip(1));
    other.record(clip(2));
    one.record(clip(3));
    EXPECT_EQ(paths(one.entries()), (std::vector<QString>{"/clips/3.gif", "/clips/2.gif", "/clips/1.gif"}));
    EXPECT_EQ(HistoryFile::decode(written()), one.entries());
}

TEST_F(HistoryStoreTest, ForgetsWhatAnotherProcessCleared)
{
    Store one(url());
    one.record(clip(1));
    Store(url()).clear();
    one.record(clip(2));
    EXPECT_EQ(paths(one.entries()), std::vector<QString>{"/clips/2.gif"});
}

TEST_F(HistoryStoreTest, WritesLaterWhatCouldNotBeWritten)
{
    Store store(url());
    store.record(clip(1));
    const auto before = written();
    fs::remove(file());
    fs::create_directory(file()); // in the way
    store.record(clip(2));
    fs::remove(file());
    write(before);
    store.record(clip(3));
    EXPECT_EQ(paths(store.entries()), (std::vector<QString>{"/clips/3.gif", "/clips/2.gif", "/clips/1.gif"}));
    EXPECT_EQ(HistoryFile::decode(written()), store.entries());
}

TEST_F(HistoryStoreTest, WritesTheWholeListAgainWhereTheFileIsGone)
{
    Store store(url());
    store.record(clip(1));
    fs::remove(file());
    store.record(clip(2));
    EXPECT_EQ(HistoryFile::decode(written()).value().size(), 2U);
}

TEST_F(HistoryStoreTest, IsAsSmallAfterManyClipsAsAfterTwenty)
{
    const auto openFiles = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), {});
    };
    Store store(url());
    for (int number = 1; number <= 20; ++number)
        store.record(clip(number));
    const auto bytes = written().size();
    const auto descriptors = openFiles();
    for (int number = 0; number < 200; ++number)
        store.record(clip(10 + number % 50));
    EXPECT_EQ(store.entries().size(), 20U);
    EXPECT_EQ(HistoryFile::decode(written()), store.entries());
    EXPECT_NEAR(static_cast<double>(written().size()), static_cast<double>(bytes), 100);
    EXPECT_EQ(openFiles(), descriptors);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder()), {}), 1) << "nothing temporary is left";
}

TEST_F(HistoryStoreTest, KeepsTheFractionsOfASecondThatAFileHasNot)
{
    Store store(url());
    auto entry = clip(1);
    entry.date = entry.date.addMSecs(250);
    store.record(entry);
    store.record(clip(2));
    EXPECT_EQ(store.entries().back(), entry);
}

TEST_F(HistoryStoreTest, HasOtherProcessesWaitFromReadingToWriting)
{
    Store store(url());
    int looks = 0;
    const auto look = [&] {
        EXPECT_FALSE(FolderLock(folder(), std::chrono::milliseconds(0)).isHeld());
        ++looks;
    };
    support::systemCalls().open = [&](const char* path, int flags, mode_t mode) {
        if (path == file())
            look();
        return support::realSystemCalls().open(path, flags, mode);
    };
    support::systemCalls().fdatasync = [&](int descriptor) {
        look();
        return support::realSystemCalls().fdatasync(descriptor);
    };
    store.record(clip(1));
    store.record(clip(2));
    store.remove(store.entries().front().id);
    store.restore({clip(2)});
    store.clear();
    EXPECT_EQ(looks, 10);
    EXPECT_TRUE(FolderLock(folder(), std::chrono::milliseconds(0)).isHeld());
}

TEST_F(HistoryStoreTest, DoesNotWaitForAProcessThatHangs)
{
    Store store(url());
    const FolderLock hanging(folder());
    store.record(clip(1));
    EXPECT_EQ(HistoryFile::decode(written()), store.entries());
}

class DefaultHistory : public HistoryStoreTest {
protected:
    void TearDown() override
    {
        qputenv("HOME", m_home);
        qputenv("XDG_DATA_HOME", m_data);
    }

private:
    QByteArray m_home = qgetenv("HOME");
    QByteArray m_data = qgetenv("XDG_DATA_HOME");
};

TEST_F(DefaultHistory, LiesInTheDataFolderWhichIsCreated)
{
    qputenv("XDG_DATA_HOME", QByteArray::fromStdString((folder() / "data").string()));
    EXPECT_EQ(HistoryStore::defaultURL().toStdString(), (folder() / "data/Quillbox/history.json").string());
    EXPECT_TRUE(fs::is_directory(folder() / "data/Quillbox"));
    EXPECT_FALSE(fs::exists(folder() / "data/Quillbox/history.json"));
}

TEST_F(DefaultHistory, IgnoresARelativeDataFolder)
{
    qputenv("HOME", QByteArray::fromStdString(folder().string()));
    qputenv("XDG_DATA_HOME", "data");
    EXPECT_EQ(HistoryStore::defaultURL().toStdString(), (folder() / ".local/share/Quillbox/history.json").string());
}

TEST_F(DefaultHistory, IsNamedEvenWhereItsFolderCannotBeMade)
{
    qputenv("XDG_DATA_HOME", QByteArray::fromStdString((folder() / "data").string()));
    std::ofstream(folder() / "data") << "a file in the way";
    Store store;
    store.record(clip(1));
    EXPECT_EQ(store.entries().size(), 1U);
}

} // namespace
} // namespace quillbox
