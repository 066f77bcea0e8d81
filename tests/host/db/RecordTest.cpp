/// The records of the symbol tables: what they write back of what they read, and the rules of their setters.

#include "DatabaseFixture.h"
#include "RecordLists.h"
#include "ResbufSink.h"

#include <cmath>
#include <memory>

namespace
{
const PackedGroups& sampleLayer()
{
    static const PackedGroups groups = groupsOf({{100, "AcDbSymbolTableRecord"}, {100, "AcDbLayerTableRecord"},
                                                 {2, "AXIS_轴线"}, {70, 5.0}, {62, -171.0}, {420, 1122867.0},
                                                 {6, "Continuous"}, {290, 0.0}, {370, 35.0}, {390, 700.0}, {347, 701.0},
                                                 {348, 0.0}, {430, "RAL$1001"}});
    return groups;
}

/// A dash, a gap with a text, a dot with a shape.
const PackedGroups& sampleLinetype()
{
    static const PackedGroups groups = groupsOf({{100, "AcDbSymbolTableRecord"},
                                                 {100, "AcDbLinetypeTableRecord"},
                                                 {2, "GAS"},
                                                 {70, 0.0},
                                                 {3, "__GAS__"},
                                                 {72, 65.0},
                                                 {73, 3.0},
                                                 {40, 1.5},
                                                 {49, 0.5},
                                                 {74, 0.0},
                                                 {49, -0.25},
                                                 {74, 3.0},
                                                 {75, 0.0},
                                                 {340, 702.0},
                                                 {46, 0.1},
                                                 {50, 30.0},
                                                 {44, -0.05},
                                                 {45, 0.02},
                                                 {9, "GAS"},
                                                 {49, 0.0},
                                                 {74, 4.0},
                                                 {75, 132.0},
                                                 {340, 703.0},
                                                 {46, 2.0},
                                                 {50, 0.0},
                                                 {44, 0.0},
                                                 {45, 0.0}});
    return groups;
}

const PackedGroups& sampleStyle()
{
    static const PackedGroups groups = groupsOf({{100, "AcDbSymbolTableRecord"}, {100, "AcDbTextStyleTableRecord"},
                                                 {2, "标注"}, {70, 4.0}, {40, 2.5}, {41, 0.7}, {50, 15.0}, {71, 2.0},
                                                 {42, 3.5}, {3, "txt.shx"}, {4, "hztxt.shx"}});
    return groups;
}

const PackedGroups& sampleUcs()
{
    static const PackedGroups groups =
        groupsOf({{100, "AcDbSymbolTableRecord"}, {100, "AcDbUCSTableRecord"}, {2, "FRONT"}, {70, 0.0}, {10, 1.0},
                  {20, 2.0}, {30, 3.0}, {11, 0.0}, {21, 1.0}, {31, 0.0}, {12, 0.0}, {22, 0.0}, {32, 1.0}, {79, 3.0},
                  {146, 0.5}, {346, 704.0}, {71, 1.0}, {13, 7.0}, {23, 8.0}, {33, 9.0}, {71, 5.0}, {13, 1.0}, {23, 1.0},
                  {33, 1.0}});
    return groups;
}

const PackedGroups& sampleView()
{
    static const PackedGroups groups = groupsOf({{100, "AcDbSymbolTableRecord"},
                                                 {100, "AcDbViewTableRecord"},
                                                 {2, "TEST"},
                                                 {70, 1.0},
                                                 {40, 13314.95},
                                                 {10, 5771.9},
                                                 {20, 789.3},
                                                 {41, 19003.5},
                                                 {11, 0.0},
                                                 {21, -1.0},
                                                 {31, 1.0},
                                                 {12, 1.0},
                                                 {22, 2.0},
                                                 {32, 3.0},
                                                 {42, 35.0},
                                                 {43, 1.0},
                                                 {44, -1.0},
                                                 {50, 90.0},
                                                 {71, 17.0},
                                                 {281, 2.0},
                                                 {72, 1.0},
                                                 {73, 1.0},
                                                 {348, 706.0},
                                                 {110, 1.0},
                                                 {120, 0.0},
                                                 {130, 0.0},
                                                 {111, 0.0},
                                                 {121, 1.0},
                                                 {131, 0.0},
                                                 {112, 0.0},
                                                 {122, 0.0},
                                                 {132, 1.0},
                                                 {79, 0.0},
                                                 {146, 4.5},
                                                 {345, 705.0},
                                                 {361, 707.0}});
    return groups;
}

const PackedGroups& sampleViewport()
{
    static const PackedGroups groups = groupsOf(
        {{100, "AcDbSymbolTableRecord"}, {100, "AcDbViewportTableRecord"}, {2, "*Active"}, {70, 0.0}, {10, 0.0},
         {20, 0.0}, {11, 0.5}, {21, 1.0}, {12, 343.38}, {22, 261.28}, {13, 1.0}, {23, 2.0}, {14, 10.0}, {24, 5.0},
         {15, 10.0}, {25, 20.0}, {16, 0.0}, {26, 0.0}, {36, 1.0}, {17, 1.0}, {27, 1.0}, {37, 1.0}, {40, 359.83},
         {41, 1.8}, {42, 50.0}, {43, 0.0}, {44, 0.0}, {50, 45.0}, {51, 30.0}, {71, 8.0}, {72, 100.0}, {73, 1.0},
         {74, 3.0}, {75, 1.0}, {76, 1.0}, {77, 1.0}, {78, 2.0}, {281, 0.0}, {65, 1.0}, {110, 0.0}, {120, 0.0},
         {130, 0.0}, {111, 1.0}, {121, 0.0}, {131, 0.0}, {112, 0.0}, {122, 1.0}, {132, 0.0}, {79, 0.0}, {146, 0.0},
         {348, 706.0}, {60, 3.0}, {61, 5.0}, {292, 1.0}, {63, 250.0}, {421, 3355443.0}});
    return groups;
}

struct RecordCase {
    const char* name;
    std::unique_ptr<AcDbSymbolTableRecord> (*make)();
    const PackedGroups& (*sample)();
};

template <class T>
std::unique_ptr<AcDbSymbolTableRecord> make()
{
    return std::make_unique<T>();
}

class Record : public DatabaseFixture, public testing::WithParamInterface<RecordCase>
{
};

std::string caseName(const testing::TestParamInfo<RecordCase>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Tables, Record,
                         testing::Values(RecordCase{"Layer", make<AcDbLayerTableRecord>, sampleLayer},
                                         RecordCase{"Linetype", make<AcDbLinetypeTableRecord>, sampleLinetype},
                                         RecordCase{"TextStyle", make<AcDbTextStyleTableRecord>, sampleStyle},
                                         RecordCase{"Ucs", make<AcDbUCSTableRecord>, sampleUcs},
                                         RecordCase{"View", make<AcDbViewTableRecord>, sampleView},
                                         RecordCase{"Viewport", make<AcDbViewportTableRecord>, sampleViewport}),
                         caseName);
} // namespace

TEST_P(Record, IsWrittenAsItWasRead)
{
    const auto record = GetParam().make();
    EXPECT_EQ(rewritten(*record, GetParam().sample(), &mDatabase), textOf(GetParam().sample()));
}

TEST_P(Record, CopyHasTheSameContents)
{
    const auto record = GetParam().make();
    rewritten(*record, GetParam().sample(), &mDatabase);
    const std::unique_ptr<AcRxObject> copy(record->clone());
    ListSink sink(DxfVersion::r2018);
    record->dxfClass()->write(static_cast<AcDbObject&>(*copy), sink);
    // What the class does not know stays with the object that read it.
    const std::string all = textOf(GetParam().sample());
    EXPECT_EQ(all.compare(0, textOf(sink.groups).size(), textOf(sink.groups)), 0) << textOf(sink.groups);
}

using Records = DatabaseFixture;

TEST_F(Records, LayerReadsItsStates)
{
    AcDbLayerTableRecord layer;
    rewritten(layer, sampleLayer(), &mDatabase);
    EXPECT_TRUE(layer.isFrozen() && layer.isLocked() && layer.isOff());
    EXPECT_FALSE(layer.VPDFLT() || layer.isPlottable());
    EXPECT_EQ(layer.color().color() & 0xFFFFFF, 1122867u);
    EXPECT_EQ(layer.linetypeObjectId(), mDatabase.continuousLinetype());
    EXPECT_EQ(layer.lineWeight(), AcDb::kLnWt035);
}

TEST_F(Records, LayerSettersKeepToWhatLayersCanHave)
{
    AcDbLayerTableRecord layer;
    EXPECT_EQ(layer.color().colorIndex(), 7);
    EXPECT_EQ(layer.setLineWeight(AcDb::kLnWtByBlock), Acad::eBadLineWeightValue);
    EXPECT_EQ(layer.setLineWeight(AcDb::kLnWt211), Acad::eOk);
    layer.setColor(AcCmColor()); // by layer
    EXPECT_EQ(layer.color().colorIndex(), 7);
    layer.setLinetypeObjectId(mDatabase.layerZero());
    EXPECT_TRUE(layer.linetypeObjectId().isNull());
    EXPECT_EQ(layer.setDescription(L"x"), Acad::eNotInDatabase);
}

TEST_F(Records, CurrentLayerIsNeitherFrozenNorErasedNorZeroRenamed)
{
    AcDbLayerTableRecord* zero = nullptr;
    ASSERT_EQ(acdbOpenObject(zero, mDatabase.clayer(), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(zero->setIsFrozen(true), Acad::eInvalidLayer);
    EXPECT_EQ(zero->erase(), Acad::eCannotBeErasedByCaller);
    EXPECT_EQ(zero->setName(L"A"), Acad::eIllegalReplacement);
    EXPECT_EQ(zero->setIsHidden(true), Acad::eOk);
    zero->close();
    EXPECT_EQ(zero->setIsFrozen(false), Acad::eNotOpenForWrite);
}

TEST_F(Records, LayerKeepsDescriptionAndTransparencyAsExtendedData)
{
    AcDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(acdbOpenObject(layer, mDatabase.layerZero(), AcDb::kForWrite), Acad::eOk);
    EXPECT_TRUE(layer->transparency().isSolid());
    EXPECT_EQ(layer->setTransparency(AcCmTransparency(127)), Acad::eOk);
    EXPECT_EQ(layer->transparency().alpha(), 127);
    EXPECT_EQ(layer->setTransparency(AcCmTransparency()), Acad::eInvalidInput);
    EXPECT_EQ(layer->setDescription(L"轴网"), Acad::eOk);
    ACHAR* text = layer->description();
    EXPECT_STREQ(text, L"轴网");
    acutDelString(text);
    EXPECT_EQ(layer->setPlotStyleName(L"absent"), Acad::eKeyNotFound);
    EXPECT_EQ(layer->setPlotStyleName(L"normal"), Acad::eOk);
    ACHAR* style = layer->plotStyleName();
    EXPECT_STREQ(style, L"Normal");
    acutDelString(style);
    layer->close();
}

TEST_F(Records, LinetypeDashesAreReadAndSet)
{
    AcDbLinetypeTableRecord type;
    rewritten(type, sampleLinetype(), &mDatabase);
    ASSERT_EQ(type.numDashes(), 3);
    EXPECT_DOUBLE_EQ(type.dashLengthAt(1), -0.25);
    EXPECT_DOUBLE_EQ(type.shapeRotationAt(1), std::acos(-1.0) / 6.0); // 30 degrees
    EXPECT_TRUE(type.shapeIsUcsOrientedAt(1));
    EXPECT_EQ(type.shapeNumberAt(2), 132);
    EXPECT_EQ(type.dashLengthAt(3), 0.0);
    EXPECT_EQ(type.setDashLengthAt(3, 1.0), Acad::eInvalidIndex);
    EXPECT_EQ(type.setDashLengthAt(0, std::nan("")), Acad::eInvalidInput);
    EXPECT_EQ(type.setNumDashes(1), Acad::eTooFewLineTypeElements);
    EXPECT_EQ(type.setNumDashes(13), Acad::eTooManyLineTypeElements);
    EXPECT_EQ(type.setTextAt(2, L"W"), Acad::eOk);
    EXPECT_EQ(type.setNumDashes(2), Acad::eOk);
    EXPECT_EQ(type.numDashes(), 2);
}

TEST_F(Records, TextStyleRefusesWhatTextsCannotHave)
{
    AcDbTextStyleTableRecord style;
    EXPECT_EQ(style.setTextSize(-1.0), Acad::eInvalidInput);
    EXPECT_EQ(style.setXScale(0.0), Acad::eInvalidInput);
    EXPECT_EQ(style.setObliquingAngle(1.49), Acad::eInvalidInput); // 85.4 degrees
    EXPECT_EQ(style.setFlagBits(1), Acad::eInvalidInput);
    EXPECT_EQ(style.setTextSize(std::nan("")), Acad::eInvalidInput);
    EXPECT_EQ(style.setXScale(0.7), Acad::eOk);
    EXPECT_EQ(style.xScale(), 0.7);
}

TEST_F(Records, TextStyleKeepsItsTypefaceAsExtendedData)
{
    AcDbTextStyleTable* table = nullptr;
    ASSERT_EQ(mDatabase.getTextStyleTable(table, AcDb::kForWrite), Acad::eOk);
    auto* style = new AcDbTextStyleTableRecord;
    style->setName(L"TrueType");
    ASSERT_EQ(table->add(style), Acad::eOk);
    EXPECT_EQ(style->setFont(L"宋体", true, false, 134, 34), Acad::eOk);
    const ResbufList data(style->xData(L"ACAD"));
    ASSERT_TRUE(data && data->rbnext && data->rbnext->rbnext);
    // Bold is bit 25, the character set the second byte, pitch and family the first.
    EXPECT_EQ(data->rbnext->rbnext->resval.rlong, 0x2000000 + 134 * 256 + 34);
    ACHAR* face = nullptr;
    bool bold = false, italic = true;
    int charset = 0, pitch = 0;
    EXPECT_EQ(style->font(face, bold, italic, charset, pitch), Acad::eOk);
    EXPECT_STREQ(face, L"宋体");
    EXPECT_TRUE(bold && !italic && charset == 134 && pitch == 34);
    acutDelString(face);
    style->close();
    table->close();
}

TEST_F(Records, ShapeFilesHaveNoNamesAndActiveViewportsShareOne)
{
    AcDbTextStyleTable* styles = nullptr;
    ASSERT_EQ(mDatabase.getTextStyleTable(styles, AcDb::kForWrite), Acad::eOk);
    for (const wchar_t* file : {L"ltypeshp.shx", L"other.shx"}) {
        auto* shapes = new AcDbTextStyleTableRecord;
        shapes->setIsShapeFile(true);
        shapes->setFileName(file);
        EXPECT_EQ(styles->add(shapes), Acad::eOk);
        shapes->close();
    }
    EXPECT_FALSE(styles->has(L""));
    styles->close();

    AcDbViewportTable* viewports = nullptr;
    ASSERT_EQ(mDatabase.getViewportTable(viewports, AcDb::kForWrite), Acad::eOk);
    const std::size_t before = viewports->recordIds().size();
    for (int i = 0; i < 2; ++i) {
        auto* viewport = new AcDbViewportTableRecord;
        EXPECT_EQ(viewport->setName(L"*Active"), Acad::eOk);
        EXPECT_EQ(viewports->add(viewport), Acad::eOk);
        viewport->close();
    }
    EXPECT_EQ(viewports->recordIds().size(), before + 2);
    viewports->close();
}

TEST_F(Records, ViewTakesACoordinateSystemOrNone)
{
    AcDbViewTableRecord view;
    EXPECT_FALSE(view.isUcsAssociatedToView());
    EXPECT_EQ(view.setUcs(AcGePoint3d(1, 2, 3), AcGeVector3d(2, 0, 0), AcGeVector3d(1, 1, 0)), Acad::eInvalidInput);
    EXPECT_EQ(view.setUcs(AcGePoint3d(1, 2, 3), AcGeVector3d(2, 0, 0), AcGeVector3d(0, 0, 2)), Acad::eOk);
    EXPECT_TRUE(view.isUcsAssociatedToView());
    AcGePoint3d origin;
    AcGeVector3d x, y;
    view.getUcs(origin, x, y);
    EXPECT_EQ(y, AcGeVector3d::kZAxis);
    view.setHeight(-1.0);
    EXPECT_EQ(view.height(), 1.0);
}

TEST_F(Records, DimensionStyleKeepsEveryVariableOfAFile)
{
    // Two groups 70: flags of the record, then the fill colour. Values that no setter would take are kept.
    const PackedGroups groups = groupsOf({{100, "AcDbSymbolTableRecord"},
                                          {100, "AcDbDimStyleTableRecord"},
                                          {2, "ISO-25"},
                                          {70, 0.0},
                                          {3, "<>mm"},
                                          {40, 0.0},
                                          {41, 2.5},
                                          {50, 45.0},
                                          {70, 5.0},
                                          {77, 1.0},
                                          {290, 1.0},
                                          {176, 3.0},
                                          {340, 800.0},
                                          {371, 25.0},
                                          {148, 0.5}});
    AcDbDimStyleTableRecord style;
    const std::string all = "\n" + rewritten(style, groups, &mDatabase);
    DxfGroup group;
    for (std::size_t at = 0; groups.read(at, group);) {
        PackedGroups one;
        one.append(group);
        EXPECT_NE(all.find("\n" + textOf(one)), std::string::npos) << textOf(one);
    }
    EXPECT_NE(all.find("70 0\n3 <>mm"), std::string::npos);
    EXPECT_EQ(style.dimtfillclr().colorIndex(), 5);
    EXPECT_TRUE(style.dimfxlenOn());
    EXPECT_EQ(style.dimpost(), L"<>mm");
    EXPECT_NEAR(style.dimjogang(), std::atan(1.0), 1e-15);
    EXPECT_EQ(style.dimlwd(), AcDb::kLnWt025);
    EXPECT_EQ(AcDbDimStyleTableRecord().dimlwd(), AcDb::kLnWtByBlock);
}
