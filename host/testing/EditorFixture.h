#pragma once

/// A GoogleTest fixture with a fresh document: scripted answers, the command line, message boxes, and a check
/// that nothing is left open or unreleased.

#include "Headless.h"

#include <gtest/gtest.h>

#include "acdocman.h"
#include "aced.h"

#include <functional>
#include <string>
#include <vector>

namespace headless
{
/// Each test has one new document. At the end it fails when an object of it is open, when result buffers,
/// selection sets or command-line answers are left over, or when a lock is still held.
class EditorTest : public testing::Test
{
protected:
    EditorTest();
    ~EditorTest() override;
    void SetUp() override;
    void TearDown() override;

    AcApDocument* document() const { return mDocument; }
    AcDbDatabase* database() const { return mDocument->database(); }

    /// Types keys for questions to come; nothing runs yet.
    void answer(const std::wstring& keys);
    /// Moves the cursor to a point of the UCS, and picks one, for questions to come.
    void moveCursor(const AcGePoint3d& point);
    void pick(const AcGePoint3d& point);
    /// Types keys and runs what they say, as at the command prompt. Returns how many commands ran.
    int run(const std::wstring& keys);
    /// Runs code as a command of the current document, which is locked meanwhile, with answers for its
    /// questions.
    void asCommand(const std::function<void()>& code, const std::wstring& answers = L"");
    /// Sends the posted messages through AutoCAD's hooks to their windows; returns how many there were.
    int pumpMessages();

    /// What was written to the command line since the last call.
    std::wstring takeOutput();
    /// The commands that ended since the last call, with "*" before those that were cancelled and "!" before
    /// those that failed.
    std::vector<std::wstring> takeCommands();

private:
    class CommandLog;
    AcApDocument* mDocument = nullptr;
    std::wstring mOutput;
    std::unique_ptr<CommandLog> mLog;
    std::function<void(std::wstring_view)> mListenerBefore;
    std::int64_t mResbufsBefore = 0;
};

/// How many objects of a drawing are open.
int openObjects(const AcDbDatabase& database);
} // namespace headless
