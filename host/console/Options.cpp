#include "Options.h"

#include <CLI/CLI.hpp>

#include <map>

namespace console
{
namespace
{
const std::map<std::string, SaveVersion> versions = {
    {"R2000", SaveVersion::r2000}, {"R2004", SaveVersion::r2004}, {"R2007", SaveVersion::r2007},
    {"R2010", SaveVersion::r2010}, {"R2013", SaveVersion::r2013}, {"R2018", SaveVersion::r2018},
};

void describe(CLI::App& app, Options& options)
{
    app.add_option("drawing", options.drawing, "The DXF file to open (ASCII or binary, R12 to R2018); none: a new drawing");
    CLI::Option* save = app.add_option("--save", options.saveAs, "Write the drawing to this DXF file");
    app.add_option("--as", options.saveVersion, "The version to save as (R2000 ... R2018)")
        ->transform(CLI::CheckedTransformer(versions, CLI::ignore_case))
        ->needs(save);
    app.add_flag("--binary", options.binary, "Save a binary DXF file")->needs(save);
    CLI::Option* plot = app.add_option("--plot", options.plot, "Plot to this file; its ending (.png .svg .pdf) says the kind");
    app.add_option("--layout", options.layout, "The layout to plot; none: model space")->needs(plot);
    app.add_option("--pixels", options.pixels, "Pixels of a PNG at its longer side")
        ->check(CLI::Range(16, 30000))
        ->needs(plot);
    app.add_flag("--list", options.list, "Tell the layouts and the entities that they hold");
}
} // namespace

std::optional<Options> parseOptions(int argc, char** argv, int& exitStatus)
{
    Options options;
    CLI::App app("Opens a drawing without AutoCAD, saves it and plots it.", "arxhost");
    describe(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        exitStatus = app.exit(error) == 0 ? 0 : 1;
        return std::nullopt;
    }
    return options;
}
} // namespace console
