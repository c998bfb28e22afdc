#include "RecorderFixture.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quillbox {
namespace {

TEST(StreamRecorderDeathTest, LosesNoErrorOfAStreamThatNobodyExpects)
{
    test::RecorderFixture fixture;
    fixture.script->stopError = std::make_exception_ptr(std::runtime_error("a stream of a new kind"));
    const auto giveUp = [&fixture] {
        (void)test::Script::close(fixture.script->startGate);
        const auto starting = fixture.recorder->start(test::recordedRegion);
        fixture.recorder->giveUpStart();
    };
    EXPECT_DEATH(giveUp(), "a stream of a new kind");
}

} // namespace
} // namespace quillbox
