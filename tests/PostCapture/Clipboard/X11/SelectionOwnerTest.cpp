// Runs on an X server that the caller starts: see CMakeLists.txt above it.
#include "PostCapture/Clipboard/X11/SelectionOwner.h"

#include "Requestor.h"
#include "support/Await.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quillbox {
namespace {

using test::numbersIn;
using test::Requestor;
using test::Value;

class SelectionOwnerTest : public testing::Test {
protected:
    SelectionOwnerTest()
    {
        QObject::connect(&m_owner, &SelectionOwner::lost, &m_owner, [this] { ++m_losses; });
    }

    std::vector<std::string> targets()
    {
        std::vector<std::string> names;
        for (const auto target : numbersIn(m_requestor.get("TARGETS")->bytes))
            names.push_back(m_requestor.nameOf(target));
        return names;
    }

    SelectionOwner m_owner{"CLIPBOARD"};
    Requestor m_requestor;
    int m_losses = 0;
};

const std::vector<MimeItem> twoItems{{"text/uri-list", "file:///clip.gif\r\n"}, {"image/gif", "GIF89a"}};

TEST_F(SelectionOwnerTest, OwnsNothingByItself)
{
    EXPECT_FALSE(m_owner.owns());
    EXPECT_FALSE(m_requestor.isOwned());
}

TEST_F(SelectionOwnerTest, OffersItsItemsInTheirOrderThenWhatTheConventionsAsk)
{
    m_owner.own(twoItems);
    EXPECT_TRUE(m_owner.owns());
    EXPECT_EQ(targets(),
        (std::vector<std::string>{"text/uri-list", "image/gif", "TARGETS", "MULTIPLE", "TIMESTAMP", "SAVE_TARGETS"}));
}

TEST_F(SelectionOwnerTest, GivesEachItemByteForByteUnderItsType)
{
    const QByteArray withZeros("G\0I\0F", 5);
    m_owner.own({{"image/gif", withZeros}, {"text/uri-list", ""}});
    EXPECT_EQ(m_requestor.get("image/gif"), (Value{"image/gif", withZeros.toStdString()}));
    EXPECT_EQ(m_requestor.get("text/uri-list"), (Value{"text/uri-list", ""}));
    EXPECT_EQ(m_requestor.get("image/gif"), (Value{"image/gif", withZeros.toStdString()})) << "again";
}

TEST_F(SelectionOwnerTest, RefusesWhatItDoesNotHave)
{
    m_owner.own(twoItems);
    EXPECT_EQ(m_requestor.get("image/png"), std::nullopt);
    EXPECT_EQ(m_requestor.get("UTF8_STRING"), std::nullopt);
}

TEST_F(SelectionOwnerTest, GivesWhatWasPutThereLast)
{
    m_owner.own(twoItems);
    m_owner.own({{"text/uri-list", "file:///other.gif\r\n"}});
    EXPECT_EQ(m_requestor.get("image/gif"), std::nullopt);
    EXPECT_EQ(m_requestor.get("text/uri-list")->bytes, "file:///other.gif\r\n");
    EXPECT_EQ(m_losses, 0);
}

TEST_F(SelectionOwnerTest, TellsSinceWhenItOwnsAndRefusesRequestsFromBefore)
{
    m_owner.own(twoItems);
    const auto since = numbersIn(m_requestor.get("TIMESTAMP")->bytes).at(0);
    EXPECT_NE(since, xcb_timestamp_t{XCB_CURRENT_TIME});
    EXPECT_EQ(m_requestor.get("image/gif", since - 1), std::nullopt);
    EXPECT_TRUE(m_requestor.get("image/gif", since));
    EXPECT_TRUE(m_requestor.get("image/gif", since + 1));
}

TEST_F(SelectionOwnerTest, GivesSeveralItemsAtOnceAndMarksTheRefused)
{
    m_owner.own(twoItems);
    const auto list = m_requestor.atom("text/uri-list");
    const auto gif = m_requestor.atom("image/gif");
    const auto png = m_requestor.atom("image/png");
    const auto multiple = m_requestor.atom("MULTIPLE");
    const auto one = m_requestor.atom("ONE");
    const auto two = m_requestor.atom("TWO");
    m_requestor.put("HERE", "ATOM_PAIR", {list, one, png, two, gif, two, multiple, one});
    ASSERT_TRUE(m_requestor.convert("MULTIPLE"));
    const xcb_atom_t none = XCB_ATOM_NONE;
    EXPECT_EQ(numbersIn(m_requestor.take("HERE").bytes),
        (std::vector<std::uint32_t>{list, one, png, none, gif, two, multiple, none}));
    EXPECT_EQ(m_requestor.take("ONE"), (Value{"text/uri-list", "file:///clip.gif\r\n"}));
    EXPECT_EQ(m_requestor.take("TWO"), (Value{"image/gif", "GIF89a"}));
}

TEST_F(SelectionOwnerTest, RefusesARequestForSeveralItemsThatNamesNone)
{
    m_owner.own(twoItems);
    EXPECT_FALSE(m_requestor.convert("MULTIPLE"));
}

TEST_F(SelectionOwnerTest, SaysThatItCanBeSaved)
{
    m_owner.own(twoItems);
    EXPECT_EQ(m_requestor.get("SAVE_TARGETS"), (Value{"NULL", ""}));
}

/// More than X servers take in one request.
std::string longPicture()
{
    std::string bytes(20'000'000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 251);
    return bytes;
}

TEST_F(SelectionOwnerTest, GivesALongItemInPiecesToSeveralProgramsAtATime)
{
    const auto picture = longPicture();
    m_owner.own({{"image/gif", QByteArray::fromStdString(picture)}});
    Requestor other;
    const auto announcement = m_requestor.get("image/gif");
    ASSERT_TRUE(announcement);
    EXPECT_EQ(announcement->type, "INCR");
    EXPECT_LE(numbersIn(announcement->bytes).at(0), picture.size()) << "a lower bound";
    ASSERT_EQ(other.get("image/gif")->type, "INCR");
    std::string first;
    std::string second;
    int pieces = 0;
    for (bool isWhole = false; !isWhole; ++pieces) {
        const auto piece = m_requestor.nextPiece();
        first += piece;
        second += other.nextPiece();
        isWhole = piece.empty();
    }
    EXPECT_GT(pieces, 2);
    EXPECT_TRUE(first == picture);
    EXPECT_TRUE(second == picture);
}

TEST_F(SelectionOwnerTest, SurvivesAProgramThatGoesAwayMidway)
{
    m_owner.own({{"image/gif", QByteArray::fromStdString(longPicture())}});
    ASSERT_EQ(m_requestor.get("image/gif")->type, "INCR");
    EXPECT_FALSE(m_requestor.nextPiece().empty());
    m_requestor.makeWindow();
    m_owner.own(twoItems);
    EXPECT_EQ(m_requestor.get("image/gif"), (Value{"image/gif", "GIF89a"}));
}

TEST_F(SelectionOwnerTest, GoesOnWithWhatItBeganToGiveThoughItOffersSomethingElse)
{
    const auto picture = longPicture();
    m_owner.own({{"image/gif", QByteArray::fromStdString(picture)}});
    ASSERT_EQ(m_requestor.get("image/gif")->type, "INCR");
    m_owner.own(twoItems);
    std::string got;
    for (auto piece = m_requestor.nextPiece(); !piece.empty(); piece = m_requestor.nextPiece())
        got += piece;
    EXPECT_TRUE(got == picture);
}

TEST_F(SelectionOwnerTest, TellsOnceThatAnotherProgramHasTakenIt)
{
    m_owner.own(twoItems);
    m_requestor.own();
    EXPECT_TRUE(test::eventually([this] { return m_losses > 0; }));
    EXPECT_FALSE(m_owner.owns());
    m_owner.disown(); // what is not ours stays
    EXPECT_TRUE(m_requestor.isOwned());
    EXPECT_EQ(m_losses, 1);
}

TEST_F(SelectionOwnerTest, TakesItBack)
{
    m_owner.own(twoItems);
    m_requestor.own();
    EXPECT_TRUE(test::eventually([this] { return !m_owner.owns(); }));
    m_owner.own(twoItems);
    EXPECT_TRUE(m_owner.owns());
    Requestor other;
    EXPECT_EQ(other.get("image/gif")->bytes, "GIF89a");
}

TEST_F(SelectionOwnerTest, LeavesItToNobody)
{
    m_owner.own(twoItems);
    m_owner.disown();
    EXPECT_FALSE(m_owner.owns());
    EXPECT_FALSE(m_requestor.isOwned());
    EXPECT_EQ(m_requestor.get("image/gif"), std::nullopt);
    EXPECT_EQ(m_losses, 0) << "nobody took it";
}

TEST_F(SelectionOwnerTest, LeavesItToNobodyAtItsEnd)
{
    {
        SelectionOwner other("CLIPBOARD");
        other.own(twoItems);
        EXPECT_TRUE(m_requestor.isOwned());
    }
    EXPECT_TRUE(test::eventually([this] { return !m_requestor.isOwned(); }));
}

} // namespace
} // namespace quillbox
