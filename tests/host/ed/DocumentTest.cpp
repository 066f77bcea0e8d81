#include "EditorFixture.h"

#include "dbents.h"

namespace
{
class Documents : public headless::EditorTest
{
protected:
    /// Opens the layer table for write, and closes it again.
    Acad::ErrorStatus tryToWrite(AcDbDatabase* of) const
    {
        AcDbLayerTable* table = nullptr;
        const Acad::ErrorStatus status = of->getSymbolTable(table, AcDb::kForWrite);
        if (table) table->close();
        return status;
    }
    AcApDocument* another() const
    {
        acDocManager->appContextNewDocument(nullptr);
        return acDocManager->mdiActiveDocument();
    }
};

/// Notes what it is told; vetoes locks when asked.
class Witness : public AcApDocManagerReactor
{
public:
    Witness() { acDocManager->addReactor(this); }
    ~Witness() override { acDocManager->removeReactor(this); }
    void documentToBeActivated(AcApDocument*) override { seen.push_back("to be activated"); }
    void documentActivated(AcApDocument*) override { seen.push_back("activated"); }
    void documentBecameCurrent(AcApDocument*) override { seen.push_back("current"); }
    void documentToBeDeactivated(AcApDocument*) override { seen.push_back("to be deactivated"); }
    void documentToBeDestroyed(AcApDocument*) override { seen.push_back("to be destroyed"); }
    void documentDestroyed(const ACHAR*) override { seen.push_back("destroyed"); }
    void documentLockModeWillChange(AcApDocument*, AcAp::DocLockMode, AcAp::DocLockMode, AcAp::DocLockMode,
                                    const ACHAR* command) override
    {
        commands.push_back(command);
        if (refuses) veto();
    }
    void documentLockModeChangeVetoed(AcApDocument*, const ACHAR*) override { seen.push_back("vetoed"); }

    std::vector<std::string> seen;
    std::vector<std::wstring> commands;
    bool refuses = false;
};
} // namespace

TEST_F(Documents, WritingNeedsALock)
{
    EXPECT_EQ(tryToWrite(database()), Acad::eLockViolation);
    ASSERT_EQ(acDocManager->lockDocument(document()), Acad::eOk);
    EXPECT_EQ(tryToWrite(database()), Acad::eOk);
    ASSERT_EQ(acDocManager->unlockDocument(document()), Acad::eOk);
    EXPECT_EQ(tryToWrite(database()), Acad::eLockViolation);
    AcDbDatabase alone;
    EXPECT_EQ(tryToWrite(&alone), Acad::eOk);
}

TEST_F(Documents, ACommandHasTheCurrentDocumentOnly)
{
    AcApDocument* other = another();
    ASSERT_EQ(acDocManager->activateDocument(document()), Acad::eOk);
    bool ran = false;
    asCommand([&] {
        ran = true;
        EXPECT_EQ(document()->lockMode(false), AcAp::kNotLocked);
        EXPECT_EQ(document()->lockMode(true), AcAp::kAutoWrite);
        EXPECT_EQ(document()->myLockMode(), AcAp::kAutoWrite);
        EXPECT_EQ(tryToWrite(database()), Acad::eOk);
        EXPECT_EQ(tryToWrite(other->database()), Acad::eLockViolation);
        ASSERT_EQ(acDocManager->lockDocument(other, AcAp::kWrite), Acad::eOk);
        EXPECT_EQ(tryToWrite(other->database()), Acad::eOk);
        EXPECT_EQ(acDocManager->unlockDocument(other), Acad::eOk);
        EXPECT_FALSE(document()->isQuiescent());
        EXPECT_EQ(acDocManager->closeDocument(document()), Acad::eTargetDocNotQuiescent);
    });
    EXPECT_TRUE(ran);
    EXPECT_TRUE(document()->isQuiescent());
}

TEST_F(Documents, LocksOfOtherContextsConflict)
{
    ASSERT_EQ(acDocManager->lockDocument(document(), AcAp::kXWrite), Acad::eOk);
    bool ran = false;
    asCommand([&] { ran = true; });
    EXPECT_FALSE(ran);
    ASSERT_EQ(acDocManager->unlockDocument(document()), Acad::eOk);
    ASSERT_EQ(acDocManager->lockDocument(document(), AcAp::kWrite), Acad::eOk);
    asCommand([&] {
        EXPECT_EQ(document()->lockMode(false), AcAp::kWrite);
        EXPECT_EQ(acDocManager->lockDocument(document(), AcAp::kXWrite), Acad::eLockConflict);
        EXPECT_EQ(acDocManager->lockDocument(document(), AcAp::kRead), Acad::eLockConflict);
    });
    EXPECT_EQ(acDocManager->unlockDocument(document()), Acad::eOk);
}

TEST_F(Documents, BadLocksHaveTheirStatus)
{
    EXPECT_EQ(acDocManager->lockDocument(nullptr), Acad::eNoDocument);
    EXPECT_EQ(acDocManager->lockDocument(document(), AcAp::kNotLocked), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager->unlockDocument(document()), Acad::eInvalidInput);
    Witness witness;
    witness.refuses = true;
    EXPECT_EQ(acDocManager->lockDocument(document(), AcAp::kWrite, L"MYCMD"), Acad::eVetoed);
    EXPECT_EQ(document()->lockMode(true), AcAp::kNotLocked);
    EXPECT_EQ(witness.commands, std::vector<std::wstring>{L"MYCMD"});
    EXPECT_EQ(witness.seen, std::vector<std::string>{"vetoed"});
}

TEST_F(Documents, TheWorkingDatabaseFollowsTheCurrentDocument)
{
    AcApDocument* other = another();
    EXPECT_EQ(curDoc(), other);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), other->database());
    ASSERT_EQ(acDocManager->setCurDocument(document()), Acad::eOk);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), database());
    EXPECT_EQ(acDocManager->mdiActiveDocument(), other);
    EXPECT_EQ(acDocManager->document(other->database()), other);
    EXPECT_EQ(acDocManager->documentCount(), 2);
}

TEST_F(Documents, ReactorsHearOfActivationAndClosing)
{
    AcApDocument* other = another();
    Witness witness;
    ASSERT_EQ(acDocManager->activateDocument(document()), Acad::eOk);
    EXPECT_EQ(witness.seen,
              (std::vector<std::string>{"to be deactivated", "to be activated", "current", "activated"}));
    witness.seen.clear();
    ASSERT_EQ(acDocManager->closeDocument(other), Acad::eOk);
    EXPECT_EQ(witness.seen.back(), "destroyed");
    EXPECT_EQ(acDocManager->documentCount(), 1);
    ASSERT_EQ(acDocManager->disableDocumentActivation(), Acad::eOk);
    EXPECT_EQ(acDocManager->activateDocument(document()), Acad::eDocumentSwitchDisabled);
    acDocManager->enableDocumentActivation();
    EXPECT_EQ(acDocManager->activateDocument(document()), Acad::eOk);
}

TEST_F(Documents, ASavedDrawingOpensUnderItsName)
{
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"saved drawing.dxf";
    asCommand([&] { database()->setLtscale(2.5); });
    EXPECT_EQ(run(L"QSAVE \"" + path + L"\"\n"), 1);
    EXPECT_TRUE(document()->isNamedDrawing());
    EXPECT_STREQ(document()->docTitle(), L"saved drawing.dxf");
    ASSERT_EQ(acDocManager->appContextOpenDocument(path.c_str()), Acad::eOk);
    EXPECT_EQ(curDoc()->database()->ltscale(), 2.5);
    EXPECT_EQ(acDocManager->appContextNewDocument(path.c_str()), Acad::eOk);
    EXPECT_FALSE(curDoc()->isNamedDrawing());
    EXPECT_EQ(curDoc()->database()->ltscale(), 2.5);
    EXPECT_EQ(acDocManager->appContextOpenDocument(L"Z:\\no such drawing.dxf"), Acad::eFileNotFound);
    EXPECT_EQ(acDocManager->documentCount(), 3);
    DeleteFileW(path.c_str());
}
