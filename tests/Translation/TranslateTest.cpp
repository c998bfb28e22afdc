#include "Translation/Translate.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

class Translate : public testing::Test {
protected:
    ~Translate() override { setTranslator({}); }
};

TEST_F(Translate, LeavesATextAsItStandsWithoutATranslator)
{
    EXPECT_EQ(translate("Context", "a text"), "a text");
}

TEST_F(Translate, LeavesATextAsItStandsThatTheTranslatorDoesNotKnow)
{
    setTranslator([](const char*, const char*, const char*, int) { return std::string(); });
    EXPECT_EQ(translate("Context", "a text"), "a text");
}

TEST_F(Translate, HandsEverythingToTheTranslator)
{
    setTranslator([](const char* context, const char* text, const char* comment, int count) {
        return std::string(context) + '/' + text + '/' + (comment == nullptr ? "" : comment) + '/'
            + std::to_string(count);
    });
    EXPECT_EQ(translate("Context", "a text"), "Context/a text//-1");
    EXPECT_EQ(translate("Context", "%n", "why", 3), "Context/3/why/3");
}

TEST_F(Translate, PutsTheCountWhereverItBelongs)
{
    EXPECT_EQ(translate("Context", "%n of %n", nullptr, 12), "12 of 12");
    EXPECT_EQ(translate("Context", "%n", nullptr, 0), "0");
    EXPECT_EQ(translate("Context", "100 %n"), "100 %n");
}

TEST(WithArguments, ReplacesEachPlaceByItsArgument)
{
    EXPECT_EQ(withArguments("%2 before %1, %2", {"one", "two"}), "two before one, two");
}

TEST(WithArguments, TakesArgumentsLetterByLetter)
{
    EXPECT_EQ(withArguments("%1 %2", {"%2", "%1"}), "%2 %1");
}

TEST(WithArguments, LeavesWhatIsNoPlaceOrHasNoArgument)
{
    EXPECT_EQ(withArguments("", {"a"}), "");
    EXPECT_EQ(withArguments("100 % %0 %3 %x %", {"a", "b"}), "100 % %0 %3 %x %");
}

} // namespace
} // namespace quillbox
