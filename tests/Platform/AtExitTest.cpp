#include "Platform/AtExit.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace quillbox {
namespace {

AtExit saying(const char* word)
{
    return AtExit([word] { std::fputs(word, stderr); });
}

TEST(AtExitDeathTest, DoesItWhereSomethingCallsExit)
{
    EXPECT_EXIT(
        {
            const AtExit first = saying("first, ");
            const AtExit second = saying("second");
            std::exit(3);
        },
        testing::ExitedWithCode(3), "^first, second$");
}

TEST(AtExitDeathTest, DoesNothingForObjectsThatHaveGone)
{
    EXPECT_EXIT(
        {
            std::optional<AtExit> gone;
            gone.emplace([] { std::fputs("gone", stderr); });
            const AtExit stays = saying("stays");
            gone.reset();
            std::exit(3);
        },
        testing::ExitedWithCode(3), "^stays$");
}

} // namespace
} // namespace quillbox
