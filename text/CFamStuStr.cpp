#include "CFamStuStr.h"

#include "NameNumber.h"
#include "NaturalKey.h"
#include "NaturalOrder.h"

#include <objbase.h>

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <unordered_set>
#include <vector>

namespace
{
using naturalorder::isOfNumber;

constexpr int lastColumn = 256;

std::wstring_view viewOf(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

CString stringOf(std::wstring_view text)
{
    return CString(text.data(), static_cast<int>(text.size()));
}

bool isDigitCharacter(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

/// The states of a decimal number that is read character by character. In each, what came is either a
/// whole number by itself or not yet one.
enum class Reading { start, whole, point, fraction, exponent, exponentSign, exponentDigits, rejected };

Reading readDigit(Reading state)
{
    switch (state) {
    case Reading::whole:
        return Reading::whole;
    case Reading::point:
    case Reading::fraction:
        return Reading::fraction;
    case Reading::exponentSign:
    case Reading::exponentDigits:
        return Reading::exponentDigits;
    default:
        return Reading::rejected;
    }
}

Reading readSign(Reading state)
{
    if (state == Reading::start) return Reading::whole;
    return state == Reading::exponent ? Reading::exponentSign : Reading::rejected;
}

Reading readCharacter(Reading state, wchar_t c)
{
    if (isDigitCharacter(c)) return readDigit(state);
    if (c == L'+' || c == L'-') return readSign(state);
    if (c == L'.') return state == Reading::whole ? Reading::point : Reading::rejected;
    if (c != L'E') return Reading::rejected;
    return state == Reading::whole || state == Reading::fraction ? Reading::exponent : Reading::rejected;
}

/// A sign must stand in front.
bool isDecimal(std::wstring_view text)
{
    Reading state = Reading::start;
    bool complete = false;
    for (const wchar_t c : text) {
        state = readCharacter(state, c);
        if (state == Reading::rejected) return false;
        // The point leaves a number as complete as it was: "2." is one, "." is none.
        if (state != Reading::point) complete = isDigitCharacter(c);
    }
    return complete;
}

int split(CStringArray& fields, const CString& text, const CString& separator)
{
    fields.RemoveAll();
    if (text.IsEmpty()) return 0;
    int start = 0;
    for (int at; !separator.IsEmpty() && (at = text.Find(separator, start)) >= 0;
         start = at + separator.GetLength())
        fields.Add(text.Mid(start, at - start));
    fields.Add(text.Mid(start));
    return static_cast<int>(fields.GetSize());
}

/// For each element from `start` on: whether an earlier one is equal to it.
std::vector<bool> repetitions(const CStringArray& array, INT_PTR start)
{
    std::vector<bool> repeated(static_cast<std::size_t>(array.GetSize()));
    std::unordered_set<std::wstring_view> seen;
    for (INT_PTR i = 0; i < array.GetSize(); ++i) {
        const bool isNew = seen.insert(std::wstring_view(array[i].GetString())).second;
        repeated[static_cast<std::size_t>(i)] = !isNew && i >= start;
    }
    return repeated;
}

/// Whether a text comes before another by the digits at their ends; texts without are behind.
bool endsBefore(const CString& a, const CString& b, bool ascending)
{
    const std::wstring_view first = namenumber::endDigits(viewOf(a)),
                            second = namenumber::endDigits(viewOf(b));
    if (first.empty() || second.empty()) return !first.empty();
    const int order = namenumber::compareDigits(first, second);
    return ascending ? order < 0 : order > 0;
}

/// An element of an array to sort: almost always its key alone tells where it belongs.
struct Keyed {
    naturalorder::Key key;
    std::size_t index;
};

/// The indices of the texts in sorted order.
std::vector<Keyed> naturalOrderOf(const CString* texts, std::size_t count)
{
    std::vector<Keyed> order(count);
    for (std::size_t i = 0; i < count; ++i)
        order[i] = {naturalorder::keyOf(viewOf(texts[i])), i};
    std::sort(order.begin(), order.end(), [texts](const Keyed& a, const Keyed& b) {
        if (!(a.key == b.key)) return a.key < b.key;
        const std::wstring_view first = viewOf(texts[a.index]), second = viewOf(texts[b.index]);
        if (naturalorder::sortsBefore(first, second)) return true;
        return a.index < b.index && !naturalorder::sortsBefore(second, first);
    });
    return order;
}
} // namespace

int CFamStuStr::CompareTowStr(CString a, CString b, int mode)
{
    using naturalorder::Ending;
    if (a.IsEmpty() || b.IsEmpty()) return static_cast<int>(b.IsEmpty()) - static_cast<int>(a.IsEmpty());
    const bool ignoreCase = mode == 0;
    const naturalorder::Comparison made = naturalorder::compare(viewOf(a), viewOf(b), ignoreCase);
    // Equality goes by lower case and the chunks by upper case; only such letters can tell them apart.
    if (ignoreCase && made.byForeignLetters && a.CompareNoCase(b) == 0) return 0;
    if (made.ending == Ending::firstBefore) return 1;
    return made.ending == Ending::secondBefore ? -1 : 0;
}

CString CFamStuStr::CreateNewGuid()
{
    GUID guid = GUID_NULL;
    if (FAILED(CoCreateGuid(&guid)) || IsEqualGUID(guid, GUID_NULL)) return CString(L"{NULL}");
    wchar_t text[40];
    const BYTE(&last)[8] = guid.Data4;
    std::swprintf(text, std::size(text), L"{%08lX-%04X-%04x-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                  static_cast<unsigned long>(guid.Data1), guid.Data2, guid.Data3, last[0], last[1], last[2],
                  last[3], last[4], last[5], last[6], last[7]);
    return CString(text);
}

int CFamStuStr::ExcelColNameToNo(CString name)
{
    name.MakeUpper();
    int number = 0;
    for (int i = 0; i < name.GetLength() && number <= lastColumn; ++i)
        if (name[i] >= L'A' && name[i] <= L'Z') number = number * 26 + (name[i] - L'A' + 1);
    return std::clamp(number, 1, lastColumn);
}

CString CFamStuStr::ExcelColNoToName(int number)
{
    if (number > lastColumn) return CString(L"IV");
    const int index = std::max(number, 1) - 1;
    CString name;
    if (index >= 26) name += static_cast<wchar_t>(L'A' + index / 26 - 1);
    name += static_cast<wchar_t>(L'A' + index % 26);
    return name;
}

int CFamStuStr::HasChinese(CString text)
{
    const std::wstring_view characters = viewOf(text);
    return std::any_of(characters.begin(), characters.end(),
                       [](wchar_t c) { return static_cast<unsigned>(c) > 127; });
}

int CFamStuStr::IsDigit(CString text)
{
    const std::wstring_view characters = viewOf(text);
    if (characters.size() == 1) return isDigitCharacter(characters[0]);
    return std::all_of(characters.begin(), characters.end(), isOfNumber);
}

int CFamStuStr::IsDigitFactor(double& value, CString text)
{
    text.Trim();
    const int whole = naturalorder::leadingInteger(viewOf(text));
    text.MakeUpper();
    if (text.IsEmpty() || (text[0] != L'+' && text[0] != L'-')) text.Insert(0, L'+');
    if (!isDecimal(viewOf(text))) return 0;
    value = whole;
    return 1;
}

CString CFamStuStr::FormatDouble(double value)
{
    wchar_t digits[400]; // the largest number has 309 in front of the point
    std::swprintf(digits, std::size(digits), L"%f", value);
    CString text(digits);
    text.TrimRight(L'0');
    text.TrimRight(L'.');
    return text;
}

int CFamStuStr::FindStrInStrArr(const CStringArray& array, CString text, int start)
{
    for (INT_PTR i = std::max(start, 0); i < array.GetSize(); ++i)
        if (array[i] == text) return static_cast<int>(i);
    return -1;
}

int CFamStuStr::RemoveSameStr(CStringArray& array, int start)
{
    const std::vector<bool> repeated = repetitions(array, start);
    INT_PTR kept = 0;
    for (INT_PTR i = 0; i < array.GetSize(); ++i) {
        if (repeated[static_cast<std::size_t>(i)]) continue;
        if (kept != i) array[kept] = array[i];
        ++kept;
    }
    array.SetSize(kept);
    return static_cast<int>(kept);
}

void CFamStuStr::SortStrArray(CStringArray& array)
{
    CString* const elements = array.GetData();
    const auto count = static_cast<std::size_t>(array.GetSize());
    std::vector<CString> sorted;
    sorted.reserve(count);
    for (const Keyed& place : naturalOrderOf(elements, count))
        sorted.push_back(elements[place.index]);
    std::move(sorted.begin(), sorted.end(), elements);
}

void CFamStuStr::SortStrArrByEndDigit(CStringArray& array, int order)
{
    CString* const elements = array.GetData();
    std::stable_sort(elements, elements + array.GetSize(),
                     [=](const CString& a, const CString& b) { return endsBefore(a, b, order == 0); });
}

CString CFamStuStr::SplitOne(CString& text)
{
    const std::wstring_view characters = viewOf(text);
    std::size_t length = 0;
    while (length < characters.size() && isOfNumber(characters[length]) == isOfNumber(characters[0]))
        ++length;
    const CString chunk = text.Left(static_cast<int>(length));
    text = text.Mid(static_cast<int>(length));
    return chunk;
}

int CFamStuStr::SplitStrBySymbol(CStringArray& fields, CString text, CString separator)
{
    return split(fields, text, separator);
}

int CFamStuStr::SplitStrToArray(CStringArray& fields, CString text, CString separator)
{
    return split(fields, text, separator);
}

int CFamStuStr::SplitStrInTwoPart(CString& first, CString& second, CString text, int separator)
{
    const int at = text.Find(static_cast<wchar_t>(separator));
    first = at < 0 ? text : text.Left(at);
    second = at < 0 ? CString() : text.Mid(at + 1);
    return at >= 0;
}

CString CFamStuStr::IncreaseStrDigit(CString text, double step, int which)
{
    const std::wstring_view name = viewOf(text);
    const auto numbers = namenumber::find(name);
    const std::size_t index = which > 0 ? static_cast<std::size_t>(which) - 1 : numbers.size() - 1;
    if (index >= numbers.size()) return text;
    const auto [start, end] = numbers[index];
    const std::wstring number = namenumber::increased(name.substr(start, end - start), step);
    if (number.empty()) return text;
    return stringOf(name.substr(0, start)) + number.c_str() + stringOf(name.substr(end));
}
