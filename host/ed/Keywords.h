#pragma once

/// The keywords of acedInitGet.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ed
{
/// Keywords with a blank between. The capitals (and digits) of a keyword, or what stands behind a comma in
/// "LTYPE,LT", must be typed; more of it may be. Behind an underscore follow the global keywords, one for
/// each local one: they are what functions return, and may be typed with an underscore. Case does not matter.
class KeywordList
{
public:
    KeywordList() = default;
    explicit KeywordList(std::wstring_view specification);

    bool empty() const { return mLocal.empty(); }
    /// The first keyword that the text stands for.
    std::optional<std::size_t> match(std::wstring_view typed) const;
    /// The global keyword; the local one when there is none.
    const std::wstring& name(std::size_t index) const;

private:
    struct Keyword {
        std::wstring text, required;
        bool accepts(const std::wstring& typedInCapitals) const;
    };
    static Keyword keywordOf(std::wstring_view word);
    static std::optional<std::size_t> find(const std::vector<Keyword>& keywords, std::wstring_view typed);

    std::vector<Keyword> mLocal, mGlobal;
};
} // namespace ed
