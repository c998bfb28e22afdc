#include "App/CommandLine/ClipOutput.h"

#include "App/CommandLine/Terminal/ErrorReport.h"
#include "PostCapture/OutputFile.h"
#include "Translation/Translate.h"

#include <cerrno>
#include <csignal>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

OutputFile::IfExists ifExists(bool force)
{
    return force ? OutputFile::IfExists::Replace : OutputFile::IfExists::Refuse;
}

} // namespace

ClipOutput::ClipOutput(std::string output, bool force)
    : m_output(std::move(output))
    , m_force(force)
{
}

void ClipOutput::check() const
{
    if (!isStandardOutput())
        OutputFile::check(m_output, ifExists(m_force));
    else if (::isatty(STDOUT_FILENO) == 1)
        throw UsageError(translate(
            "Usage", "standard output is a terminal, which can't show a GIF; redirect it, or name a file with -o"));
}

void ClipOutput::save(std::span<const std::uint8_t> gif) const
{
    if (isStandardOutput())
        OutputFile::write(STDOUT_FILENO, gif, translate("Streams", "standard output"));
    else
        OutputFile::save(m_output, gif, ifExists(m_force));
}

void ClipOutput::report(const std::string& line) const
{
    (void)std::signal(SIGPIPE, SIG_IGN); // a valid signal
    const std::vector<std::uint8_t> bytes(line.begin(), line.end());
    try {
        if (isStandardOutput())
            OutputFile::write(STDERR_FILENO, bytes, translate("Streams", "standard error"));
        else
            OutputFile::write(STDOUT_FILENO, bytes, translate("Streams", "standard output"));
    } catch (const OutputFileError& error) {
        if (error.errorNumber() != EPIPE)
            ErrorReport::print(
                withArguments(translate("ErrorReport", "%1 is saved, but not what there is to say about it: %2"),
                    {m_output, error.what()}));
    }
}

} // namespace quillbox
