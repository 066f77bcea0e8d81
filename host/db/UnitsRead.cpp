#include "UnitsRead.h"

#include <cmath>
#include <cwchar>
#include <cwctype>

namespace
{
using units::Angular;
using units::Linear;

constexpr double pi = 3.14159265358979323846;

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

/// Reads a text from the left.
class Scanner
{
public:
    explicit Scanner(std::wstring_view text) : mText(text) {}

    bool atEnd() const { return mAt == mText.size(); }
    wchar_t peek(std::size_t ahead = 0) const
    {
        return mAt + ahead < mText.size() ? mText[mAt + ahead] : L'\0';
    }
    bool skip(wchar_t c)
    {
        if (peek() != c) return false;
        ++mAt;
        return true;
    }
    /// A letter in either case.
    bool skipLetter(wchar_t lower) { return skip(lower) || skip(static_cast<wchar_t>(lower - L'a' + L'A')); }
    void skipBlanks()
    {
        while (skip(L' ')) {
        }
    }
    bool negative()
    {
        const bool minus = skip(L'-');
        if (!minus) skip(L'+');
        return minus;
    }

    /// Digits with an optional point and exponent, without a sign.
    std::optional<double> number()
    {
        const std::size_t start = mAt;
        std::size_t count = digits();
        if (skip(L'.')) count += digits();
        if (count == 0) return std::nullopt;
        skipExponent();
        const double value = std::wcstod(std::wstring(mText.substr(start, mAt - start)).c_str(), nullptr);
        return std::isfinite(value) ? std::optional(value) : std::nullopt;
    }

    std::optional<double> whole()
    {
        if (!isDigit(peek())) return std::nullopt;
        double value = 0.0;
        for (; isDigit(peek()); ++mAt)
            value = value * 10.0 + (peek() - L'0');
        return std::isfinite(value) ? std::optional(value) : std::nullopt;
    }

    /// A number, or a fraction, or a whole number with a fraction behind a dash or blank.
    std::optional<double> quantity()
    {
        const std::optional<double> first = number();
        if (!first) return std::nullopt;
        if (peek() == L'/') return dividedBy(*first);
        if ((peek() != L'-' && peek() != L' ') || !isDigit(peek(1))) return first;
        ++mAt;
        const std::optional<double> top = whole();
        const std::optional<double> part = top ? dividedBy(*top) : std::nullopt;
        return part ? std::optional(*first + *part) : std::nullopt;
    }

private:
    std::size_t digits()
    {
        const std::size_t start = mAt;
        while (isDigit(peek()))
            ++mAt;
        return mAt - start;
    }
    void skipExponent()
    {
        if (peek() != L'e' && peek() != L'E') return;
        const std::size_t sign = peek(1) == L'+' || peek(1) == L'-' ? 1 : 0;
        if (!isDigit(peek(1 + sign))) return;
        mAt += 1 + sign;
        digits();
    }
    std::optional<double> dividedBy(double top)
    {
        if (!skip(L'/')) return std::nullopt;
        const std::optional<double> bottom = whole();
        return bottom && *bottom > 0.0 ? std::optional(top / *bottom) : std::nullopt;
    }

    std::wstring_view mText;
    std::size_t mAt = 0;
};

/// The inches behind feet: none, or a quantity with or without its mark.
std::optional<double> inchesBehindFeet(Scanner& text)
{
    if (text.atEnd()) return 0.0;
    if (!text.skip(L'-')) text.skipBlanks();
    const std::optional<double> inches = text.quantity();
    text.skip(L'"');
    return inches;
}

std::optional<double> inFeetAndInches(Scanner& text)
{
    const std::optional<double> first = text.quantity();
    if (!first) return std::nullopt;
    if (!text.skip(L'\'')) {
        text.skip(L'"');
        return first;
    }
    const std::optional<double> inches = inchesBehindFeet(text);
    return inches ? std::optional(*first * 12.0 + *inches) : std::nullopt;
}

/// What stands behind the degrees: minutes and seconds, each with its mark, which the last may lack.
std::optional<double> minutesAndSeconds(Scanner& text)
{
    double degrees = 0.0;
    const auto ends = [&] {
        return text.atEnd() || std::iswalpha(static_cast<wint_t>(text.peek())) || text.peek() == L' ';
    };
    if (ends()) return degrees;
    const std::optional<double> minutes = text.number();
    if (!minutes) return std::nullopt;
    if (text.skip(L'"')) return *minutes / 3600.0;
    degrees = *minutes / 60.0;
    if (!text.skip(L'\'') || ends()) return degrees;
    const std::optional<double> seconds = text.number();
    if (!seconds) return std::nullopt;
    text.skip(L'"');
    return degrees + *seconds / 3600.0;
}

std::optional<double> unsignedAngle(Scanner& text, Angular unit)
{
    const std::optional<double> value = text.number();
    if (!value) return std::nullopt;
    if (text.skipLetter(L'd') || text.skip(L'\u00B0')) {
        const std::optional<double> rest = minutesAndSeconds(text);
        return rest ? std::optional((*value + *rest) * pi / 180.0) : std::nullopt;
    }
    if (text.skipLetter(L'g')) return *value * pi / 200.0;
    if (text.skipLetter(L'r')) return *value;
    return *value * (unit == Angular::radians ? 1.0 : unit == Angular::gradians ? pi / 200.0 : pi / 180.0);
}

/// "N45dE": from north or south towards east or west.
std::optional<double> bearing(Scanner& text)
{
    const bool north = text.skipLetter(L'n');
    if (!north && !text.skipLetter(L's')) {
        if (text.skipLetter(L'e')) return 0.0;
        return text.skipLetter(L'w') ? std::optional(pi) : std::nullopt;
    }
    const double from = north ? pi / 2 : 3 * pi / 2;
    if (text.atEnd()) return from;
    text.skipBlanks();
    const std::optional<double> turn = unsignedAngle(text, Angular::degrees);
    if (!turn || *turn > pi / 2) return std::nullopt;
    text.skipBlanks();
    if (text.skipLetter(L'e')) return north ? from - *turn : from + *turn;
    if (text.skipLetter(L'w')) return north ? from + *turn : from - *turn;
    return std::nullopt;
}
} // namespace

namespace units
{
std::optional<double> readLength(std::wstring_view text, Linear unit)
{
    Scanner scanner(text);
    const double sign = scanner.negative() ? -1.0 : 1.0;
    const bool feet = unit == Linear::engineering || unit == Linear::architectural;
    const std::optional<double> value = feet ? inFeetAndInches(scanner) : scanner.quantity();
    return value && scanner.atEnd() ? std::optional(sign * *value) : std::nullopt;
}

std::optional<double> readAngle(std::wstring_view text, Angular unit)
{
    Scanner scanner(text);
    if (std::wcschr(L"NnSsEeWw", scanner.peek()) && !text.empty()) {
        const std::optional<double> value = bearing(scanner);
        return value && scanner.atEnd() ? value : std::nullopt;
    }
    const double sign = scanner.negative() ? -1.0 : 1.0;
    const std::optional<double> value = unsignedAngle(scanner, unit);
    return value && scanner.atEnd() ? std::optional(sign * *value) : std::nullopt;
}
} // namespace units
