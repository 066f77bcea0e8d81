#pragma once

/// Patterns of names as acutWcMatch and the filters of selection sets have them.

#include <string>
#include <string_view>
#include <vector>

/// # a digit, @ a letter, . neither, ? any character, * any characters, [abc] [a-z] [~abc] one of or none of
/// a set, ~ in front: all but the pattern, a comma between alternatives, ` before a character that stands for
/// itself.
class WildcardPattern
{
public:
    explicit WildcardPattern(std::wstring_view pattern, bool ignoreCase = false);
    /// The time is bounded by the product of the lengths.
    bool matches(std::wstring_view text) const;

private:
    enum class Kind { literal, digit, letter, other, any, run, set };
    struct Element {
        Kind kind;
        std::wstring characters; ///< the literal, or pairs of first and last of a set
        bool negated = false;
    };
    struct Alternative {
        std::vector<Element> elements;
        bool negated = false;
    };
    static Element readSet(std::wstring_view body);
    static Element readElement(std::wstring_view pattern, std::size_t& at);
    static bool accepts(const Element& element, wchar_t c);
    static bool matches(const std::vector<Element>& elements, std::wstring_view text);
    std::wstring folded(std::wstring_view text) const;

    bool mIgnoreCase;
    std::vector<Alternative> mAlternatives;
};
