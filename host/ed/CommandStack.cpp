#include "CommandStackAccess.h"

#include <algorithm>
#include <list>
#include <vector>

namespace
{
struct Group {
    std::wstring name;
    std::vector<std::shared_ptr<AcEdCommand>> commands;
};

bool same(const std::wstring& a, const wchar_t* b) { return _wcsicmp(a.c_str(), b) == 0; }

AcEdCommand* find(const Group& group, const wchar_t* name, bool global)
{
    for (const auto& command : group.commands) {
        if (same(global ? command->globalName() : command->localName(), name)) return command.get();
    }
    return nullptr;
}

class Iterator : public AcEdCommandIterator
{
public:
    explicit Iterator(const std::list<Group>& groups)
    {
        for (const Group& group : groups) {
            for (const auto& command : group.commands) mCommands.push_back({command, group.name});
        }
    }
    bool done() const override { return mAt >= mCommands.size(); }
    bool next() override
    {
        if (!done()) ++mAt;
        return !done();
    }
    const AcEdCommand* command() const override { return done() ? nullptr : mCommands[mAt].command.get(); }
    const wchar_t* commandGroup() const override { return done() ? nullptr : mCommands[mAt].group.c_str(); }

private:
    struct Place {
        std::shared_ptr<AcEdCommand> command;
        std::wstring group;
    };
    std::vector<Place> mCommands;
    std::size_t mAt = 0;
};

AcRxClass* stackClass()
{
    static AcRxClass* const made = newAcRxClass(L"AcEdCommandStack", AcRxObject::desc());
    return made;
}

bool isIn(AcRxFunctionPtr function, HMODULE module)
{
    HMODULE of = nullptr;
    const auto address = reinterpret_cast<LPCWSTR>(function);
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              address, &of) &&
           of == module;
}
} // namespace

struct AcEdCommandStack::Groups {
    std::list<Group> all; ///< the one that is searched first in front

    std::list<Group>::iterator find(const wchar_t* name)
    {
        return std::find_if(all.begin(), all.end(), [&](const Group& group) { return name && same(group.name, name); });
    }
};

AcEdCommand::AcEdCommand(const wchar_t* globalName, const wchar_t* localName, Adesk::Int32 flags,
                         AcRxFunctionPtr function, AcEdUIContext* context, int functionCode)
    : mGlobalName(globalName ? globalName : L""), mLocalName(localName && *localName ? localName : mGlobalName),
      mFlags(flags), mFunction(function), mContext(context), mFunctionCode(functionCode)
{
    if (!mGlobalName.empty()) _wcsupr_s(&mGlobalName[0], mGlobalName.size() + 1);
    if (!mLocalName.empty()) _wcsupr_s(&mLocalName[0], mLocalName.size() + 1);
}

void AcEdCommand::commandUndef(bool undefined)
{
    mFlags = undefined ? mFlags | ACRX_CMD_UNDEFINED : mFlags & ~ACRX_CMD_UNDEFINED;
}

AcRxClass* AcEdCommandStack::desc() { return stackClass(); }
AcRxClass* AcEdCommandStack::isA() const { return stackClass(); }

AcEdCommandStack* AcEdCommandStack::cast(const AcRxObject* object)
{
    const bool fits = object && object->isKindOf(desc());
    return fits ? const_cast<AcEdCommandStack*>(static_cast<const AcEdCommandStack*>(object)) : nullptr;
}

AcEdCommandStack::AcEdCommandStack() : mGroups(std::make_unique<Groups>()) {}
AcEdCommandStack::~AcEdCommandStack() = default;

Acad::ErrorStatus AcEdCommandStack::addCommand(const wchar_t* groupName, const wchar_t* globalName,
                                               const wchar_t* localName, Adesk::Int32 flags, AcRxFunctionPtr function,
                                               AcEdUIContext* context, int functionCode, HINSTANCE,
                                               AcEdCommand** command)
{
    if (!groupName || !*groupName || !globalName || !*globalName || !function) return Acad::eInvalidInput;
    auto made = std::make_shared<AcEdCommand>(globalName, localName, flags, function, context, functionCode);
    auto group = mGroups->find(groupName);
    if (group == mGroups->all.end()) group = mGroups->all.insert(mGroups->all.begin(), Group{groupName, {}});
    if (find(*group, made->globalName(), true) || find(*group, made->localName(), false)) return Acad::eDuplicateKey;
    if (command) *command = made.get();
    group->commands.push_back(std::move(made));
    return Acad::eOk;
}

Acad::ErrorStatus AcEdCommandStack::removeCmd(const wchar_t* groupName, const wchar_t* globalName)
{
    const auto group = mGroups->find(groupName);
    if (group == mGroups->all.end() || !globalName) return Acad::eKeyNotFound;
    auto& commands = group->commands;
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const auto& command) { return same(command->globalName(), globalName); });
    if (found == commands.end()) return Acad::eKeyNotFound;
    commands.erase(found);
    if (commands.empty()) mGroups->all.erase(group);
    return Acad::eOk;
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const wchar_t* groupName)
{
    const auto group = mGroups->find(groupName);
    if (group == mGroups->all.end()) return Acad::eKeyNotFound;
    mGroups->all.erase(group);
    return Acad::eOk;
}

AcEdCommand* AcEdCommandStack::lookupCmd(const wchar_t* name, bool globalLookup, bool allGroups) const
{
    for (const Group& group : mGroups->all) {
        if (AcEdCommand* found = name ? find(group, name, globalLookup) : nullptr) return found;
        if (!allGroups) break;
    }
    return nullptr;
}

AcEdCommand* AcEdCommandStack::lookupCmd(const wchar_t* name, const wchar_t* groupName) const
{
    const auto group = mGroups->find(groupName);
    return name && group != mGroups->all.end() ? find(*group, name, true) : nullptr;
}

Acad::ErrorStatus AcEdCommandStack::popGroupToTop(const wchar_t* groupName)
{
    const auto group = mGroups->find(groupName);
    if (group == mGroups->all.end()) return Acad::eKeyNotFound;
    mGroups->all.splice(mGroups->all.begin(), mGroups->all, group);
    return Acad::eOk;
}

AcEdCommandIterator* AcEdCommandStack::iterator() { return new Iterator(mGroups->all); }

std::shared_ptr<AcEdCommand> CommandStackAccess::find(const AcEdCommandStack& stack, const std::wstring& word)
{
    bool global = false;
    bool alsoUndefined = false;
    std::size_t at = 0;
    for (; at < word.size() && (word[at] == L'_' || word[at] == L'.'); ++at) {
        global = global || word[at] == L'_';
        alsoUndefined = alsoUndefined || word[at] == L'.';
    }
    const std::wstring name = word.substr(at);
    for (const Group& group : stack.mGroups->all) {
        for (const auto& command : group.commands) {
            if (!alsoUndefined && (command->commandFlags() & ACRX_CMD_UNDEFINED)) continue;
            if (same(global ? command->globalName() : command->localName(), name.c_str())) return command;
        }
    }
    return nullptr;
}

void CommandStackAccess::forget(AcEdCommandStack& stack, HMODULE module)
{
    for (Group& group : stack.mGroups->all) {
        auto& commands = group.commands;
        commands.erase(std::remove_if(commands.begin(), commands.end(),
                                      [&](const auto& command) { return isIn(command->functionAddr(), module); }),
                       commands.end());
    }
    stack.mGroups->all.remove_if([](const Group& group) { return group.commands.empty(); });
}

namespace ed
{
AcEdCommandStack& commandStack()
{
    static AcEdCommandStack& stack = *new AcEdCommandStack;
    static const bool registered = [] {
        std::uint32_t id = 0;
        acrxSysRegistry()->atPut(ACED_REGISTERED_COMMANDS, &stack, id);
        return true;
    }();
    (void)registered;
    return stack;
}
} // namespace ed

// The registry holds the stack from the start of the program.
[[maybe_unused]] static const AcEdCommandStack& stackFromTheStart = ed::commandStack();
