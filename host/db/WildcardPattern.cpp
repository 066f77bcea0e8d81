#include "WildcardPattern.h"

#include "acutads.h"

#include <algorithm>

namespace
{
bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

/// Above ASCII everything is a letter but the blocks of signs and punctuation.
bool isLetter(wchar_t c)
{
    if (c < 0x80) return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
    const auto in = [c](wchar_t first, wchar_t last) { return first <= c && c <= last; };
    const bool sign = in(0x80, 0xBF) || c == 0xD7 || c == 0xF7 || in(0x2000, 0x2BFF) || in(0x3000, 0x3004) ||
                      in(0x3008, 0x3020) || in(0xFF00, 0xFF0F) || in(0xFF1A, 0xFF20);
    return !sign;
}
} // namespace

WildcardPattern::WildcardPattern(std::wstring_view pattern, bool ignoreCase) : mIgnoreCase(ignoreCase)
{
    const std::wstring text = folded(pattern);
    mAlternatives.emplace_back();
    for (std::size_t at = 0; at < text.size();) {
        Alternative& now = mAlternatives.back();
        if (text[at] == L',') {
            mAlternatives.emplace_back();
            ++at;
        } else if (text[at] == L'~' && now.elements.empty() && !now.negated) {
            now.negated = true;
            ++at;
        } else {
            now.elements.push_back(readElement(text, at));
        }
    }
}

std::wstring WildcardPattern::folded(std::wstring_view text) const
{
    std::wstring result(text);
    if (mIgnoreCase && !result.empty()) _wcsupr_s(&result[0], result.size() + 1);
    return result;
}

WildcardPattern::Element WildcardPattern::readSet(std::wstring_view body)
{
    Element set{Kind::set, {}, !body.empty() && body[0] == L'~'};
    for (std::size_t i = set.negated ? 1 : 0; i < body.size(); ++i) {
        if (body[i] == L'`' && i + 1 < body.size()) ++i;
        const wchar_t first = body[i];
        const bool range = i + 2 < body.size() && body[i + 1] == L'-';
        if (range) i += 2;
        set.characters += first;
        set.characters += body[i];
    }
    return set;
}

WildcardPattern::Element WildcardPattern::readElement(std::wstring_view pattern, std::size_t& at)
{
    const wchar_t c = pattern[at++];
    switch (c) {
    case L'#':
        return {Kind::digit, {}};
    case L'@':
        return {Kind::letter, {}};
    case L'.':
        return {Kind::other, {}};
    case L'?':
        return {Kind::any, {}};
    case L'*':
        return {Kind::run, {}};
    case L'[': {
        const std::size_t end = pattern.find(L']', at);
        if (end == std::wstring_view::npos) break;
        const std::wstring_view body = pattern.substr(at, end - at);
        at = end + 1;
        return readSet(body);
    }
    case L'`':
        if (at < pattern.size()) return {Kind::literal, std::wstring(1, pattern[at++])};
        break;
    default:
        break;
    }
    return {Kind::literal, std::wstring(1, c)};
}

bool WildcardPattern::accepts(const Element& element, wchar_t c)
{
    switch (element.kind) {
    case Kind::digit:
        return isDigit(c);
    case Kind::letter:
        return isLetter(c);
    case Kind::other:
        return !isDigit(c) && !isLetter(c);
    case Kind::any:
        return true;
    case Kind::set: {
        bool found = false;
        for (std::size_t i = 0; i < element.characters.size(); i += 2)
            found = found || (element.characters[i] <= c && c <= element.characters[i + 1]);
        return found != element.negated;
    }
    default:
        return element.characters[0] == c;
    }
}

// Only the last run needs to be tried again: what an earlier one could take, the last one can take too.
bool WildcardPattern::matches(const std::vector<Element>& elements, std::wstring_view text)
{
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    std::size_t element = 0, at = 0, lastRun = none, runEnd = 0;
    while (at < text.size()) {
        if (element < elements.size() && elements[element].kind == Kind::run) {
            lastRun = element++;
            runEnd = at;
        } else if (element < elements.size() && accepts(elements[element], text[at])) {
            ++element;
            ++at;
        } else if (lastRun != none) {
            element = lastRun + 1;
            at = ++runEnd;
        } else {
            return false;
        }
    }
    while (element < elements.size() && elements[element].kind == Kind::run)
        ++element;
    return element == elements.size();
}

bool WildcardPattern::matches(std::wstring_view text) const
{
    const std::wstring compared = folded(text);
    return std::any_of(mAlternatives.begin(), mAlternatives.end(), [&](const Alternative& one) {
        return matches(one.elements, compared) != one.negated;
    });
}

int acutWcMatch(const ACHAR* text, const ACHAR* pattern)
{
    return text && pattern && WildcardPattern(pattern).matches(text) ? RTNORM : RTERROR;
}
