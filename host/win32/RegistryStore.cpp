#include "RegistryStore.h"

#include "ImageFile.h"
#include "ProfileStore.h"
#include "Text.h"
#include "Utf16Units.h"

#include "errhandlingapi.h"
#include "winerror.h"

#include <cstdlib>
#include <cstring>
#include <sys/stat.h>

namespace
{
using win32::OpenRegistryKey;
using win32::RegistryKeyPtr;

constexpr std::uint16_t byteOrderMark = 0xFEFF;
constexpr ULONG_PTR firstHandle = 0x1000;
constexpr ULONG_PTR handleStep = 4;

struct Store {
    std::mutex mutex;
    bool loaded = false;
    bool damaged = false;
    std::string path; // empty: memory only
    RegistryKeyPtr root;
    std::map<HKEY, OpenRegistryKey> open;
    ULONG_PTR lastHandle = firstHandle;
};

Store& store()
{
    static Store& only = *new Store;
    return only;
}

struct Predefined {
    HKEY handle;
    const wchar_t* path;
};

// The classes are a part of the machine's keys, seen from another side.
const Predefined predefined[] = {{HKEY_CLASSES_ROOT, L"HKEY_LOCAL_MACHINE\\Software\\Classes"},
                                 {HKEY_CURRENT_USER, L"HKEY_CURRENT_USER"},
                                 {HKEY_LOCAL_MACHINE, L"HKEY_LOCAL_MACHINE"},
                                 {HKEY_USERS, L"HKEY_USERS"},
                                 {HKEY_CURRENT_CONFIG, L"HKEY_CURRENT_CONFIG"}};

RegistryKeyPtr predefinedKey(HKEY handle)
{
    bool made = false;
    for (const Predefined& one : predefined)
        if (one.handle == handle) return win32::makeKey(store().root, one.path, false, made);
    return nullptr;
}

std::wstring decoded(const std::string& bytes)
{
    if (bytes.compare(0, 2, "\xFF\xFE") == 0) {
        std::vector<std::uint16_t> units(bytes.size() / 2);
        std::memcpy(units.data(), bytes.data(), units.size() * 2);
        return win32::fromUnits(units.data() + 1, units.size() - 1);
    }
    return win32::fromUtf8(bytes.compare(0, 3, "\xEF\xBB\xBF") == 0 ? bytes.substr(3) : bytes);
}

std::string encoded(const std::wstring& text)
{
    std::vector<std::uint16_t> units = win32::toUnits(text);
    units.insert(units.begin(), byteOrderMark);
    return {reinterpret_cast<const char*>(units.data()), units.size() * sizeof units[0]};
}

// A file that is not there is an empty registry; one that cannot be read is a damaged one.
void loadFile()
{
    struct stat status {
    };
    if (store().path.empty() || stat(store().path.c_str(), &status) != 0) return;
    const win32::ImageFile file(store().path);
    std::string bytes(file.size(), '\0');
    const bool read = file.isOpen() && file.read(0, bytes.data(), bytes.size());
    store().damaged = !read || (!bytes.empty() && !win32::readRegistryText(decoded(bytes), store().root));
}

void load()
{
    const char* path = std::getenv("QM_REGISTRY");
    store().path = path ? path : "";
    store().damaged = false;
    store().root = std::make_shared<win32::RegistryKey>();
    store().loaded = true;
    loadFile();
}
} // namespace

namespace win32
{
std::unique_lock<std::mutex> lockRegistry()
{
    std::unique_lock lock(store().mutex);
    if (!store().loaded) load();
    return lock;
}

LSTATUS findOpenKey(HKEY handle, REGSAM access, RegistryKeyPtr& key)
{
    key = predefinedKey(handle);
    if (key) return ERROR_SUCCESS;
    const auto found = store().open.find(handle);
    if (found == store().open.end()) return ERROR_INVALID_HANDLE;
    if (found->second.key->deleted) return ERROR_KEY_DELETED;
    if (access & ~found->second.access) return ERROR_ACCESS_DENIED;
    key = found->second.key;
    return ERROR_SUCCESS;
}

HKEY addOpenKey(const RegistryKeyPtr& key, REGSAM access)
{
    store().lastHandle += handleStep;
    const HKEY handle = reinterpret_cast<HKEY>(store().lastHandle);
    store().open[handle] = {key, access & MAXIMUM_ALLOWED ? access | KEY_ALL_ACCESS : access};
    return handle;
}

bool removeOpenKey(HKEY handle)
{
    return store().open.erase(handle) > 0;
}

bool isPredefinedKey(HKEY handle)
{
    for (const Predefined& one : predefined)
        if (one.handle == handle) return true;
    return false;
}

LSTATUS registryIsWritable()
{
    return store().damaged ? ERROR_REGISTRY_CORRUPT : ERROR_SUCCESS;
}

LSTATUS saveRegistry()
{
    if (store().path.empty()) return ERROR_SUCCESS;
    const DWORD before = GetLastError();
    const bool saved = storeProfile(store().path, encoded(registryText(*store().root)));
    SetLastError(before);
    return saved ? ERROR_SUCCESS : ERROR_REGISTRY_IO_FAILED;
}

void reloadRegistry()
{
    const std::lock_guard lock(store().mutex);
    store().open.clear();
    store().loaded = false;
}
} // namespace win32
