#pragma once

#include "Platform/ServiceReport.h"

#include <string>
#include <vector>

namespace quillbox {

/// Puts what the services of a desktop said of themselves into words.
namespace DoctorReport {

struct Findings {
    std::string windowSystem;            ///< "X11", "Wayland" or "no display", which "Doctor" of the catalogues knows
    std::string desktop;                 ///< what it calls itself; may be empty
    std::vector<ServiceReport> services; ///< the first is the screen
};

/// What the terminal can show.
struct Style {
    bool hasColors = false;
    bool hasSymbols = false; ///< letters beyond ASCII
};

/// Whether the screen can be recorded. @pre there is a service
[[nodiscard]] bool canRecord(const Findings& findings);

/// A screenful: a paragraph for each service, then what to install. At most 80 columns wide, as far as the words are no
/// longer than that.
[[nodiscard]] std::string humanText(const Findings& findings, Style style);

/// One JSON object on one line, and a newline: "canRecord", "windowSystem", "desktop", and "services", an array of
/// objects with "service", "health" ("works", "limited" or "missing"), "used", "found", "advice" and "packages".
/// Sentences are in the user's language, the words that a program looks for in English.
[[nodiscard]] std::string json(const Findings& findings);

} // namespace DoctorReport
} // namespace quillbox
