#pragma once

#include "rxdlinkr.h"

#include <string>

namespace modules
{
using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode message, void* packet);
using ApiVersion = int (*)();

/// The version stamp of release 24, which every module must carry.
constexpr int apiVersion = 0x180000;

/// One loaded module; its address is its application id.
struct LoadedModule {
    std::wstring name;     ///< of the file, without folder
    HMODULE handle = nullptr;
    EntryPoint entry = nullptr; ///< null for those that are part of the host
    bool locked = true;
    bool knowsDocuments = false;
};

/// The name of a file without its folder.
std::wstring nameOf(const std::wstring& path);

/// Loads a file and checks what it exports. Sets `module.handle` and `module.entry`; empty when all is well, else the
/// reason why not, with nothing left loaded.
std::wstring openModule(const std::wstring& path, LoadedModule& module);
} // namespace modules
