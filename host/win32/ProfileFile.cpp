#include "ProfileFile.h"

#include "CaseMap.h"

#include <algorithm>

namespace
{
using namespace win32;

constexpr unsigned endOfFileMark = 0x1A; // old editors close a file with it

bool isBlank(unsigned unit)
{
    return unit == ' ' || (unit >= '\t' && unit <= '\r') || unit == endOfFileMark;
}

std::wstring folded(std::wstring_view name)
{
    std::wstring key(trimmed(name));
    std::transform(key.begin(), key.end(), key.begin(), toUpper);
    return key;
}

std::size_t hashOf(const std::wstring& foldedName)
{
    NameHash hash;
    for (wchar_t c : foldedName)
        hash.add(static_cast<std::uint32_t>(c));
    return hash.value();
}

/// Where a line's contents end, and the next line begins.
struct LineEnd {
    std::size_t content;
    std::size_t next;
};

LineEnd findLineEnd(const ProfileText& text, std::size_t begin)
{
    std::size_t end = begin;
    while (end < text.size() && text.unit(end) != '\n' && text.unit(end) != '\r')
        ++end;
    if (end == text.size()) return {end, end};
    const bool isPair = text.unit(end) == '\r' && end + 1 < text.size() && text.unit(end + 1) == '\n';
    return {end, end + (isPair ? 2 : 1)};
}

std::size_t skipBlanks(const ProfileText& text, std::size_t begin, std::size_t end)
{
    while (begin < end && isBlank(text.unit(begin)))
        ++begin;
    return begin;
}

std::size_t dropBlanks(const ProfileText& text, std::size_t begin, std::size_t end)
{
    while (end > begin && isBlank(text.unit(end - 1)))
        --end;
    return end;
}

/// The name between '[' and the last ']' of a line. The line is decoded first: a trail byte may look like
/// ']'.
bool readHeader(const ProfileText& text, std::size_t begin, std::size_t end, std::wstring& name)
{
    if (begin == end || text.unit(begin) != '[') return false;
    const std::wstring line = text.decode(begin, end);
    const std::size_t close = line.rfind(L']');
    if (close == std::wstring::npos) return false;
    name = trimmed(std::wstring_view(line).substr(1, close - 1));
    return true;
}

ProfileEntry readEntry(const ProfileText& text, std::size_t lineBegin, std::size_t begin, const LineEnd& end)
{
    std::size_t equals = begin;
    while (equals < end.content && text.unit(equals) != '=')
        ++equals;
    const bool hasValue = equals < end.content;
    const std::size_t behind = hasValue ? equals + 1 : equals;
    const std::size_t valueBegin = skipBlanks(text, behind, end.content);
    const std::size_t valueEnd = dropBlanks(text, valueBegin, end.content);
    const std::size_t nameEnd = dropBlanks(text, begin, equals);
    return {lineBegin, end.next, begin, nameEnd, behind, valueBegin, valueEnd, hasValue};
}
} // namespace

namespace win32
{
std::wstring_view trimmed(std::wstring_view text)
{
    while (!text.empty() && isBlank(static_cast<unsigned>(text.front())))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(static_cast<unsigned>(text.back())))
        text.remove_suffix(1);
    return text;
}

ProfileFile::ProfileFile(std::string bytes) : _text(std::move(bytes))
{
    findSections();
}

void ProfileFile::findSections()
{
    std::wstring name;
    for (std::size_t begin = 0; begin < _text.size();) {
        const LineEnd end = findLineEnd(_text, begin);
        if (readHeader(_text, skipBlanks(_text, begin, end.content), end.content, name)) {
            if (!_sections.empty()) _sections.back().end = begin;
            _sections.emplace_back();
            _sections.back().name = name;
            _sections.back().headerBegin = begin;
            _sections.back().bodyBegin = end.next;
        }
        begin = end.next;
    }
    if (!_sections.empty()) _sections.back().end = _text.size();
    indexSections();
}

void ProfileFile::indexSections()
{
    _sectionOfName.reset(_sections.size());
    for (std::size_t i = 0; i < _sections.size(); ++i) {
        const std::wstring name = folded(_sections[i].name);
        _sectionOfName.add(::hashOf(name), i,
                           [&](std::size_t other) { return folded(_sections[other].name) == name; });
    }
}

const ProfileSection* ProfileFile::section(std::wstring_view name) const
{
    const std::wstring wanted = folded(name);
    const std::size_t found = _sectionOfName.find(
        ::hashOf(wanted), [&](std::size_t other) { return folded(_sections[other].name) == wanted; });
    return found == NameIndex::none ? nullptr : &_sections[found];
}

/// Most names are ASCII, and need not be decoded.
std::size_t ProfileFile::hashOf(const ProfileEntry& entry) const
{
    NameHash hash;
    for (std::size_t i = entry.nameBegin; i < entry.nameEnd; ++i) {
        const unsigned unit = _text.unit(i);
        if (unit >= 0x80) return ::hashOf(folded(name(entry)));
        hash.add(unit >= 'a' && unit <= 'z' ? unit - 'a' + 'A' : unit);
    }
    return hash.value();
}

void ProfileFile::indexEntries(const ProfileSection& section) const
{
    const std::vector<ProfileEntry>& all = section.entries;
    section.entryOfName.reset(all.size());
    for (std::size_t i = 0; i < all.size(); ++i)
        section.entryOfName.add(hashOf(all[i]), i, [&](std::size_t other) {
            return folded(name(all[other])) == folded(name(all[i]));
        });
}

void ProfileFile::parse(const ProfileSection& section) const
{
    for (std::size_t line = section.bodyBegin; line < section.end;) {
        const LineEnd end = findLineEnd(_text, line);
        const std::size_t begin = skipBlanks(_text, line, end.content);
        if (begin < end.content && _text.unit(begin) != ';')
            section.entries.push_back(readEntry(_text, line, begin, end));
        line = end.next;
    }
    indexEntries(section);
    section.isParsed = true;
}

const std::vector<ProfileEntry>& ProfileFile::entries(const ProfileSection& section) const
{
    if (!section.isParsed) parse(section);
    return section.entries;
}

const ProfileEntry* ProfileFile::entry(const ProfileSection& section, std::wstring_view name) const
{
    const std::vector<ProfileEntry>& all = entries(section);
    const std::wstring wanted = folded(name);
    const std::size_t found = section.entryOfName.find(
        ::hashOf(wanted), [&](std::size_t other) { return folded(this->name(all[other])) == wanted; });
    return found == NameIndex::none ? nullptr : &all[found];
}

/// The place behind the section's last line that is not blank.
std::size_t ProfileFile::behindLastText(const ProfileSection& section) const
{
    std::size_t last = section.bodyBegin;
    for (std::size_t line = section.bodyBegin; line < section.end;) {
        const LineEnd end = findLineEnd(_text, line);
        if (skipBlanks(_text, line, end.content) < end.content) last = end.next;
        line = end.next;
    }
    return last;
}

/// The line break in use before a place; CR LF when there is none.
std::wstring ProfileFile::lineBreakBefore(std::size_t position) const
{
    for (; position > 0; --position) {
        const unsigned unit = _text.unit(position - 1);
        if (unit == '\r') return L"\r";
        if (unit == '\n') return position > 1 && _text.unit(position - 2) == '\r' ? L"\r\n" : L"\n";
    }
    return L"\r\n";
}

/// The line break that is missing at the end of the line before a place.
std::wstring ProfileFile::completion(std::size_t position) const
{
    const bool isComplete =
        position == 0 || _text.unit(position - 1) == '\n' || _text.unit(position - 1) == '\r';
    return isComplete ? L"" : lineBreakBefore(position);
}

std::string ProfileFile::withNewSection(std::wstring_view section,
                                        const std::vector<std::wstring>& lines) const
{
    const std::size_t end = _text.size();
    const std::wstring lineBreak = lineBreakBefore(end);
    std::wstring added = completion(end) + L"[" + std::wstring(trimmed(section)) + L"]" + lineBreak;
    for (const std::wstring& line : lines)
        added += line + lineBreak;
    return _text.replaced(end, end, added);
}

std::string ProfileFile::withValue(std::wstring_view section, std::wstring_view key,
                                   std::wstring_view value) const
{
    const std::wstring line = std::wstring(trimmed(key)) + L"=" + std::wstring(value);
    const ProfileSection* found = this->section(section);
    if (!found) return withNewSection(section, {line});
    const ProfileEntry* old = entry(*found, key);
    if (!old) {
        const std::size_t end = behindLastText(*found);
        return _text.replaced(end, end, completion(end) + line + lineBreakBefore(end));
    }
    const std::size_t contentEnd = findLineEnd(_text, old->nameBegin).content;
    if (old->hasValue) return _text.replaced(old->behindEquals, contentEnd, value);
    return _text.replaced(old->nameBegin, contentEnd, line);
}

std::string ProfileFile::withoutKey(std::wstring_view section, std::wstring_view key) const
{
    const ProfileSection* found = this->section(section);
    const ProfileEntry* old = found ? entry(*found, key) : nullptr;
    return old ? _text.replaced(old->lineBegin, old->lineEnd, L"") : _text.bytes();
}

std::string ProfileFile::withoutSection(std::wstring_view section) const
{
    const ProfileSection* found = this->section(section);
    return found ? _text.replaced(found->headerBegin, found->end, L"") : _text.bytes();
}

std::string ProfileFile::withSection(std::wstring_view section, const std::vector<std::wstring>& lines) const
{
    const ProfileSection* found = this->section(section);
    if (!found) return withNewSection(section, lines);
    const std::size_t end = behindLastText(*found);
    const std::wstring lineBreak = lineBreakBefore(found->bodyBegin);
    std::wstring body = completion(found->bodyBegin);
    for (const std::wstring& line : lines)
        body += line + lineBreak;
    return _text.replaced(found->bodyBegin, end, body);
}
} // namespace win32
