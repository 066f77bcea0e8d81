#pragma once

/// The application framework of a module: commands and LISP functions in tables of the module.
///
///     class CMyApp : public AcRxArxApp { ... };  // which says RegisterServerComponents
///     IMPLEMENT_ARX_ENTRYPOINT(CMyApp)
///     ACED_ARXCOMMAND_ENTRY_AUTO(CMyApp, MyGroup, MyCommand, MyCommandLocal, ACRX_CMD_MODAL, NULL)

#include "aced.h"
#include "acedads.h"
#include "dbxEntryPoint.h"

/// A command that the module adds.
struct AcRxCommandMapEntry {
    const ACHAR* group;
    const ACHAR* globalName;
    const ACHAR* localName;
    Adesk::Int32 flags;
    void (*function)();
    AcEdUIContext* context;
};

/// A LISP function that the module defines in each document; its place in the table is its code.
struct AcRxSymbolMapEntry {
    const ACHAR* name;
    int (*function)();
    bool registerFunction; ///< also with acedRegFunc
};

class AcRxArxApp : public AcRxDbxApp
{
public:
    AcRx::AppRetCode On_kInitAppMsg(void* pkt) override
    {
        const AcRx::AppRetCode result = AcRxDbxApp::On_kInitAppMsg(pkt);
        for (const AcRxCommandMapEntry& entry : commandMap())
            acedRegCmds->addCommand(entry.group, entry.globalName, entry.localName, entry.flags, entry.function,
                                    entry.context);
        return result;
    }
    AcRx::AppRetCode On_kUnloadAppMsg(void* pkt) override
    {
        const AcRx::AppRetCode result = AcRxDbxApp::On_kUnloadAppMsg(pkt);
        for (const AcRxCommandMapEntry& entry : commandMap()) acedRegCmds->removeCmd(entry.group, entry.globalName);
        return result;
    }
    AcRx::AppRetCode On_kLoadDwgMsg(void*) override
    {
        short code = 0;
        for (const AcRxSymbolMapEntry& entry : symbolMap()) {
            acedDefun(entry.name, code);
            if (entry.registerFunction) acedRegFunc(entry.function, code);
            ++code;
        }
        return AcRx::kRetOK;
    }
    AcRx::AppRetCode On_kUnloadDwgMsg(void*) override
    {
        short code = 0;
        for (const AcRxSymbolMapEntry& entry : symbolMap()) acedUndef(entry.name, code++);
        return AcRx::kRetOK;
    }
    AcRx::AppRetCode On_kInvkSubrMsg(void*) override
    {
        const auto code = static_cast<std::size_t>(acedGetFunCode());
        if (code < symbolMap().size()) symbolMap()[code].function();
        return AcRx::kRetOK;
    }

    static std::vector<AcRxCommandMapEntry>& commandMap()
    {
        static std::vector<AcRxCommandMapEntry> map;
        return map;
    }
    static std::vector<AcRxSymbolMapEntry>& symbolMap()
    {
        static std::vector<AcRxSymbolMapEntry> map;
        return map;
    }
};

/// The module's entry point and its version stamp.
#define IMPLEMENT_ARX_ENTRYPOINT(APP)                                                                        \
    static APP& theArxApplication()                                                                          \
    {                                                                                                        \
        static APP application;                                                                              \
        return application;                                                                                  \
    }                                                                                                        \
    extern "C" __declspec(dllexport) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) \
    {                                                                                                        \
        return theArxApplication().acrxEntryPoint(message, packet);                                          \
    }                                                                                                        \
    extern "C" __declspec(dllexport) int acrxGetApiVersion() { return 0x180000; }

/// At file scope: the static member APP::GROUPGLOBAL is a command of the module.
#define ACED_ARXCOMMAND_ENTRY_AUTO(APP, GROUP, GLOBAL, LOCAL, FLAGS, CONTEXT)                                \
    static const arxframework::TableEntry<AcRxCommandMapEntry> ARXFRAMEWORK_ENTRY(                           \
        AcRxArxApp::commandMap(),                                                                            \
        AcRxCommandMapEntry{L"" #GROUP, L"" #GLOBAL, L"" #LOCAL, FLAGS, &APP::GROUP##GLOBAL, CONTEXT});

/// At file scope: the static member APP::ads_NAME is a LISP function of the module.
#define ACED_ADSSYMBOL_ENTRY_AUTO(APP, NAME, REGISTER)                                                       \
    static const arxframework::TableEntry<AcRxSymbolMapEntry> ARXFRAMEWORK_ENTRY(                            \
        AcRxArxApp::symbolMap(), AcRxSymbolMapEntry{L"" #NAME, &APP::ads_##NAME, REGISTER});

/// The same for a command written in LISP's manner: C:NAME calls APP::ads_NAME.
#define ACED_ADSCOMMAND_ENTRY_AUTO(APP, NAME, REGISTER)                                                      \
    static const arxframework::TableEntry<AcRxSymbolMapEntry> ARXFRAMEWORK_ENTRY(                            \
        AcRxArxApp::symbolMap(), AcRxSymbolMapEntry{L"c:" #NAME, &APP::ads_##NAME, REGISTER});
