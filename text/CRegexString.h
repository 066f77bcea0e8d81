#pragma once

#include <afxv_dll.h>

#include <string>
#include <vector>

/// Regular expressions over wide strings, in the ECMAScript grammar of the standard library. All members are
/// static and hold no state.
///
/// "^" and "$" stand for the ends of the whole text. Matches are found from left to right and do not overlap.
/// Each is the first that the order of alternatives and the greed of repetitions give, not the longest.
/// Behind an empty match the search goes on with a match at the same place that is not empty, then one
/// character further on.
///
/// Nothing is thrown. A call cannot be carried out when the pattern is malformed, or when it would take more
/// than the effort allowed: a pattern of 200,000 elements with its counted repetitions written out,
/// parentheses 200 deep, 50 million steps and 100 more for each character of the text, 8 million places to
/// come back to within one match (the repetition of one character or set needs one in all, that of a group
/// about five each time), or a result of more than 2^27 characters. Then the text comes back unchanged,
/// searches give false, and vectors of matches are empty. Patterns whose repetitions do not compete for the
/// same characters take a few steps for each character, so that long texts and long matches are within the
/// limit.
class AFX_EXT_CLASS CRegexString
{
public:
    /// The text with every match replaced. In the replacement $& and $0 are the match, $1 to $99 the text of
    /// a group (empty when the group took no part or does not exist), $` the text between the match before
    /// and this one, $' the text behind the match, and $$ a dollar sign; any other "$" stands for itself.
    static std::wstring regexReplace(const std::wstring& text, const std::wstring& pattern,
                                     const std::wstring& replacement);
    /// The same, and puts the matches that were replaced into `matches`, in their order and in the ANSI code
    /// page; what it held before goes.
    static std::wstring regexReplace(const std::wstring& text, const std::wstring& pattern,
                                     const std::wstring& replacement, std::vector<std::string>& matches);
    /// The text with the first match replaced, and nothing else; the replacement is read as above.
    static std::wstring regexReplace1(const std::wstring& text, const std::wstring& pattern,
                                      const std::wstring& replacement);
    /// The text with every match replaced by the replacement as it stands: a "$" has no meaning in it. For
    /// replacements that come from a user or a drawing.
    static std::wstring regexReplace2(const std::wstring& text, const std::wstring& pattern,
                                      const std::wstring& replacement);
    /// Whether the pattern matches anywhere in the text. All matches go into `matches`, in their order and in
    /// the ANSI code page; what it held before goes.
    static bool regexSearch(const std::wstring& text, const std::wstring& pattern,
                            std::vector<std::string>& matches);
};
