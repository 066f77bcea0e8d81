/// Texts of numbers as the working drawing writes them.

#include "acdbunits.h"
#include "DatabaseState.h"
#include "dbmain.h"
#include "UnitsRead.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace
{
using units::Angular;
using units::Linear;

constexpr double pi = 3.14159265358979323846;
constexpr int surveyors = 4;

AcDbDatabase* drawing()
{
    return acdbHostApplicationServices()->workingDatabase();
}

double withinTurn(double angle)
{
    double turned = std::fmod(angle, 2 * pi);
    if (turned < 0.0) turned += 2 * pi;
    return turned < 2 * pi ? turned : 0.0;
}

/// Hands a text out; false when it does not fit.
bool handOut(const std::wstring& from, ACHAR* text, std::size_t size)
{
    if (from.size() >= size) return false;
    std::wmemcpy(text, from.c_str(), from.size() + 1);
    return true;
}

/// UNITMODE 1 writes lengths as they are typed: 1'6-1/2" for 1'-6 1/2".
std::wstring asTyped(std::wstring text)
{
    const std::size_t dash = text.find(L"'-");
    if (dash != std::wstring::npos) text.erase(dash + 1, 1);
    std::replace(text.begin(), text.end(), L' ', L'-');
    return text;
}

int unitOr(int unit, int current)
{
    return unit == -1 ? current : unit;
}

int dimzin(const AcDbDatabase* db)
{
    return db ? static_cast<int>(DatabaseAccess::of(*db).header.integer("$DIMZIN")) : 0;
}

units::AngularFormat angularFormat(const AcDbDatabase* db, int unit, int precision)
{
    units::AngularFormat format;
    format.unit = unit == surveyors ? Angular::degreesMinutesSeconds : static_cast<Angular>(unit);
    format.precision = precision;
    format.zeros = (dimzin(db) >> 2) & 3;
    return format;
}

/// The list interface writes degrees without their sign, and d in front of minutes.
std::wstring plainAngle(double angle, const units::AngularFormat& format)
{
    std::wstring text = units::angleText(angle, format);
    if (text == units::angleText(2 * pi, format))
        text = units::angleText(0.0, format); // rounded to a whole turn
    const std::size_t sign = text.find(L'\u00B0');
    if (sign == std::wstring::npos) return text;
    if (format.unit == Angular::degrees)
        text.erase(sign, 1);
    else
        text[sign] = L'd';
    return text;
}

std::wstring bearingText(double angle, const units::AngularFormat& format, bool joined)
{
    const int quarter = static_cast<int>(angle / (pi / 2));
    const double within = angle - quarter * (pi / 2);
    constexpr const wchar_t* directions[] = {L"E", L"N", L"W", L"S"};
    if (within < 1e-9) return directions[quarter & 3];
    if (pi / 2 - within < 1e-9) return directions[(quarter + 1) & 3];
    const bool fromAxis = quarter == 1 || quarter == 3; // counted from north or south on
    const std::wstring turn = plainAngle(fromAxis ? within : pi / 2 - within, format);
    const std::wstring blank = joined ? L"" : L" ";
    return (quarter < 2 ? L"N" : L"S") + blank + turn + blank + (quarter == 0 || quarter == 3 ? L"E" : L"W");
}
} // namespace

int acdbRToS(ads_real value, int unit, int precision, ACHAR* text, std::size_t size)
{
    const AcDbDatabase* db = drawing();
    const int wanted = unitOr(unit, db ? db->lunits() : 2);
    if (!text || !std::isfinite(value) || wanted < 1 || wanted > 5) return RTERROR;
    units::LinearFormat format;
    format.unit = static_cast<Linear>(wanted);
    format.precision = precision < 0 && db ? db->luprec() : precision;
    format.zeros = dimzin(db);
    const std::wstring shown = units::lengthText(value, format);
    const bool typed = db && db->unitmode() == 1 && wanted >= 3;
    return handOut(typed ? asTyped(shown) : shown, text, size) ? RTNORM : RTERROR;
}

int acdbAngToS(ads_real angle, int unit, int precision, ACHAR* text, std::size_t size)
{
    const AcDbDatabase* db = drawing();
    const int wanted = unitOr(unit, db ? db->aunits() : 0);
    if (!text || !std::isfinite(angle) || wanted < 0 || wanted > surveyors) return RTERROR;
    const units::AngularFormat format =
        angularFormat(db, wanted, precision < 0 && db ? db->auprec() : precision);
    double turned = angle - (db ? db->angbase() : 0.0);
    if (db && db->angdir()) turned = -turned;
    turned = withinTurn(turned);
    const bool joined = db && db->unitmode() == 1;
    const std::wstring shown =
        wanted == surveyors ? bearingText(turned, format, joined) : plainAngle(turned, format);
    return handOut(shown, text, size) ? RTNORM : RTERROR;
}

int acdbDisToF(const ACHAR* text, int unit, ads_real* value)
{
    const AcDbDatabase* db = drawing();
    const int wanted = unitOr(unit, db ? db->lunits() : 2);
    if (!text || !value || wanted < 1 || wanted > 5) return RTERROR;
    const std::optional<double> read = units::readLength(text, static_cast<Linear>(wanted));
    if (!read) return RTERROR;
    *value = *read;
    return RTNORM;
}

int acdbAngToF(const ACHAR* text, int unit, ads_real* value)
{
    const AcDbDatabase* db = drawing();
    const int wanted = unitOr(unit, db ? db->aunits() : 0);
    if (!text || !value || wanted < 0 || wanted > surveyors) return RTERROR;
    const std::optional<double> read = units::readAngle(text, static_cast<Angular>(wanted % surveyors));
    if (!read) return RTERROR;
    *value = withinTurn((db && db->angdir() ? -*read : *read) + (db ? db->angbase() : 0.0));
    return RTNORM;
}
