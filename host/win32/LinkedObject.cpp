#include "LinkedObject.h"

#include "ModuleSearch.h"

#include <algorithm>
#include <cstring>
#include <dlfcn.h>
#include <set>

namespace
{
using win32::LinkedObject;
using Objects = std::vector<LinkedObject*>;

struct Names {
    std::string own; // DT_SONAME
    std::vector<std::string> needed;
};

// The loader has turned the address of the string table into a real one, except where that section is
// read-only.
const char* stringTable(const LinkedObject* object)
{
    for (const ElfW(Dyn)* entry = object->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag != DT_STRTAB) continue;
        const ElfW(Addr) address = entry->d_un.d_ptr;
        return reinterpret_cast<const char*>(address < object->l_addr ? address + object->l_addr : address);
    }
    return nullptr;
}

Names namesOf(const LinkedObject* object)
{
    Names names;
    const char* strings = object->l_ld ? stringTable(object) : nullptr;
    for (const ElfW(Dyn)* entry = object->l_ld; strings && entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_SONAME) names.own = strings + entry->d_un.d_val;
        if (entry->d_tag == DT_NEEDED) names.needed.emplace_back(strings + entry->d_un.d_val);
    }
    return names;
}

bool isCalled(const LinkedObject* object, const std::string& name)
{
    const char* slash = std::strrchr(object->l_name, '/');
    return name == object->l_name || (slash && name == slash + 1) || name == namesOf(object).own;
}

void visit(LinkedObject* object, const Objects& all, std::set<LinkedObject*>& seen, Objects& ordered)
{
    if (!seen.insert(object).second) return;
    for (LinkedObject* dependency : win32::dependenciesOf(object, all))
        visit(dependency, all, seen, ordered);
    ordered.push_back(object);
}
} // namespace

namespace win32
{
std::vector<LinkedObject*> linkedObjects()
{
    Objects all;
    void* program = dlopen(nullptr, RTLD_LAZY);
    LinkedObject* object = nullptr;
    if (program && dlinfo(program, RTLD_DI_LINKMAP, &object) == 0)
        for (; object; object = object->l_next)
            all.push_back(object);
    if (program) dlclose(program);
    return all;
}

LinkedObject* objectOf(const void* address)
{
    Dl_info info{};
    void* object = nullptr;
    return dladdr1(address, &info, &object, RTLD_DL_LINKMAP) ? static_cast<LinkedObject*>(object) : nullptr;
}

void* ownSymbol(void* handle, const LinkedObject* object, const char* name)
{
    void* address = dlsym(handle, name);
    return address && objectOf(address) == object ? address : nullptr;
}

std::string pathOf(const LinkedObject* object)
{
    if (!*object->l_name) return programPath();
    return object->l_name;
}

std::vector<LinkedObject*> dependenciesOf(const LinkedObject* object, const std::vector<LinkedObject*>& all)
{
    Objects found;
    for (const std::string& name : namesOf(object).needed) {
        const auto match = std::find_if(all.begin(), all.end(),
                                        [&](const LinkedObject* one) { return isCalled(one, name); });
        if (match != all.end()) found.push_back(*match);
    }
    return found;
}

std::vector<LinkedObject*> withDependencies(LinkedObject* object)
{
    std::set<LinkedObject*> seen;
    Objects ordered;
    visit(object, linkedObjects(), seen, ordered);
    return ordered;
}
} // namespace win32
