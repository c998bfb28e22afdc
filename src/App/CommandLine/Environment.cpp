#include "App/CommandLine/Environment.h"

#include "App/CommandLine/Arguments/ArgumentText.h"
#include "App/CommandLine/Arguments/Options.h"
#include "Translation/Translate.h"

#include <cstdlib>

namespace quillbox {

void Environment::check()
{
    const char* const memory = std::getenv("QUILLBOX_RECORDING_MEMORY");
    if (memory != nullptr && *memory != '\0' && !ArgumentText::number(memory)) {
        throw UsageError(withArguments(
            translate("Usage", "QUILLBOX_RECORDING_MEMORY is \"%1\"; make it a whole number of megabytes, or unset it"),
            {memory}));
    }
}

} // namespace quillbox
