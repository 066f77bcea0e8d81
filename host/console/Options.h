#pragma once

/// What the command line of arxhost asks for.

#include <optional>
#include <string>
#include <vector>

namespace console
{
/// The numbers behind "AC" in $ACADVER.
enum class SaveVersion { r2000 = 1015, r2004 = 1018, r2007 = 1021, r2010 = 1024, r2013 = 1027, r2018 = 1032 };

/// One thing to do.
struct Action {
    enum class Kind { load, script, list, save, plot };
    Kind kind;
    std::string file; ///< empty for list
};

struct Options {
    std::string drawing;         ///< empty: a new drawing
    std::vector<Action> actions; ///< in the order of the command line
    SaveVersion saveVersion = SaveVersion::r2018;
    bool binary = false;
    std::string layout; ///< to plot; empty: model space
    int pixels = 2000;  ///< of a PNG at its longer side

    /// Nothing says what is to be done with the drawing: commands come from standard input.
    bool readsInput() const;
};

/// Options of a command line. No value when the program is to end at once, with `exitStatus`: after --help,
/// or with a message about wrong usage on standard error.
std::optional<Options> parseOptions(int argc, char** argv, int& exitStatus);
} // namespace console
