/// The callbacks of acedSSGet for keywords and other words.

#include "acedselect.h"
#include "ResbufCopy.h"
#include "SelectionDialog.h"
#include "Stub.h"

namespace
{
AcedSelectionCallback keywordCallback = nullptr;
AcedSelectionCallback otherCallback = nullptr;

void take(const resbuf& node, ed::CalledBack& said)
{
    if (node.restype == RTSTR && node.resval.rstring) said.message += node.resval.rstring;
    if (node.restype == RTENAME)
        said.ids.push_back(AcDbObjectId().setFromOldId(static_cast<std::intptr_t>(node.resval.rlname[0])));
    const ed::SelectionSet* set = node.restype == RTPICKS ? ed::selectionSet(node.resval.rlname) : nullptr;
    for (const AcDbObjectId id : set ? set->ids() : std::vector<AcDbObjectId>()) said.ids.push_back(id);
}

ed::CalledBack call(AcedSelectionCallback callback, const std::wstring& answer)
{
    ed::CalledBack said;
    const ed::OwnedResbuf list(callback ? callback(answer.c_str()) : nullptr);
    for (const resbuf* node = list.get(); node; node = node->rbnext) take(*node, said);
    return said;
}
} // namespace

ed::CalledBack ed::callBackKeyword(const std::wstring& keyword)
{
    return call(keywordCallback, keyword);
}
ed::CalledBack ed::callBackOther(const std::wstring& text)
{
    return call(otherCallback, text);
}

int acedSSGetKwordCallbackPtr(AcedSelectionCallback* callback)
{
    if (!callback) return RTERROR;
    *callback = keywordCallback;
    return RTNORM;
}

int acedSSSetKwordCallbackPtr(AcedSelectionCallback callback)
{
    keywordCallback = callback;
    return RTNORM;
}

int acedSSGetOtherCallbackPtr(AcedSelectionCallback* callback)
{
    if (!callback) return RTERROR;
    *callback = otherCallback;
    return RTNORM;
}

int acedSSSetOtherCallbackPtr(AcedSelectionCallback callback)
{
    otherCallback = callback;
    return RTNORM;
}
