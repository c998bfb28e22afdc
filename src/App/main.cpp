#include "App/CommandLine/CommandLine.h"

int main(int argc, char* argv[])
{
    return quillbox::CommandLine::run(argc, argv);
}
