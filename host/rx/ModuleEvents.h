#pragma once

/// What the linker needs of the drawing editor above it, and the other way round.

#include "rxdlinkr.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace modules
{
/// What the editor does for the linker. Each member may be empty.
struct Surroundings {
    /// Keeps the reason of a failure, and says it on the command line when it is to be shown.
    std::function<void(std::wstring_view reason, bool isShown)> report;
    /// Does something in each open document, which is current meanwhile; the one that is current comes first.
    std::function<void(const std::function<void()>& doIt)> inEachDocument;
    /// The full path of a support file; empty when there is none.
    std::function<std::wstring(const std::wstring& name)> findFile;
    /// A module's code is about to go: nothing may call it any more.
    std::function<void(HMODULE module, void* appId)> forget;
};
void setSurroundings(Surroundings surroundings);

/// Sends a message to every module in the order of loading.
void sendToAll(AcRx::AppMsgCode message, void* packet = nullptr);
/// Sends a message to one module; kRetError when it is not loaded.
AcRx::AppRetCode sendTo(void* appId, AcRx::AppMsgCode message, void* packet = nullptr);
/// The module that is being called, innermost; null outside of all.
void* current();
/// The files of the loaded modules, without folders, in the order of loading.
std::vector<std::wstring> loadedNames();

/// The end of the program: kPreQuitMsg and kQuitMsg to all, `closeDocuments`, then kUnloadAppMsg, the last loaded
/// first, also to locked modules.
void quit(const std::function<void()>& closeDocuments);
} // namespace modules
