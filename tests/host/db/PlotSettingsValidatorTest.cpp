#include "dbplotsetval.h"

#include "DatabaseFixture.h"

#include <cmath>

using PlotSettingsValidator = DatabaseFixture;

TEST_F(PlotSettingsValidator, PageTakesTheSizeOfItsPaper)
{
    AcDbPlotSettingsValidator validator;
    AcDbPlotSettings settings;
    AcArray<const ACHAR*> papers;
    ASSERT_EQ(validator.canonicalMediaNameList(&settings, papers), Acad::eOk);
    for (int i = 0; i < papers.length(); ++i)
        EXPECT_EQ(validator.setCanonicalMediaName(&settings, papers[i]), Acad::eOk);
    EXPECT_EQ(validator.setPlotCfgName(&settings, L"none", L"ISO_A3_(297.00_x_420.00_MM)"), Acad::eOk);
    double width = 0.0, height = 0.0;
    settings.getPlotPaperSize(width, height);
    EXPECT_EQ(width, 297.0);
    EXPECT_EQ(height, 420.0);
    EXPECT_EQ(validator.setPlotCfgName(&settings, L"Laser"), Acad::eInvalidInput);
    EXPECT_EQ(validator.setCanonicalMediaName(&settings, L"A17"), Acad::eInvalidInput);
    EXPECT_EQ(validator.setCanonicalMediaName(nullptr, papers[0]), Acad::eNullObjectPointer);
}

TEST_F(PlotSettingsValidator, RefusesWhatNoPageCanHave)
{
    AcDbPlotSettingsValidator validator;
    AcDbPlotSettings settings;
    EXPECT_EQ(validator.setCustomPrintScale(&settings, 1.0, 0.0), Acad::eInvalidInput);
    EXPECT_EQ(validator.setPlotWindowArea(&settings, 1.0, 0.0, 1.0, 5.0), Acad::eInvalidInput);
    EXPECT_EQ(validator.setPlotOrigin(&settings, std::nan(""), 0.0), Acad::eInvalidInput);
    EXPECT_TRUE(settings.useStandardScale());
    EXPECT_EQ(validator.setCustomPrintScale(&settings, 1.0, 250.0), Acad::eOk);
    EXPECT_FALSE(settings.useStandardScale());
    EXPECT_EQ(validator.setPlotCentered(&settings, true), Acad::eOk);
    EXPECT_TRUE(settings.plotCentered());
}

TEST_F(PlotSettingsValidator, StandardScalesHaveTheNumbersOfTheReference)
{
    AcDbPlotSettingsValidator validator;
    AcDbPlotSettings settings;
    double paper = 0.0, drawing = 0.0, scale = 0.0;
    EXPECT_EQ(validator.setStdScaleType(&settings, AcDbPlotSettings::k1_50), Acad::eOk);
    settings.getCustomPrintScale(paper, drawing);
    settings.getStdScale(scale);
    EXPECT_EQ(settings.stdScaleType(), 25);
    EXPECT_EQ(drawing / paper, 50.0);
    EXPECT_EQ(scale, 0.02);
    // A quarter of an inch for a foot.
    EXPECT_EQ(validator.setStdScale(&settings, 1.0 / 48), Acad::eOk);
    EXPECT_EQ(settings.stdScaleType(), AcDbPlotSettings::k1_4in_1ft);
    EXPECT_EQ(validator.setStdScale(&settings, 0.0), Acad::eOk);
    EXPECT_EQ(settings.stdScaleType(), AcDbPlotSettings::kScaleToFit);
    EXPECT_EQ(validator.setStdScale(&settings, 1.0 / 7), Acad::eInvalidInput);
}

TEST_F(PlotSettingsValidator, ClosestPaperMayLieOnItsSide)
{
    AcDbPlotSettingsValidator validator;
    AcDbPlotSettings settings;
    // 16.5 by 11.7 inches: 419 by 297 mm.
    EXPECT_EQ(validator.setClosestMediaName(&settings, 16.5, 11.7, AcDbPlotSettings::kInches), Acad::eOk);
    const ACHAR* media = nullptr;
    settings.getCanonicalMediaName(media);
    EXPECT_STREQ(validator.getLocaleMediaName(&settings, media), L"ISO A3 (297.00 x 420.00 MM)");
    EXPECT_EQ(settings.plotPaperUnits(), AcDbPlotSettings::kInches);
    EXPECT_EQ(validator.setClosestMediaName(&settings, 0.0, 11.7, AcDbPlotSettings::kInches), Acad::eInvalidInput);
}
