#include "VariableStore.h"

#include "DatabaseState.h"
#include "Documents.h"
#include "EditorEvents.h"
#include "ProfileSettings.h"
#include "acedvars.h"

#include <cmath>

namespace
{
using ed::Kept;
using ed::VariableInfo;
using ed::VariableValue;
using ed::Written;

constexpr const wchar_t* section = L"Variables";

ed::VariableValues& ofSession()
{
    static ed::VariableValues values;
    return values;
}

HeaderVariables* header()
{
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    return database ? &DatabaseAccess::of(*database).header : nullptr;
}

std::string headerName(const VariableInfo& info)
{
    std::string name = "$";
    for (const wchar_t* at = info.name; *at; ++at) name += static_cast<char>(*at);
    return name;
}

VariableValue defaultOf(const VariableInfo& info) { return VariableValue::parse(info.type, info.value); }

std::optional<VariableValue> readHeader(const VariableInfo& info)
{
    const HeaderVariables* variables = header();
    if (!variables) return std::nullopt;
    const std::string name = headerName(info);
    switch (info.type) {
    case RTSTR: return VariableValue::ofText(variables->text(name).GetString());
    case RTREAL: return VariableValue::ofReal(variables->real(name));
    case RTSHORT: return VariableValue::ofInteger(static_cast<long>(variables->integer(name)));
    default: return VariableValue::ofPoint(variables->point(name), info.type);
    }
}

bool writeHeader(const VariableInfo& info, const VariableValue& value)
{
    HeaderVariables* variables = header();
    if (!variables) return false;
    const std::string name = headerName(info);
    switch (info.type) {
    case RTSTR: variables->setText(name, value.text.c_str()); break;
    case RTREAL: variables->setReal(name, value.real); break;
    case RTSHORT: variables->setInteger(name, value.integer); break;
    default: variables->setPoint(name, value.point);
    }
    if (DocumentState* state = documents::current()) state->dbmod |= 4;
    return true;
}

std::optional<VariableValue> readFrom(const ed::VariableValues* values, const VariableInfo& info)
{
    if (!values) return std::nullopt;
    const auto found = values->find(info.name);
    return found == values->end() ? defaultOf(info) : found->second;
}

ed::VariableValues* ofDocument()
{
    DocumentState* state = documents::current();
    return state ? &state->variables : nullptr;
}

VariableValue readRegistry(const VariableInfo& info)
{
    const std::optional<std::wstring> text = profile::read(section, info.name);
    return text ? VariableValue::parse(info.type, *text) : defaultOf(info);
}

std::wstring storedText(const VariableValue& value)
{
    CString text(value.text.c_str());
    if (value.type == RTREAL) text.Format(L"%.17g", value.real);
    if (value.type == RTSHORT) text.Format(L"%d", static_cast<int>(value.integer));
    if (value.type == RTPOINT || value.type == RT3DPOINT)
        text.Format(L"%.17g %.17g %.17g", value.point.x, value.point.y, value.point.z);
    return text.GetString();
}

std::optional<VariableValue> read(const std::wstring& name, const VariableInfo& info)
{
    switch (info.kept) {
    case Kept::drawing: return readHeader(info);
    case Kept::document: return readFrom(ofDocument(), info);
    case Kept::session: return readFrom(&ofSession(), info);
    case Kept::registry: return readRegistry(info);
    default: return ed::boundVariable(name)->read();
    }
}

bool write(const std::wstring& name, const VariableInfo& info, const VariableValue& value)
{
    switch (info.kept) {
    case Kept::drawing: return writeHeader(info, value);
    case Kept::document:
        if (ed::VariableValues* values = ofDocument()) (*values)[name] = value;
        return ofDocument() != nullptr;
    case Kept::session: ofSession()[name] = value; return true;
    case Kept::registry: return profile::write(section, name, storedText(value));
    default: return ed::boundVariable(name)->write(value);
    }
}

bool isPoint(short type) { return type == RTPOINT || type == RT3DPOINT; }

/// The value in the type of the variable; nothing when it does not fit.
std::optional<VariableValue> converted(const VariableInfo& info, const VariableValue& value)
{
    VariableValue result = value;
    result.type = info.type;
    if (isPoint(info.type) && isPoint(value.type)) {
        if (info.type == RTPOINT) result.point.z = 0.0;
        return result;
    }
    if (info.type == value.type) return result;
    if (info.type != RTREAL || value.type != RTSHORT) return std::nullopt;
    result.real = static_cast<double>(value.integer);
    return result;
}

bool isAllowed(const VariableInfo& info, const VariableValue& value)
{
    if (isPoint(info.type)) return std::isfinite(value.point.x + value.point.y + value.point.z);
    if (info.type == RTSTR) return true;
    const double number = info.type == RTREAL ? value.real : static_cast<double>(value.integer);
    return std::isfinite(number) && number >= info.least && number <= info.most;
}

std::optional<VariableValue> valueOf(const resbuf& node)
{
    switch (node.restype) {
    case RTSHORT: return VariableValue::ofInteger(node.resval.rint);
    case RTLONG: return VariableValue::ofInteger(node.resval.rlong);
    case RTREAL:
    case RTANG:
    case RTORINT: return VariableValue::ofReal(node.resval.rreal);
    case RTPOINT:
    case RT3DPOINT: {
        const double* p = node.resval.rpoint;
        return VariableValue::ofPoint({p[0], p[1], p[2]}, node.restype);
    }
    case RTSTR: return VariableValue::ofText(node.resval.rstring ? node.resval.rstring : L"");
    default: return std::nullopt;
    }
}

void fill(const VariableValue& value, resbuf& node)
{
    node.restype = value.type;
    switch (value.type) {
    case RTSTR: acutNewString(value.text.c_str(), node.resval.rstring); break;
    case RTREAL: node.resval.rreal = value.real; break;
    case RTSHORT:
        if (value.integer == static_cast<short>(value.integer)) {
            node.resval.rint = static_cast<short>(value.integer);
        } else {
            node.restype = RTLONG;
            node.resval.rlong = static_cast<std::int32_t>(value.integer);
        }
        break;
    default:
        node.resval.rpoint[X] = value.point.x;
        node.resval.rpoint[Y] = value.point.y;
        node.resval.rpoint[Z] = value.type == RTPOINT ? 0.0 : value.point.z;
    }
}
} // namespace

namespace ed
{
std::wstring upperCase(std::wstring text)
{
    if (!text.empty()) _wcsupr_s(&text[0], text.size() + 1);
    return text;
}

std::optional<VariableValue> readVariable(const std::wstring& anyCase)
{
    const std::wstring name = upperCase(anyCase);
    const std::optional<VariableInfo> info = variableInfo(name);
    return info ? read(name, *info) : std::nullopt;
}

Written writeVariable(const std::wstring& anyCase, const VariableValue& value)
{
    const std::wstring name = upperCase(anyCase);
    const std::optional<VariableInfo> info = variableInfo(name);
    if (!info) return Written::unknown;
    if (info->readOnly) return Written::readOnly;
    const std::optional<VariableValue> wanted = converted(*info, value);
    if (!wanted) return Written::wrongType;
    if (!isAllowed(*info, *wanted)) return Written::refused;
    tellEditor([&](AcEditorReactor& reactor) { reactor.sysVarWillChange(name.c_str()); });
    const bool done = write(name, *info, *wanted);
    tellEditor([&](AcEditorReactor& reactor) { reactor.sysVarChanged(name.c_str(), done); });
    return done ? Written::done : Written::refused;
}

void resetVariables()
{
    ofSession().clear();
    profile::clear(section);
}
} // namespace ed

int acedGetVar(const ACHAR* name, resbuf* value)
{
    if (!name || !value) return RTERROR;
    const std::optional<VariableValue> found = ed::readVariable(name);
    if (!found) return RTERROR;
    resbuf* const next = value->rbnext;
    fill(*found, *value);
    value->rbnext = next;
    return RTNORM;
}

int acedSetVar(const ACHAR* name, const resbuf* value)
{
    const std::optional<VariableValue> given = name && value ? valueOf(*value) : std::nullopt;
    return given && ed::writeVariable(name, *given) == Written::done ? RTNORM : RTERROR;
}
