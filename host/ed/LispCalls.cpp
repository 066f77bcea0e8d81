#include "LispCalls.h"

#include "Documents.h"
#include "ModuleEvents.h"
#include "ResbufCopy.h"
#include "acedlisp.h"

#include <vector>

namespace
{
struct Call {
    short code;
    const resbuf* arguments;
    ed::OwnedResbuf result;
};

std::vector<Call*>& calls()
{
    static std::vector<Call*> active;
    return active;
}

int setResult(ed::OwnedResbuf value)
{
    if (calls().empty()) return RTERROR;
    calls().back()->result = std::move(value);
    return RTNORM;
}

int setResult(short type) { return setResult(ed::OwnedResbuf(acutNewRb(type))); }

ed::LispFunctions* ofDocument()
{
    DocumentState* state = documents::current();
    return state ? &state->lisp : nullptr;
}

/// Calls the module's handler, or the module itself.
bool enter(const ed::LispFunction& function, Call& call)
{
    const auto& handlers = ofDocument()->handlers;
    const auto handler = handlers.find({function.module, function.code});
    calls().push_back(&call);
    const bool good = handler != handlers.end() ? handler->second() == RTNORM
                                                : modules::sendTo(function.module, AcRx::kInvkSubrMsg) == AcRx::kRetOK;
    calls().pop_back();
    return good;
}
} // namespace

namespace ed
{
bool isDefined(const std::wstring& name) { return ofDocument() && ofDocument()->functions.count(name); }

bool callLisp(const std::wstring& name, OwnedResbuf arguments, OwnedResbuf& result)
{
    LispFunctions* lisp = ofDocument();
    const auto found = lisp ? lisp->functions.find(name) : decltype(lisp->functions.find(name)){};
    if (!lisp || found == lisp->functions.end()) return false;
    const LispFunction function = found->second; // it may undefine itself
    Call call{function.code, arguments.get(), nullptr};
    const bool good = enter(function, call);
    result = std::move(call.result);
    return good;
}

void forgetLisp(void* module)
{
    for (AcApDocument* document : documents::all()) {
        LispFunctions& lisp = documents::stateOf(document)->lisp;
        for (auto at = lisp.functions.begin(); at != lisp.functions.end();)
            at = at->second.module == module ? lisp.functions.erase(at) : std::next(at);
        for (auto at = lisp.handlers.begin(); at != lisp.handlers.end();)
            at = at->first.first == module ? lisp.handlers.erase(at) : std::next(at);
    }
}
} // namespace ed

int acedDefun(const ACHAR* name, short code)
{
    ed::LispFunctions* lisp = ofDocument();
    if (!lisp || !name || !*name || !modules::current()) return RTERROR;
    lisp->functions[name] = {modules::current(), code};
    return RTNORM;
}

int acedUndef(const ACHAR* name, short code)
{
    ed::LispFunctions* lisp = ofDocument();
    const auto found = lisp && name ? lisp->functions.find(name) : decltype(lisp->functions.find(name)){};
    if (!lisp || !name || found == lisp->functions.end() || found->second.code != code) return RTERROR;
    lisp->functions.erase(found);
    return RTNORM;
}

int acedRegFunc(int (*handler)(), int code)
{
    ed::LispFunctions* lisp = ofDocument();
    if (!lisp || !modules::current()) return RTERROR;
    if (handler)
        lisp->handlers[{modules::current(), code}] = handler;
    else
        lisp->handlers.erase({modules::current(), code});
    return RTNORM;
}

int acedGetFunCode() { return calls().empty() ? RTERROR : calls().back()->code; }

resbuf* acedGetArgs()
{
    return calls().empty() ? nullptr : ed::copyList(calls().back()->arguments).release();
}

int acedRetVoid() { return setResult(RTVOID); }
int acedRetNil() { return setResult(RTNIL); }
int acedRetT() { return setResult(RTT); }
int acedRetInt(int value) { return setResult(ed::OwnedResbuf(acutBuildList(RTLONG, value, RTNONE))); }
int acedRetReal(ads_real value) { return setResult(ed::OwnedResbuf(acutBuildList(RTREAL, value, RTNONE))); }

int acedRetStr(const ACHAR* value)
{
    return value ? setResult(ed::OwnedResbuf(acutBuildList(RTSTR, value, RTNONE))) : RTERROR;
}

int acedRetPoint(const ads_point value)
{
    return value ? setResult(ed::OwnedResbuf(acutBuildList(RT3DPOINT, value, RTNONE))) : RTERROR;
}

int acedRetName(const ads_name name, int type)
{
    if (!name || (type != RTENAME && type != RTPICKS)) return RTERROR;
    return setResult(ed::OwnedResbuf(acutBuildList(type, name, RTNONE)));
}

int acedRetList(const resbuf* list) { return list ? setResult(ed::copyList(list)) : acedRetNil(); }
int acedRetVal(const resbuf* value) { return value ? setResult(ed::copyNode(value)) : RTERROR; }

int acedInvoke(const resbuf* call, resbuf** result)
{
    if (result) *result = nullptr;
    if (!call || call->restype != RTSTR || !call->resval.rstring) return RTERROR;
    ed::OwnedResbuf value;
    if (!ed::callLisp(call->resval.rstring, ed::copyList(call->rbnext), value)) return RTERROR;
    if (result) *result = value.release();
    return RTNORM;
}

int acedGetSym(const ACHAR* name, resbuf** value)
{
    ed::LispFunctions* lisp = ofDocument();
    if (!lisp || !name || !*name || !value) return RTERROR;
    const auto found = lisp->symbols.find(name);
    *value = found == lisp->symbols.end() ? acutNewRb(RTNIL) : ed::copyList(found->second.get()).release();
    return RTNORM;
}

int acedPutSym(const ACHAR* name, const resbuf* value)
{
    ed::LispFunctions* lisp = ofDocument();
    if (!lisp || !name || !*name || !value) return RTERROR;
    if (value->restype == RTNIL)
        lisp->symbols.erase(name);
    else
        lisp->symbols[name] = ed::copyList(value);
    return RTNORM;
}
