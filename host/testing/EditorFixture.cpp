#include "EditorFixture.h"

#include "CommandLine.h"
#include "CommandRunner.h"
#include "Documents.h"
#include "LiveCounts.h"
#include "VariableStore.h"
#include "WindowHooks.h"

namespace
{
const std::function<void()>* codeToRun = nullptr;
void runCode()
{
    (*codeToRun)();
}
} // namespace

namespace headless
{
class EditorTest::CommandLog : public AcEditorReactor
{
public:
    CommandLog() { acedEditor->addReactor(this); }
    ~CommandLog() override { acedEditor->removeReactor(this); }
    void commandEnded(const ACHAR* name) override { ended.push_back(name); }
    void commandCancelled(const ACHAR* name) override { ended.push_back(std::wstring(L"*") + name); }
    void commandFailed(const ACHAR* name) override { ended.push_back(std::wstring(L"!") + name); }
    std::vector<std::wstring> ended;
};

EditorTest::EditorTest() = default;
EditorTest::~EditorTest() = default;

void EditorTest::SetUp()
{
    mResbufsBefore = live::resbufs();
    mListenerBefore = ed::setCommandLineListener([this](std::wstring_view text) { mOutput += text; });
    ed::resetVariables();
    takeMessageBoxes(); // those of tests before
    ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    mDocument = acDocManager->mdiActiveDocument();
    mLog = std::make_unique<CommandLog>();
}

void EditorTest::TearDown()
{
    for (AcApDocument* open : documents::all()) {
        EXPECT_EQ(openObjects(*open->database()), 0) << "objects are left open";
        EXPECT_EQ(open->lockMode(true), AcAp::kNotLocked) << "a lock is left";
        EXPECT_TRUE(DocumentAccess::of(*open).selection.sets.empty()) << "selection sets are left";
        EXPECT_TRUE(DocumentAccess::of(*open).input.empty()) << "answers are left that nobody asked for";
    }
    documents::closeAll();
    mLog.reset();
    ed::forgetAllHooks();
    acedSSSetKwordCallbackPtr(nullptr);
    acedSSSetOtherCallbackPtr(nullptr);
    dropMessageBoxAnswers();
    takePostedMessages(nullptr);
    ed::setCommandLineListener(mListenerBefore);
    EXPECT_EQ(live::resbufs(), mResbufsBefore) << "result buffers are left";
}

void EditorTest::answer(const std::wstring& keys)
{
    ed::currentInput().type(keys, false);
}

void EditorTest::moveCursor(const AcGePoint3d& point)
{
    ed::currentInput().give(ed::Answer::ofMove(point));
}

void EditorTest::pick(const AcGePoint3d& point)
{
    CString typed;
    typed.Format(L"%.17g,%.17g,%.17g", point.x, point.y, point.z);
    ed::currentInput().give(ed::Answer::ofText(typed.GetString()));
}

int EditorTest::run(const std::wstring& keys)
{
    answer(keys);
    return ed::runPending();
}

void EditorTest::asCommand(const std::function<void()>& code, const std::wstring& answers)
{
    acedRegCmds->addCommand(L"TESTING", L"TESTCODE", L"TESTCODE", ACRX_CMD_MODAL, runCode);
    codeToRun = &code;
    run(L"_TESTCODE " + answers);
    acedRegCmds->removeGroup(L"TESTING");
}

int openObjects(const AcDbDatabase& database)
{
    return live::openObjects(database);
}

int EditorTest::pumpMessages()
{
    return ed::pumpMessages();
}

std::wstring EditorTest::takeOutput()
{
    std::wstring all;
    std::swap(all, mOutput);
    return all;
}

std::vector<std::wstring> EditorTest::takeCommands()
{
    std::vector<std::wstring> all;
    std::swap(all, mLog->ended);
    return all;
}
} // namespace headless
