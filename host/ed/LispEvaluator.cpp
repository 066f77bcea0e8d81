#include "LispEvaluator.h"

#include "CommandLine.h"
#include "Documents.h"
#include "EditorEvents.h"
#include "Faults.h"
#include "LispCalls.h"
#include "LispReader.h"
#include "ResbufCopy.h"
#include "TypedAnswer.h"
#include "UndoSteps.h"
#include "acedcmd.h"
#include "acedlisp.h"
#include "acedvars.h"

#include <map>

namespace
{
using ed::LispForm;
using ed::OwnedResbuf;
using Forms = std::vector<LispForm>;

/// Ends an evaluation; the text says why.
struct LispFault {
    std::wstring reason;
};

OwnedResbuf node(short type) { return OwnedResbuf(acutNewRb(type)); }
OwnedResbuf nil() { return node(RTNIL); }
OwnedResbuf realNode(double value) { return OwnedResbuf(acutBuildList(RTREAL, value, RTNONE)); }
OwnedResbuf longNode(long value) { return OwnedResbuf(acutBuildList(RTLONG, static_cast<int>(value), RTNONE)); }
OwnedResbuf textNode(const std::wstring& value) { return OwnedResbuf(acutBuildList(RTSTR, value.c_str(), RTNONE)); }

OwnedResbuf eval(const LispForm& form);

double realOf(const resbuf* value)
{
    switch (value ? value->restype : RTNIL) {
    case RTREAL: return value->resval.rreal;
    case RTSHORT: return value->resval.rint;
    case RTLONG: return value->resval.rlong;
    default: throw LispFault{L"bad argument type: numberp: " + ed::lispText(value)};
    }
}

bool isNumber(const resbuf* value)
{
    return value && !value->rbnext && (value->restype == RTREAL || value->restype == RTSHORT || value->restype == RTLONG);
}

/// A list of two or three numbers is a point, as modules get it.
OwnedResbuf pointOf(const std::vector<OwnedResbuf>& items)
{
    if (items.size() < 2 || items.size() > 3) return nullptr;
    ads_point point = {0.0, 0.0, 0.0};
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (!isNumber(items[i].get())) return nullptr;
        point[i] = realOf(items[i].get());
    }
    return OwnedResbuf(acutBuildList(items.size() == 2 ? RTPOINT : RT3DPOINT, point, RTNONE));
}

OwnedResbuf listOf(std::vector<OwnedResbuf> items)
{
    if (items.empty()) return nil();
    if (OwnedResbuf point = pointOf(items)) return point;
    OwnedResbuf list = node(RTLB);
    for (OwnedResbuf& item : items) ed::append(list, std::move(item));
    ed::append(list, node(RTLE));
    return list;
}

std::vector<OwnedResbuf> evalAll(const Forms& forms, std::size_t from = 1)
{
    std::vector<OwnedResbuf> values;
    for (std::size_t i = from; i < forms.size(); ++i) values.push_back(eval(forms[i]));
    return values;
}

OwnedResbuf quoted(const LispForm& form)
{
    if (form.kind != LispForm::Kind::list)
        return form.kind == LispForm::Kind::symbol ? textNode(form.text) : eval(form);
    std::vector<OwnedResbuf> items;
    for (const LispForm& item : form.items) items.push_back(quoted(item));
    return listOf(std::move(items));
}

const resbuf* need(const std::vector<OwnedResbuf>& values, std::size_t index)
{
    if (index >= values.size()) throw LispFault{L"too few arguments"};
    return values[index].get();
}

std::wstring needText(const std::vector<OwnedResbuf>& values, std::size_t index)
{
    const resbuf* value = need(values, index);
    if (value->restype != RTSTR) throw LispFault{L"bad argument type: stringp " + ed::lispText(value)};
    return value->resval.rstring;
}

OwnedResbuf evalQuote(const Forms& forms)
{
    if (forms.size() != 2) throw LispFault{L"syntax error"};
    return quoted(forms[1]);
}

OwnedResbuf evalSetq(const Forms& forms)
{
    OwnedResbuf value = nil();
    if (forms.size() % 2 == 0) throw LispFault{L"too few arguments in SETQ"};
    for (std::size_t i = 1; i + 1 < forms.size(); i += 2) {
        if (forms[i].kind != LispForm::Kind::symbol) throw LispFault{L"syntax error"};
        value = eval(forms[i + 1]);
        acedPutSym(forms[i].text.c_str(), value.get());
    }
    return value;
}

OwnedResbuf evalProgn(const Forms& forms)
{
    OwnedResbuf value = nil();
    for (std::size_t i = 1; i < forms.size(); ++i) value = eval(forms[i]);
    return value;
}

OwnedResbuf evalList(const Forms& forms) { return listOf(evalAll(forms)); }

OwnedResbuf evalGetvar(const Forms& forms)
{
    resbuf value{};
    if (acedGetVar(needText(evalAll(forms), 0).c_str(), &value) != RTNORM) return nil();
    OwnedResbuf copy = ed::copyNode(&value);
    if (value.restype == RTSTR) acutDelString(value.resval.rstring);
    return copy;
}

OwnedResbuf evalSetvar(const Forms& forms)
{
    std::vector<OwnedResbuf> values = evalAll(forms);
    const std::wstring name = needText(values, 0);
    if (acedSetVar(name.c_str(), need(values, 1)) != RTNORM)
        throw LispFault{L"AutoCAD variable setting rejected: \"" + name + L"\" " + ed::lispText(need(values, 1))};
    return std::move(values[1]);
}

OwnedResbuf evalCommand(const Forms& forms)
{
    OwnedResbuf list;
    for (OwnedResbuf& value : evalAll(forms)) ed::append(list, std::move(value));
    acedCmdS(list.get());
    return nil();
}

OwnedResbuf evalPrinc(const Forms& forms)
{
    if (forms.size() < 2) return node(RTVOID);
    OwnedResbuf value = eval(forms[1]);
    ed::print(value->restype == RTSTR ? std::wstring(value->resval.rstring) : ed::lispText(value.get()));
    return value;
}

template <class Operation>
OwnedResbuf fold(const Forms& forms, Operation operation)
{
    const std::vector<OwnedResbuf> values = evalAll(forms);
    double total = values.empty() ? 0.0 : realOf(values[0].get());
    bool real = !values.empty() && values[0]->restype == RTREAL;
    for (std::size_t i = 1; i < values.size(); ++i) {
        real = real || values[i]->restype == RTREAL;
        total = operation(total, realOf(values[i].get()), real);
    }
    return real ? realNode(total) : longNode(static_cast<long>(total));
}

OwnedResbuf evalAdd(const Forms& forms)
{
    return fold(forms, [](double a, double b, bool) { return a + b; });
}
OwnedResbuf evalMultiply(const Forms& forms)
{
    return fold(forms, [](double a, double b, bool) { return a * b; });
}
OwnedResbuf evalSubtract(const Forms& forms)
{
    if (forms.size() == 2) {
        const OwnedResbuf value = eval(forms[1]);
        const double negative = -realOf(value.get());
        return value->restype == RTREAL ? realNode(negative) : longNode(static_cast<long>(negative));
    }
    return fold(forms, [](double a, double b, bool) { return a - b; });
}
OwnedResbuf evalDivide(const Forms& forms)
{
    return fold(forms, [](double a, double b, bool real) {
        if (b == 0.0) throw LispFault{L"divide by zero"};
        return real ? a / b : static_cast<double>(static_cast<long>(a / b));
    });
}

using Special = OwnedResbuf (*)(const Forms&);
const std::map<std::wstring, Special, ed::NoCase>& specials()
{
    static const std::map<std::wstring, Special, ed::NoCase> all = {
        {L"quote", evalQuote},   {L"setq", evalSetq},       {L"progn", evalProgn},     {L"list", evalList},
        {L"getvar", evalGetvar}, {L"setvar", evalSetvar},   {L"command", evalCommand}, {L"command-s", evalCommand},
        {L"princ", evalPrinc},   {L"+", evalAdd},           {L"-", evalSubtract},      {L"*", evalMultiply},
        {L"/", evalDivide},
    };
    return all;
}

OwnedResbuf evalCall(const LispForm& form)
{
    if (form.items.empty()) return nil();
    const LispForm& head = form.items[0];
    if (head.kind != LispForm::Kind::symbol) throw LispFault{L"bad function"};
    const auto special = specials().find(head.text);
    if (special != specials().end()) return special->second(form.items);
    if (!ed::isDefined(head.text)) throw LispFault{L"no function definition: " + head.text};
    OwnedResbuf arguments;
    for (OwnedResbuf& value : evalAll(form.items)) ed::append(arguments, std::move(value));
    OwnedResbuf result;
    if (!ed::callLisp(head.text, std::move(arguments), result))
        throw LispFault{L"ADS request error: " + head.text};
    return result ? std::move(result) : nil();
}

OwnedResbuf evalSymbol(const std::wstring& name)
{
    if (_wcsicmp(name.c_str(), L"nil") == 0) return nil();
    if (_wcsicmp(name.c_str(), L"t") == 0) return node(RTT);
    if (_wcsicmp(name.c_str(), L"pi") == 0) return realNode(3.14159265358979323846);
    resbuf* value = nullptr;
    acedGetSym(name.c_str(), &value);
    return OwnedResbuf(value);
}

OwnedResbuf eval(const LispForm& form)
{
    switch (form.kind) {
    case LispForm::Kind::list: return evalCall(form);
    case LispForm::Kind::symbol: return evalSymbol(form.text);
    case LispForm::Kind::integer: return longNode(form.integer);
    case LispForm::Kind::real: return realNode(form.real);
    default: return textNode(form.text);
    }
}

std::wstring numberText(double value)
{
    CString text;
    text.Format(L"%.6g", value);
    return text.GetString();
}

std::wstring pointText(const double* point, int dimensions)
{
    std::wstring text = L"(";
    for (int i = 0; i < dimensions; ++i) text += (i ? L" " : L"") + numberText(point[i]);
    return text + L")";
}

/// A real shows that it is one.
std::wstring realText(double value)
{
    const std::wstring text = numberText(value);
    return text.find_first_not_of(L"-0123456789") == std::wstring::npos ? text + L".0" : text;
}

std::wstring nodeText(const resbuf& node)
{
    switch (node.restype) {
    case RTREAL:
    case RTANG: return realText(node.resval.rreal);
    case RTSHORT: return std::to_wstring(node.resval.rint);
    case RTLONG: return std::to_wstring(node.resval.rlong);
    case RTSTR: return std::wstring(L"\"") + node.resval.rstring + L"\"";
    case RTPOINT: return pointText(node.resval.rpoint, 2);
    case RT3DPOINT: return pointText(node.resval.rpoint, 3);
    case RTENAME: return L"<Entity name>";
    case RTPICKS: return L"<Selection set>";
    case RTT: return L"T";
    case RTLB: return L"(";
    case RTLE: return L")";
    case RTDOTE: return L".";
    case RTVOID: return L"";
    default: return L"nil";
    }
}

/// The expression of a text: "!name" stands for the value of a symbol.
std::wstring expressionOf(const std::wstring& text) { return text[0] == L'!' ? text.substr(1) : text; }

/// While it lives, a LISP expression is active in the current document.
class ActiveLisp
{
public:
    ActiveLisp() : mDocument(acDocManager->curDocument()), mContext(mDocument)
    {
        acDocManager->lockDocument(mDocument, AcAp::kAutoWrite);
        documents::stateOf(mDocument)->commands.push_back({L"", false, true});
    }
    ~ActiveLisp()
    {
        DocumentState* state = documents::stateOf(mDocument);
        if (!state) return;
        state->commands.pop_back();
        acDocManager->unlockDocument(mDocument);
    }
    ActiveLisp(const ActiveLisp&) = delete;
    ActiveLisp& operator=(const ActiveLisp&) = delete;

private:
    AcApDocument* mDocument;
    documents::Context mContext;
};

bool evaluateGuarded(const std::wstring& text, OwnedResbuf& result)
{
    LispForm form;
    std::wstring fault;
    if (ed::readLisp(expressionOf(text), form, fault)) {
        try {
            result = eval(form);
            return true;
        } catch (const LispFault& thrown) {
            fault = thrown.reason;
        }
    }
    ed::noteFault(L"; error: " + fault);
    ed::print(L"; error: " + fault + L"\n");
    return false;
}
} // namespace

namespace ed
{
std::wstring lispText(const resbuf* value)
{
    std::wstring text;
    for (const resbuf* at = value; at; at = at->rbnext) {
        if (!text.empty() && text.back() != L'(' && at->restype != RTLE) text += L' ';
        text += nodeText(*at);
    }
    return text.empty() && !value ? L"nil" : text;
}

bool evaluate(const std::wstring& text, OwnedResbuf& result)
{
    if (!documents::current() || text.empty()) return false;
    const OtherStep step(L"LISP");
    const ActiveLisp active;
    tellEditor([&](AcEditorReactor& reactor) { reactor.lispWillStart(text.c_str()); });
    const bool good = evaluateGuarded(text, result);
    tellEditor([&](AcEditorReactor& reactor) { good ? reactor.lispEnded() : reactor.lispCancelled(); });
    return good;
}

Outcome runLisp(const std::wstring& text)
{
    OwnedResbuf result;
    if (!evaluate(text, result)) return Outcome::failed;
    const std::wstring shown = lispText(result.get());
    if (!shown.empty()) print(shown + L"\n");
    return Outcome::done;
}

Answer answerOfLisp(const std::wstring& text)
{
    OwnedResbuf result;
    if (!evaluate(text, result) || !result) return Answer::enter();
    switch (result->restype) {
    case RTNIL:
    case RTVOID: return Answer::enter();
    case RTENAME: return Answer::ofName(Answer::Kind::entity, result->resval.rlname);
    case RTPICKS: return Answer::ofName(Answer::Kind::selection, result->resval.rlname);
    default: return Answer::ofText(typedForm(result.get()));
    }
}

std::optional<Outcome> callLispCommand(const std::wstring& word)
{
    const std::wstring name = L"C:" + word;
    if (!isDefined(name)) return std::nullopt;
    return runLisp(L"(" + name + L")");
}
} // namespace ed

int acedEvaluateLisp(const ACHAR* expression, resbuf*& result)
{
    result = nullptr;
    ed::OwnedResbuf value;
    if (!expression || !ed::evaluate(expression, value)) return RTERROR;
    result = value.release();
    return RTNORM;
}
