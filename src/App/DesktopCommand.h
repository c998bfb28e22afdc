#pragma once

namespace quillbox {

/// The program without a subcommand: the application in the tray, one a session.
namespace DesktopCommand {

/// Starts the application and returns at its end; where it runs already, shows that one instead.
/// @return the exit status
/// @throws NoDesktopError
int run();

} // namespace DesktopCommand
} // namespace quillbox
