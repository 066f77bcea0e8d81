#include "XDataReport.h"

#include "acutads.h"
#include "dbobject.h"
#include "ResbufCopy.h"

#include <atlstr.h>

namespace
{
const wchar_t* kindOf(short code)
{
    switch (code) {
    case 1000:
        return L"string";
    case 1002:
        return L"control string";
    case 1003:
        return L"layer";
    case 1004:
        return L"binary data";
    case 1005:
        return L"handle";
    case 1010:
        return L"3 real numbers";
    case 1011:
        return L"world space position";
    case 1012:
        return L"world space displacement";
    case 1013:
        return L"world space direction";
    case 1040:
        return L"real number";
    case 1041:
        return L"distance";
    case 1042:
        return L"scale factor";
    case 1070:
        return L"16-bit integer";
    case 1071:
        return L"32-bit signed long integer";
    default:
        return L"value";
    }
}

std::wstring hexText(const ads_binary& bytes)
{
    constexpr const wchar_t* digits = L"0123456789ABCDEF";
    std::wstring text;
    for (short i = 0; i < bytes.clen; ++i) {
        const auto byte = static_cast<unsigned char>(bytes.buf[i]);
        text += {digits[byte >> 4], digits[byte & 15]};
    }
    return text;
}

std::wstring valueOf(const resbuf& node)
{
    CString text;
    switch (node.restype) {
    case 1004:
        return hexText(node.resval.rbinary);
    case 1070:
        text.Format(L"%d", node.resval.rint);
        break;
    case 1071:
        text.Format(L"%d", static_cast<int>(node.resval.rlong));
        break;
    case 1040:
    case 1041:
    case 1042:
        text.Format(L"%.16g", node.resval.rreal);
        break;
    case 1010:
    case 1011:
    case 1012:
    case 1013: {
        const double* point = node.resval.rpoint;
        text.Format(L"(%.16g %.16g %.16g)", point[0], point[1], point[2]);
        break;
    }
    default:
        return node.resval.rstring ? node.resval.rstring : L"";
    }
    return text.GetString();
}
} // namespace

namespace commands
{
std::wstring xdataReport(const AcDbObject& object)
{
    constexpr short application = 1001;
    const ed::OwnedResbuf data(object.xData());
    std::wstring text;
    for (const resbuf* at = data.get(); at; at = at->rbnext) {
        if (at->restype == application)
            text += std::wstring(L"                  * Registered Application Name: ") + at->resval.rstring +
                    L"\n";
        else
            text += L"                    Code " + std::to_wstring(at->restype) + L", " +
                    kindOf(at->restype) + L": " + valueOf(*at) + L"\n";
    }
    return text;
}
} // namespace commands
