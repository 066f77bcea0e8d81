#pragma once

#include "accmd.h"

struct CommandStackAccess {
    /// The command of a word at the command prompt, with its prefixes; shared, since it may remove itself while it runs.
    static std::shared_ptr<AcEdCommand> find(const AcEdCommandStack& stack, const std::wstring& word);
    /// Removes the commands whose code lies in a module.
    static void forget(AcEdCommandStack& stack, HMODULE module);
};

namespace ed
{
/// The one command stack.
AcEdCommandStack& commandStack();
} // namespace ed
