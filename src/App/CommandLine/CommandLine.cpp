#include "App/CommandLine/CommandLine.h"

#include "App/CommandLine/Commands/Command.h"
#include "App/CommandLine/Terminal/ErrorReport.h"
#include "Platform/ProcessMemory.h"
#include "Translation/Catalogues.h"

#include <csignal>
#include <exception>

namespace quillbox {
namespace {

struct CarryOut {
    int (*desktop)();

    int operator()(const CommandLine::Finished& finished) const { return finished.exitCode; }
    int operator()(const DesktopOptions& /*options*/) const { return desktop(); }
    template <typename Options> int operator()(const Options& options) const { return Command::run(options); }
};

} // namespace

int CommandLine::run(int argc, const char* const* argv, int (*desktop)())
{
    shareOneArena();
    preferHugePages();
    (void)std::signal(SIGXFSZ, SIG_IGN); // a valid signal: what exceeds a limit on files is reported by the write
    Catalogues::use(Catalogues::userLanguage());
    try {
        return std::visit(CarryOut{desktop}, parse(argc, argv));
    } catch (const UsageError& error) {
        ErrorReport::print(error.what());
        return ExitCode::usage;
    } catch (const std::exception& error) {
        ErrorReport::print(ErrorReport::messageFor(error));
        return ExitCode::failure;
    }
}

} // namespace quillbox
