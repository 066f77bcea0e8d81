#include "ScriptLines.h"

#include <afx.h>

#include <memory>

namespace
{
std::optional<std::string> bytesOf(const std::wstring& path)
{
    CFile file;
    if (!file.Open(path.c_str(), CFile::modeRead | CFile::shareDenyNone)) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
    const UINT size = bytes.empty() ? 0 : file.Read(&bytes[0], static_cast<UINT>(bytes.size()));
    bytes.resize(size);
    return bytes;
}

std::wstring decoded(const std::string& bytes, UINT codePage, DWORD flags)
{
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    const int count = MultiByteToWideChar(codePage, flags, bytes.data(), size, &text[0], size);
    text.resize(static_cast<std::size_t>(count));
    return text;
}

std::string utf8(const std::wstring& text)
{
    const int size = static_cast<int>(text.size());
    std::string bytes(text.size() * 4, '\0'); // no character takes more
    const int most = static_cast<int>(bytes.size());
    const int count = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, &bytes[0], most, nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
}

/// UTF-16 text, whose mark says the order of bytes, as UTF-8.
std::string fromUtf16(const std::string& bytes, bool bigFirst)
{
    std::wstring text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[bigFirst ? i + 1 : i]);
        const auto high = static_cast<unsigned char>(bytes[bigFirst ? i : i + 1]);
        text += static_cast<wchar_t>(high << 8 | low);
    }
    return utf8(text);
}

/// A line of a few Chinese letters may be good UTF-8 by chance, so the whole text decides in which of the two
/// it is.
std::string fromUnmarked(std::string bytes)
{
    const bool isUtf8 = bytes.empty() || !decoded(bytes, CP_UTF8, MB_ERR_INVALID_CHARS).empty();
    return isUtf8 ? bytes : utf8(decoded(bytes, CP_ACP, 0));
}

std::string utf8Of(std::string bytes)
{
    if (bytes.compare(0, 2, "\xFF\xFE") == 0) return fromUtf16(bytes, false);
    if (bytes.compare(0, 2, "\xFE\xFF") == 0) return fromUtf16(bytes, true);
    return bytes.compare(0, 3, "\xEF\xBB\xBF") == 0 ? bytes.substr(3) : fromUnmarked(std::move(bytes));
}
} // namespace

namespace scripts
{
std::optional<LineReader> linesOfFile(const std::wstring& path)
{
    std::optional<std::string> bytes = bytesOf(path);
    if (!bytes) return std::nullopt;
    const auto text = std::make_shared<const std::string>(utf8Of(std::move(*bytes)));
    return [text, at = std::size_t(0)](std::string& line) mutable {
        if (at >= text->size()) return false;
        const std::size_t end = std::min(text->find('\n', at), text->size());
        line.assign(*text, at, end - at);
        at = end + 1;
        return true;
    };
}

std::wstring textOfLine(const std::string& bytes)
{
    if (bytes.empty()) return {};
    std::wstring text = decoded(bytes, CP_UTF8, MB_ERR_INVALID_CHARS);
    return text.empty() ? decoded(bytes, CP_ACP, 0) : text;
}
} // namespace scripts
