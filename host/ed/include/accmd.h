#pragma once

/// Commands of modules and the stack that holds them.

#include "acadstrc.h"
#include "adesk.h"
#include "rxdict.h"

#include <memory>
#include <string>

// Flags of commands.
constexpr Adesk::Int32 ACRX_CMD_MODAL = 0x00000000;       ///< not while another command is active
constexpr Adesk::Int32 ACRX_CMD_TRANSPARENT = 0x00000001; ///< also in the middle of another, after an apostrophe
constexpr Adesk::Int32 ACRX_CMD_USEPICKSET = 0x00000002;  ///< the pickfirst set stays there for it
constexpr Adesk::Int32 ACRX_CMD_REDRAW = 0x00000004;
constexpr Adesk::Int32 ACRX_CMD_NOPERSPECTIVE = 0x00000008;
constexpr Adesk::Int32 ACRX_CMD_NOMULTIPLE = 0x00000010;
constexpr Adesk::Int32 ACRX_CMD_NOTILEMODE = 0x00000020;
constexpr Adesk::Int32 ACRX_CMD_NOPAPERSPACE = 0x00000040;
constexpr Adesk::Int32 ACRX_CMD_PLOTONLY = 0x00000080;
constexpr Adesk::Int32 ACRX_CMD_NOOEM = 0x00000100;
constexpr Adesk::Int32 ACRX_CMD_UNDEFINED = 0x00000200; ///< found by its name with a dot before it only
constexpr Adesk::Int32 ACRX_CMD_INPROGRESS = 0x00000400;
constexpr Adesk::Int32 ACRX_CMD_DEFUN = 0x00000800;
constexpr Adesk::Int32 ACRX_CMD_NONEWSTACK = 0x00010000;
constexpr Adesk::Int32 ACRX_CMD_NOINTERNALLOCK = 0x00020000; ///< locks for itself
constexpr Adesk::Int32 ACRX_CMD_DOCREADLOCK = 0x00080000;    ///< the document is locked for reading only
constexpr Adesk::Int32 ACRX_CMD_DOCEXCLUSIVELOCK = 0x00100000;
constexpr Adesk::Int32 ACRX_CMD_SESSION = 0x00200000; ///< runs as the application, no document is locked
constexpr Adesk::Int32 ACRX_CMD_INTERRUPTIBLE = 0x00400000;
constexpr Adesk::Int32 ACRX_CMD_NOHISTORY = 0x00800000; ///< Enter does not repeat it
constexpr Adesk::Int32 ACRX_CMD_NO_UNDO_MARKER = 0x01000000;
constexpr Adesk::Int32 ACRX_CMD_NOBLOCKEDIT = 0x02000000;

using AcRxFunctionPtr = void (*)();
class AcEdUIContext;

/// A registered command.
class AcEdCommand : public AcRxObject
{
public:
    AcEdCommand(const wchar_t* globalName, const wchar_t* localName, Adesk::Int32 flags, AcRxFunctionPtr function,
                AcEdUIContext* context = nullptr, int functionCode = -1);

    const wchar_t* globalName() const { return mGlobalName.c_str(); }
    const wchar_t* localName() const { return mLocalName.c_str(); }
    Adesk::Int32 commandFlags() const { return mFlags; }
    AcRxFunctionPtr functionAddr() const { return mFunction; }
    AcEdUIContext* UIContext() const { return mContext; }
    int functionCode() const { return mFunctionCode; }
    /// Hides the command, or brings it back: UNDEFINE and REDEFINE.
    void commandUndef(bool undefined);

private:
    std::wstring mGlobalName, mLocalName;
    Adesk::Int32 mFlags;
    AcRxFunctionPtr mFunction;
    AcEdUIContext* mContext;
    int mFunctionCode;
};

/// Goes over all commands, group by group in the order in which they are searched.
class AcEdCommandIterator
{
public:
    virtual ~AcEdCommandIterator() = default;
    virtual bool done() const = 0;
    virtual bool next() = 0;
    /// Null when it is done.
    virtual const AcEdCommand* command() const = 0;
    virtual const wchar_t* commandGroup() const = 0;
};

/// The commands, in groups; the group that was made last is searched first. Names are compared without regard to case. An
/// underscore before a name asks for the global name, a dot for the command itself though it is undefined; apostrophe and
/// hyphen belong to other layers.
class AcEdCommandStack : public AcRxObject
{
public:
    static AcRxClass* desc();
    static AcEdCommandStack* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    AcEdCommandStack();
    ~AcEdCommandStack() override;

    /// Adds a command to a group, which is made when there is none. A null local name is the global one. eInvalidInput for
    /// a null or empty group or name or a null function; eDuplicateKey when the group has a command of either name.
    Acad::ErrorStatus addCommand(const wchar_t* groupName, const wchar_t* globalName, const wchar_t* localName,
                                 Adesk::Int32 flags, AcRxFunctionPtr function, AcEdUIContext* context = nullptr,
                                 int functionCode = -1, HINSTANCE resources = nullptr,
                                 AcEdCommand** command = nullptr);
    /// eKeyNotFound when there is no such group or command. A command that is running stays until it ends.
    Acad::ErrorStatus removeCmd(const wchar_t* groupName, const wchar_t* globalName);
    Acad::ErrorStatus removeGroup(const wchar_t* groupName);
    /// Null when there is none.
    AcEdCommand* lookupCmd(const wchar_t* name, bool globalLookup, bool allGroups = true) const;
    AcEdCommand* lookupGlobalCmd(const wchar_t* name) const { return lookupCmd(name, true); }
    AcEdCommand* lookupLocalCmd(const wchar_t* name) const { return lookupCmd(name, false); }
    /// The command of a global name in one group.
    AcEdCommand* lookupCmd(const wchar_t* name, const wchar_t* groupName) const;
    /// Makes a group the one that is searched first. eKeyNotFound.
    Acad::ErrorStatus popGroupToTop(const wchar_t* groupName);
    /// The caller deletes it.
    AcEdCommandIterator* iterator();

private:
    friend struct CommandStackAccess;
    struct Groups;
    std::unique_ptr<Groups> mGroups;
};

#define ACED_REGISTERED_COMMANDS L"ACAD_REGISTERED_COMMANDS"
#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(ACED_REGISTERED_COMMANDS))
