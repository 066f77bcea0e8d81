#include "ResbufCopy.h"

#include <cstdlib>
#include <cstring>

namespace
{
short valueType(const resbuf& node)
{
    return node.restype >= RTNONE ? node.restype : acdbGroupCodeToType(node.restype);
}

void copyBinary(const ads_binary& from, ads_binary& to)
{
    to.clen = from.clen;
    to.buf = static_cast<char*>(std::malloc(static_cast<std::size_t>(from.clen) + 1));
    if (to.buf) std::memcpy(to.buf, from.buf, static_cast<std::size_t>(from.clen));
}
} // namespace

namespace ed
{
OwnedResbuf copyNode(const resbuf* node)
{
    if (!node) return nullptr;
    OwnedResbuf copy(acutNewRb(node->restype));
    copy->resval = node->resval;
    if (valueType(*node) == RTSTR) acutNewString(node->resval.rstring, copy->resval.rstring);
    if (valueType(*node) == RTLB && node->restype < RTNONE)
        copyBinary(node->resval.rbinary, copy->resval.rbinary);
    return copy;
}

OwnedResbuf copyList(const resbuf* list)
{
    OwnedResbuf head = copyNode(list);
    resbuf* last = head.get();
    for (const resbuf* at = list ? list->rbnext : nullptr; at; at = at->rbnext) {
        last->rbnext = copyNode(at).release();
        last = last->rbnext;
    }
    return head;
}

void append(OwnedResbuf& list, OwnedResbuf more)
{
    if (!list) {
        list = std::move(more);
        return;
    }
    resbuf* last = list.get();
    while (last->rbnext)
        last = last->rbnext;
    last->rbnext = more.release();
}
} // namespace ed
