#include "Capture/Journal/JournalReader.h"
#include "Capture/Journal/JournalWriter.h"
#include "Capture/Spill/CompressedBand.h"
#include "support/Pictures.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fcntl.h>
#include <string>
#include <sys/mman.h>
#include <vector>

namespace quillbox {
namespace {

using support::Random;

const JournalFormat::WallClock::time_point aMoment{std::chrono::milliseconds(1'795'356'185'123)};

/// A file that is nowhere, with these bytes in it.
std::shared_ptr<SpillFile> fileOf(std::span<const std::uint8_t> bytes)
{
    FileDescriptor descriptor(::memfd_create("journal", MFD_CLOEXEC));
    if (::write(descriptor.number(), bytes.data(), bytes.size()) != std::ssize(bytes))
        throw std::runtime_error("no room for a journal");
    return std::make_shared<SpillFile>(std::move(descriptor));
}

Bytes bytesOf(const SpillFile& file)
{
    Bytes bytes(static_cast<std::size_t>(file.size()));
    file.read(0, bytes);
    return bytes;
}

struct Shown {
    std::int64_t firstFrame;
    RGBAFrame picture;
};

/// The frames that the pictures make.
std::vector<RGBAFrame> framesOf(const std::vector<Shown>& shown, std::int64_t count)
{
    std::vector<RGBAFrame> frames;
    for (std::int64_t frame = 0; frame < count; ++frame) {
        const auto last = std::find_if(
            shown.rbegin(), shown.rend(), [frame](const Shown& each) { return each.firstFrame <= frame; });
        frames.push_back(last->picture);
    }
    return frames;
}

/// What somebody may have recorded: pictures of one size, some of them in the same tick.
std::vector<Shown> randomRecording(Random& random, std::int64_t count)
{
    const std::int64_t width = random.between(1, 12);
    const std::int64_t height = random.between(1, 100);
    std::vector<RGBAFrame> pictures{support::randomPicture(width, height, random)};
    while (std::ssize(pictures) < count)
        pictures.push_back(random.oneIn(3) ? support::randomPicture(width, height, random)
                                           : support::randomSuccessor(pictures.back(), random));
    std::vector<Shown> shown;
    std::int64_t frame = 0;
    for (const RGBAFrame& picture : support::inBands(pictures)) {
        shown.push_back({frame, picture});
        frame += random.below(4);
    }
    return shown;
}

std::shared_ptr<SpillFile> journalOf(const std::vector<Shown>& shown)
{
    auto file = fileOf({});
    JournalWriter writer(file, aMoment);
    for (const Shown& each : shown)
        writer.addPicture(each.picture, each.firstFrame);
    return file;
}

RGBAFrame picture(int number)
{
    return support::solid(3, 40, support::gray(number));
}

/// Makes it a journal of another version.
void setVersion(Bytes& bytes, std::uint32_t version)
{
    bytes[8] = static_cast<std::uint8_t>(version);
    Bytes sum;
    JournalFormat::append32(sum, JournalFormat::checksum(std::span(bytes).first(JournalFormat::headerBytes - 4)));
    std::ranges::copy(sum, bytes.begin() + JournalFormat::headerBytes - 4);
}

TEST(JournalFormat, HasTheChecksumOfEverybody)
{
    const std::string digits = "123456789";
    EXPECT_EQ(
        JournalFormat::checksum(Bytes(digits.begin(), digits.end())), 0xCBF43926U); // the polynomial's check value
    EXPECT_EQ(JournalFormat::checksum({}), 0U);
}

TEST(JournalFormat, WritesAHeaderByteByByte)
{
    const auto header
        = JournalFormat::encodedHeader(JournalFormat::WallClock::time_point(std::chrono::milliseconds(258)));
    const Bytes begin{
        'Q', 'B', 'r', 'e', 'c', '\r', '\n', 0x1A, 2, 0, 0, 0, 30, 0, 0, 0, 2, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_TRUE(std::equal(begin.begin(), begin.end(), header.begin()));
    EXPECT_EQ(JournalFormat::number32(header, 28), JournalFormat::checksum(begin));
    EXPECT_EQ(JournalFormat::decodedHeader(JournalFormat::encodedHeader(aMoment)), aMoment);
}

TEST(JournalFormat, WritesARecordByteByByte)
{
    Bytes bytes;
    JournalFormat::append(bytes,
        {.kind = JournalFormat::Kind::Still,
            .number = 3,
            .value = -2,
            .payloadBytes = 5,
            .payloadChecksum = 0x01020304});
    const Bytes begin{3, 0, 0, 0, 3, 0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 5, 0, 0, 0, 4, 3, 2, 1};
    ASSERT_EQ(bytes.size(), JournalFormat::recordHeaderBytes);
    EXPECT_TRUE(std::equal(begin.begin(), begin.end(), bytes.begin()));
    EXPECT_EQ(JournalFormat::number32(bytes, 24), JournalFormat::checksum(begin));
}

TEST(Journal, GivesBackEveryFrame)
{
    Random random(1);
    for (int round = 0; round < 200; ++round) {
        const auto shown = randomRecording(random, random.between(1, 12));
        const auto contents = JournalReader::read(journalOf(shown));
        ASSERT_TRUE(contents);
        EXPECT_EQ(contents->began, aMoment);
        EXPECT_FALSE(contents->isWhole);
        EXPECT_EQ(contents->frames, framesOf(shown, shown.back().firstFrame + 1)) << "round " << round;
    }
}

TEST(Journal, GoesOnShowingTheLastPictureWhileTheScreenIsStill)
{
    const Shown only{0, support::solid(3, 40, support::gray(7))};
    const auto file = fileOf({});
    JournalWriter writer(file, aMoment);
    writer.addPicture(only.picture, 0);
    writer.addStill(31);
    writer.addStill(30); // as one that was late
    const auto contents = JournalReader::read(file);
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents->frames, framesOf({only}, 31));
    EXPECT_EQ(JournalReader::summary(*file)->frameCount, 31);
}

TEST(Journal, BeginsWithItsFirstPictureWheneverThatCame)
{
    const auto contents = JournalReader::read(journalOf({{5, picture(1)}, {7, picture(2)}}));
    EXPECT_EQ(contents->frames, framesOf({{0, picture(1)}, {7, picture(2)}}, 8));
}

TEST(Journal, DoesNotTakeOneBandForAnotherOfTheSameChecksum)
{
    Random random(3);
    const RGBAFrame first = support::noise(8, 32, random); // which is written as it is
    Bytes pixels(first.pixels());
    // A multiple of the polynomial, its highest coefficient first, in the order in which the bits are taken.
    constexpr std::uint64_t polynomial = 0x104C11DB7;
    for (std::size_t bit = 0; bit <= 32; ++bit)
        pixels[100 + bit / 8] ^= static_cast<std::uint8_t>((polynomial >> (32 - bit) & 1U) << bit % 8);
    ASSERT_EQ(JournalFormat::checksum(pixels), JournalFormat::checksum(Bytes(first.pixels())));
    const std::vector<Shown> shown{{0, first}, {1, RGBAFrame(8, 32, pixels)}};
    ASSERT_NE(shown[0].picture, shown[1].picture);
    EXPECT_EQ(JournalReader::read(journalOf(shown))->frames, framesOf(shown, 2));
}

TEST(Journal, EndsWhereTheRecordingEnded)
{
    Random random(2);
    const auto shown = randomRecording(random, 5);
    const std::int64_t count = shown.back().firstFrame; // the last picture came too late to be in the clip
    const auto file = fileOf({});
    JournalWriter writer(file, aMoment);
    for (const Shown& each : shown)
        writer.addPicture(each.picture, each.firstFrame);
    writer.addEnd(count);
    const auto contents = JournalReader::read(file);
    ASSERT_TRUE(contents);
    EXPECT_TRUE(contents->isWhole);
    EXPECT_EQ(contents->frames, framesOf(shown, count));
    EXPECT_EQ(JournalReader::summary(*file)->frameCount, count);
}

TEST(Journal, HoldsABandOnce)
{
    Random random(3);
    const auto one = support::noise(16, 32, random).inBands(std::nullopt);
    const auto other = support::noise(16, 32, random).inBands(std::nullopt);
    const auto oneAgain = support::deepCopy(one).inBands(std::nullopt); // a cursor that blinks
    const auto file = fileOf({});
    JournalWriter writer(file, aMoment);
    writer.addPicture(one, 0);
    writer.addPicture(other, 1);
    const auto before = file->size();
    writer.addPicture(oneAgain, 2);
    writer.addPicture(oneAgain, 3);                                   // the same storage
    const std::int64_t record = JournalFormat::recordHeaderBytes + 8; // and a band in one of the two
    EXPECT_EQ(file->size(), before + record + 8 + record);
    EXPECT_EQ(JournalReader::read(file)->frames, (std::vector{one, other, oneAgain, oneAgain}));
}

TEST(Journal, WhatItHoldsCanBeEvicted)
{
    Random random(4);
    const auto picture = support::textLike(60, 70, 3).inBands(std::nullopt);
    const auto copy = support::deepCopy(picture);
    const auto file = fileOf({});
    JournalWriter writer(file, aMoment);
    EXPECT_FALSE(picture.isBacked());
    writer.addPicture(picture, 0);
    ASSERT_TRUE(picture.isBacked());
    picture.evict();
    EXPECT_EQ(picture, copy);
}

TEST(Journal, FollowsAPictureOfAnotherSize)
{
    const std::vector<Shown> shown{{0, support::textLike(20, 40, 1).inBands(std::nullopt)},
        {1, support::textLike(30, 40, 1).inBands(std::nullopt)}, {2, support::textLike(30, 90, 1)}};
    EXPECT_EQ(JournalReader::read(journalOf(shown))->frames, framesOf(shown, 3));
}

TEST(Journal, CutAtAnyByteGivesTheFramesBefore)
{
    Random random(5);
    const auto shown = randomRecording(random, 8);
    const auto whole = bytesOf(*journalOf(shown));
    const auto all = framesOf(shown, shown.back().firstFrame + 1);
    std::size_t longest = 0;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const auto file = fileOf(std::span(whole).first(size));
        const auto contents = JournalReader::read(file);
        EXPECT_EQ(contents.has_value(), size >= JournalFormat::headerBytes) << size;
        if (!contents)
            continue;
        ASSERT_GE(contents->frames.size(), longest) << size;
        longest = contents->frames.size();
        // The last frame may have become another by a picture of the same tick.
        const auto count = std::max<std::ptrdiff_t>(std::ssize(contents->frames) - 1, 0);
        ASSERT_TRUE(std::equal(contents->frames.begin(), contents->frames.begin() + count, all.begin())) << size;
        EXPECT_EQ(JournalReader::summary(*file)->frameCount, std::ssize(contents->frames)) << size;
    }
    EXPECT_EQ(longest, all.size());
}

TEST(Journal, DamagedAnywhereGivesTheFramesBefore)
{
    Random random(6);
    for (int round = 0; round < 400; ++round) {
        const auto shown = randomRecording(random, 6);
        auto bytes = bytesOf(*journalOf(shown));
        const auto place = static_cast<std::size_t>(random.below(std::ssize(bytes)));
        bytes[place] = static_cast<std::uint8_t>(bytes[place] ^ (1U << random.below(8)));
        const auto contents = JournalReader::read(fileOf(bytes));
        EXPECT_EQ(contents.has_value(), place >= JournalFormat::headerBytes);
        if (!contents)
            continue;
        const auto all = framesOf(shown, shown.back().firstFrame + 1);
        ASSERT_LE(contents->frames.size(), all.size());
        const auto count = std::max<std::ptrdiff_t>(std::ssize(contents->frames) - 1, 0);
        EXPECT_TRUE(std::equal(contents->frames.begin(), contents->frames.begin() + count, all.begin()));
    }
}

/// Writes a journal record by record, with checksums that fit.
class Records {
public:
    Records()
    {
        const auto header = JournalFormat::encodedHeader(aMoment);
        m_bytes.assign(header.begin(), header.end());
    }
    Records& add(JournalFormat::Kind kind, std::int64_t value, const Bytes& payload = {})
    {
        JournalFormat::append(m_bytes,
            {.kind = kind,
                .number = m_next++,
                .value = value,
                .payloadBytes = static_cast<std::uint32_t>(payload.size()),
                .payloadChecksum = JournalFormat::checksum(payload)});
        m_bytes.insert(m_bytes.end(), payload.begin(), payload.end());
        return *this;
    }
    Records& addBand(std::int64_t byteCount)
    {
        Bytes payload;
        (void)CompressedBand::append(payload, Bytes(static_cast<std::size_t>(byteCount), 9));
        return add(JournalFormat::Kind::Band, byteCount, payload);
    }
    /// @param bands  Which of a picture's bands is which record of one, two numbers each.
    Records& addPicture(
        std::int64_t firstFrame, std::uint32_t width, std::uint32_t height, const std::vector<std::uint32_t>& bands)
    {
        Bytes payload;
        JournalFormat::append32(payload, width);
        JournalFormat::append32(payload, height);
        for (const std::uint32_t number : bands)
            JournalFormat::append32(payload, number);
        return add(JournalFormat::Kind::Picture, firstFrame, payload);
    }
    Records& leaveOutANumber()
    {
        ++m_next;
        return *this;
    }
    /// The frames that are read, with a Still up to frame 50 behind.
    [[nodiscard]] std::size_t frameCount()
    {
        add(JournalFormat::Kind::Still, 50);
        return JournalReader::read(fileOf(m_bytes))->frames.size();
    }

private:
    Bytes m_bytes;
    std::uint32_t m_next = 0;
};

TEST(Journal, ABandThatIsNoPixelsIsDamage)
{
    for (const std::int64_t value : {std::int64_t{-1}, std::int64_t{0}, std::int64_t{1}, std::int64_t{1} << 40}) {
        Records records;
        records.add(JournalFormat::Kind::Band, value, {0xFF, 0xFF}).addPicture(0, 1, 1, {0, 0});
        EXPECT_EQ(records.frameCount(), 0U) << value;
    }
}

TEST(Journal, ARecordThatCannotFollowIsDamage)
{
    constexpr std::int64_t upper = 3 * 32 * 4; // a picture of 3 × 40 pixels has two bands
    constexpr std::int64_t lower = 3 * 8 * 4;
    const auto begun = [] {
        Records records;
        records.addBand(upper).addBand(lower).addPicture(0, 3, 40, {0, 0, 1, 1}).addPicture(9, 3, 40, {1, 1});
        return records;
    };
    EXPECT_EQ(begun().frameCount(), 50U);
    EXPECT_EQ(begun().leaveOutANumber().frameCount(), 10U);
    EXPECT_EQ(begun().addPicture(8, 3, 40, {}).frameCount(), 10U) << "before the one before";
    EXPECT_EQ(begun().addPicture(12, 3, 40, {0, 2}).frameCount(), 10U) << "a band that is not there";
    EXPECT_EQ(begun().addPicture(12, 3, 40, {2, 1}).frameCount(), 10U) << "more bands than it has";
    EXPECT_EQ(begun().addPicture(12, 3, 40, {1, 1, 0, 0}).frameCount(), 10U) << "in another order";
    EXPECT_EQ(begun().addPicture(12, 3, 40, {1, 0}).frameCount(), 10U) << "of another size";
    EXPECT_EQ(begun().addPicture(12, 3, 8, {}).frameCount(), 10U) << "the first of a size without its bands";
    EXPECT_EQ(Records().addBand(lower).addPicture(1, 3, 8, {0, 0}).frameCount(), 0U) << "nothing from the start on";
}

TEST(Journal, IsNoJournalOfAnotherVersion)
{
    auto bytes = bytesOf(*journalOf({{0, support::solid(1, 1, support::gray(1))}}));
    for (const std::uint32_t version : {0U, 3U}) {
        setVersion(bytes, version);
        EXPECT_FALSE(JournalReader::read(fileOf(bytes)));
        EXPECT_FALSE(JournalReader::summary(*fileOf(bytes)));
    }
    EXPECT_FALSE(JournalReader::summary(*fileOf({})));
}

TEST(Journal, ReadsThoseOfTheVersionBefore)
{
    const std::vector<Shown> shown{{0, support::solid(1, 1, support::gray(1))}};
    auto bytes = bytesOf(*journalOf(shown));
    setVersion(bytes, 1);
    EXPECT_EQ(JournalReader::read(fileOf(bytes))->frames, framesOf(shown, 1));
}

TEST(Journal, TellsWhichFramesAreHeld)
{
    const std::vector<Shown> shown{{0, picture(1)}, {7, picture(2)}};
    const auto file = fileOf({});
    JournalWriter writer(file, aMoment);
    writer.addPicture(shown[0].picture, 0);
    writer.addHeld(2);
    writer.addResumed(5);
    writer.addHeld(6);
    writer.addPicture(shown[1].picture, 7); // where the end of the hold found no room
    writer.addHeld(8);
    writer.addResumed(8); // at once
    writer.addStill(20);
    const auto contents = JournalReader::read(file);
    EXPECT_EQ(contents->frames, framesOf(shown, 20));
    EXPECT_EQ(contents->held, (std::vector<FrameRange>{{2, 5}, {6, 7}}));
}

TEST(Journal, CutsAHeldTailThatWasCutOff)
{
    const std::vector<Shown> shown{{0, picture(1)}};
    const auto file = fileOf({});
    JournalWriter writer(file, aMoment);
    writer.addPicture(shown[0].picture, 0);
    writer.addHeld(5);
    writer.addStill(100);
    const auto contents = JournalReader::read(file);
    EXPECT_EQ(contents->frames, framesOf(shown, 14)) << "nine of it are left";
    EXPECT_EQ(contents->held, (std::vector<FrameRange>{{5, 14}}));
    EXPECT_EQ(JournalReader::summary(*file)->frameCount, 14);
}

TEST(Journal, KeepsTheHeldTailOfARecordingThatWasStopped)
{
    const std::vector<Shown> shown{{0, picture(1)}};
    const auto file = fileOf({});
    JournalWriter writer(file, aMoment);
    writer.addPicture(shown[0].picture, 0);
    writer.addHeld(5);
    writer.addEnd(16); // who stopped it has cut it already
    const auto contents = JournalReader::read(file);
    EXPECT_EQ(contents->frames, framesOf(shown, 16));
    EXPECT_EQ(contents->held, (std::vector<FrameRange>{{5, 16}}));
}

TEST(Journal, AHoldWithinAHoldIsDamage)
{
    const std::vector<Shown> shown{{0, picture(1)}};
    for (const std::int64_t second : {3, 9}) {
        const auto file = fileOf({});
        JournalWriter writer(file, aMoment);
        writer.addPicture(shown[0].picture, 0);
        writer.addHeld(4);
        if (second == 3)
            writer.addResumed(8);
        writer.addHeld(second);
        writer.addStill(12);
        EXPECT_EQ(JournalReader::read(file)->frames, framesOf(shown, 1)) << second;
    }
}

} // namespace
} // namespace quillbox
