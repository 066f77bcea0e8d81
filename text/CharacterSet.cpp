#include "RegexProgram.h"

#include <algorithm>

namespace regex
{
void CharacterSet::add(wchar_t first, wchar_t last)
{
    m_ranges.emplace_back(first, last);
}

void CharacterSet::addEscape(wchar_t letter)
{
    if (letter == L'D' || letter == L'S' || letter == L'W') {
        CharacterSet complement;
        complement.addEscape(static_cast<wchar_t>(letter - L'A' + L'a'));
        complement.negate();
        complement.prepare();
        m_complements.push_back(complement);
        return;
    }
    if (letter == L'd' || letter == L'w') add(L'0', L'9');
    if (letter == L'w') {
        add(L'A', L'Z');
        add(L'a', L'z');
        add(L'_', L'_');
    }
    if (letter == L's') {
        for (const auto& [first, last] : {std::pair<wchar_t, wchar_t>{0x09, 0x0D},
                                          {0x20, 0x20},
                                          {0xA0, 0xA0},
                                          {0x1680, 0x1680},
                                          {0x2000, 0x200A},
                                          {0x2028, 0x2029},
                                          {0x202F, 0x202F},
                                          {0x205F, 0x205F},
                                          {0x3000, 0x3000},
                                          {0xFEFF, 0xFEFF}})
            add(first, last);
    }
}

void CharacterSet::prepare()
{
    for (size_t c = 0; c < commonSize; ++c)
        m_common[c] = search(static_cast<wchar_t>(c));
}

bool CharacterSet::search(wchar_t c) const
{
    const bool listed =
        std::any_of(m_ranges.begin(), m_ranges.end(),
                    [c](const auto& range) { return c >= range.first && c <= range.second; }) ||
        std::any_of(
            m_classes.begin(), m_classes.end(),
            [c](std::wctype_t each) { return std::iswctype(static_cast<std::wint_t>(c), each) != 0; }) ||
        std::any_of(m_complements.begin(), m_complements.end(),
                    [c](const CharacterSet& each) { return each.contains(c); });
    return listed != m_negated;
}
} // namespace regex
