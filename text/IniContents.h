#pragma once

/// The sections of a profile file and their keys.

#include "IniText.h"

#include <unordered_map>
#include <vector>

namespace inifile
{
/// A line "key=value" whose key is not empty and which is no comment (no ';' at its start). Positions leave
/// out the blanks around key and value.
struct KeyLine {
    Line line;
    std::size_t nameBegin, nameEnd;
    std::size_t behindEquals;
    std::size_t valueBegin, valueEnd;
};

struct Section {
    CString name;            ///< what lies between the brackets
    std::size_t headerBegin; ///< of the section line
    std::size_t begin;       ///< of the lines
    std::size_t end;         ///< where the next section line, or nothing, begins
    std::size_t lines = 0;   ///< how many there are
    mutable bool isIndexed = false;
    mutable std::unordered_map<std::wstring, KeyLine> keys = {}; ///< by folded name, the first of each
};

/// A file whose sections have been found; keys are looked up when they are asked for. Names are equal without
/// regard to case and to blanks around them, and of equal ones the first counts, as with the system's profile
/// functions. Not for several threads at once.
class Contents
{
public:
    explicit Contents(std::string bytes);

    const Text& text() const { return _text; }
    const std::vector<Section>& sections() const { return _sections; }

    /// Null when there is none.
    const Section* section(const CString& name) const;
    const KeyLine* key(const Section& section, const CString& name) const;

    CString nameOf(const KeyLine& key) const { return _text.decode(key.nameBegin, key.nameEnd); }
    /// The value with its quotation marks, if it has any.
    CString valueOf(const KeyLine& key) const { return _text.decode(key.valueBegin, key.valueEnd); }

    /// Hands every key line of a section to visit(const KeyLine&), in order.
    template <class Visit>
    void forEachKey(const Section& section, Visit visit) const
    {
        KeyLine key;
        for (std::size_t at = section.begin; at < section.end && _text.readLine(at, key.line);
             at = key.line.next)
            if (readKey(key)) visit(static_cast<const KeyLine&>(key));
    }

private:
    bool readHeader(const Line& line, CString& name) const;
    bool readKey(KeyLine& key) const;

    Text _text;
    std::vector<Section> _sections;
    std::unordered_map<std::wstring, std::size_t> _sectionOfName;
};
} // namespace inifile
