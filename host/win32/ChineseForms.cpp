#include <unicode/translit.h>
#include <unicode/unistr.h>

#include "ChineseForms.h"

#include <memory>
#include <vector>

namespace
{
constexpr char32_t firstIdeograph = 0x2E80;
constexpr char32_t pastIdeographs = 0xFB00;

using Table = std::vector<char16_t>;

/// All characters that may have another form, each on a line of its own: one call maps them all, and
/// none is taken together with its neighbour.
icu::UnicodeString everyIdeograph()
{
    icu::UnicodeString text;
    for (char32_t c = firstIdeograph; c < pastIdeographs; ++c)
        if (c < 0xD800 || c > 0xDFFF) text.append(static_cast<char16_t>(c)).append(u'\n');
    return text;
}

/// What the transliterator makes of each character, by its distance from the first one; empty when ICU has
/// no such transliterator.
Table makeTable(const char* transliterator)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Transliterator> forms(
        icu::Transliterator::createInstance(transliterator, UTRANS_FORWARD, status));
    if (U_FAILURE(status)) return {};
    const icu::UnicodeString before = everyIdeograph();
    icu::UnicodeString after = before;
    forms->transliterate(after);

    Table table(pastIdeographs - firstIdeograph, 0);
    for (std::int32_t from = 0, to = 0; from < before.length(); from += 2) {
        const std::int32_t end = after.indexOf(u'\n', to);
        if (end == to + 1) table[before[from] - firstIdeograph] = after[to];
        to = end + 1;
    }
    return table;
}

wchar_t mapped(const Table& table, wchar_t c)
{
    const auto index = static_cast<char32_t>(c) - firstIdeograph;
    return index < table.size() && table[index] ? static_cast<wchar_t>(table[index]) : c;
}
} // namespace

namespace win32
{
wchar_t toSimplified(wchar_t c)
{
    static const Table table = makeTable("Traditional-Simplified");
    return mapped(table, c);
}

wchar_t toTraditional(wchar_t c)
{
    static const Table table = makeTable("Simplified-Traditional");
    return mapped(table, c);
}
} // namespace win32
