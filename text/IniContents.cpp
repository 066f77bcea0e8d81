#include "IniContents.h"

namespace
{
using namespace inifile;

constexpr std::size_t shortestHeader = 3; // brackets and a character between them

/// The form in which equal names are the same.
std::wstring folded(const CString& name)
{
    CString trimmed = name;
    trimmed.Trim();
    std::wstring form(viewOf(trimmed));
    CharUpperBuffW(form.data(), static_cast<DWORD>(form.size()));
    return form;
}
} // namespace

namespace inifile
{
Contents::Contents(std::string bytes) : _text(std::move(bytes))
{
    Line line;
    CString name;
    for (std::size_t at = _text.begin(); _text.readLine(at, line); at = line.next) {
        if (!readHeader(line, name)) {
            if (!_sections.empty()) ++_sections.back().lines;
            continue;
        }
        if (!_sections.empty()) _sections.back().end = line.begin;
        _sectionOfName.emplace(folded(name), _sections.size());
        _sections.push_back({name, line.begin, line.next, _text.end()});
    }
}

bool Contents::readHeader(const Line& line, CString& name) const
{
    const std::size_t unit = _text.unitSize();
    if (line.end - line.begin < shortestHeader * unit) return false;
    if (_text.unit(line.begin) != '[' || _text.unit(line.end - unit) != ']') return false;
    // The last byte may belong to a character of two bytes.
    const CString text = _text.decode(line.begin, line.end);
    const int length = text.GetLength();
    if (length < static_cast<int>(shortestHeader) || text[length - 1] != L']') return false;
    name = text.Mid(1, length - 2);
    return true;
}

bool Contents::readKey(KeyLine& key) const
{
    const std::size_t unit = _text.unitSize(), end = key.line.end;
    key.nameBegin = _text.skipBlanks(key.line.begin, end);
    const std::size_t equals = _text.find('=', key.nameBegin, end);
    if (equals == end || equals == key.nameBegin || _text.unit(key.nameBegin) == ';') return false;
    key.nameEnd = _text.dropBlanks(key.nameBegin, equals);
    key.behindEquals = equals + unit;
    key.valueBegin = _text.skipBlanks(key.behindEquals, end);
    key.valueEnd = _text.dropBlanks(key.valueBegin, end);
    return true;
}

const Section* Contents::section(const CString& name) const
{
    const auto found = _sectionOfName.find(folded(name));
    return found == _sectionOfName.end() ? nullptr : &_sections[found->second];
}

const KeyLine* Contents::key(const Section& section, const CString& name) const
{
    if (!section.isIndexed) {
        section.keys.reserve(section.lines);
        forEachKey(section, [&](const KeyLine& key) { section.keys.emplace(folded(nameOf(key)), key); });
        section.isIndexed = true;
    }
    const auto found = section.keys.find(folded(name));
    return found == section.keys.end() ? nullptr : &found->second;
}
} // namespace inifile
