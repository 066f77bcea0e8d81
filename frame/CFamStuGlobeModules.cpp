#include "CFamStuGlobe.h"

#include "acedads.h"
#include "dbentity.h"
#include "rxregsvc.h"

#include <CFileShell.h>

#include <memory>

namespace
{
struct ReleaseList {
    void operator()(resbuf* list) const { acutRelRb(list); }
};

CString pathOfLoaded(const wchar_t* name)
{
    wchar_t path[MAX_PATH] = L"";
    if (const HMODULE module = GetModuleHandleW(name)) GetModuleFileNameW(module, path, MAX_PATH);
    return path;
}

const wchar_t* loadedNameLike(const resbuf* loaded, const CString& name)
{
    for (; loaded; loaded = loaded->rbnext) {
        if (loaded->restype == RTSTR && name.CompareNoCase(loaded->resval.rstring) == 0)
            return loaded->resval.rstring;
    }
    return nullptr;
}

/// The names of the loaded modules, given back at the end.
class LoadedApps
{
public:
    LoadedApps() : m_names(static_cast<AcDbVoidPtrArray*>(acrxLoadedApps())) {}
    ~LoadedApps()
    {
        for (int i = 0; i < length(); ++i) {
            auto* name = static_cast<ACHAR*>((*m_names)[i]);
            acutDelString(name);
        }
    }
    LoadedApps(const LoadedApps&) = delete;
    LoadedApps& operator=(const LoadedApps&) = delete;

    bool have(const CString& name) const
    {
        for (int i = 0; i < length(); ++i) {
            if (name.CompareNoCase(static_cast<const ACHAR*>((*m_names)[i])) == 0) return true;
        }
        return false;
    }

private:
    int length() const { return m_names ? m_names->length() : 0; }

    std::unique_ptr<AcDbVoidPtrArray> m_names;
};
} // namespace

int CFamStuGlobe::ArxIsLoaded(CString path)
{
    const std::unique_ptr<resbuf, ReleaseList> loaded(acedArxLoaded());
    const wchar_t* name = loadedNameLike(loaded.get(), CFileShell::GetFileName(path));
    if (!name) return 0;
    const CString loadedPath = pathOfLoaded(name);
    return path.CompareNoCase(loadedPath) == 0 ? 1 : SameFileVersion(path, loadedPath);
}

bool CFamStuGlobe::isModuleLoaded(const char* name)
{
    return name && LoadedApps().have(CString(name));
}
