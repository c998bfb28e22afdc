#pragma once

#include "App/CommandLine/Arguments/Options.h"

#include <cstdint>
#include <span>
#include <string>

namespace quillbox {

/// Where a command's GIF goes: a file, or standard output.
class ClipOutput {
public:
    /// @param output  A path, or `standardStreamName`.  @param force  Whether a file may be replaced.
    ClipOutput(std::string output, bool force);

    [[nodiscard]] const std::string& name() const { return m_output; }
    [[nodiscard]] bool isStandardOutput() const { return m_output == standardStreamName; }

    /// Fails now if `save` is bound to fail.
    /// @throws UsageError  standard output is a terminal.  @throws OutputFileError
    void check() const;
    /// @throws OutputFileError
    void save(std::span<const std::uint8_t> gif) const;
    /// Prints a line about the result: on standard output, or beside it when the GIF went there. The file is saved by
    /// then, so that a line which can't be written is no failure; that is said on standard error, unless nobody reads
    /// the line any more. From the first call on, a closed pipe no longer ends the process.
    void report(const std::string& line) const;

private:
    std::string m_output;
    bool m_force;
};

} // namespace quillbox
