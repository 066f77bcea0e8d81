#include "VariableValues.h"

#include <cwchar>

namespace ed
{
VariableValue VariableValue::ofInteger(long value)
{
    VariableValue made;
    made.type = RTSHORT;
    made.integer = value;
    return made;
}

VariableValue VariableValue::ofReal(double value)
{
    VariableValue made;
    made.type = RTREAL;
    made.real = value;
    return made;
}

VariableValue VariableValue::ofPoint(const AcGePoint3d& value, short type)
{
    VariableValue made;
    made.type = type;
    made.point = value;
    return made;
}

VariableValue VariableValue::ofText(std::wstring value)
{
    VariableValue made;
    made.type = RTSTR;
    made.text = std::move(value);
    return made;
}

VariableValue VariableValue::parse(short type, const std::wstring& text)
{
    VariableValue made;
    made.type = type;
    if (type == RTSTR) {
        made.text = text;
        return made;
    }
    wchar_t* end = nullptr;
    double values[3] = {0.0, 0.0, 0.0};
    const wchar_t* at = text.c_str();
    for (double& value : values) {
        value = std::wcstod(at, &end);
        at = end;
    }
    made.integer = static_cast<long>(values[0]);
    made.real = values[0];
    made.point = {values[0], values[1], values[2]};
    return made;
}
} // namespace ed
