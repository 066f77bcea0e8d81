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
    /// The paper whose sides differ least from these (in the units, upright or lying), and the units. Papers have no margins
    /// here, so `matchPrintableArea` changes nothing.
    Acad::ErrorStatus setClosestMediaName(AcDbPlotSettings* settings, double width, double height,
                                          AcDbPlotSettings::PlotPaperUnits units, bool matchPrintableArea = false);
    Acad::ErrorStatus setDefaultPlotConfig(AcDbPlotSettings* settings);
    Acad::ErrorStatus setPlotOrigin(AcDbPlotSettings* settings, double x, double y);
    Acad::ErrorStatus setPlotPaperUnits(AcDbPlotSettings* settings, AcDbPlotSettings::PlotPaperUnits units);
    Acad::ErrorStatus setPlotRotation(AcDbPlotSettings* settings, AcDbPlotSettings::PlotRotation rotation);
    Acad::ErrorStatus setPlotCentered(AcDbPlotSettings* settings, bool centered);
    Acad::ErrorStatus setPlotType(AcDbPlotSettings* settings, AcDbPlotSettings::PlotType type);
    /// eInvalidInput unless the area is a rectangle.
    Acad::ErrorStatus setPlotWindowArea(AcDbPlotSettings* settings, double xMin, double yMin, double xMax, double yMax);
    Acad::ErrorStatus setPlotViewName(AcDbPlotSettings* settings, const ACHAR* view);
    Acad::ErrorStatus setUseStandardScale(AcDbPlotSettings* settings, bool standard);
    /// The scale becomes a standard one.
    Acad::ErrorStatus setStdScaleType(AcDbPlotSettings* settings, AcDbPlotSettings::StdScaleType type);
    /// The same by its value, paper by drawing; 0 fits the area to the paper. eInvalidInput when no standard scale has it.
    Acad::ErrorStatus setStdScale(AcDbPlotSettings* settings, double scale);
    /// Numbers above 0; the scale is no standard one from then on.
    Acad::ErrorStatus setCustomPrintScale(AcDbPlotSettings* settings, double numerator, double denominator);
    Acad::ErrorStatus setCurrentStyleSheet(AcDbPlotSettings* settings, const ACHAR* sheet);

    Acad::ErrorStatus plotDeviceList(AcArray<const ACHAR*>& devices) const;
    Acad::ErrorStatus canonicalMediaNameList(AcDbPlotSettings* settings, AcArray<const ACHAR*>& names) const;
    /// How a paper is called to users; null for one that is not known.
    const ACHAR* getLocaleMediaName(AcDbPlotSettings* settings, const ACHAR* canonicalName) const;
    const ACHAR* getLocaleMediaName(AcDbPlotSettings* settings, int mediaIndex) const;
    /// There are no style sheets to choose from: none is listed.
    Acad::ErrorStatus plotStyleSheetList(AcArray<const ACHAR*>& sheets) const;
    void refreshLists(AcDbPlotSettings*) {}
};
