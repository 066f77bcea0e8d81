/// Background and columns of multiline texts.

#include "DbObjectAccess.h"
#include "dbsymutl.h"
#include "MTextMembers.h"

#include <algorithm>
#include <cmath>

namespace
{
bool isLength(double length) { return length >= 0.0 && std::isfinite(length); }
} // namespace

bool AcDbMText::backgroundFillOn() const
{
    return mExtras && (mExtras->flags() & (MTextExtras::fillOn | MTextExtras::fillLikeWindow));
}

Acad::ErrorStatus AcDbMText::setBackgroundFill(bool on)
{
    return changeExtras([on](MTextExtras& extras) {
        extras.setFlag(MTextExtras::fillOn, on);
        if (!on) extras.setFlag(MTextExtras::fillLikeWindow, false);
        if (on && !extras.fillScale) extras.fillScale = 1.5;
        if (on && !extras.fillColor) extras.fillColor = AcCmEntityColor::kACIbyLayer;
    });
}

Acad::ErrorStatus AcDbMText::getBackgroundFillColor(AcCmColor& color) const
{
    if (!backgroundFillOn()) return Acad::eInvalidInput;
    if (const std::optional<int> rgb = mExtras->fillRgb) {
        color.setRGB(static_cast<std::uint8_t>(*rgb >> 16), static_cast<std::uint8_t>(*rgb >> 8),
                     static_cast<std::uint8_t>(*rgb));
        return Acad::eOk;
    }
    return color.setColorIndex(mExtras->fillColor.value_or(AcCmEntityColor::kACIbyLayer));
}

Acad::ErrorStatus AcDbMText::setBackgroundFillColor(const AcCmColor& color)
{
    return changeFill([&](MTextExtras& extras) {
        extras.fillColor = color.colorIndex();
        extras.fillRgb = color.isByColor() ? std::optional<int>(color.color() & 0xFFFFFF) : std::nullopt;
        extras.setFlag(MTextExtras::fillLikeWindow, false);
        extras.setFlag(MTextExtras::fillOn, true);
    });
}

Acad::ErrorStatus AcDbMText::getBackgroundScaleFactor(double& factor) const
{
    if (!backgroundFillOn()) return Acad::eInvalidInput;
    factor = mExtras->fillScale.value_or(1.5);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setBackgroundScaleFactor(double factor)
{
    if (!(factor >= 1.0 && factor <= 5.0)) return Acad::eInvalidInput;
    return changeFill([&](MTextExtras& extras) { extras.fillScale = factor; });
}

Acad::ErrorStatus AcDbMText::getBackgroundTransparency(AcCmTransparency& transparency) const
{
    if (!backgroundFillOn()) return Acad::eInvalidInput;
    transparency.serializeIn(static_cast<std::uint32_t>(mExtras->fillTransparency.value_or(0)));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setBackgroundTransparency(const AcCmTransparency& transparency)
{
    return changeFill([&](MTextExtras& extras) {
        extras.fillTransparency = static_cast<int>(transparency.serializeOut());
    });
}

bool AcDbMText::useBackgroundColorOn() const
{
    return mExtras && (mExtras->flags() & MTextExtras::fillLikeWindow);
}

Acad::ErrorStatus AcDbMText::setUseBackgroundColor(bool on)
{
    return changeFill([&](MTextExtras& extras) {
        extras.setFlag(MTextExtras::fillLikeWindow, on);
        extras.setFlag(MTextExtras::fillOn, true);
    });
}

bool AcDbMText::showBorders() const { return mExtras && (mExtras->flags() & MTextExtras::bordersOn); }

Acad::ErrorStatus AcDbMText::setShowBorders(bool show)
{
    return changeExtras([&](MTextExtras& extras) {
        extras.setFlag(MTextExtras::bordersOn, show);
        if (!extras.fillScale) extras.fillScale = 1.5;
    });
}

/// Null without columns.
const MTextExtras* AcDbMText::columns() const
{
    return mExtras && mExtras->columns.type != kNoColumns ? &*mExtras : nullptr;
}

Acad::ErrorStatus AcDbMText::getColumnType(ColumnType& type) const
{
    type = columns() ? static_cast<ColumnType>(mExtras->columns.type) : kNoColumns;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setColumnType(ColumnType type)
{
    if (type < kNoColumns || type > kDynamicColumns) return Acad::eInvalidInput;
    return changeExtras([&](MTextExtras& extras) { extras.columns.type = type; });
}

Acad::ErrorStatus AcDbMText::getColumnCount(int& count) const
{
    if (!columns()) return Acad::eNotApplicable;
    count = mExtras->columns.count;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setColumnCount(int count)
{
    if (count < 1) return Acad::eInvalidInput;
    return changeColumns([&](MTextColumns& columns) { columns.count = count; });
}

Acad::ErrorStatus AcDbMText::getColumnWidth(double& width) const
{
    if (!columns()) return Acad::eNotApplicable;
    width = mExtras->columns.width;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setColumnWidth(double width)
{
    if (!isLength(width)) return Acad::eInvalidInput;
    return changeColumns([&](MTextColumns& columns) { columns.width = width; });
}

Acad::ErrorStatus AcDbMText::getColumnGutterWidth(double& width) const
{
    if (!columns()) return Acad::eNotApplicable;
    width = mExtras->columns.gutter;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setColumnGutterWidth(double width)
{
    if (!isLength(width)) return Acad::eInvalidInput;
    return changeColumns([&](MTextColumns& columns) { columns.gutter = width; });
}

Acad::ErrorStatus AcDbMText::getColumnAutoHeight(bool& isAuto) const
{
    if (!columns()) return Acad::eNotApplicable;
    isAuto = mExtras->columns.isAutoHeight;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setColumnAutoHeight(bool isAuto)
{
    return changeColumns([&](MTextColumns& columns) { columns.isAutoHeight = isAuto; });
}

Acad::ErrorStatus AcDbMText::getColumnFlowReversed(bool& isReversed) const
{
    if (!columns()) return Acad::eNotApplicable;
    isReversed = mExtras->columns.isReversed;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setColumnFlowReversed(bool reversed)
{
    return changeColumns([&](MTextColumns& columns) { columns.isReversed = reversed; });
}

Acad::ErrorStatus AcDbMText::getColumnHeight(int column, double& height) const
{
    if (!columns()) return Acad::eNotApplicable;
    const std::vector<double>& heights = mExtras->columns.heights;
    if (column < 0 || column >= std::max(mExtras->columns.count, static_cast<int>(heights.size())))
        return Acad::eInvalidIndex;
    height = column < static_cast<int>(heights.size()) ? heights[column] : mHeight;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setColumnHeight(int column, double height)
{
    if (!columns()) return Acad::eNotApplicable;
    if (column < 0 || column >= mExtras->columns.count) return Acad::eInvalidIndex;
    if (!isLength(height)) return Acad::eInvalidInput;
    return changeColumns([&](MTextColumns& columns) {
        columns.heights.resize(static_cast<std::size_t>(columns.count), mHeight);
        columns.heights[column] = height;
    });
}

Acad::ErrorStatus AcDbMText::setDynamicColumns(double width, double gutter, bool isAuto)
{
    if (!isLength(width) || !isLength(gutter)) return Acad::eInvalidInput;
    return changeExtras([&](MTextExtras& extras) {
        extras.columns = MTextColumns();
        extras.columns.type = kDynamicColumns;
        extras.columns.width = width;
        extras.columns.gutter = gutter;
        extras.columns.isAutoHeight = isAuto;
    });
}

Acad::ErrorStatus AcDbMText::setStaticColumns(double width, double gutter, int count)
{
    if (!isLength(width) || !isLength(gutter) || count < 1) return Acad::eInvalidInput;
    return changeExtras([&](MTextExtras& extras) {
        extras.columns = MTextColumns();
        extras.columns.type = kStaticColumns;
        extras.columns.width = width;
        extras.columns.gutter = gutter;
        extras.columns.count = count;
    });
}

namespace
{
/// The groups of an embedded object among those kept with its entity; null without one.
KeptGroups* embeddedOf(const AcDbObject& object)
{
    DbObjectExtras* extras = DbObjectAccess::extras(object);
    if (!extras) return nullptr;
    for (KeptGroups& kept : extras->keptGroups) {
        std::size_t at = 0;
        DxfGroup group;
        if (!kept.section && kept.groups.read(at, group) && group.code == 101) return &kept;
    }
    return nullptr;
}

void takeColumnGroup(MTextColumns& columns, const DxfGroup& group)
{
    switch (group.code) {
    case 71: columns.type = static_cast<int>(group.integer); break;
    case 72: columns.count = static_cast<int>(group.integer); break;
    case 73: columns.isAutoHeight = group.integer != 0; break;
    case 74: columns.isReversed = group.integer != 0; break;
    case 44: columns.width = group.real; break;
    case 45: columns.gutter = group.real; break;
    case 46: columns.heights.push_back(group.real); break;
    default: break;
    }
}
} // namespace

void MTextFields::readEmbedded(AcDbMText& text)
{
    const KeptGroups* embedded = embeddedOf(text);
    if (!embedded) return;
    MTextColumns columns;
    DxfGroup group;
    for (std::size_t at = 0; embedded->groups.read(at, group);) takeColumnGroup(columns, group);
    columns.isInEmbedded = true;
    if (columns.type == AcDbMText::kStaticColumns || columns.type == AcDbMText::kDynamicColumns)
        text.mExtras.need().columns = columns;
}

void MTextFields::forgetEmbedded(AcDbMText& text)
{
    if (KeptGroups* embedded = embeddedOf(text)) embedded->groups.clear();
    if (text.mExtras) text.mExtras->columns.isInEmbedded = false;
}

void AcDbMText::completeRead()
{
    AcDbEntity::completeRead();
    if (mStyle.isNull()) mStyle = acdbSymUtil()->textStyleStandardId(database());
    MTextFields::readEmbedded(*this);
}
