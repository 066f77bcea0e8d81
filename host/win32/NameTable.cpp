#include "NameTable.h"

#include "NoCase.h"

#include <map>
#include <mutex>
#include <vector>

namespace
{
constexpr UINT firstNumber = 0xC000;
constexpr std::size_t capacity = 0x10000 - firstNumber;

struct Names {
    std::mutex mutex;
    std::map<std::wstring, ATOM, win32::LessNoCase> numbers;
    std::vector<std::wstring> spellings;
};

// Never destroyed: modules still register and look up names while the process ends.
Names& names()
{
    static Names& all = *new Names;
    return all;
}
} // namespace

namespace win32
{
ATOM numberOfName(std::wstring_view name)
{
    Names& all = names();
    const std::lock_guard lock(all.mutex);
    const auto known = all.numbers.find(name);
    if (known != all.numbers.end()) return known->second;
    if (all.spellings.size() == capacity) return 0;
    const auto number = static_cast<ATOM>(firstNumber + all.spellings.size());
    all.spellings.emplace_back(name);
    all.numbers.emplace(name, number);
    return number;
}

std::wstring nameOfNumber(UINT number)
{
    Names& all = names();
    const std::lock_guard lock(all.mutex);
    const UINT place = number - firstNumber;
    return number >= firstNumber && place < all.spellings.size() ? all.spellings[place] : std::wstring();
}
} // namespace win32
