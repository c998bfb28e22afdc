#include "Capture/CaptureError.h"

#include "Capture/Portal/PortalSource.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <optional>
#include <utility>

namespace quillbox {
namespace {

/// No file can be opened as long as it lives.
class NoFreeDescriptor {
public:
    NoFreeDescriptor()
    {
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &m_usual), 0);
        const rlimit none{0, m_usual.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    }
    ~NoFreeDescriptor() { (void)::setrlimit(RLIMIT_NOFILE, &m_usual); } // lowered before, so it may rise again
    NoFreeDescriptor(const NoFreeDescriptor&) = delete;
    NoFreeDescriptor& operator=(const NoFreeDescriptor&) = delete;

private:
    rlimit m_usual{};
};

TEST(CaptureError, KeepsTheSentenceOfADisplayThatCannotBeUsed)
{
    using Of = std::pair<DisplayError::Reason, CaptureError::Reason>;
    for (const auto& [display, capture] : {Of{DisplayError::Reason::NoDisplay, CaptureError::Reason::NoDisplay},
             Of{DisplayError::Reason::Unreadable, CaptureError::Reason::Unreadable},
             Of{DisplayError::Reason::Gone, CaptureError::Reason::DisplayGone}}) {
        const CaptureError error(DisplayError(display, "It is so"));
        EXPECT_EQ(error.reason(), capture);
        EXPECT_STREQ(error.what(), "It is so");
    }
}

TEST(CaptureError, IsWhatTheSourceOfACastThrowsWithoutAFreeFileDescriptor)
{
#ifdef QUILLBOX_ADDRESS_SANITIZER
    GTEST_SKIP()
        << "the sanitizer that comes with it looks at an object's type through a pipe, which needs descriptors";
#endif
    const NoFreeDescriptor none;
    try {
        (void)sourceOf({}, FileDescriptor(), std::nullopt);
        ADD_FAILURE() << "nothing was thrown";
    } catch (const CaptureError& error) {
        EXPECT_EQ(error.reason(), CaptureError::Reason::Unreadable);
    }
}

} // namespace
} // namespace quillbox
