#include "EditorFixture.h"

#include "acedads.h"
#include "arxHeaders.h"
#include "dbobjptr.h"

namespace
{
using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);

/// The module comes and goes with AutoCAD's linker: nothing here is linked with it.
class ModuleLife : public headless::EditorTest
{
protected:
    static bool load() { return acrxLoadModule(CString("Z:" TEST_LIBRARY), true); }
    static HMODULE module() { return GetModuleHandleW(L"QmCADLib.arx"); }
    static int librariesOfMfc()
    {
        int count = 0;
        for (const CDynLinkLibrary* at = AfxNextDynLinkLibrary(nullptr); at; at = AfxNextDynLinkLibrary(at))
            ++count;
        return count;
    }
};

TEST_F(ModuleLife, ModuleAnswersEveryMessageAndLeavesNothingBehind)
{
    ASSERT_EQ(module(), nullptr);
    for (int times = 0; times < 2; ++times) {
        ASSERT_TRUE(load()) << CStringA(takeOutput().c_str()).GetString();
        const auto entry =
            reinterpret_cast<EntryPoint>(reinterpret_cast<void*>(GetProcAddress(module(), "acrxEntryPoint")));
        ASSERT_NE(entry, nullptr);
        for (int message = AcRx::kLoadDwgMsg; message <= AcRx::kEndDialogMsg + 1; ++message)
            EXPECT_EQ(entry(static_cast<AcRx::AppMsgCode>(message), nullptr), AcRx::kRetOK) << message;
        EXPECT_EQ(entry(AcRx::kNullMsg, nullptr), AcRx::kRetOK);
        EXPECT_EQ(librariesOfMfc(), 2); // AutoCAD's user interface, which stays, and the module
        ASSERT_TRUE(acrxUnloadModule(L"QmCADLib.arx"));
        EXPECT_EQ(module(), nullptr);
        EXPECT_EQ(librariesOfMfc(), 1);
        EXPECT_EQ(acrxClassDictionary->at(L"AsdkBlockOrderIndex"), nullptr);
    }
}

TEST_F(ModuleLife, DocumentsAndCommandsComeAndGoWithTheModule)
{
    ASSERT_TRUE(load());
    ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    asCommand([] {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(curDoc()->database()->currentSpaceId(),
                                                            AcDb::kForWrite);
        const AcDbObjectPointer<AcDbLine> line(new AcDbLine({0, 0, 0}, {1, 0, 0}));
        EXPECT_EQ(space->appendAcDbEntity(line.object()), Acad::eOk);
    });
    acedGetAcadDwgView()->PostMessage(WM_LBUTTONDOWN, 0, MAKELPARAM(10, 10));
    EXPECT_EQ(pumpMessages(), 1);
    ASSERT_EQ(acDocManager->closeDocument(acDocManager->mdiActiveDocument()), Acad::eOk);
    ASSERT_TRUE(acrxUnloadModule(L"QmCADLib.arx"));
    acedGetAcadFrame()->PostMessage(WM_MOUSEMOVE); // no hook is left to see it
    EXPECT_EQ(pumpMessages(), 1);
}
} // namespace
