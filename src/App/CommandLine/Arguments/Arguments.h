#pragma once

#include "App/CommandLine/Arguments/CommandLineLibrary.h"
#include "App/CommandLine/Arguments/Options.h"
#include "App/CommandLine/Terminal/ErrorReport.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quillbox {

/// The texts of all options, as they were written; read once the whole line has been taken apart.
struct Arguments {
    std::string preset = "slack";
    std::string output;
    std::string maxSize;
    std::string maxWidth;
    std::int64_t maxFPS = 0;
    std::int64_t colors = 0;
    // encode
    std::vector<std::string> inputs;
    std::string sourceFPS;
    std::string delay;
    std::string dither = "auto";
    std::string raw;
    std::string matrix;
    std::string background;
    std::string rawFormat = "rgba";
    std::string crop;
    std::string threads;
    std::string loop;
    // record
    std::string region;
    std::string duration;
    // help
    std::string helpTopic;
    // Switches of all commands, together so that they take up no more room than they have to.
    bool json = false;
    bool force = false;
    bool precise = false;
    bool quiet = false;
    bool strict = false;
    bool keepGoing = false;
    bool select = false;
    bool copy = false;
    bool list = false;
    bool discard = false;
};

/// @param text  Of the context "Usage"; `argument` takes the place of %1.
[[nodiscard]] UsageError complaint(const char* text, const std::string& argument = {});

/// @return `number`. @throws UsageError  `text`, with the limits in the places of %1 and %2, unless it lies within.
std::int64_t numberWithin(std::int64_t number, std::int64_t least, std::int64_t most, const char* text);
/// The same of a number as it was written; anything else is not within.
std::int64_t numberIn(const std::string& argument, std::int64_t least, std::int64_t most, const char* text);

} // namespace quillbox
