/// arxhost: opens a drawing, loads modules, runs commands, saves and plots.

#include "Options.h"
#include "Session.h"

int main(int argc, char** argv)
{
    int exitStatus = 0;
    const std::optional<console::Options> options = console::parseOptions(argc, argv, exitStatus);
    return options ? console::run(*options) : exitStatus;
}
