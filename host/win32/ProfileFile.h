#pragma once

#include "ProfileNames.h"
#include "ProfileText.h"

#include <vector>

namespace win32
{
/// A line of a section that is no comment and not blank. Positions count units of the text.
struct ProfileEntry {
    std::size_t lineBegin;
    std::size_t lineEnd; ///< behind the line break
    std::size_t nameBegin;
    std::size_t nameEnd;
    std::size_t behindEquals; ///< the end of the line when there is no '='
    std::size_t valueBegin;   ///< of the trimmed value
    std::size_t valueEnd;
    bool hasValue; ///< there is a '='
};

struct ProfileSection {
    std::wstring name;
    std::size_t headerBegin;
    std::size_t bodyBegin;
    std::size_t end; ///< where the next section, or nothing, begins
    mutable bool isParsed = false;
    mutable std::vector<ProfileEntry> entries; ///< once it is parsed
    mutable NameIndex entryOfName;
};

/// The parsed contents of a profile file. Sections are found when it is made, the lines of a section when
/// they are first asked for. Not safe for use by several threads at once.
class ProfileFile
{
public:
    ProfileFile() : ProfileFile(std::string()) {}
    explicit ProfileFile(std::string bytes);

    const ProfileText& text() const { return _text; }
    const std::vector<ProfileSection>& sections() const { return _sections; }

    /// The first section of that name; null when there is none. The name is trimmed, its case ignored.
    const ProfileSection* section(std::wstring_view name) const;
    const std::vector<ProfileEntry>& entries(const ProfileSection& section) const;
    /// The first line of that name; null when there is none.
    const ProfileEntry* entry(const ProfileSection& section, std::wstring_view name) const;

    std::wstring name(const ProfileEntry& entry) const
    {
        return _text.decode(entry.nameBegin, entry.nameEnd);
    }
    /// The trimmed value, quotation marks included.
    std::wstring value(const ProfileEntry& entry) const
    {
        return _text.decode(entry.valueBegin, entry.valueEnd);
    }

    // Each gives the bytes of the changed file.
    std::string withValue(std::wstring_view section, std::wstring_view key, std::wstring_view value) const;
    std::string withoutKey(std::wstring_view section, std::wstring_view key) const;
    std::string withoutSection(std::wstring_view section) const;
    std::string withSection(std::wstring_view section, const std::vector<std::wstring>& lines) const;

private:
    void findSections();
    void indexSections();
    void parse(const ProfileSection& section) const;
    void indexEntries(const ProfileSection& section) const;
    std::size_t hashOf(const ProfileEntry& entry) const;
    std::size_t behindLastText(const ProfileSection& section) const;
    std::wstring lineBreakBefore(std::size_t position) const;
    std::wstring completion(std::size_t position) const;
    std::string withNewSection(std::wstring_view section, const std::vector<std::wstring>& lines) const;

    ProfileText _text;
    std::vector<ProfileSection> _sections;
    NameIndex _sectionOfName;
};

/// The name without blanks around it.
std::wstring_view trimmed(std::wstring_view text);
} // namespace win32
