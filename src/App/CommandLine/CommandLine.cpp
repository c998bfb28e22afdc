#include "App/CommandLine/CommandLine.h"

#include "App/CommandLine/Commands/ControlCommand.h"
#include "App/CommandLine/Commands/DoctorCommand.h"
#include "App/CommandLine/Commands/EncodeCommand.h"
#include "App/CommandLine/Commands/HistoryCommand.h"
#include "App/CommandLine/Commands/RecordCommand.h"
#include "App/CommandLine/ErrorReport.h"
#include "Platform/HugePages.h"
#include "Translation/Catalogues.h"

#include <exception>

namespace quillbox {
namespace {

struct CarryOut {
    int (*desktop)();

    int operator()(const CommandLine::Finished& finished) const { return finished.exitCode; }
    int operator()(const EncodeOptions& options) const { return EncodeCommand::run(options); }
    int operator()(const RecordOptions& options) const { return RecordCommand::run(options); }
    int operator()(const ControlOptions& options) const { return ControlCommand::run(options); }
    int operator()(const HistoryOptions& options) const { return HistoryCommand::run(options); }
    int operator()(const DoctorOptions& options) const { return DoctorCommand::run(options); }
    int operator()(const DesktopOptions& /*options*/) const { return desktop(); }
};

} // namespace

int CommandLine::run(int argc, const char* const* argv, int (*desktop)())
{
    preferHugePages();
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
