/// What the options of arxhost do.

#include "ArxHost.h"

namespace
{
using arxhost::Outcome;
using ArxHost = arxhost::Program;
} // namespace

TEST_F(ArxHost, SavesAndPlotsADrawing)
{
    const Outcome outcome = run(mSample + " --save " + out("a.dxf") + " --as r2000 --plot " + out("a.png"));
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    EXPECT_EQ(read(out("a.png")).substr(0, 8), "\x89PNG\r\n\x1a\n");
    EXPECT_NE(read(out("a.dxf")).find("AC1015"), std::string::npos);
    // What was saved opens again without a fault, and holds the same.
    const Outcome first = run(mSample + " --list");
    const Outcome second = run(out("a.dxf") + " --list");
    EXPECT_EQ(second.text, first.text);
    EXPECT_NE(first.text.find("AcDbLine"), std::string::npos);
}

TEST_F(ArxHost, SavesBinaryFilesToo)
{
    EXPECT_EQ(run(mSample + " --binary --save " + out("b.dxf")).status, 0);
    EXPECT_EQ(read(out("b.dxf")).substr(0, 18), "AutoCAD Binary DXF");
}

TEST_F(ArxHost, DoesWhatIsAskedForInItsOrder)
{
    const std::string five = write("five.scr", "LTSCALE 5\n"), six = write("six.scr", "LTSCALE 6\n");
    const std::string fails = write("fails.scr", "NOSUCHCOMMAND\n");
    EXPECT_EQ(
        run("--script " + five + " --save " + out("5.dxf") + " --script " + six + " --save " + out("6.dxf"))
            .status,
        0);
    EXPECT_NE(run(out("5.dxf"), "LTSCALE\n\n").text.find("<5.0000>"), std::string::npos);
    EXPECT_NE(run(out("6.dxf"), "LTSCALE\n\n").text.find("<6.0000>"), std::string::npos);
    // The first that fails ends it.
    EXPECT_EQ(run("--script " + fails + " --save " + out("7.dxf")).status, 1);
    EXPECT_FALSE(arxhost::fs::exists(out("7.dxf")));
}

TEST_F(ArxHost, TellsWhatIsWrongAndLeavesNothing)
{
    struct Case {
        std::string arguments, word;
    };
    const Case cases[] = {
        {"/no/such/file.dxf", "no such file"},
        {TEST_ARXHOST, "no drawing file"},
        {mSample + " --save /no/such/folder/x.dxf", "no such file or folder"},
        {mSample + " --plot " + out("x.bmp"), "x.bmp"},
        {mSample + " --layout Nowhere --plot " + out("x.png"), "x.png"},
        {mSample + " --as R1 --save " + out("x.dxf"), "R1 is no version that can be written: R2000,"},
        {"/", "this is a folder"},
        {mSample + " --nonsense", "--nonsense"},
        {"--load /no/such/module.arx",
         "arxhost: module.arx cannot be loaded: the file or one it needs is not found."},
        {"--load " TEST_MODULES "/OldVersion.arx", "version 0x170000"},
        {"--load " TEST_MODULES "/RefusesToStart.arx", "it refused to be initialised"},
        {"--script /no/such/script.scr", "/no/such/script.scr: the script cannot be read"},
    };
    for (const Case& test : cases) {
        const Outcome outcome = run(test.arguments);
        EXPECT_EQ(outcome.status, 1) << test.arguments;
        EXPECT_NE(outcome.text.find(test.word), std::string::npos) << test.arguments << "\n" << outcome.text;
    }
    EXPECT_FALSE(arxhost::fs::exists(out("x.png")));
    EXPECT_FALSE(arxhost::fs::exists(out("x.dxf")));
    EXPECT_EQ(run("--help").status, 0);
}

TEST_F(ArxHost, LoadsModulesRunsTheirCommandsAndUnloadsThem)
{
    const Outcome outcome =
        run("--load " + mModule, "HELLO\n(sum 1 2)\nARX ? ARX C\nARX U Sample.arx\nHELLO\n");
    EXPECT_EQ(outcome.status, 1) << outcome.text; // HELLO is gone
    EXPECT_EQ(outcome.text, "Command: HELLO\nhello from the module\n"
                            "Command: (sum 1 2)\n3.0\n"
                            "Command: ARX\nEnter an option [?/Load/Unload/Commands]: ?\n  Sample.arx\n"
                            "Command: ARX\nEnter an option [?/Load/Unload/Commands]: C\nSample\n  HELLO\n"
                            "Command: ARX\nEnter an option [?/Load/Unload/Commands]: U\n"
                            "Enter the file to unload: Sample.arx\nSample.arx is unloaded.\n"
                            "Command: HELLO\nUnknown command \"HELLO\".  Press F1 for help.\nCommand: \n"
                            "standard input:5: Unknown command \"HELLO\".  Press F1 for help.\n");
}

TEST_F(ArxHost, LoadsTheLibraryAndLeavesNothingOpen)
{
    // The library keeps itself locked; at the end of the program it is unloaded all the same.
    const std::string library = TEST_LIBRARY;
    const Outcome outcome = run(mSample + " --load " + library, "ARX ?\nNEW\n\nCLOSE\nQUIT Y\n");
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    EXPECT_NE(outcome.text.find("  QmCADLib.arx\n"), std::string::npos) << outcome.text;
    EXPECT_EQ(outcome.text.find("left open"), std::string::npos);
}
