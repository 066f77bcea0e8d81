#include "MTextFormat.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <tuple>

namespace lettering
{
namespace
{
constexpr double radians = 3.14159265358979323846 / 180;

/// The number that makes up the whole text.
std::optional<double> numberIn(std::wstring_view text)
{
    std::string narrow;
    for (const wchar_t c : text)
        narrow += c > 0 && c < 0x80 ? static_cast<char>(c) : '?';
    const char* start = narrow.c_str() + (narrow.size() > 1 && narrow[0] == '+' ? 1 : 0);
    double value = 0;
    const auto [end, error] = std::from_chars(start, narrow.data() + narrow.size(), value);
    if (error != std::errc() || end != narrow.data() + narrow.size() || !std::isfinite(value)) return {};
    return value;
}

std::vector<std::wstring_view> split(std::wstring_view text, wchar_t separator)
{
    std::vector<std::wstring_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::wstring_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

bool endsInX(std::wstring_view text)
{
    return !text.empty() && (text.back() == L'x' || text.back() == L'X');
}

/// Sets a quantity that is above 0: "2.5" as it is, "0.7x" as a factor. False for anything else.
bool setQuantity(double& quantity, std::wstring_view text)
{
    const bool isFactor = endsInX(text);
    const std::optional<double> number = numberIn(isFactor ? text.substr(0, text.size() - 1) : text);
    const double result = number ? *number * (isFactor ? quantity : 1) : 0;
    if (!(result > 0) || !std::isfinite(result)) return false;
    quantity = result;
    return true;
}

bool setOblique(MTextFormat& format, std::wstring_view text)
{
    const std::optional<double> degrees = numberIn(text);
    if (!degrees || std::abs(*degrees) > 85) return false;
    format.obliqueAngle = *degrees * radians;
    return true;
}

bool setPlace(MTextFormat& format, std::wstring_view text)
{
    if (text.size() != 1 || text[0] < L'0' || text[0] > L'2') return false;
    format.place = static_cast<LinePlace>(text[0] - L'0');
    return true;
}

bool setIndex(MTextFormat& format, std::wstring_view text)
{
    const std::optional<double> index = numberIn(text);
    if (!index || *index < 0 || *index > 256 || *index != std::floor(*index)) return false;
    format.color = {static_cast<int>(*index), false, {}};
    return true;
}

bool setTrueColor(MTextFormat& format, std::wstring_view text)
{
    const std::optional<double> number = numberIn(text);
    if (!number || *number < 0 || *number > 0xFFFFFF) return false;
    const auto bits = static_cast<unsigned>(*number);
    const auto part = [&](int shift) { return static_cast<std::uint8_t>(bits >> shift & 0xFF); };
    format.color.isRgb = true;
    format.color.rgb = {part(0), part(8), part(16)};
    return true;
}

/// "Arial|b1|i0|c0|p34": the character set and the pitch say nothing that the name does not.
bool setFace(MTextFormat& format, std::wstring_view text)
{
    const std::vector<std::wstring_view> parts = split(text, L'|');
    if (parts[0].empty()) return false;
    format.font = {std::wstring(parts[0]), {}, false, false};
    for (const std::wstring_view part : parts) {
        if (part == L"b1") format.font.bold = true;
        if (part == L"i1") format.font.italic = true;
    }
    return true;
}

/// "txt,gbcbig|c134": files without their extension.
bool setShapeFont(MTextFormat& format, std::wstring_view text)
{
    const std::vector<std::wstring_view> files = split(split(text, L'|')[0], L',');
    if (files[0].empty()) return false;
    format.font = {std::wstring(files[0]), files.size() > 1 ? std::wstring(files[1]) : L"", false, false};
    if (files[0].find(L'.') == std::wstring_view::npos) format.font.name += L".shx";
    return true;
}

/// Sets what a command with a value says.
bool setFormat(MTextFormat& format, wchar_t command, std::wstring_view value)
{
    switch (command) {
    case L'H':
        return setQuantity(format.height, value);
    case L'W':
        return setQuantity(format.widthFactor, value);
    case L'T':
        return setQuantity(format.tracking, value);
    case L'Q':
        return setOblique(format, value);
    case L'A':
        return setPlace(format, value);
    case L'C':
        return setIndex(format, value);
    case L'c':
        return setTrueColor(format, value);
    case L'f':
        return setFace(format, value);
    case L'F':
        return setShapeFont(format, value);
    default:
        return false;
    }
}

bool setLine(TextLines& lines, wchar_t command)
{
    switch (command) {
    case L'L':
    case L'l':
        lines.under = command == L'L';
        return true;
    case L'O':
    case L'o':
        lines.over = command == L'O';
        return true;
    case L'K':
    case L'k':
        lines.through = command == L'K';
        return true;
    default:
        return false;
    }
}

ParagraphAlignment alignmentOf(wchar_t letter)
{
    constexpr std::wstring_view letters = L"*lcrjd";
    constexpr ParagraphAlignment alignments[] = {
        ParagraphAlignment::byAttachment, ParagraphAlignment::left,      ParagraphAlignment::center,
        ParagraphAlignment::right,        ParagraphAlignment::justified, ParagraphAlignment::distributed};
    const std::size_t found = letters.find(letter);
    return found == std::wstring_view::npos ? alignments[0] : alignments[found];
}

/// Adds a tab: "4", or "c4" and "r4" for centred and right tabs, which are taken for left ones.
void addTab(ParagraphFormat& format, std::wstring_view text)
{
    if (!text.empty() && (text[0] == L'c' || text[0] == L'r')) text.remove_prefix(1);
    const std::optional<double> place = numberIn(text);
    if (place && *place > (format.tabs.empty() ? 0 : format.tabs.back())) format.tabs.push_back(*place);
}

double* lengthOf(ParagraphFormat& format, wchar_t letter)
{
    switch (letter) {
    case L'i':
        return &format.firstIndent;
    case L'l':
        return &format.leftIndent;
    case L'r':
        return &format.rightIndent;
    case L'b':
        return &format.spaceBefore;
    case L'a':
        return &format.spaceAfter;
    default:
        return nullptr;
    }
}

/// "xi-2,l3,qc,t4,c8": what is not named stays; what follows a t, up to the end, are tabs; * is the default.
void setParagraph(ParagraphFormat& format, std::wstring_view text)
{
    bool isTab = false;
    for (std::wstring_view part : split(text, L',')) {
        if (!part.empty() && part[0] == L'x') part.remove_prefix(1);
        if (part.empty()) continue;
        const std::wstring_view value = part.substr(1);
        if (part[0] == L't') {
            isTab = true;
            format.tabs.clear();
            addTab(format, value);
        } else if (isTab) {
            addTab(format, part);
        } else if (part[0] == L'q') {
            format.alignment = alignmentOf(value.empty() ? L'*' : value[0]);
        } else if (double* length = lengthOf(format, part[0])) {
            *length = numberIn(value).value_or(0);
        }
    }
}

class Parser
{
public:
    Parser(std::wstring_view contents, const MTextFormat& format) : mText(contents), mFormat(format)
    {
        open(false);
    }

    std::vector<MTextParagraph> run()
    {
        while (mAt < mText.size())
            step();
        mParagraphs.back().endFormat = mFormat;
        return std::move(mParagraphs);
    }

private:
    void step()
    {
        const wchar_t c = mText[mAt];
        if (const CodedCharacter coded = codedCharacter(mText, mAt); coded.length)
            put(coded.character, coded.length);
        else if (c == L'\\' && mAt + 1 < mText.size())
            backslash(mText[mAt + 1]);
        else if (c == L'{')
            enter();
        else if (c == L'}')
            leave();
        else if (!control(c))
            put(static_cast<std::uint32_t>(c), 1);
    }

    /// Control characters as they are, and with a caret. False when there is none.
    bool control(wchar_t c)
    {
        const wchar_t next = c == L'^' && mAt + 1 < mText.size() ? mText[mAt + 1] : L'\0';
        const std::size_t length = c == L'^' ? 2 : 1;
        if (c == L'\t' || next == L'I')
            putTab();
        else if (c == L'\n' || next == L'J')
            open(false);
        else if (next == L' ')
            return put(L'^', 2), true;
        else if (c != L'\r' && next != L'M')
            return false;
        mAt += length;
        return true;
    }

    void backslash(wchar_t c)
    {
        if (c == L'P' || c == L'X' || c == L'N') {
            open(c == L'N');
            mAt += 2;
        } else if (c == L'~') {
            put(0xA0, 2);
        } else if (c == L'\\' || c == L'{' || c == L'}') {
            put(static_cast<std::uint32_t>(c), 2);
        } else if (setLine(mFormat.lines, c)) {
            mContinues = false;
            mAt += 2;
        } else if (c == L'S') {
            stack();
        } else if (!valued(c)) {
            put(L'\\', 1);
        }
    }

    /// A command with a value up to a semicolon.
    bool valued(wchar_t command)
    {
        const std::size_t end = mText.find(L';', mAt + 2);
        if (end == std::wstring_view::npos) return false;
        const std::wstring_view value = mText.substr(mAt + 2, end - mAt - 2);
        if (command == L'p')
            setParagraph(mParagraphs.back().format, value);
        else if (!setFormat(mFormat, command, value))
            return false;
        mContinues = false;
        mAt = end + 1;
        return true;
    }

    void stack()
    {
        MTextPiece piece;
        piece.format = mFormat;
        std::wstring* part = &piece.text;
        for (mAt += 2; mAt < mText.size() && mText[mAt] != L';';) {
            const StackKind kind = separator(mText[mAt]);
            if (kind != StackKind::none && piece.stack == StackKind::none) {
                piece.stack = kind;
                part = &piece.lower;
                ++mAt;
                // A blank behind a caret keeps it from being read as a control character.
                if (kind == StackKind::tolerance && mAt < mText.size() && mText[mAt] == L' ') ++mAt;
            } else {
                stackCharacter(*part);
            }
        }
        mAt += mAt < mText.size() ? 1 : 0;
        if (!piece.text.empty() || !piece.lower.empty())
            mParagraphs.back().pieces.push_back(std::move(piece));
        mContinues = false;
    }
    static StackKind separator(wchar_t c)
    {
        return c == L'/'   ? StackKind::bar
               : c == L'#' ? StackKind::slash
               : c == L'^' ? StackKind::tolerance
                           : StackKind::none;
    }
    void stackCharacter(std::wstring& to)
    {
        const CodedCharacter coded = codedCharacter(mText, mAt);
        if (coded.length) {
            appendCharacter(to, coded.character);
            mAt += coded.length;
            return;
        }
        if (mText[mAt] == L'\\' && mAt + 1 < mText.size()) ++mAt;
        to += mText[mAt++];
    }

    void enter()
    {
        mOuter.push_back(mFormat);
        ++mAt;
    }
    /// A closing brace too many is not shown.
    void leave()
    {
        if (!mOuter.empty()) {
            mFormat = mOuter.back();
            mOuter.pop_back();
            mContinues = false;
        }
        ++mAt;
    }

    /// A new paragraph with the format of the one before.
    void open(bool startsColumn)
    {
        ParagraphFormat format;
        if (!mParagraphs.empty()) {
            format = mParagraphs.back().format;
            mParagraphs.back().endFormat = mFormat;
        }
        mParagraphs.push_back({std::move(format), {}, mFormat, startsColumn});
        mContinues = false;
    }

    void put(std::uint32_t character, std::size_t length)
    {
        std::vector<MTextPiece>& pieces = mParagraphs.back().pieces;
        if (!mContinues) pieces.push_back({mFormat, {}, StackKind::none, {}});
        mContinues = true;
        appendCharacter(pieces.back().text, character);
        mAt += length;
    }
    void putTab()
    {
        mParagraphs.back().pieces.push_back({mFormat, L"\t", StackKind::none, {}});
        mContinues = false;
    }

    std::wstring_view mText;
    std::size_t mAt = 0;
    MTextFormat mFormat;
    bool mContinues = false; ///< the last piece takes further characters
    std::vector<MTextFormat> mOuter;
    std::vector<MTextParagraph> mParagraphs;
};
} // namespace

bool MTextFormat::operator==(const MTextFormat& other) const
{
    const auto numbers = [](const MTextFormat& f) {
        return std::tie(f.height, f.widthFactor, f.obliqueAngle, f.tracking, f.place);
    };
    return numbers(*this) == numbers(other) && color == other.color && lines == other.lines &&
           font == other.font;
}

std::vector<MTextParagraph> parseMText(std::wstring_view contents, const MTextFormat& format)
{
    return Parser(contents, format).run();
}
} // namespace lettering
