#include "NameNumber.h"

#include "NaturalOrder.h"

#include <algorithm>
#include <cmath>

namespace
{
using namenumber::Place;

constexpr int mostDigits = 17; // what fits into 64 bits with the sum of two
constexpr int mostDecimalsOfStep = 6;

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

long long powerOfTen(int exponent)
{
    long long power = 1;
    for (; exponent > 0; --exponent)
        power *= 10;
    return power;
}

/// A decimal number: a count of units of 10^-decimals.
struct Decimal {
    long long count = 0;
    int decimals = 0;
    int zeroFilledTo = 0; ///< digits in front of the point that are kept
};

/// How many decimals of the step are not zero.
int decimalsOf(double step)
{
    long long count = std::llround(std::abs(step) * powerOfTen(mostDecimalsOfStep));
    int decimals = mostDecimalsOfStep;
    for (; decimals > 0 && count % 10 == 0; count /= 10)
        --decimals;
    return decimals;
}

/// Reads a number with the given decimals or more of its own; false when it has too many digits.
bool read(std::wstring_view number, int decimals, Decimal& value)
{
    const bool negative = number.front() == L'-';
    if (negative) number.remove_prefix(1);
    const std::size_t point = std::min(number.find(L'.'), number.size());
    const std::size_t fraction = number.size() - std::min(point + 1, number.size());
    if (point + std::max(fraction, static_cast<std::size_t>(decimals)) > mostDigits) return false;
    for (const wchar_t c : number)
        if (isDigit(c)) value.count = value.count * 10 + (c - L'0');
    value.decimals = std::max(static_cast<int>(fraction), decimals);
    value.count *= powerOfTen(value.decimals - static_cast<int>(fraction));
    if (negative) value.count = -value.count;
    if (point > 1 && number.front() == L'0') value.zeroFilledTo = static_cast<int>(point);
    return true;
}

std::wstring written(const Decimal& value)
{
    std::wstring digits = std::to_wstring(std::abs(value.count));
    const auto least = static_cast<std::size_t>(value.decimals + std::max(value.zeroFilledTo, 1));
    if (digits.size() < least) digits.insert(0, least - digits.size(), L'0');
    if (value.decimals > 0) digits.insert(digits.size() - static_cast<std::size_t>(value.decimals), 1, L'.');
    return value.count < 0 ? L'-' + digits : digits;
}

/// Adds the numbers of a run of digits and points without points at its ends.
void addNumbersOf(std::wstring_view text, Place run, std::vector<Place>& numbers)
{
    const auto points = std::count(text.begin() + run.start, text.begin() + run.end, L'.');
    if (points <= 1) {
        numbers.push_back(run);
        return;
    }
    for (std::size_t at = run.start; at < run.end; ++at) {
        const std::size_t end = std::min(text.find(L'.', at), run.end);
        if (end > at) numbers.push_back({at, end});
        at = end;
    }
}
} // namespace

namespace namenumber
{
std::vector<Place> find(std::wstring_view text)
{
    std::vector<Place> numbers;
    for (std::size_t at = 0; at < text.size();) {
        Place run{at, at};
        while (run.end < text.size() && naturalorder::isOfNumber(text[run.end]))
            ++run.end;
        at = run.end + 1;
        while (run.start < run.end && text[run.start] == L'.')
            ++run.start;
        while (run.start < run.end && text[run.end - 1] == L'.')
            --run.end;
        if (run.start < run.end) addNumbersOf(text, run, numbers);
    }
    if (!numbers.empty() && numbers[0].start == 1 && text[0] == L'-') numbers[0].start = 0;
    return numbers;
}

std::wstring increased(std::wstring_view number, double step)
{
    const double most = static_cast<double>(powerOfTen(mostDigits));
    if (!(std::abs(step) < most / powerOfTen(mostDecimalsOfStep))) return {};
    Decimal value;
    if (!read(number, decimalsOf(step), value)) return {};
    const double units = step * powerOfTen(value.decimals);
    if (!(std::abs(units) < most)) return {};
    value.count += std::llround(units);
    return std::abs(value.count) < powerOfTen(mostDigits) ? written(value) : std::wstring();
}

std::wstring_view endDigits(std::wstring_view text)
{
    std::size_t start = text.size();
    while (start > 0 && isDigit(text[start - 1]))
        --start;
    return text.substr(start);
}

int compareDigits(std::wstring_view a, std::wstring_view b)
{
    a.remove_prefix(std::min(a.find_first_not_of(L'0'), a.size()));
    b.remove_prefix(std::min(b.find_first_not_of(L'0'), b.size()));
    if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
    return a.compare(b);
}
} // namespace namenumber
