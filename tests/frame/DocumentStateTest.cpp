#include "QmCADLib.h"

#include "acedads.h"
#include "EditorFixture.h"

#include <memory>

namespace
{
using CmdState = headless::EditorTest;
using DocLockWrite = headless::EditorTest;
using SysVar = headless::EditorTest;

TEST_F(CmdState, SecondCommandWithinTheFirstIsRefusedUntilTheFirstEnds)
{
    auto outer = std::make_unique<CFamStuCmdState>();
    EXPECT_EQ(outer->IsNormal(), 1);
    {
        CFamStuCmdState inner;
        EXPECT_EQ(inner.IsNormal(), 0);
        EXPECT_EQ(inner.IsNormal(), 0);
    }
    // The end of the inner attempt leaves the outer command running.
    EXPECT_EQ(CFamStuCmdState().IsNormal(), 0);
    outer.reset();
    EXPECT_EQ(CFamStuCmdState().IsNormal(), 1);
}

TEST_F(DocLockWrite, LockIsHeldOnceAndGivenBackAtTheEnd)
{
    {
        ArxDbgDocLockWrite lock;
        EXPECT_EQ(lock.lock(), Acad::eOk);
        EXPECT_EQ(lock.lock(database()), Acad::eOk);
        EXPECT_EQ(document()->myLockMode(), AcAp::kWrite);
        AcDbDatabase other;
        EXPECT_EQ(lock.lock(&other), Acad::eInvalidInput);
    }
    EXPECT_EQ(document()->myLockMode(), AcAp::kNotLocked);
}

TEST_F(DocLockWrite, DatabaseWithoutDocumentCannotBeLocked)
{
    AcDbDatabase side;
    ArxDbgDocLockWrite lock(&side);
    EXPECT_EQ(lock.lock(), Acad::eNoDocument);
    EXPECT_EQ(lock.lock(nullptr), Acad::eNullPtr);
    EXPECT_EQ(lock.unlock(), Acad::eOk);
}

TEST_F(SysVar, OldValueComesBackAtTheEndOnlyWhenAsked)
{
    int before = 0, now = 0;
    ASSERT_EQ(CFamStuSysVar::Get(L"pickstyle", before), 1);
    {
        const CFamStuSysVar kept(L"PICKSTYLE", 3, 1);
        CFamStuSysVar::Get(L"PICKSTYLE", now);
        EXPECT_EQ(now, 3);
    }
    CFamStuSysVar::Get(L"PICKSTYLE", now);
    EXPECT_EQ(now, before);
    CFamStuSysVar(L"PICKSTYLE", 0, 0);
    CFamStuSysVar::Get(L"PICKSTYLE", now);
    EXPECT_EQ(now, 0);
    EXPECT_EQ(CFamStuSysVar(L"PICKSTYLE", before, 0).Release(), 1); // brings 0 back
    CFamStuSysVar(L"PICKSTYLE", before, 0);
}

TEST_F(SysVar, RefusedChangeBringsNothingBack)
{
    CFamStuSysVar unknown(L"NOSUCHVARIABLE", 1);
    CFamStuSysVar tooLarge(L"PICKSTYLE", 1 << 20);
    EXPECT_EQ(unknown.Release(), 0);
    EXPECT_EQ(tooLarge.Release(), 0);
    double real = 5.0;
    EXPECT_EQ(CFamStuSysVar::Get(L"PICKSTYLE", real), 0);
    EXPECT_EQ(real, 5.0);
}
} // namespace
