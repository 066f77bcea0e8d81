/// Scripts in AutoCAD's syntax, from files and from standard input.

#include "ArxHost.h"

namespace
{
using arxhost::Outcome;
class Script : public arxhost::Program
{
protected:
    /// What a script that begins with these lines shows.
    Outcome type(const std::string& lines) const { return run("", lines); }
};
} // namespace

TEST_F(Script, BlanksEnterQuotesCommentsAndExpressionsAreAutoCadsOwn)
{
    const Outcome outcome =
        type("; a comment\r\n_.ltscale 2.5\r\n(setq\n a \"x y\"\n)\n'_SETVAR _LTSCALE (* 2 3)\n"
             "-re\n\nSETVAR \"LTSCALE\" \n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.text, "Command: _.ltscale\nEnter new value for LTSCALE <1.0000>: 2.5\n"
                            "Command: (setq  a \"x y\" )\n\"x y\"\n"
                            "Command: '_SETVAR\nEnter variable name or [?]: _LTSCALE\n"
                            "Enter new value for LTSCALE <2.5000>: (* 2 3)\n"
                            "Command: -re\nRegenerating model.\n"
                            "Command: \nRegenerating model.\n"
                            "Command: SETVAR\nEnter variable name or [?]: LTSCALE\n"
                            "Enter new value for LTSCALE <6.0000>: \n"
                            "Command: \n");
}

TEST_F(Script, AFaultTellsFileLineAndReason)
{
    const std::string file = write("faulty.scr", "LTSCALE 2\n\n; nothing\nNOSUCH 1 2\nLTSCALE 3\n");
    const Outcome outcome = run("--script " + file);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.text.find(file + ":4: Unknown command \"NOSUCH\""), std::string::npos) << outcome.text;
    EXPECT_EQ(outcome.text.find("<2.0000>: 3"), std::string::npos) << "what stands behind is not typed";
    const std::pair<const char*, const char*> faults[] = {
        {"OPEN /no/such.dxf",
         "standard input:1: Cannot open \"/no/such.dxf\": there is no such file or folder."},
        {"LTSCALE -1", "standard input:1: The value is not valid for LTSCALE."},
        {"ARX X", "standard input:1: Invalid option keyword."},
        {"ARX L nothing.arx",
         "standard input:1: nothing.arx cannot be loaded: the file or one it needs is not found."},
        {"(car 1\n", "standard input:2: ; error: malformed list on input"},
        {"\n(/ 1 0)", "standard input:2: ; error: divide by zero"},
        {"SCRIPT nothing", "standard input:1: Cannot find the script \"nothing\"."},
        {"PLOT Nowhere x.png", "standard input:1: Cannot plot \"x.png\""},
        {"HELP NOSUCH", "standard input:1: There is no help on \"NOSUCH\"."},
    };
    for (const auto& [line, message] : faults) {
        const Outcome one = type(std::string(line) + "\n");
        EXPECT_NE(one.text.find(message), std::string::npos) << line << "\n" << one.text;
    }
}

TEST_F(Script, AQuestionAtItsEndIsACancel)
{
    const Outcome outcome = type("LTSCALE");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.text, "Command: LTSCALE\nEnter new value for LTSCALE <1.0000>: *Cancel*\nCommand: \n");
}

TEST_F(Script, OneThatStartsAnotherIsOver)
{
    const std::string inner = write("inner script.scr", "LTSCALE 7\n");
    const std::string outer = write("outer.scr", "SCRIPT \"" + inner + "\"\nLTSCALE 8\n");
    EXPECT_EQ(run("--script " + outer + " --save " + out("s.dxf")).status, 0);
    EXPECT_NE(run(out("s.dxf"), "LTSCALE\n\n").text.find("<7.0000>"), std::string::npos);
}

TEST_F(Script, DrawingsAreMadeSavedOpenedAndClosed)
{
    const std::string path = out("a drawing.dxf");
    const Outcome outcome = type("LTSCALE 3\nSAVEAS \"" + path + "\"\nNEW . LTSCALE\n\nOPEN \"" + path +
                                 "\" LTSCALE\n\nLTSCALE 4\nCLOSE N\nCLOSE Y\nLTSCALE\n\nQUIT\n");
    EXPECT_EQ(outcome.status, 0);
    const std::string prompt = "Command: LTSCALE\nEnter new value for LTSCALE ";
    EXPECT_NE(outcome.text.find("<.>: .\n" + prompt + "<1.0000>"), std::string::npos) << outcome.text;
    EXPECT_NE(outcome.text.find("a drawing.dxf\n" + prompt + "<3.0000>"), std::string::npos) << outcome.text;
    EXPECT_NE(outcome.text.find("discard all changes to drawing? <N> N\n"), std::string::npos)
        << outcome.text;
}

TEST_F(Script, AFileIsReplacedWhenTheUserSaysSo)
{
    const std::string path = write("there.dxf", "old");
    type("SAVEAS " + path + " N\n");
    EXPECT_EQ(read(path), "old");
    type("SAVEAS " + path + "\n");
    EXPECT_EQ(read(path), "old");
    type("SAVEAS " + path + " Y\n");
    EXPECT_NE(read(path).find("AC1032"), std::string::npos);
}

TEST_F(Script, QuitEndsAtOnceUnlessChangesWouldBeLost)
{
    EXPECT_EQ(type("QUIT\nNOSUCH\n").status, 0);
    EXPECT_EQ(type("LTSCALE 2\nQUIT N\nNOSUCH\n").status, 1);
    EXPECT_EQ(type("LTSCALE 2\nQUIT Y\nNOSUCH\n").status, 0);
}

TEST_F(Script, EncodingsAreFoundOut)
{
    // The name of a file shows what was read: UTF-8, the ANSI code page (936), UTF-16 with its mark.
    const std::string name = "\xE8\xBD\xAF"; // U+8F6F
    const std::string path = out(name) + ".dxf";
    std::string wide = "\xFF\xFE";
    for (const char c : "SAVEAS " + out(""))
        wide += {c, '\0'};
    wide += {'\x6F', '\x8F'};
    for (const char c : std::string(".dxf\n"))
        wide += {c, '\0'};
    const std::string forms[] = {"SAVEAS " + path + "\n", "\xEF\xBB\xBFSAVEAS " + path + "\n",
                                 "SAVEAS " + out("\xC8\xED") + ".dxf\n", wide};
    for (const std::string& form : forms) {
        EXPECT_EQ(run("--script " + write("e.scr", form)).status, 0);
        EXPECT_TRUE(arxhost::fs::remove(path)) << form;
    }
    // U+56FE U+7EB8 U+4E00 in the code page 936 are good UTF-8 for other letters; the comment tells what they
    // are.
    const std::string drawing = out("\xE5\x9B\xBE\xE7\xBA\xB8\xE4\xB8\x80") + ".dxf";
    const std::string ansi = "; \xC8\xED\nSAVEAS " + out("\xCD\xBC\xD6\xBD\xD2\xBB") + ".dxf\n";
    EXPECT_EQ(run("--script " + write("e.scr", ansi)).status, 0);
    EXPECT_TRUE(arxhost::fs::remove(drawing));
}
