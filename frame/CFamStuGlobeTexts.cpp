#include "CFamStuGlobe.h"

#include "acestext.h"
#include "ErrorTexts.h"

#include <algorithm>

namespace
{
const wchar_t* textIn(const ErrorTexts& texts, Acad::ErrorStatus status)
{
    const auto* at =
        std::lower_bound(texts.first, texts.last, status,
                         [](const ErrorText& row, Acad::ErrorStatus wanted) { return row.status < wanted; });
    return at != texts.last && at->status == status ? at->text : nullptr;
}
} // namespace

CString CFamStuGlobe::acadErrorStatusTextChs(Acad::ErrorStatus status)
{
    for (const ErrorTexts* texts : {&errorTextsOfObjects, &errorTextsOfServices, &errorTextsOfNetwork}) {
        if (const wchar_t* text = textIn(*texts, status)) return text;
    }
    CString text = acadErrorStatusText(status);
    text.Replace(L"Unknown error", L"未知错误");
    return text;
}

void CFamStuGlobe::replace(wchar_t* text, wchar_t* from, wchar_t* to)
{
    if (!text || !from || !*from) return;
    CString replaced = text;
    if (replaced.Replace(from, to) > 0) std::copy_n(replaced.GetString(), replaced.GetLength() + 1, text);
}
