/// AutoCAD's own commands, typed at the command line of a document.

#include "EditorFixture.h"

#include "acdbads.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbregion.h"

namespace
{
class BuiltIn : public headless::EditorTest
{
protected:
    /// Adds a new entity to model space, with what `change` makes of it.
    template <class T>
    AcDbObjectId make(const std::function<void(T&)>& change)
    {
        AcDbObjectId id;
        asCommand([&] {
            AcDbObjectPointer<AcDbBlockTableRecord> space(database()->modelSpaceId(), AcDb::kForWrite);
            AcDbObjectPointer<T> made;
            made.create();
            space->appendAcDbEntity(id, made.object());
            change(*made);
        });
        takeOutput();
        return id;
    }
    /// What typing keys shows.
    std::wstring type(const std::wstring& keys)
    {
        takeOutput();
        run(keys);
        return takeOutput();
    }
    AcDbObjectId layerNamed(const wchar_t* name) const
    {
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbLayerTable> table(database()->layerTableId());
        table->getAt(name, id);
        return id;
    }
};
} // namespace

TEST_F(BuiltIn, DblistTellsMeasuresAndExtendedData)
{
    make<AcDbLine>([&](AcDbLine& line) {
        line.setStartPoint({1, 2, 0});
        line.setEndPoint({4, 6, 0}); // 3 and 4 make 5
        line.setColorIndex(1);
        acdbRegApp(L"TESTING");
        resbuf* data = acutBuildList(1001, L"TESTING", 1000, L"a text", 1040, 2.5, 1070, 7, RTNONE);
        line.setXData(data);
        acutRelRb(data);
    });
    const std::wstring shown = type(L"DBLIST\n");
    const wchar_t* const parts[] = {
        L"LINE  Layer: \"0\"\n",
        L"Space: Model space\n",
        L"Color: 1\n",
        L"from point X=1.0000  Y=2.0000  Z=0.0000\n",
        L"to point X=4.0000  Y=6.0000  Z=0.0000\n",
        L"Length = 5.0000\n",
        L"lower bound X=1.0000  Y=2.0000  Z=0.0000\n",
        L"* Registered Application Name: TESTING\n                    Code 1000, string: a text\n"
        L"                    Code 1040, real number: 2.5\n                    Code 1070, 16-bit integer: "
        L"7\n",
    };
    for (const wchar_t* part : parts)
        EXPECT_NE(shown.find(part), std::wstring::npos) << part << shown;
}

TEST_F(BuiltIn, DblistKnowsClosedCurvesTextsAndUnits)
{
    make<AcDbCircle>([](AcDbCircle& circle) {
        circle.setCenter({0, 0, 0});
        circle.setRadius(1.0);
    });
    make<AcDbText>([](AcDbText& text) { text.setTextString(L"written"); });
    const std::wstring shown = type(L"LUPREC 2\nDBLIST\n");
    EXPECT_NE(shown.find(L"radius 1.00\n"), std::wstring::npos) << shown;
    EXPECT_NE(shown.find(L"Length = 6.28\n"), std::wstring::npos); // 2 pi
    EXPECT_NE(shown.find(L"Area = 3.14\n"), std::wstring::npos);
    EXPECT_NE(shown.find(L"text written\n"), std::wstring::npos);
}

TEST_F(BuiltIn, LayersAreMadeChosenChangedAndListed)
{
    type(L"-LAYER M walls N doors,windows C 3 w*s LO doors OFF windows S walls \n");
    EXPECT_EQ(database()->clayer(), layerNamed(L"walls"));
    const auto is = [&](const wchar_t* name, bool off, bool locked, int color) {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(layerNamed(name));
        return layer->isOff() == off && layer->isLocked() == locked && layer->color().colorIndex() == color;
    };
    EXPECT_TRUE(is(L"walls", false, false, 3));
    EXPECT_TRUE(is(L"doors", false, true, 7));
    EXPECT_TRUE(is(L"windows", true, false, 3));
    const std::wstring shown = type(L"LA ? w* \n");
    EXPECT_NE(shown.find(L"Current layer:  \"walls\""), std::wstring::npos);
    EXPECT_NE(shown.find(L"\"windows\"               off               3       Continuous\n"),
              std::wstring::npos)
        << shown;
    EXPECT_EQ(shown.find(L"doors"), std::wstring::npos);
}

TEST_F(BuiltIn, ALayerThatCannotBeIsRefusedWithItsReason)
{
    EXPECT_NE(type(L"LAYER N a*b\n").find(L"Layer \"a*b\": eInvalid"), std::wstring::npos);
    EXPECT_NE(type(L"LAYER S nowhere\n").find(L"Layer \"nowhere\": eKeyNotFound."), std::wstring::npos);
    EXPECT_NE(type(L"LAYER C 256\n").find(L"A color is a number from 1 to 255."), std::wstring::npos);
    const std::wstring current = type(L"LAYER F 0 \n");
    EXPECT_NE(current.find(L"Layer \"0\": eInvalidLayer."), std::wstring::npos) << current;
}

TEST_F(BuiltIn, LinesCirclesAndPointsAreDrawn)
{
    type(L"LINE 0,0 10,0 @0,10 U @0,5 C\nCIRCLE 1,2 3 CIRCLE 1,2 D 8 POINT 7,7\n");
    const std::wstring shown = type(L"DBLIST\n");
    const auto count = [&](const std::wstring& part) {
        int found = 0;
        for (std::size_t at = 0; (at = shown.find(part, at)) != std::wstring::npos; ++at)
            ++found;
        return found;
    };
    EXPECT_EQ(count(L"LINE  Layer"), 3);        // 10 along X, 5 along Y, and back to the start
    EXPECT_EQ(count(L"Length = 11.1803\n"), 1); // sqrt(10^2 + 5^2)
    EXPECT_EQ(count(L"radius 3.0000\n"), 1);
    EXPECT_EQ(count(L"radius 4.0000\n"), 1);
    EXPECT_EQ(count(L"POINT  Layer"), 1);
}

TEST_F(BuiltIn, ChosenEntitiesAreListedErasedAndZoomedTo)
{
    type(L"LINE 0,0 10,0 \nCIRCLE 50,50 1\n");
    const std::wstring last = type(L"LIST L \n");
    EXPECT_NE(last.find(L"CIRCLE  Layer"), std::wstring::npos) << last;
    EXPECT_EQ(last.find(L"LINE  Layer"), std::wstring::npos);
    type(L"ZOOM O L \n");
    EXPECT_NE(type(L"SETVAR VIEWCTR\n^C").find(L"50.0000,50.0000"), std::wstring::npos);
    type(L"ERASE L \n");
    const std::wstring rest = type(L"LIST ALL \n");
    EXPECT_NE(rest.find(L"LINE  Layer"), std::wstring::npos) << rest;
    EXPECT_EQ(rest.find(L"CIRCLE"), std::wstring::npos);
}

TEST_F(BuiltIn, ZoomAndPanChangeTheView)
{
    const auto view = [&] { return type(L"SETVAR VIEWCTR\nSETVAR VIEWSIZE\n^C"); };
    type(L"LINE 0,0 100,40 \nZOOM C 5,6 20\n");
    const std::wstring first = view();
    EXPECT_NE(first.find(L"VIEWCTR = 5.0000,6.0000"), std::wstring::npos) << first;
    EXPECT_NE(first.find(L"VIEWSIZE = 20.0000"), std::wstring::npos) << first;
    type(L"ZOOM 2X\n"); // twice as large: half of the height
    EXPECT_NE(view().find(L"VIEWSIZE = 10.0000"), std::wstring::npos);
    type(L"PAN 0,0 1,2\n"); // the drawing goes right and up, the view's centre left and down
    EXPECT_NE(view().find(L"VIEWCTR = 4.0000,4.0000"), std::wstring::npos) << view();
    type(L"ZOOM P\nZOOM P\n");
    EXPECT_EQ(view(), first);
    type(L"ZOOM W 0,0 2,1 ZOOM E\n");
    EXPECT_NE(view().find(L"VIEWCTR = 50.0000,20.0000"), std::wstring::npos) << view();
    EXPECT_NE(type(L"ZOOM 0X\n").find(L"Requires a positive scale"), std::wstring::npos);
}

TEST_F(BuiltIn, EveryCommandHasItsLineOfHelp)
{
    std::wstring shown = type(L"HELP\n\n");
    shown.insert(shown.find(L">: ") + 3, L"\n"); // the Enter that was typed
    const std::unique_ptr<AcEdCommandIterator> walk(acedRegCmds->iterator());
    int count = 0;
    for (; !walk->done(); walk->next()) {
        if (std::wstring(walk->commandGroup()) != L"ACAD") continue;
        EXPECT_NE(shown.find(L"\n" + std::wstring(walk->command()->globalName()) + L" "), std::wstring::npos)
            << walk->command()->globalName();
        ++count;
    }
    EXPECT_GT(count, 15);
}

TEST_F(BuiltIn, SetvarListsThoseThatMatch)
{
    const std::wstring shown = type(L"SETVAR ? LUP*\nSETVAR ? CV*\n");
    EXPECT_NE(shown.find(L"LUPREC = 4\n"), std::wstring::npos) << shown;
    EXPECT_EQ(shown.find(L"LUNITS"), std::wstring::npos);
}

TEST_F(BuiltIn, QuitAsksModulesFirst)
{
    struct Witness : AcEditorReactor {
        Witness() { acedEditor->addReactor(this); }
        ~Witness() override { acedEditor->removeReactor(this); }
        void beginQuit() override
        {
            seen += "begin ";
            if (refuses) veto();
        }
        void quitAborted() override { seen += "aborted "; }
        std::string seen;
        bool refuses = true;
    };
    Witness witness;
    run(L"QUIT\n");
    EXPECT_EQ(takeCommands(), std::vector<std::wstring>{L"!QUIT"});
    witness.refuses = false;
    run(L"LTSCALE 2 QUIT N REGEN\n"); // nothing runs behind a QUIT that ends the program
    EXPECT_EQ(takeCommands(), (std::vector<std::wstring>{L"QUIT", L"REGEN"}));
    EXPECT_EQ(witness.seen, "begin aborted begin aborted ");
}

TEST_F(BuiltIn, BoundaryTracesAmongWhatWasChosen)
{
    // A room of 10 by 10 around a column with a radius of 1, and a wall across that is left out.
    const auto line = [&](const AcGePoint3d& from, const AcGePoint3d& to) {
        return make<AcDbLine>([&](AcDbLine& made) {
            made.setStartPoint(from);
            made.setEndPoint(to);
        });
    };
    line({0, 0, 0}, {10, 0, 0});
    line({10, 0, 0}, {10, 10, 0});
    line({10, 10, 0}, {0, 10, 0});
    line({0, 10, 0}, {0, 0, 0});
    make<AcDbCircle>([](AcDbCircle& column) {
        column.setCenter({8, 5, 0});
        column.setRadius(1.0);
    });
    line({5, -5, 0}, {5, 15, 0});
    type(L"_ZOOM _E\n");
    const auto created = [&](const wchar_t* what) {
        return takeOutput().find(std::wstring(L"BOUNDARY created ") + what) != std::wstring::npos;
    };
    const auto lastArea = [&] {
        ads_name last = {};
        AcDbObjectId id;
        acdbEntLast(last);
        acdbGetObjectId(id, last);
        double area = 0.0;
        const AcDbEntityPointer entity(id, AcDb::kForRead);
        if (const auto* const curve = AcDbCurve::cast(entity.object())) curve->getArea(area);
        if (const auto* const region = AcDbRegion::cast(entity.object())) region->getArea(area);
        return area;
    };
    run(L"-BOUNDARY 2,2\n\n");
    EXPECT_TRUE(created(L"1 polyline\n"));
    EXPECT_NEAR(lastArea(), 50.0, 1e-9) << "everything bounds";
    run(L"ERASE _L\n\n-BO A B N _ALL _R 5,15\n\nI N O R\n\n2,2\n\n");
    EXPECT_TRUE(created(L"1 region\n"));
    EXPECT_NEAR(lastArea(), 100.0, 1e-9) << "neither the wall nor the island";
    run(L"ERASE _L\n\nBOUNDARY A B N _ALL _R 5,15\n\n\n2,2\n50,50\n\n");
    const std::wstring shown = takeOutput();
    EXPECT_NE(shown.find(L"Valid hatch boundary not found."), std::wstring::npos);
    EXPECT_NE(shown.find(L"created 2 polylines"), std::wstring::npos) << "the island too";
}
