#include "ConsoleText.h"

namespace console
{
CString wide(const std::string& utf8) { return CString(CA2W(utf8.c_str(), CP_UTF8)); }
std::string utf8(const CString& text) { return std::string(CW2A(text, CP_UTF8)); }
} // namespace console
