#include "Translation/Catalogues.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

/// As the program has it from the start: English plurals come from a catalogue, too.
class EnglishTexts : public testing::Environment {
    void SetUp() override { Catalogues::use(QStringLiteral("en")); }
};

[[maybe_unused]] const auto* const registered = testing::AddGlobalTestEnvironment(new EnglishTexts); // which owns it

} // namespace
} // namespace quillbox
