#include "PostCapture/HistoryFile.h"

#include <gtest/gtest.h>

#include <QTimeZone>

#include <ostream>

#include <unordered_set>

namespace quillbox {
namespace {

ClipEntry fullEntry()
{
    return {
        .id = QUuid::fromString(QStringLiteral("0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9")),
        .date = {QDate(2026, 11, 16), QTime(9, 5, 7), QTimeZone::utc()},
        .format = QStringLiteral("GIF"),
        .preset = QStringLiteral("Slack"),
        .outputPath = QStringLiteral("/home/ü/Quillbox 2026-11-16 at 09.05.07.gif"),
        .byteCount = 1234567,
        .durationSeconds = 3.4,
        .width = 1920,
        .height = 1080,
    };
}

constexpr const char* fullText = R"([
  {
    "id": "0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9",
    "date": "2026-11-16T09:05:07Z",
    "format": "GIF",
    "preset": "Slack",
    "outputPath": "/home/ü/Quillbox 2026-11-16 at 09.05.07.gif",
    "byteCount": 1234567,
    "durationSeconds": 3.4,
    "width": 1920,
    "height": 1080
  }
]
)";

/// An array of one object with the four keys that must be there, of which `key` gets `value` (JSON).
QByteArray with(const QByteArray& key, const QByteArray& value)
{
    QByteArray text
        = R"([{"id": "0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9", "date": "2026-11-16T09:05:07Z", "format": "GIF",
        "preset": "Docs")";
    const auto start = text.indexOf('"' + key + "\": ");
    if (start < 0)
        return text + ", \"" + key + "\": " + value + "}]";
    const auto valueStart = start + key.size() + 4;
    return text.replace(valueStart, text.indexOf('"', valueStart + 1) + 1 - valueStart, value) + "}]";
}

TEST(HistoryFile, WritesEveryKeyInItsOrder)
{
    EXPECT_EQ(HistoryFile::encode(std::vector{fullEntry()}), fullText);
}

TEST(HistoryFile, ReadsBackWhatItWrites)
{
    EXPECT_EQ(HistoryFile::decode(fullText), std::vector{fullEntry()});
}

TEST(HistoryFile, LeavesOutWhatIsAbsent)
{
    const ClipEntry entry{.id = fullEntry().id,
        .date = fullEntry().date,
        .format = QStringLiteral("GIF"),
        .preset = QStringLiteral("Docs")};
    const auto text = HistoryFile::encode(std::vector{entry});
    EXPECT_FALSE(text.contains("outputPath") || text.contains("byteCount") || text.contains("durationSeconds"));
    EXPECT_FALSE(text.contains("width") || text.contains("height") || text.contains("null"));
    EXPECT_EQ(HistoryFile::decode(text), std::vector{entry});
}

TEST(HistoryFile, WritesNoEntriesAsAnEmptyArray)
{
    EXPECT_EQ(HistoryFile::encode({}), "[]\n");
    EXPECT_EQ(HistoryFile::decode("[]"), std::vector<ClipEntry>{});
}

TEST(HistoryFile, DropsFractionsOfASecondWhenWriting)
{
    auto entry = fullEntry();
    entry.date = entry.date.addMSecs(999);
    EXPECT_EQ(HistoryFile::encode(std::vector{entry}), fullText);
}

TEST(HistoryFile, WritesDatesOfOtherZonesInUTC)
{
    auto entry = fullEntry();
    entry.date = entry.date.toOffsetFromUtc(5400);
    EXPECT_EQ(HistoryFile::encode(std::vector{entry}), fullText);
}

TEST(HistoryFile, ReadsNullAsAbsentWhereAKeyMayBeMissing)
{
    for (const char* key : {"outputPath", "byteCount", "durationSeconds", "width", "height"}) {
        const auto entries = HistoryFile::decode(with(key, "null"));
        ASSERT_TRUE(entries) << key;
        EXPECT_EQ(entries->front().outputPath, std::nullopt);
        EXPECT_EQ(entries->front().byteCount, std::nullopt);
    }
}

TEST(HistoryFile, PassesOverKeysItDoesNotKnow)
{
    EXPECT_TRUE(HistoryFile::decode(with("colour", "[1, {\"deep\": true}]")));
}

TEST(HistoryFile, ReadsWholeNumbersAsSeconds)
{
    const auto entries = HistoryFile::decode(with("durationSeconds", "3"));
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->front().durationSeconds, 3.0);
}

TEST(HistoryFile, ReadsTheLargestAndTheSmallestInteger)
{
    EXPECT_EQ(HistoryFile::decode(with("byteCount", "9223372036854775807")).value().front().byteCount, INT64_MAX);
    EXPECT_EQ(HistoryFile::decode(with("byteCount", "-9223372036854775808")).value().front().byteCount, INT64_MIN);
}

TEST(HistoryFile, IsUnreadableWithoutOneOfTheFourKeys)
{
    for (const char* key : {"id", "date", "format", "preset"}) {
        auto text = QByteArray(fullText);
        text.replace('"' + QByteArray(key) + '"', "\"other\"");
        EXPECT_FALSE(HistoryFile::decode(text)) << key;
        EXPECT_FALSE(HistoryFile::decode(with(key, "null"))) << key;
    }
}

struct Bad {
    const char* key;
    const char* value;
};

std::ostream& operator<<(std::ostream& out, const Bad& bad) // for the test's name
{
    return out << bad.key << ' ' << bad.value;
}

class UnreadableValue : public testing::TestWithParam<Bad> { };

TEST_P(UnreadableValue, CondemnsTheFile)
{
    EXPECT_FALSE(HistoryFile::decode(with(GetParam().key, GetParam().value)));
}

INSTANTIATE_TEST_SUITE_P(HistoryFile, UnreadableValue,
    testing::Values(Bad{"id", "7"}, Bad{"id", R"("{0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9}")"},
        Bad{"id", R"("0A1B2C3D4E5F60718293A4B5C6D7E8F9")"}, Bad{"id", R"("0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9 ")"},
        Bad{"date", "0"}, Bad{"date", R"("2026-11-16T09:05:07.5Z")"}, Bad{"date", R"("2026-11-16T09:05:07")"},
        Bad{"date", R"("2026-11-16T09:05:07z")"}, Bad{"date", R"("2026-11-16T09:05:07+00:00")"},
        Bad{"date", R"("2026-11-16")"}, Bad{"date", R"("2026-02-30T09:05:07Z")"},
        Bad{"date", R"("2026-11-16T24:05:07Z")"}, Bad{"date", R"("2026-11-16T09:05:07Z\n")"}, Bad{"format", "1"},
        Bad{"preset", "[]"}, Bad{"outputPath", "false"}, Bad{"byteCount", "1.5"}, Bad{"byteCount", "\"1\""},
        Bad{"byteCount", "9223372036854775808"}, Bad{"durationSeconds", "\"1\""}, Bad{"width", "1e3"},
        Bad{"height", "{}"}));

TEST(HistoryFile, IsUnreadableWhenItIsNoArrayOfObjects)
{
    for (const char* text : {"", "{}", "null", "[1]", "[[]]", "[{}]", "[", "[] []", "\xFF"})
        EXPECT_FALSE(HistoryFile::decode(text)) << text;
}

TEST(ClipEntry, GetsAnIdentityOfItsOwn)
{
    EXPECT_NE(ClipEntry{}.id, ClipEntry{}.id);
    EXPECT_FALSE(ClipEntry{}.id.isNull());
}

TEST(ClipEntry, IsComparedAndHashedByEveryField)
{
    const auto entry = fullEntry();
    std::vector<ClipEntry> others(9, entry);
    others[0].id = QUuid::createUuid();
    others[1].date = others[1].date.addSecs(1);
    others[2].format = QStringLiteral("gif");
    others[3].preset.clear();
    others[4].outputPath.reset();
    others[5].byteCount = 1;
    others[6].durationSeconds = 1;
    others[7].width = 1;
    others[8].height = 1;
    std::unordered_set<std::size_t> hashes{std::hash<ClipEntry>{}(entry)};
    for (const auto& other : others) {
        EXPECT_NE(other, entry);
        hashes.insert(std::hash<ClipEntry>{}(other));
    }
    EXPECT_EQ(hashes.size(), 10U);
    EXPECT_EQ(std::hash<ClipEntry>{}(fullEntry()), std::hash<ClipEntry>{}(entry));
}

} // namespace
} // namespace quillbox
