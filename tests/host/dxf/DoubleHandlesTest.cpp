#include "acutads.h"
#include "adsdef.h"
#include "AsciiWriter.h"
#include "dbdatabase.h"
#include "dbdict.h"
#include "dblayer.h"
#include "dbline.h"
#include "dbobjptr.h"
#include "dbregapp.h"
#include "dbxrecrd.h"
#include "DrawingFile.h"
#include "DrawingWriter.h"
#include "Stub.h"

#include <gtest/gtest.h>

using namespace dxf;

namespace
{
std::string section(const char* name, const std::string& records)
{
    return std::string("0\nSECTION\n2\n") + name + "\n" + records + "0\nENDSEC\n";
}

std::string table(const char* name, const std::string& handle, const std::string& records)
{
    return std::string("0\nTABLE\n2\n") + name + "\n5\n" + handle + "\n100\nAcDbSymbolTable\n70\n1\n" +
           records + "0\nENDTAB\n";
}

std::string application(const std::string& handle, const char* name)
{
    return "0\nAPPID\n5\n" + handle + "\n100\nAcDbSymbolTableRecord\n100\nAcDbRegAppTableRecord\n2\n" + name +
           "\n70\n0\n";
}

std::string layer(const std::string& handle, const char* name, int color)
{
    return "0\nLAYER\n5\n" + handle + "\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n2\n" + name +
           "\n70\n0\n62\n" + std::to_string(color) + "\n6\nContinuous\n";
}

/// From x = `from` to 10.
std::string line(const std::string& handle, const char* layerName, int from, const std::string& xdata = "")
{
    return "0\nLINE\n5\n" + handle + "\n100\nAcDbEntity\n8\n" + layerName + "\n100\nAcDbLine\n10\n" +
           std::to_string(from) + "\n20\n0\n11\n10\n21\n0\n" + xdata;
}

std::string tagged(const char* applicationName, const char* text)
{
    return std::string("1001\n") + applicationName + "\n1000\n" + text + "\n";
}

/// Entries are pairs of name and handle.
std::string dictionary(const std::string& handle, const std::string& owner,
                       const std::vector<std::pair<std::string, std::string>>& entries)
{
    std::string text = "0\nDICTIONARY\n5\n" + handle + "\n330\n" + owner + "\n100\nAcDbDictionary\n281\n1\n";
    for (const auto& [name, entry] : entries)
        text += "3\n" + name + "\n350\n" + entry + "\n";
    return text;
}

std::string note(const std::string& handle, const std::string& owner, const char* text)
{
    return "0\nXRECORD\n5\n" + handle + "\n330\n" + owner + "\n100\nAcDbXrecord\n280\n1\n1\n" + text + "\n";
}

std::string drawing(const std::string& tables, const std::string& entities, const std::string& objects = "")
{
    return section("HEADER", "9\n$ACADVER\n1\nAC1032\n") + section("TABLES", tables) +
           section("ENTITIES", entities) +
           section("OBJECTS", objects.empty() ? dictionary("C", "0", {}) : objects) + "0\nEOF\n";
}

std::string saved(AcDbDatabase& database)
{
    MemorySink sink;
    AsciiWriter writer(sink, TextEncoding());
    DrawingWriter(database, writer, FileVersion::r2018).write();
    writer.finish();
    return sink.bytes();
}

/// The line number in a file, counted from 1, of the group 0 that starts the n-th record of a name, counted
/// from 0.
std::size_t lineOf(const std::string& file, const std::string& name, int n)
{
    std::size_t at = file.find("0\n" + name + "\n");
    for (; n > 0; --n)
        at = file.find("0\n" + name + "\n", at + 1);
    return 1 + static_cast<std::size_t>(
                   std::count(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

/// A damaged drawing, opened, and once more as it was saved.
class DoubleHandles : public testing::Test
{
protected:
    /// The n-th record of a name must be the one that is reported, and the only one.
    void open(const std::string& file, const std::string& refused, int n)
    {
        RepairReport report, second;
        ASSERT_EQ(readDrawing(mOpened, openDrawing(Input::ofBytes(file)), report), Acad::eOk);
        ASSERT_EQ(report.count(), 1u) << textOf(report.kept().back());
        const Repair& repair = report.kept().front();
        EXPECT_EQ(repair.code, RepairCode::duplicateHandle);
        EXPECT_EQ(repair.record, refused);
        EXPECT_EQ(repair.position, lineOf(file, refused, n));
        EXPECT_EQ(repair.reason, "the handle was taken: a new one was given");
        ASSERT_EQ(readDrawing(mAgain, openDrawing(Input::ofBytes(saved(mOpened))), second), Acad::eOk);
        EXPECT_TRUE(second.isEmpty()) << textOf(second.kept().front());
    }

    /// The lines of model space as "layer: start x: text of the extended data".
    std::vector<std::string> lines()
    {
        std::vector<std::string> found;
        AcDbObjectPointer<AcDbBlockTableRecord> space(mAgain.modelSpaceId(), AcDb::kForRead);
        for (const AcDbObjectId id : space->entityIds()) {
            AcDbObjectPointer<AcDbLine> one(id, AcDb::kForRead);
            CString layer, text;
            one->layer(layer);
            text.Format(L"%ls: %g: %ls", layer.GetString(), one->startPoint().x, xdataOf(*one).GetString());
            found.push_back(std::string(CStringA(text)));
        }
        return found;
    }

    static CString xdataOf(const AcDbObject& object)
    {
        resbuf* all = object.xData();
        const CString text = all && all->rbnext ? all->rbnext->resval.rstring : L"";
        acutRelRb(all);
        return text;
    }

    template <class Table>
    bool has(AcDbObjectId table, const ACHAR* name)
    {
        return AcDbObjectPointer<Table>(table, AcDb::kForRead)->has(name);
    }

    int colorOf(const ACHAR* layerName)
    {
        AcDbObjectId id;
        AcDbObjectPointer<AcDbLayerTable>(mAgain.layerTableId(), AcDb::kForRead)->getAt(layerName, id);
        return AcDbObjectPointer<AcDbLayerTableRecord>(id, AcDb::kForRead)->color().colorIndex();
    }

    AcDbObjectId entryOf(AcDbObjectId dictionaryId, const ACHAR* name)
    {
        AcDbObjectId id;
        AcDbObjectPointer<AcDbDictionary> opened(dictionaryId, AcDb::kForRead);
        if (opened.openStatus() == Acad::eOk) opened->getAt(name, id);
        return id;
    }

    /// The text of the record at a path below the root of all dictionaries; its owners are those of the path.
    CString noteAt(const std::vector<const ACHAR*>& path)
    {
        AcDbObjectId id = mAgain.namedObjectsDictionaryId(), owner;
        for (const ACHAR* name : path) {
            owner = id;
            id = entryOf(id, name);
        }
        AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForRead);
        if (record.openStatus() != Acad::eOk) return L"no record";
        EXPECT_EQ(record->ownerId(), owner);
        resbuf* all = nullptr;
        record->rbChain(&all);
        const CString text = all ? all->resval.rstring : L"";
        acutRelRb(all);
        return text;
    }

    AcDbDatabase mOpened{false}, mAgain{false};
};

using Lines = std::vector<std::string>;
} // namespace

TEST_F(DoubleHandles, EntityLosesTheHandleOfAnApplication)
{
    open(drawing(table("APPID", "9", application("20", "ONE")),
                 line("20", "0", 1, tagged("ONE", "mine")) + line("21", "0", 2, tagged("ONE", "yours"))),
         "LINE", 0);
    EXPECT_EQ(lines(), (Lines{"0: 1: mine", "0: 2: yours"}));
    EXPECT_TRUE(has<AcDbRegAppTable>(mAgain.regAppTableId(), L"ONE"));
}

TEST_F(DoubleHandles, TableLosesTheHandleOfItsRecord)
{
    open(drawing(table("APPID", "20", application("20", "ONE")), line("21", "0", 1, tagged("ONE", "mine"))),
         "TABLE", 0);
    EXPECT_EQ(lines(), (Lines{"0: 1: mine"}));
}

TEST_F(DoubleHandles, LayersOfOneHandleKeepTheirNamesAndEntities)
{
    open(drawing(table("LAYER", "2", layer("20", "Walls", 1) + layer("20", "Doors", 2)),
                 line("30", "Doors", 1) + line("31", "Walls", 2)),
         "LAYER", 1);
    EXPECT_EQ(lines(), (Lines{"Doors: 1: ", "Walls: 2: "}));
    EXPECT_EQ(colorOf(L"Walls"), 1);
    EXPECT_EQ(colorOf(L"Doors"), 2);
}

TEST_F(DoubleHandles, RecordsOfDifferentTablesAreBothKept)
{
    open(drawing(table("LAYER", "2", layer("20", "Walls", 1)) + table("APPID", "9", application("20", "ONE")),
                 line("30", "Walls", 1, tagged("ONE", "mine"))),
         "APPID", 0);
    EXPECT_EQ(lines(), (Lines{"Walls: 1: mine"}));
    EXPECT_EQ(colorOf(L"Walls"), 1);
}

TEST_F(DoubleHandles, SecondEntityGetsANewHandle)
{
    open(drawing("", line("20", "0", 1) + line("20", "0", 2) + line("21", "0", 3)), "LINE", 1);
    EXPECT_EQ(lines(), (Lines{"0: 1: ", "0: 2: ", "0: 3: "}));
    AcDbObjectId id;
    ASSERT_EQ(mAgain.getAcDbObjectId(id, false, AcDbHandle(std::uint64_t(0x20))), Acad::eOk);
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(id, AcDb::kForRead)->startPoint().x, 1.0);
}

TEST_F(DoubleHandles, DictionaryIsFoundThoughATableHasItsHandle)
{
    const std::string objects = dictionary("C", "0", {{"MINE", "20"}}) +
                                dictionary("20", "C", {{"A", "30"}}) + note("30", "20", "kept");
    open(drawing(table("LAYER", "20", layer("21", "Walls", 1)), "", objects), "DICTIONARY", 1);
    EXPECT_EQ(noteAt({L"MINE", L"A"}), L"kept");
}

TEST_F(DoubleHandles, EntriesMeanWhatNamesTheirDictionaryAsOwner)
{
    const std::string objects = dictionary("C", "0", {{"ONE", "20"}, {"TWO", "21"}}) +
                                dictionary("20", "C", {{"A", "30"}}) + dictionary("21", "C", {{"A", "30"}}) +
                                note("30", "20", "first") + note("30", "21", "second");
    open(drawing("", "", objects), "XRECORD", 1);
    EXPECT_EQ(noteAt({L"ONE", L"A"}), L"first");
    EXPECT_EQ(noteAt({L"TWO", L"A"}), L"second");
}

TEST_F(DoubleHandles, EntriesOfOneDictionaryMeanTheirRecordsInTurn)
{
    const std::string objects = dictionary("C", "0", {{"A", "30"}, {"B", "30"}}) + note("30", "C", "first") +
                                note("30", "C", "second");
    open(drawing("", "", objects), "XRECORD", 1);
    EXPECT_EQ(noteAt({L"A"}), L"first");
    EXPECT_EQ(noteAt({L"B"}), L"second");
}

TEST_F(DoubleHandles, ExtensionDictionaryIsFoundThoughAnEntityHasItsHandle)
{
    std::string owner = line("20", "0", 1);
    owner.insert(owner.find("100\n"), "102\n{ACAD_XDICTIONARY\n360\n21\n102\n}\n");
    const std::string objects =
        dictionary("C", "0", {}) + dictionary("21", "20", {{"A", "30"}}) + note("30", "21", "kept");
    open(drawing("", owner + line("21", "0", 2), objects), "DICTIONARY", 1);
    AcDbObjectId id;
    ASSERT_EQ(mAgain.getAcDbObjectId(id, false, AcDbHandle(std::uint64_t(0x20))), Acad::eOk);
    const AcDbObjectId extension = AcDbObjectPointer<AcDbLine>(id, AcDb::kForRead)->extensionDictionary();
    AcDbObjectPointer<AcDbDictionary> opened(extension, AcDb::kForRead);
    ASSERT_EQ(opened.openStatus(), Acad::eOk);
    EXPECT_TRUE(opened->has(L"A"));
}
