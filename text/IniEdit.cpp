#include "IniEdit.h"

namespace
{
using namespace inifile;

constexpr std::wstring_view lineEnd = L"\r\n";

bool isLineText(std::wstring_view text)
{
    constexpr std::wstring_view never(L"\r\n\x1A\0", 4);
    return text.find_first_of(never) == std::wstring_view::npos;
}

/// Appends a text that is to be (part of) one line.
bool appendText(const Text& to, std::wstring_view text, std::string& bytes)
{
    return isLineText(text) && to.encode(text, bytes);
}

std::string encodedLineEnd(const Text& text)
{
    std::string bytes;
    text.encode(lineEnd, bytes);
    return bytes;
}

/// Nothing when the first bytes would come to look like the mark of another encoding.
Bytes replaced(const Text& text, std::size_t from, std::size_t to, std::string_view by)
{
    std::string bytes = text.bytes().substr(0, from);
    bytes.append(by).append(text.bytes(), to);
    if (encodingOf(bytes) != text.encoding()) return {};
    return bytes;
}

/// The line of that number; false when there is none.
bool findLine(const Text& text, int number, Line& line)
{
    std::size_t at = text.begin();
    for (int i = 0; i <= number; ++i, at = line.next)
        if (!text.readLine(at, line)) return false;
    return number >= 0;
}

std::string_view bytesOf(const Text& text, const Line& line)
{
    return std::string_view(text.bytes()).substr(line.begin, line.end - line.begin);
}

/// The line end of the line before a place; CR LF when there is none.
std::string lineEndBefore(const Text& text, std::size_t place)
{
    Line line;
    std::string end = encodedLineEnd(text);
    for (std::size_t at = text.begin(); at < place && text.readLine(at, line); at = line.next)
        if (line.next > line.end) end = text.bytes().substr(line.end, line.next - line.end);
    return end;
}

/// What has to end the line before a place where a line is to begin. A carriage return that stands alone at
/// the end of the text belongs to the last line and must not become half of its line end.
std::string completion(const Text& text, std::size_t place)
{
    if (place == text.begin()) return {};
    const unsigned last = text.unit(place - text.unitSize());
    if (last == '\n') return {};
    return last == '\r' ? encodedLineEnd(text) : lineEndBefore(text, place);
}

/// Puts whole lines at the start of a line, or at the end of the text.
Bytes inserted(const Text& text, std::size_t place, const std::vector<std::wstring>& lines)
{
    const std::string end = lineEndBefore(text, place);
    std::string added = completion(text, place);
    for (const std::wstring& line : lines) {
        if (!appendText(text, line, added)) return {};
        added += end;
    }
    return replaced(text, place, place, added);
}

/// The place behind the last line of a section that is not blank.
std::size_t behindLastText(const Text& text, const Section& section)
{
    std::size_t place = section.begin;
    Line line;
    for (std::size_t at = section.begin; at < section.end && text.readLine(at, line); at = line.next)
        if (text.skipBlanks(line.begin, line.end) < line.end) place = line.next;
    return place;
}

/// The lines of a text by what they say, for lines that are to keep their bytes.
class KnownLines
{
public:
    explicit KnownLines(const Text& text) : _text(text)
    {
        Line line;
        for (std::size_t at = text.begin(); text.readLine(at, line); at = line.next)
            _lines[std::wstring(viewOf(text.decode(line.begin, line.end)))].push_back(line);
    }

    /// A line of that text, another one each time while there are several; null when there is none.
    const Line* next(const CString& text)
    {
        const auto found = _lines.find(std::wstring(viewOf(text)));
        if (found == _lines.end()) return nullptr;
        std::size_t& used = _used[&found->second];
        const std::vector<Line>& all = found->second;
        return &all[used < all.size() ? used++ : all.size() - 1];
    }

private:
    const Text& _text;
    std::unordered_map<std::wstring, std::vector<Line>> _lines;
    std::unordered_map<const std::vector<Line>*, std::size_t> _used;
};

/// The bytes of a line, and those of its line end.
struct LineBytes {
    std::string text;
    std::string end;
};

bool bytesOfLine(const Text& text, KnownLines& known, const CString& line, LineBytes& bytes)
{
    bytes.text.clear();
    bytes.end = encodedLineEnd(text);
    const Line* const old = known.next(line);
    if (!old) return appendText(text, viewOf(line), bytes.text);
    bytes.text = bytesOf(text, *old);
    if (old->next > old->end) bytes.end = text.bytes().substr(old->end, old->next - old->end);
    return true;
}

std::wstring keyLine(const CString& key, const CString& value)
{
    return std::wstring(viewOf(key)) + L"=" + std::wstring(viewOf(value));
}

/// Whether a key is found again in the line that has it. Otherwise each writing would add another line.
bool isFoundAgain(const CString& key, const CString& value)
{
    CString name = key;
    name.Trim();
    if (name.IsEmpty() || name[0] == L';' || name.Find(L'=') >= 0) return false;
    const bool isHeader = name[0] == L'[' && value.Right(1) == L"]";
    return !isHeader;
}
} // namespace

namespace inifile
{
Bytes withoutLines(const Text& text, int first, int count)
{
    Line from, last;
    if (count < 1 || first > INT_MAX - count || !findLine(text, first, from)) return {};
    last = from;
    for (int i = 1; i < count; ++i)
        if (!text.readLine(last.next, last)) return {};
    return replaced(text, from.begin, last.next, "");
}

Bytes withLines(const Text& text, int first, const CStringArray& lines)
{
    Line line;
    if (lines.IsEmpty() || !findLine(text, first, line)) return {};
    const std::size_t begin = line.begin;
    std::string changed;
    for (INT_PTR i = 0; i < lines.GetSize(); ++i) {
        if (i > 0 && !text.readLine(line.next, line)) return {};
        const bool isSame = text.decode(line.begin, line.end) == lines[i];
        if (isSame) changed += bytesOf(text, line);
        if (!isSame && !appendText(text, viewOf(lines[i]), changed)) return {};
        changed.append(text.bytes(), line.end, line.next - line.end);
    }
    // Nothing between the end of a line and that of the text would be no line.
    const bool vanishes = lines[lines.GetSize() - 1].IsEmpty() && line.next == line.end;
    if (vanishes) changed += lineEndBefore(text, line.begin);
    return replaced(text, begin, line.next, changed);
}

Bytes withAllLines(const Text& text, const CStringArray& lines)
{
    KnownLines known(text);
    const bool hadEnd = text.end() > text.begin() && text.unit(text.end() - text.unitSize()) == '\n';
    std::string changed;
    LineBytes bytes;
    for (INT_PTR i = 0; i < lines.GetSize(); ++i) {
        if (!bytesOfLine(text, known, lines[i], bytes)) return {};
        changed += bytes.text;
        if (i + 1 < lines.GetSize() || hadEnd || lines[i].IsEmpty()) changed += bytes.end;
    }
    return replaced(text, text.begin(), text.end(), changed);
}

Bytes withValue(const Contents& file, const CString& section, const CString& key, const CString& value)
{
    const Text& text = file.text();
    const Section* const found = file.section(section);
    const std::wstring line = keyLine(key, value);
    if (section.IsEmpty() || !isFoundAgain(key, value)) return {};
    if (!found) return inserted(text, text.end(), {L"[" + std::wstring(viewOf(section)) + L"]", line});
    const KeyLine* const old = file.key(*found, key);
    if (!old) return inserted(text, behindLastText(text, *found), {line});
    std::string changed;
    if (!appendText(text, viewOf(value), changed)) return {};
    return replaced(text, old->behindEquals, old->line.end, changed);
}

Bytes withoutKey(const Contents& file, const CString& section, const CString& key)
{
    const Section* const found = file.section(section);
    const KeyLine* const old = found ? file.key(*found, key) : nullptr;
    return old ? replaced(file.text(), old->line.begin, old->line.next, "") : file.text().bytes();
}

Bytes withoutSection(const Contents& file, const CString& section)
{
    const Section* const found = file.section(section);
    return found ? replaced(file.text(), found->headerBegin, found->end, "") : file.text().bytes();
}
} // namespace inifile
