#include "App/CommandLine/CommandLine.h"
#include "App/DesktopCommand.h"

int main(int argc, char* argv[])
{
    return quillbox::CommandLine::run(argc, argv, &quillbox::DesktopCommand::run);
}
