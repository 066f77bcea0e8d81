#include "EditorFixture.h"

#include "Documents.h"
#include "LoadedModule.h"
#include "ModuleEvents.h"

namespace
{
std::wstring pathOf(const wchar_t* name)
{
    const CString folder(TEST_MODULES);
    return std::wstring(L"Z:") + folder.GetString() + L"/" + name;
}

class ModuleLoading : public headless::EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        SetEnvironmentVariableW(L"QM_TEST_MESSAGES", L"");
    }
    void TearDown() override
    {
        if (acrxAppIsLoaded(L"Sample.arx")) acrxUnloadModule(L"Sample.arx");
        EditorTest::TearDown();
    }
    bool loadSample() { return acrxLoadModule(pathOf(L"Sample.arx").c_str(), true); }
    std::wstring messages() const
    {
        wchar_t text[1024] = L"";
        GetEnvironmentVariableW(L"QM_TEST_MESSAGES", text, 1024);
        return text;
    }
    std::wstring title() const { return document()->docTitle(); }
};

std::vector<std::wstring> loadedNames()
{
    std::vector<std::wstring> names;
    resbuf* list = acedArxLoaded();
    for (const resbuf* at = list; at; at = at->rbnext)
        names.push_back(at->resval.rstring);
    if (list) acutRelRb(list);
    return names;
}
} // namespace

TEST_F(ModuleLoading, MessagesComeInAutoCadsOrder)
{
    ASSERT_TRUE(loadSample()) << CStringA(takeOutput().c_str()).GetString();
    EXPECT_TRUE(loadSample()); // once more is no other load
    EXPECT_EQ(messages(), L"init load:" + title());
    EXPECT_EQ(loadedNames(), std::vector<std::wstring>{L"Sample.arx"});
    ASSERT_TRUE(acrxUnloadModule(L"SAMPLE.ARX"));
    EXPECT_EQ(messages(), L"init load:" + title() + L" close:" + title() + L" unload");
    EXPECT_TRUE(loadedNames().empty());
}

TEST_F(ModuleLoading, DocumentsAreAnnouncedAsTheyComeAndGo)
{
    ASSERT_TRUE(loadSample());
    acDocManager->appContextNewDocument(nullptr);
    AcApDocument* second = acDocManager->mdiActiveDocument();
    const std::wstring secondTitle = second->docTitle();
    acDocManager->closeDocument(second);
    EXPECT_EQ(messages(), L"init load:" + title() + L" load:" + secondTitle + L" close:" + secondTitle);
}

TEST_F(ModuleLoading, SavesAreAnnouncedAndSoIsHowTheyEnd)
{
    struct Witness : AcEditorReactor {
        Witness() { acedEditor->addReactor(this); }
        ~Witness() override { acedEditor->removeReactor(this); }
        void beginSave(AcDbDatabase*, const ACHAR* name) override
        {
            seen += L"begin " + modules::nameOf(name);
        }
        void saveComplete(AcDbDatabase*, const ACHAR*) override { seen += L", done; "; }
        void abortSave(AcDbDatabase*) override { seen += L", not done; "; }
        void beginClose(AcDbDatabase*) override { seen += L"close"; }
        std::wstring seen;
    };
    ASSERT_TRUE(loadSample());
    const Witness witness;
    wchar_t folder[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"announced.dxf", before = title();
    EXPECT_EQ(documents::save(document(), path), Acad::eOk);
    EXPECT_NE(documents::save(document(), path + L"\\no.dxf"), Acad::eOk);
    acDocManager->closeDocument(document());
    DeleteFileW(path.c_str());
    EXPECT_EQ(witness.seen, L"begin announced.dxf, done; begin no.dxf, not done; close");
    EXPECT_EQ(messages(),
              L"init load:" + before + L" save:" + before + L" save:announced.dxf close:announced.dxf");
}

TEST_F(ModuleLoading, CommandsAndFunctionsWorkAndGoWithTheModule)
{
    ASSERT_TRUE(loadSample());
    run(L"hello ");
    EXPECT_NE(takeOutput().find(L"hello from the module\n"), std::wstring::npos);
    run(L"(sum 1 2.5 (+ 1 1)) ");
    EXPECT_NE(takeOutput().find(L"5.5"), std::wstring::npos);
    run(L"sayit ");
    EXPECT_NE(takeOutput().find(L"said\n"), std::wstring::npos);
    ASSERT_TRUE(acrxUnloadModule(L"Sample.arx"));
    run(L"hello (sum 1) ");
    const std::wstring output = takeOutput();
    EXPECT_NE(output.find(L"Unknown command \"hello\""), std::wstring::npos);
    EXPECT_NE(output.find(L"no function definition: sum"), std::wstring::npos);
}

TEST_F(ModuleLoading, HooksOfAModuleThatIsGoneAreNotCalled)
{
    ASSERT_TRUE(loadSample());
    acedGetAcadFrame()->PostMessage(WM_KEYUP, L'1');
    pumpMessages();
    EXPECT_NE(messages().find(L" message"), std::wstring::npos);
    ASSERT_TRUE(acrxUnloadModule(L"Sample.arx"));
    acedGetAcadFrame()->PostMessage(WM_KEYUP, L'1');
    EXPECT_EQ(pumpMessages(), 1);
}

TEST_F(ModuleLoading, WhatCannotBeLoadedIsSaid)
{
    EXPECT_FALSE(acrxLoadModule(pathOf(L"OldVersion.arx").c_str(), true));
    EXPECT_NE(takeOutput().find(L"OldVersion.arx cannot be loaded: it is made for version 0x170000"),
              std::wstring::npos);
    EXPECT_FALSE(acrxLoadModule(pathOf(L"RefusesToStart.arx").c_str(), true));
    EXPECT_NE(takeOutput().find(L"refused"), std::wstring::npos);
    EXPECT_FALSE(acrxLoadModule(L"NoSuchModule.arx", false));
    EXPECT_EQ(takeOutput(), L"");
    EXPECT_FALSE(acrxUnloadModule(L"NoSuchModule.arx"));
    EXPECT_TRUE(loadedNames().empty());
}

TEST_F(ModuleLoading, LockedModulesStay)
{
    ASSERT_TRUE(acrxLoadModule(L"acISMobj24.dbx", true)); // a part of the host; it never unlocked itself
    EXPECT_TRUE(acrxApplicationIsLocked(L"acismobj24.dbx"));
    EXPECT_FALSE(acrxUnloadModule(L"acISMobj24.dbx"));
    ASSERT_TRUE(loadSample());
    EXPECT_FALSE(acrxApplicationIsLocked(L"Sample.arx"));
    EXPECT_TRUE(acrxIsAppMDIAware(L"Sample.arx"));
    modules::quit(nullptr);
    EXPECT_EQ(messages(), L"init load:" + title() + L" prequit quit unload");
    EXPECT_TRUE(loadedNames().empty());
}

TEST_F(ModuleLoading, TheRegistryHoldsWhatTheProductHas)
{
    EXPECT_NE(AcRxDynamicLinker::cast(acrxSysRegistry()->at(L"DynamicLinker")), nullptr);
    EXPECT_NE(AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS")), nullptr);
    EXPECT_EQ(AcRxClass::cast(acrxClassDictionary->at(L"AcDbEntity")), AcDbEntity::desc());
    EXPECT_EQ(AcRxDynamicLinker::cast(acrxSysRegistry()->at(L"ClassDictionary")), nullptr);
}
