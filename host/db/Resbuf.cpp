#include "acutads.h"

#include "LiveCounts.h"

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <cwchar>

namespace
{
struct CodeRange {
    short first, last;
    short type;
};

// The group code ranges of the DXF reference, in ascending order.
constexpr CodeRange ranges[] = {
    {-5, -5, RTENAME},    {-4, -4, RTSTR},      {-3, -3, RTNONE},      {-2, -1, RTENAME},    {0, 4, RTSTR},
    {5, 5, RTSTR},        {6, 9, RTSTR},        {10, 17, RT3DPOINT},   {18, 37, RTREAL},     {38, 59, RTREAL},
    {60, 79, RTSHORT},    {90, 99, RTLONG},     {100, 102, RTSTR},     {105, 105, RTSTR},    {110, 112, RT3DPOINT},
    {113, 119, RTREAL},   {120, 149, RTREAL},   {160, 169, RTINT64},   {170, 179, RTSHORT},  {210, 210, RT3DPOINT},
    {211, 239, RTREAL},   {270, 289, RTSHORT},  {290, 299, RTSHORT},   {300, 309, RTSTR},    {310, 319, RTLB},
    {320, 329, RTSTR},    {330, 369, RTENAME},  {370, 389, RTSHORT},   {390, 399, RTENAME},  {400, 409, RTSHORT},
    {410, 419, RTSTR},    {420, 429, RTLONG},   {430, 439, RTSTR},     {440, 459, RTLONG},   {460, 469, RTREAL},
    {470, 479, RTSTR},    {480, 481, RTENAME},  {999, 999, RTSTR},     {1000, 1003, RTSTR},  {1004, 1004, RTLB},
    {1005, 1009, RTSTR},  {1010, 1013, RT3DPOINT}, {1014, 1039, RTREAL}, {1040, 1059, RTREAL}, {1060, 1070, RTSHORT},
    {1071, 1071, RTLONG},
};

bool isValueType(short type) { return type >= RTNONE; }

short valueTypeOf(short restype) { return isValueType(restype) ? restype : acdbGroupCodeToType(restype); }

bool setText(resbuf& node, const wchar_t* text)
{
    return text && acutNewString(text, node.resval.rstring) == RTNORM;
}

bool setBinary(resbuf& node, const ads_binary* chunk)
{
    if (!chunk || chunk->clen < 0) return false;
    node.resval.rbinary.buf = static_cast<char*>(std::malloc(static_cast<std::size_t>(chunk->clen) + 1));
    if (!node.resval.rbinary.buf) return false;
    std::memcpy(node.resval.rbinary.buf, chunk->buf, static_cast<std::size_t>(chunk->clen));
    node.resval.rbinary.clen = chunk->clen;
    return true;
}

/// Takes the value of one node from the arguments; false for a type that carries none the list can hold.
bool takeValue(resbuf& node, va_list& arguments)
{
    switch (valueTypeOf(node.restype)) {
    case RTREAL:
    case RTANG:
    case RTORINT: node.resval.rreal = va_arg(arguments, double); return true;
    case RTPOINT:
    case RT3DPOINT: {
        const double* point = va_arg(arguments, const double*);
        if (!point) return false;
        node.resval.rpoint[X] = point[X];
        node.resval.rpoint[Y] = point[Y];
        node.resval.rpoint[Z] = valueTypeOf(node.restype) == RTPOINT ? 0.0 : point[Z];
        return true;
    }
    case RTSHORT: node.resval.rint = static_cast<short>(va_arg(arguments, int)); return true;
    case RTLONG: node.resval.rlong = va_arg(arguments, int); return true;
    case RTINT64: node.resval.mnInt64 = va_arg(arguments, std::int64_t); return true;
    case RTSTR: return setText(node, va_arg(arguments, const wchar_t*));
    case RTENAME:
    case RTPICKS: {
        const std::int64_t* name = va_arg(arguments, const std::int64_t*);
        if (name) ads_name_set(name, node.resval.rlname);
        return name != nullptr;
    }
    case RTLB: return isValueType(node.restype) || setBinary(node, va_arg(arguments, const ads_binary*));
    case RTNONE: return !isValueType(node.restype) && node.restype == -3;
    case RTLE:
    case RTDOTE:
    case RTNIL:
    case RTT:
    case RTVOID: return true;
    default: return false;
    }
}

void releaseValue(resbuf& node)
{
    const short type = valueTypeOf(node.restype);
    if (type == RTSTR) acutDelString(node.resval.rstring);
    if (type == RTLB && !isValueType(node.restype)) std::free(node.resval.rbinary.buf);
}
} // namespace

short acdbGroupCodeToType(short code)
{
    for (const CodeRange& range : ranges) {
        if (code >= range.first && code <= range.last) return range.type;
    }
    return RTNONE;
}

resbuf* acutNewRb(int type)
{
    auto* node = static_cast<resbuf*>(std::calloc(1, sizeof(resbuf)));
    if (!node) return nullptr;
    node->restype = static_cast<short>(type);
    ++live::resbufs();
    return node;
}

resbuf* acutBuildList(int firstType, ...)
{
    va_list arguments;
    va_start(arguments, firstType);
    resbuf* head = nullptr;
    resbuf** tail = &head;
    bool complete = true;
    for (int type = firstType; complete && type != RTNONE && type != 0; type = va_arg(arguments, int)) {
        *tail = acutNewRb(type == RTDXF0 ? 0 : type);
        complete = *tail && takeValue(**tail, arguments);
        if (*tail) tail = &(*tail)->rbnext;
    }
    va_end(arguments);
    if (!complete) {
        acutRelRb(head);
        head = nullptr;
    }
    return head;
}

int acutRelRb(resbuf* list)
{
    if (!list) return RTERROR;
    while (list) {
        resbuf* next = list->rbnext;
        releaseValue(*list);
        std::free(list);
        --live::resbufs();
        list = next;
    }
    return RTNORM;
}

int acutNewString(const ACHAR* text, ACHAR*& copy)
{
    copy = nullptr;
    if (!text) return RTERROR;
    const std::size_t bytes = (std::wcslen(text) + 1) * sizeof(ACHAR);
    copy = static_cast<ACHAR*>(std::malloc(bytes));
    if (!copy) return RTERROR;
    std::memcpy(copy, text, bytes);
    return RTNORM;
}

void acutDelString(ACHAR*& text)
{
    std::free(text);
    text = nullptr;
}

void acutDelBuffer(char*& buffer)
{
    std::free(buffer);
    buffer = nullptr;
}
