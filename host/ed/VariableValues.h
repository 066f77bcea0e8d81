#pragma once

#include "LispFunctions.h"
#include "gepnt3d.h"

#include <map>
#include <string>

namespace ed
{
/// The value of a system variable; `type` says which member counts.
struct VariableValue {
    short type = RTNONE;
    long integer = 0;
    double real = 0.0;
    AcGePoint3d point;
    std::wstring text;

    static VariableValue ofInteger(long value);
    static VariableValue ofReal(double value);
    static VariableValue ofPoint(const AcGePoint3d& value, short type = RT3DPOINT);
    static VariableValue ofText(std::wstring value);
    /// Reads the value of a type from text: numbers with a blank between, or the text itself.
    static VariableValue parse(short type, const std::wstring& text);
};

using VariableValues = std::map<std::wstring, VariableValue>;
} // namespace ed
