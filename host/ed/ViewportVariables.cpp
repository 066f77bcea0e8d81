/// System variables that each viewport has its own of: grid, snap, the icon of the UCS, and whether it keeps
/// a UCS.

#include "EditedObject.h"
#include "VariableTable.h"
#include "Viewports.h"

#include <cmath>

namespace
{
using ed::VariableValue;
using ed::Viewport;

struct Settings {
    bool hasGrid, hasSnap, isIsometric, hasIcon, isIconAtOrigin, keepsUcs;
    AcGePoint2d gridUnit, snapUnit, snapBase;
    double snapAngle;
};

AcGePoint2d pointOf(const AcGeVector2d& vector)
{
    return {vector.x, vector.y};
}

Settings read(const AcDbViewportTableRecord& tile)
{
    return {tile.gridEnabled(),    tile.snapEnabled(),    tile.isometricSnapEnabled(),
            tile.iconEnabled(),    tile.iconAtOrigin(),   tile.isUcsSavedWithViewport(),
            tile.gridIncrements(), tile.snapIncrements(), tile.snapBase(),
            tile.snapAngle()};
}

Settings read(const AcDbViewport& window)
{
    return {window.isGridOn(),
            window.isSnapOn(),
            window.isSnapIsometric(),
            window.isUcsIconVisible(),
            window.isUcsIconAtOrigin(),
            window.isUcsSavedWithViewport(),
            pointOf(window.gridIncrement()),
            pointOf(window.snapIncrement()),
            window.snapBasePoint(),
            window.snapAngle()};
}

void write(const Settings& settings, AcDbViewportTableRecord& tile)
{
    tile.setGridEnabled(settings.hasGrid);
    tile.setSnapEnabled(settings.hasSnap);
    tile.setIsometricSnapEnabled(settings.isIsometric);
    tile.setIconEnabled(settings.hasIcon);
    tile.setIconAtOrigin(settings.isIconAtOrigin);
    tile.setUcsPerViewport(settings.keepsUcs);
    tile.setGridIncrements(settings.gridUnit);
    tile.setSnapIncrements(settings.snapUnit);
    tile.setSnapBase(settings.snapBase);
    tile.setSnapAngle(settings.snapAngle);
}

void write(const Settings& settings, AcDbViewport& window)
{
    settings.hasGrid ? window.setGridOn() : window.setGridOff();
    settings.hasSnap ? window.setSnapOn() : window.setSnapOff();
    settings.isIsometric ? window.setSnapIsometric() : window.setSnapStandard();
    settings.hasIcon ? window.setUcsIconVisible() : window.setUcsIconInvisible();
    settings.isIconAtOrigin ? window.setUcsIconAtOrigin() : window.setUcsIconAtCorner();
    window.setUcsPerViewport(settings.keepsUcs);
    window.setGridIncrement(settings.gridUnit.asVector());
    window.setSnapIncrement(settings.snapUnit.asVector());
    window.setSnapBasePoint(settings.snapBase);
    window.setSnapAngle(settings.snapAngle);
}

/// Those of the active viewport; those of a new one where there is none.
Settings activeSettings()
{
    const AcDbObject* keeper = residentObject(ed::activeViewport().id);
    if (const auto* tile = AcDbViewportTableRecord::cast(keeper)) return read(*tile);
    const auto* window = AcDbViewport::cast(keeper);
    return window ? read(*window) : read(AcDbViewport());
}

bool writeActive(const Settings& settings)
{
    return editViewport(ed::activeViewport(), [&](auto& keeper) { write(settings, keeper); }) == Acad::eOk;
}

void bindFlag(const wchar_t* name, bool Settings::*flag)
{
    ed::bindSwitch(
        name, [=] { return activeSettings().*flag; },
        [=](bool on) {
            Settings settings = activeSettings();
            settings.*flag = on;
            return writeActive(settings);
        });
}

/// `least` is that of both coordinates.
void bindPoint(const wchar_t* name, AcGePoint2d Settings::*point, double least)
{
    ed::bindVariable(name, RTPOINT,
                     {[=] {
                          const AcGePoint2d at = activeSettings().*point;
                          return VariableValue::ofPoint({at.x, at.y, 0.0}, RTPOINT);
                      },
                      [=](const VariableValue& value) {
                          if (value.point.x < least || value.point.y < least) return false;
                          Settings settings = activeSettings();
                          (settings.*point).set(value.point.x, value.point.y);
                          return writeActive(settings);
                      }});
}

void bindAngleAndIcon()
{
    ed::bindVariable(L"SNAPANG", RTREAL,
                     {[] { return VariableValue::ofReal(activeSettings().snapAngle); },
                      [](const VariableValue& value) {
                          Settings settings = activeSettings();
                          settings.snapAngle = value.real;
                          return writeActive(settings);
                      }});
    ed::bindVariable(L"UCSICON", RTSHORT,
                     {[] {
                          const Settings settings = activeSettings();
                          return VariableValue::ofInteger(settings.hasIcon | settings.isIconAtOrigin << 1);
                      },
                      [](const VariableValue& value) {
                          Settings settings = activeSettings();
                          settings.hasIcon = (value.integer & 1) != 0;
                          settings.isIconAtOrigin = (value.integer & 2) != 0;
                          return writeActive(settings);
                      }});
}

[[maybe_unused]] const bool allBound = [] {
    bindFlag(L"GRIDMODE", &Settings::hasGrid);
    bindFlag(L"SNAPMODE", &Settings::hasSnap);
    bindFlag(L"SNAPSTYL", &Settings::isIsometric);
    bindFlag(L"UCSVP", &Settings::keepsUcs);
    bindPoint(L"GRIDUNIT", &Settings::gridUnit, 0.0);
    bindPoint(L"SNAPUNIT", &Settings::snapUnit, 0.0);
    bindPoint(L"SNAPBASE", &Settings::snapBase, -HUGE_VAL);
    bindAngleAndIcon();
    return true;
}();
} // namespace
