#include "Platform/CancelEvent.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <system_error>

namespace quillbox {

CancelEvent::CancelEvent()
    : m_event(::eventfd(0, EFD_CLOEXEC))
{
    if (m_event.number() < 0)
        throw std::system_error(errno, std::generic_category());
}

void CancelEvent::raise()
{
    m_isRaised = true;
    (void)::eventfd_write(m_event.number(), 1); // fails only at 2^64 − 1
}

bool CancelEvent::waitUntil(std::chrono::steady_clock::time_point time) const
{
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::nanoseconds>(time - std::chrono::steady_clock::now());
        pollfd wanted{m_event.number(), POLLIN, 0};
        const std::int64_t nanoseconds = std::max<std::int64_t>(left.count(), 0);
        const timespec timeout{nanoseconds / 1'000'000'000, nanoseconds % 1'000'000'000};
        const int ready = ::ppoll(&wanted, 1, &timeout, nullptr);
        if (m_isRaised)
            return false;
        if (ready == 0 && std::chrono::steady_clock::now() >= time)
            return true;
    }
}

} // namespace quillbox
