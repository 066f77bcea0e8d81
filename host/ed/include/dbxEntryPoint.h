#pragma once

/// The object framework of a module: its application object and the table of its classes. Header only: the tables belong to the
/// module that includes it.

#include "rxregsvc.h"

#include <vector>

/// A class that the module registers.
struct AcRxClassMapEntry {
    AcRxClass* (*desc)();
    void (*rxInit)();
    bool initialised;
};

/// The base of a module's application object. There is one per module; each message goes to the handler of its name.
class AcRxDbxApp
{
public:
    AcRxDbxApp() { instance() = this; }
    virtual ~AcRxDbxApp() = default;

    virtual AcRx::AppRetCode On_kInitAppMsg(void* pkt)
    {
        acrxUnlockApplication(pkt);
        acrxRegisterAppMDIAware(pkt);
        initialiseClasses();
        RegisterServerComponents();
        return AcRx::kRetOK;
    }
    virtual AcRx::AppRetCode On_kUnloadAppMsg(void*)
    {
        for (AcRxClassMapEntry& entry : classMap()) deleteClass(entry);
        return AcRx::kRetOK;
    }
    virtual AcRx::AppRetCode On_kLoadDwgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kUnloadDwgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kInvkSubrMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kCfgMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kEndMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kQuitMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kSaveMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kDependencyMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kNoDependencyMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kOleUnloadAppMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kPreQuitMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kInitDialogMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kEndDialogMsg(void*) { return AcRx::kRetOK; }
    virtual AcRx::AppRetCode On_kNullMsg(void*) { return AcRx::kRetOK; }

    /// What the module enters into the registry of the machine. Each module says so, if only that it is nothing.
    virtual void RegisterServerComponents() = 0;

    /// Takes a message to its handler; kRetOK for a message that has none.
    AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet)
    {
        using Handler = AcRx::AppRetCode (AcRxDbxApp::*)(void*);
        static constexpr Handler handlers[] = {
            &AcRxDbxApp::On_kNullMsg,         &AcRxDbxApp::On_kInitAppMsg,      &AcRxDbxApp::On_kUnloadAppMsg,
            &AcRxDbxApp::On_kLoadDwgMsg,      &AcRxDbxApp::On_kUnloadDwgMsg,    &AcRxDbxApp::On_kInvkSubrMsg,
            &AcRxDbxApp::On_kCfgMsg,          &AcRxDbxApp::On_kEndMsg,          &AcRxDbxApp::On_kQuitMsg,
            &AcRxDbxApp::On_kSaveMsg,         &AcRxDbxApp::On_kDependencyMsg,   &AcRxDbxApp::On_kNoDependencyMsg,
            &AcRxDbxApp::On_kOleUnloadAppMsg, &AcRxDbxApp::On_kPreQuitMsg,      &AcRxDbxApp::On_kInitDialogMsg,
            &AcRxDbxApp::On_kEndDialogMsg};
        const auto index = static_cast<int>(message);
        const bool known = index >= 0 && index < static_cast<int>(sizeof handlers / sizeof *handlers);
        return known ? (this->*handlers[index])(packet) : AcRx::kRetOK;
    }

    /// The module's object; null before it is made.
    static AcRxDbxApp*& instance()
    {
        static AcRxDbxApp* one = nullptr;
        return one;
    }
    static std::vector<AcRxClassMapEntry>& classMap()
    {
        static std::vector<AcRxClassMapEntry> map;
        return map;
    }

protected:
    static void initialiseClasses()
    {
        for (AcRxClassMapEntry& entry : classMap()) {
            entry.rxInit();
            entry.initialised = true;
        }
        if (!classMap().empty()) acrxBuildClassHierarchy();
    }
    /// Classes that derive from it go first.
    static void deleteClass(AcRxClassMapEntry& entry)
    {
        if (!entry.initialised) return;
        entry.initialised = false;
        for (AcRxClassMapEntry& other : classMap()) {
            if (other.initialised && other.desc()->myParent() == entry.desc()) deleteClass(other);
        }
        deleteAcRxClass(entry.desc());
    }
};

namespace arxframework
{
/// Adds an entry to one of the module's tables when the module is loaded.
template <class Entry>
struct TableEntry {
    TableEntry(std::vector<Entry>& table, Entry entry) { table.push_back(entry); }
};
} // namespace arxframework

#define ARXFRAMEWORK_JOIN_(A, B) A##B
#define ARXFRAMEWORK_JOIN(A, B) ARXFRAMEWORK_JOIN_(A, B)
#define ARXFRAMEWORK_ENTRY ARXFRAMEWORK_JOIN(arxFrameworkEntry, __COUNTER__)

/// At file scope: the module registers a class.
#define ACDB_REGISTER_OBJECT_ENTRY_AUTO(CLASS)                                                               \
    static const arxframework::TableEntry<AcRxClassMapEntry> ARXFRAMEWORK_ENTRY(                             \
        AcRxDbxApp::classMap(), AcRxClassMapEntry{&CLASS::desc, &CLASS::rxInit, false});
