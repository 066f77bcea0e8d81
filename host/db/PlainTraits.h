#pragma once

/// Traits for drawing where looks do not matter.

#include "acgi.h"

/// Takes all traits and keeps none; a class that wants one of them overrides its setter.
class PlainTraits : public AcGiSubEntityTraits
{
public:
    void setColor(std::uint16_t) override {}
    void setTrueColor(const AcCmEntityColor&) override {}
    void setLayer(AcDbObjectId) override {}
    void setLineType(AcDbObjectId) override {}
    void setLineTypeScale(double) override {}
    void setLineWeight(AcDb::LineWeight) override {}
    void setTransparency(const AcCmTransparency&) override {}
    void setFillType(AcGiFillType) override {}
};
