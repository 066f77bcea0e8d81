#include "ConsoleText.h"

namespace console
{
CString wide(const std::string& utf8)
{
    return CString(CA2W(utf8.c_str(), CP_UTF8));
}
std::string utf8(const CString& text)
{
    return std::string(CW2A(text, CP_UTF8));
}

std::string nativePath(CString path)
{
    if (path.Left(3).CompareNoCase(L"Z:\\") != 0) return utf8(path);
    path.Replace(L'\\', L'/');
    return utf8(path.Mid(2));
}
} // namespace console
