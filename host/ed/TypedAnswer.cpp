#include "TypedAnswer.h"

#include <atlstr.h>

namespace
{
std::wstring numberText(double value)
{
    CString text;
    text.Format(L"%.17g", value);
    return text.GetString();
}

std::wstring pointText(const double* point, int dimensions)
{
    std::wstring text;
    for (int i = 0; i < dimensions; ++i) text += (i ? L"," : L"") + numberText(point[i]);
    return text;
}
} // namespace

namespace ed
{
std::wstring typedForm(const resbuf* value)
{
    switch (value ? value->restype : RTNONE) {
    case RTSTR: return value->resval.rstring ? value->resval.rstring : L"";
    case RTREAL:
    case RTANG:
    case RTORINT: return numberText(value->resval.rreal);
    case RTSHORT: return std::to_wstring(value->resval.rint);
    case RTLONG: return std::to_wstring(value->resval.rlong);
    case RTPOINT: return pointText(value->resval.rpoint, 2);
    case RT3DPOINT: return pointText(value->resval.rpoint, 3);
    case RTT: return L"T";
    default: return {};
    }
}

std::optional<Answer> answerOf(const resbuf& value)
{
    switch (value.restype) {
    case RTENAME: return Answer::ofName(Answer::Kind::entity, value.resval.rlname);
    case RTPICKS: return Answer::ofName(Answer::Kind::selection, value.resval.rlname);
    case RTNIL: return Answer::cancel();
    default: break;
    }
    const std::wstring text = typedForm(&value);
    if (text.empty() && value.restype != RTSTR) return std::nullopt;
    return Answer::ofText(text);
}
} // namespace ed
