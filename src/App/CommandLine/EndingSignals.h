#pragma once

#include <array>
#include <csignal>

namespace quillbox {

/// The signals with which a terminal, a service manager or another process asks a program to end.
inline constexpr std::array endingSignals{SIGINT, SIGTERM, SIGHUP};

} // namespace quillbox
