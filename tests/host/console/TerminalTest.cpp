/// arxhost at a terminal: keys typed into a pseudo-terminal, and what its screen shows.

#include "ArxHost.h"
#include "Screen.h"

#include <algorithm>
#include <chrono>
#include <poll.h>
#include <pty.h>

namespace
{
/// A path of this machine as the host shows it.
std::string windows(std::string path)
{
    std::replace(path.begin(), path.end(), '/', '\\');
    return "Z:" + path;
}

/// A terminal with arxhost on it.
class Session
{
public:
    Session(const std::string& home, const std::vector<std::string>& arguments)
    {
        winsize size = {40, 120, 0, 0};
        mChild = forkpty(&mTerminal, nullptr, nullptr, &size);
        if (mChild == 0) become(home, arguments);
    }
    ~Session()
    {
        close(mTerminal); // a program that still runs is hung up on
        if (mChild > 0) waitpid(mChild, nullptr, 0);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void press(const std::string& keys) const
    {
        ASSERT_EQ(::write(mTerminal, keys.data(), keys.size()), ssize_t(keys.size()));
    }

    /// Waits until the line with the cursor is this. The screen is in the message when it does not come.
    testing::AssertionResult shows(const std::string& line)
    {
        const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (screen.line() != line) {
            if (std::chrono::steady_clock::now() > until || !receive())
                return testing::AssertionFailure() << "the screen shows\n" << screen.text();
        }
        return testing::AssertionSuccess();
    }
    /// Types a line and waits for the next prompt.
    testing::AssertionResult enter(const std::string& line, const std::string& prompt = "Command: ")
    {
        const std::string before = screen.text();
        press(line + "\r");
        const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (screen.text().size() <= before.size() && std::chrono::steady_clock::now() < until &&
               receive()) {
        }
        return shows(prompt);
    }

    /// Waits for the end; the exit status.
    int end()
    {
        while (receive()) {
        }
        int status = 0;
        waitpid(mChild, &status, 0);
        mChild = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// Takes what the program wrote; false when it is gone or writes nothing for some time.
    bool receive()
    {
        pollfd waiting = {mTerminal, POLLIN, 0};
        if (poll(&waiting, 1, 20000) <= 0) return false;
        char bytes[4096];
        const ssize_t count = read(mTerminal, bytes, sizeof bytes);
        if (count > 0) screen.take(std::string(bytes, static_cast<std::size_t>(count)));
        return count > 0;
    }

    arxhost::Screen screen;

private:
    [[noreturn]] static void become(const std::string& home, const std::vector<std::string>& arguments)
    {
        setenv("HOME", home.c_str(), 1);
        setenv("TERM", "vt100", 1);
        std::vector<char*> all = {const_cast<char*>(TEST_ARXHOST)};
        for (const std::string& argument : arguments)
            all.push_back(const_cast<char*>(argument.c_str()));
        all.push_back(nullptr);
        execv(TEST_ARXHOST, all.data());
        _exit(127);
    }

    int mTerminal = -1;
    pid_t mChild = 0;
};

class Terminal : public arxhost::Program
{
protected:
    Session open(const std::vector<std::string>& arguments = {}) const { return Session(out(""), arguments); }
};

constexpr const char* up = "\x1b[A";
} // namespace

TEST_F(Terminal, ADrawingIsOpenedChangedSavedAndLeft)
{
    const std::string saved = out("saved.dxf");
    Session session = open({mSample, "--load", mModule});
    ASSERT_TRUE(session.shows("Command: "));
    ASSERT_TRUE(session.enter("LTSCALE", "Enter new value for LTSCALE <10.0000>: "));
    ASSERT_TRUE(session.enter("2.5"));
    ASSERT_TRUE(session.enter("hello"));
    ASSERT_TRUE(session.enter("SAVEAS " + saved));
    session.press("QUIT\r");
    EXPECT_EQ(session.end(), 0);
    EXPECT_EQ(session.screen.text(), "Command: LTSCALE\n"
                                     "Enter new value for LTSCALE <10.0000>: 2.5\n"
                                     "Command: hello\n"
                                     "hello from the module\n"
                                     "Command: SAVEAS " +
                                         saved +
                                         "\n"
                                         "Save drawing as <" +
                                         windows(mSample) + ">: " + saved +
                                         "\n"
                                         "Command: QUIT\n");
    EXPECT_NE(run(saved, "LTSCALE\n\n").text.find("<2.5000>"), std::string::npos);
}

TEST_F(Terminal, LinesAreEditedAndRemembered)
{
    {
        Session session = open();
        ASSERT_TRUE(session.shows("Command: "));
        session.press("HELPX OPEN\x1b[D\x1b[D\x1b[D\x1b[D\x1b[D\b"); // back to behind the X, which goes
        ASSERT_TRUE(session.shows("Command: HELP"));
        ASSERT_TRUE(session.enter(""));
        EXPECT_NE(session.screen.text().find("\nOPEN        Opens a drawing"), std::string::npos);
        session.press("QUIT\r");
        EXPECT_EQ(session.end(), 0);
    }
    Session again = open();
    ASSERT_TRUE(again.shows("Command: "));
    again.press(up);
    ASSERT_TRUE(again.shows("Command: QUIT"));
    again.press(up);
    ASSERT_TRUE(again.shows("Command: HELP OPEN"));
    EXPECT_TRUE(again.enter(""));
}

TEST_F(Terminal, TabCompletesWhatThePromptAsksFor)
{
    write("a drawing.dxf", "");
    write("other.dxf", "");
    Session session = open({"--load", mModule});
    ASSERT_TRUE(session.shows("Command: "));
    session.press("hel");
    ASSERT_TRUE(session.shows("Command: hel"));
    session.press("\t"); // HELLO of the module, or HELP
    ASSERT_TRUE(session.shows("Command: hel"));
    session.press("p\t");
    ASSERT_TRUE(session.shows("Command: HELP "));
    session.press("\x3");
    ASSERT_TRUE(session.shows("Command: "));
    session.press("ltsc\t");
    ASSERT_TRUE(session.shows("Command: LTSCALE "));
    session.press("\x3");
    ASSERT_TRUE(session.shows("Command: "));
    ASSERT_TRUE(session.enter("ARX", "Enter an option [?/Load/Unload/Commands]: "));
    session.press("un\t");
    ASSERT_TRUE(session.shows("Enter an option [?/Load/Unload/Commands]: Unload "));
    session.press("\x3");
    ASSERT_TRUE(session.shows("Command: "));
    session.press("OPEN \"" + out("a d") + "\t");
    ASSERT_TRUE(session.shows("Command: OPEN \"" + out("a drawing.dxf") + " "));
}

TEST_F(Terminal, EscCancelsTheCommandAndEndLeaves)
{
    Session session = open();
    ASSERT_TRUE(session.shows("Command: "));
    ASSERT_TRUE(session.enter("LTSCALE", "Enter new value for LTSCALE <1.0000>: "));
    session.press("5\x3");
    ASSERT_TRUE(session.shows("Command: "));
    EXPECT_NE(session.screen.text().find("<1.0000>: 5\n*Cancel*\nCommand:"), std::string::npos)
        << session.screen.text();
    ASSERT_TRUE(session.enter("LTSCALE 3"));
    session.press("\x4"); // asks, because of the change
    ASSERT_TRUE(session.shows("Really want to discard all changes to drawing? <N> "));
    ASSERT_TRUE(session.enter("N"));
    session.press("\x4");
    ASSERT_TRUE(session.shows("Really want to discard all changes to drawing? <N> "));
    session.press("Y\r");
    EXPECT_EQ(session.end(), 0);
}

TEST_F(Terminal, AScriptThatStoppedIsResumed)
{
    const std::string file = write("s.scr", "LTSCALE 2\nNOSUCH\nLTSCALE\n4\n");
    Session session = open();
    ASSERT_TRUE(session.shows("Command: "));
    ASSERT_TRUE(session.enter("SCRIPT " + file));
    EXPECT_NE(session.screen.text().find("\n" + file + ":2: Unknown command \"NOSUCH\""), std::string::npos)
        << session.screen.text();
    ASSERT_TRUE(session.enter("RESUME"));
    ASSERT_TRUE(session.enter("LTSCALE", "Enter new value for LTSCALE <4.0000>: "));
}

TEST_F(Terminal, EscStopsAScriptThatRepeatsItself)
{
    const std::string file = write("endless.scr", "DELAY 10\nRSCRIPT\n");
    Session session = open();
    ASSERT_TRUE(session.shows("Command: "));
    session.press("SCRIPT " + file + "\r");
    while (session.screen.text().find("RSCRIPT\nCommand: DELAY") == std::string::npos)
        ASSERT_TRUE(session.receive());
    session.press("\x3");
    ASSERT_TRUE(session.shows("Command: "));
    EXPECT_NE(session.screen.text().find("*Cancel*\nCommand:"), std::string::npos) << session.screen.text();
}

TEST_F(Terminal, ControlCEndsADelay)
{
    Session session = open();
    ASSERT_TRUE(session.shows("Command: "));
    session.press("DELAY 32767\r");
    ASSERT_TRUE(session.shows("Enter delay time in milliseconds: 32767") || session.shows(""));
    session.press("\x03");
    ASSERT_TRUE(session.shows("Command: "));
    session.press("QUIT\r");
    EXPECT_EQ(session.end(), 0);
}
