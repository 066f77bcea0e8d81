#include "VariablePrompt.h"

#include "CommandLine.h"
#include "Faults.h"
#include "InputSource.h"
#include "TypedAnswer.h"
#include "VariableStore.h"

#include <atlstr.h>

namespace
{
using ed::VariableValue;

std::wstring shown(const VariableValue& value)
{
    CString text;
    switch (value.type) {
    case RTSTR: return L"\"" + value.text + L"\"";
    case RTREAL: text.Format(L"%.4f", value.real); break;
    case RTSHORT: text.Format(L"%d", static_cast<int>(value.integer)); break;
    case RTPOINT: text.Format(L"%.4f,%.4f", value.point.x, value.point.y); break;
    default: text.Format(L"%.4f,%.4f,%.4f", value.point.x, value.point.y, value.point.z);
    }
    return text.GetString();
}

/// The typed text as a value of the variable's type; a type of RTNONE when it is none.
VariableValue typed(short type, std::wstring text)
{
    if (type == RTSTR) return VariableValue::ofText(text == L"." ? std::wstring() : text);
    const bool number = text.find_first_not_of(L"0123456789+-.,eE ") == std::wstring::npos;
    for (wchar_t& c : text) {
        if (c == L',') c = L' ';
    }
    const bool whole = text.find_first_of(L".eE") == std::wstring::npos;
    return number && (whole || type != RTSHORT) ? VariableValue::parse(type, text) : VariableValue();
}
} // namespace

std::wstring ed::variableLine(const std::wstring& name)
{
    const std::optional<VariableValue> now = readVariable(name);
    if (!now) return {};
    const std::wstring upper = upperCase(name);
    return upper + L" = " + shown(*now) + (variableInfo(upper)->readOnly ? L" (read only)\n" : L"\n");
}

bool ed::promptForVariable(const std::wstring& typedName)
{
    // The prefixes of commands are taken here too.
    const std::wstring name = typedName.substr(std::min(typedName.find_first_not_of(L"'_."), typedName.size()));
    const std::optional<VariableValue> now = readVariable(name);
    if (!now) return false;
    const std::wstring upper = upperCase(name);
    if (variableInfo(upper)->readOnly) {
        print(variableLine(upper));
        return true;
    }
    print(L"Enter new value for " + upper + L" <" + shown(*now) + L">: ");
    const Answer answer = currentInput().next(now->type == RTSTR ? Reading::line : Reading::token);
    if (answer.kind != Answer::Kind::text) return true;
    if (writeVariable(name, typed(now->type, answer.text)) != Written::done)
        fail(L"The value is not valid for " + upper + L".");
    return true;
}
