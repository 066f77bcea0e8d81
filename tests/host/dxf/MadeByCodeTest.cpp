/// What programs make in a drawing, saved and opened again.

#include "SavedDrawing.h"

#include "dbattdef.h"
#include "dbattrib.h"
#include "dbblkref.h"
#include "dbcircle.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbtxtsty.h"
#include "DrawingFile.h"

using namespace dxf;
using namespace dxftest;

namespace
{
AcDbObjectId addTo(AcDbDatabase& database, AcDbObjectId holder, AcDbEntity* entity)
{
    AcDbObjectId id;
    const AcDbBlockTableRecordPointer block(holder, AcDb::kForWrite);
    EXPECT_EQ(block->appendAcDbEntity(id, entity), Acad::eOk) << &database;
    entity->close();
    return id;
}

/// A block named `name` with a circle and an attribute definition.
AcDbObjectId addDoor(AcDbDatabase& database, const wchar_t* name)
{
    AcDbObjectId id;
    {
        const AcDbBlockTablePointer table(&database, AcDb::kForWrite);
        auto* block = new AcDbBlockTableRecord;
        block->setName(name);
        block->setOrigin(AcGePoint3d(1, 2, 0));
        EXPECT_EQ(table->add(id, block), Acad::eOk);
        block->close();
    }
    addTo(database, id, new AcDbCircle(AcGePoint3d(1, 2, 0), AcGeVector3d::kZAxis, 5.0));
    addTo(database, id, new AcDbAttributeDefinition(AcGePoint3d(1, 2, 0), L"7", L"NUMBER", L"Which?"));
    return id;
}

/// Shows a block in model space, with an attribute.
void showDoor(AcDbDatabase& database, AcDbObjectId door)
{
    const AcDbObjectId id =
        addTo(database, database.modelSpaceId(), new AcDbBlockReference(AcGePoint3d(9, 9, 0), door));
    const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
    auto* attribute = new AcDbAttribute(AcGePoint3d(9, 9, 0), L"42", L"NUMBER");
    EXPECT_EQ(reference->appendAttribute(attribute), Acad::eOk);
    attribute->close();
}

struct Format {
    FileVersion version;
    bool isBinary;
};

class MadeByCode : public testing::TestWithParam<Format>
{
protected:
    std::filesystem::path save(AcDbDatabase& drawing)
    {
        WriteOptions options;
        options.version = GetParam().version;
        options.isBinary = GetParam().isBinary;
        const std::filesystem::path path = folder.file("made.dxf");
        EXPECT_EQ(writeDrawing(drawing, path.wstring(), options), Acad::eOk);
        expectSound(path);
        return path;
    }

    OutputFolder folder;
};

std::string formatName(const testing::TestParamInfo<Format>& info)
{
    return std::string(info.param.version == FileVersion::r2000 ? "R2000" : "R2018") +
           (info.param.isBinary ? "Binary" : "Ascii");
}
} // namespace

TEST_P(MadeByCode, BlocksAndTheirReferencesAreReadBack)
{
    AcDbDatabase drawing;
    showDoor(drawing, addDoor(drawing, L"DOOR"));
    showDoor(drawing, addDoor(drawing, L"*U"));
    const std::filesystem::path path = save(drawing);
    AcDbDatabase again(false);
    ASSERT_EQ(again.readDwgFile(path.wstring().c_str()), Acad::eOk);
    EXPECT_FALSE(again.needsRecovery());
    // The styles of a new drawing for which R2000 has no records stay behind.
    if (GetParam().version != FileVersion::r2000) {
        EXPECT_EQ(again.approxNumObjects(), drawing.approxNumObjects());
    }
    const AcDbBlockTablePointer table(&again);
    for (const wchar_t* name : {L"DOOR", L"*U2"}) {
        AcDbObjectId id;
        ASSERT_EQ(table->getAt(name, id), Acad::eOk) << name;
        const AcDbBlockTableRecordPointer block(id);
        EXPECT_EQ(block->origin(), AcGePoint3d(1, 2, 0));
        EXPECT_EQ(block->isAnonymous(), name[0] == L'*');
        EXPECT_TRUE(block->hasAttributeDefinitions());
        AcDbObjectIdArray references;
        ASSERT_EQ(block->getBlockReferenceIds(references), Acad::eOk);
        ASSERT_EQ(references.length(), 1);
        const AcDbObjectPointer<AcDbBlockReference> reference(references[0]);
        const DbSubentities* attributes =
            static_cast<const AcDbBlockReference*>(reference.object())->subentities();
        ASSERT_EQ(attributes->ids.size(), 1u);
        EXPECT_STREQ(AcDbObjectPointer<AcDbAttribute>(attributes->ids[0])->textStringConst(), L"42");
        EXPECT_TRUE(attributes->sequenceEnd.isValid());
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, MadeByCode,
                         testing::Values(Format{FileVersion::r2000, false}, Format{FileVersion::r2018, false},
                                         Format{FileVersion::r2018, true}),
                         formatName);

TEST(TextOfAFile, WithoutAStyleIsStandardWhicheverIsCurrent)
{
    const std::string file =
        "0\nSECTION\n2\nHEADER\n9\n$"
        "TEXTSTYLE\n7\nWIDE\n0\nENDSEC\n0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nSTYLE\n"
        "0\nSTYLE\n2\nStandard\n0\nSTYLE\n2\nWIDE\n0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n"
        "0\nTEXT\n5\nA1\n8\n0\n40\n1.0\n1\nA\n0\nMTEXT\n5\nA2\n8\n0\n100\nAcDbEntity\n100\nAcDbMText\n40\n1."
        "0\n1\nB\n"
        "0\nENDSEC\n0\nEOF\n";
    AcDbDatabase drawing(false);
    RepairReport report;
    ASSERT_EQ(readDrawing(drawing, openDrawing(Input::ofBytes(file)), report), Acad::eOk);
    const AcDbTextStyleTablePointer styles(&drawing);
    AcDbObjectId standard, text, mtext;
    ASSERT_EQ(styles->getAt(L"Standard", standard), Acad::eOk);
    ASSERT_NE(drawing.textstyle(), standard);
    ASSERT_EQ(drawing.getAcDbObjectId(text, false, AcDbHandle(0xA1)), Acad::eOk);
    ASSERT_EQ(drawing.getAcDbObjectId(mtext, false, AcDbHandle(0xA2)), Acad::eOk);
    EXPECT_EQ(AcDbObjectPointer<AcDbText>(text)->textStyle(), standard);
    EXPECT_EQ(AcDbObjectPointer<AcDbMText>(mtext)->textStyle(), standard);
}

TEST(OldDimensionStyle, NamesItsArrows)
{
    const std::string file =
        "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nDIMSTYLE\n70\n1\n0\nDIMSTYLE\n2\nOLD\n70\n0\n5\nDOT\n6\n\n7\n"
        "ABC\n0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n8\n0\n2\nDOT\n70\n0\n0\nENDBLK\n8\n0\n"
        "0\nBLOCK\n8\n0\n2\nABC\n70\n0\n0\nENDBLK\n8\n0\n0\nENDSEC\n0\nEOF\n";
    AcDbDatabase drawing(false);
    RepairReport report;
    ASSERT_EQ(readDrawing(drawing, openDrawing(Input::ofBytes(file)), report), Acad::eOk);
    EXPECT_TRUE(report.isEmpty());
    const AcDbDimStyleTablePointer styles(&drawing);
    const AcDbBlockTablePointer blocks(&drawing);
    AcDbObjectId style, dot, abc;
    ASSERT_EQ(styles->getAt(L"OLD", style), Acad::eOk);
    blocks->getAt(L"DOT", dot);
    blocks->getAt(L"ABC", abc);
    const AcDbObjectPointer<AcDbDimStyleTableRecord> record(style);
    EXPECT_EQ(record->dimblk(), dot);
    EXPECT_TRUE(record->dimblk1().isNull());
    EXPECT_EQ(record->dimblk2(), abc) << "a name that could be a handle";
}
