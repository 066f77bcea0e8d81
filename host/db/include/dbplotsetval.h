#pragma once

/// AcDbPlotSettingsValidator: sets what of page setups depends on the device, and knows devices and papers.

#include "dbplotsettings.h"

#include "acarray.h"

/// Without a plotting system there is one device, "None", which takes every ISO A paper; style sheets are named freely.
///
/// Members that set return eNullObjectPointer for null settings, eNotOpenForWrite, and eInvalidInput for what no page
/// can have; nothing is changed then.
class AcDbPlotSettingsValidator
{
public:
    Acad::ErrorStatus setPlotCfgName(AcDbPlotSettings* settings, const ACHAR* device, const ACHAR* media = nullptr);
    /// One of canonicalMediaNameList, whose size the page takes.
    Acad::ErrorStatus setCanonicalMediaName(AcDbPlotSettings* settings, const ACHAR* media);
    Acad::ErrorStatus setPlotOrigin(AcDbPlotSettings* settings, double x, double y);
    Acad::ErrorStatus setPlotPaperUnits(AcDbPlotSettings* settings, AcDbPlotSettings::PlotPaperUnits units);
    Acad::ErrorStatus setPlotRotation(AcDbPlotSettings* settings, AcDbPlotSettings::PlotRotation rotation);
    Acad::ErrorStatus setPlotCentered(AcDbPlotSettings* settings, bool centered);
    Acad::ErrorStatus setPlotType(AcDbPlotSettings* settings, AcDbPlotSettings::PlotType type);
    /// eInvalidInput unless the area is a rectangle.
    Acad::ErrorStatus setPlotWindowArea(AcDbPlotSettings* settings, double xMin, double yMin, double xMax, double yMax);
    Acad::ErrorStatus setPlotViewName(AcDbPlotSettings* settings, const ACHAR* view);
    Acad::ErrorStatus setUseStandardScale(AcDbPlotSettings* settings, bool standard);
    /// Numbers above 0; the scale is no standard one from then on.
    Acad::ErrorStatus setCustomPrintScale(AcDbPlotSettings* settings, double numerator, double denominator);
    Acad::ErrorStatus setCurrentStyleSheet(AcDbPlotSettings* settings, const ACHAR* sheet);

    Acad::ErrorStatus plotDeviceList(AcArray<const ACHAR*>& devices) const;
    Acad::ErrorStatus canonicalMediaNameList(AcDbPlotSettings* settings, AcArray<const ACHAR*>& names) const;
    void refreshLists(AcDbPlotSettings*) {}
};
