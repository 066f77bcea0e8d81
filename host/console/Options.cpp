#include "Options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>
#include <map>

namespace console
{
namespace
{
using Kind = Action::Kind;

const std::map<std::string, SaveVersion> versions = {
    {"R2000", SaveVersion::r2000}, {"R2004", SaveVersion::r2004}, {"R2007", SaveVersion::r2007},
    {"R2010", SaveVersion::r2010}, {"R2013", SaveVersion::r2013}, {"R2018", SaveVersion::r2018},
};

constexpr const char* footer = R"(
What is asked for is done in the order of the options, and the first thing that fails ends the program. Without
--script, --list, --save and --plot commands come from standard input: at a terminal with a prompt (Tab completes,
the history is in ~/.arxhost_history, HELP tells the commands), else as a script. QUIT ends the program at once.

Scripts have AutoCAD's syntax: a blank or the end of a line is Enter, quotes hold a name together, lines that begin
with a semicolon are comments. A line that fails stops the script.

Exit status: 0, or 1 when anything failed: wrong usage, a file that cannot be read or written, a module that cannot
be loaded, a line of a script, or objects that a module left open.)";

/// The options that ask for an action.
using Actors = std::vector<std::pair<CLI::Option*, Kind>>;

CLI::Option* fileOption(CLI::App& app, const char* name, const char* help)
{
    // Their files are taken in the end, in the order of all options.
    const CLI::callback_t later = [](const CLI::results_t&) { return true; };
    return app.add_option(name, later, help)
        ->type_name("FILE")
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

Actors describeActions(CLI::App& app)
{
    return {
        {fileOption(app, "--load", "Load this module (.arx)"), Kind::load},
        {fileOption(app, "--script", "Type the lines of this script (.scr)"), Kind::script},
        {app.add_flag("--list", "Tell the layouts and the entities that they hold"), Kind::list},
        {fileOption(app, "--save", "Write the drawing to this DXF file"), Kind::save},
        {fileOption(app, "--plot", "Plot to this file; its ending (.png .svg .pdf) says the kind"),
         Kind::plot},
    };
}

SaveVersion versionNamed(std::string name)
{
    for (char& c : name) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const auto found = versions.find(name);
    if (found != versions.end()) return found->second;
    throw CLI::ValidationError("--as", name + " is no version that can be written: R2000, R2004, R2007, R2010, R2013, R2018");
}

void describeDetails(CLI::App& app, Options& options)
{
    app.add_option("drawing", options.drawing,
                   "The DXF file to open (ASCII or binary, R12 to R2018); none: a new drawing");
    const auto takeVersion = [&options](const std::string& name) { options.saveVersion = versionNamed(name); };
    app.add_option_function<std::string>("--as", takeVersion, "The version to save as (R2000 ... R2018)")
        ->type_name("VERSION")
        ->needs("--save");
    app.add_flag("--binary", options.binary, "Save a binary DXF file")->needs("--save");
    app.add_option("--layout", options.layout, "The layout to plot; none: model space")->needs("--plot");
    app.add_option("--pixels", options.pixels, "Pixels of a PNG at its longer side")
        ->check(CLI::Range(16, 30000))
        ->needs("--plot");
    app.footer(footer);
}

std::vector<Action> actionsInOrder(const CLI::App& app, const Actors& actors)
{
    std::vector<Action> actions;
    std::map<const CLI::Option*, std::size_t> used;
    for (const CLI::Option* option : app.parse_order()) {
        const auto actor =
            std::find_if(actors.begin(), actors.end(), [=](const auto& a) { return a.first == option; });
        if (actor == actors.end()) continue;
        const bool isFlag = actor->second == Kind::list;
        actions.push_back({actor->second, isFlag ? std::string() : option->results()[used[option]++]});
    }
    return actions;
}
} // namespace

bool Options::readsInput() const
{
    return std::all_of(actions.begin(), actions.end(), [](const Action& a) { return a.kind == Kind::load; });
}

std::optional<Options> parseOptions(int argc, char** argv, int& exitStatus)
{
    Options options;
    CLI::App app("Opens a drawing without AutoCAD, loads modules, runs commands, saves and plots.",
                 "arxhost");
    const Actors actors = describeActions(app);
    describeDetails(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        exitStatus = app.exit(error) == 0 ? 0 : 1;
        return std::nullopt;
    }
    options.actions = actionsInOrder(app, actors);
    return options;
}
} // namespace console
