#include "QmCADLib.h"

#include "acdbads.h"
#include "arxHeaders.h"
#include "dbmtext.h"
#include "dbtext.h"
#include "DrawingTest.h"

namespace
{
/// Entities by their names in lists.
class EntityText : public headless::EditorTest
{
protected:
    AcDbObjectId add(AcDbEntity* entity) { return headless::addTo(database()->currentSpaceId(), entity); }
    struct Name {
        explicit Name(AcDbObjectId id) { acdbGetAdsName(name, id); }
        ads_name name = {};
    };
};

TEST_F(EntityText, TextOfEveryKindIsReadAndChanged)
{
    asCommand([this] {
        auto* line = new AcDbText;
        line->setTextString(L"标高");
        auto* paragraph = new AcDbMText;
        paragraph->setContents(L"a\\Pb");
        for (AcDbEntity* entity : {static_cast<AcDbEntity*>(line), static_cast<AcDbEntity*>(paragraph)}) {
            const CString before = entity == line ? L"标高" : L"a\\Pb";
            Name text(add(entity));
            EXPECT_EQ(CFamStuGlobe::GetTextVal(text.name), before);
            EXPECT_EQ(CFamStuGlobe::SetTextVal(text.name, nullptr), Acad::eInvalidInput);
            EXPECT_EQ(CFamStuGlobe::SetTextVal(text.name, L"\\{新}"), Acad::eOk);
            EXPECT_EQ(CFamStuGlobe::GetTextVal(text.name), L"\\{新}");
        }
    });
}

TEST_F(EntityText, OtherEntitiesHaveNone)
{
    asCommand([this] {
        Name line(add(new AcDbLine({0, 0, 0}, {1, 0, 0})));
        EXPECT_EQ(CFamStuGlobe::GetTextVal(line.name), L"");
        EXPECT_EQ(CFamStuGlobe::SetTextVal(line.name, L"x"), Acad::eNotThatKindOfClass);
        ads_name nothing = {};
        EXPECT_EQ(CFamStuGlobe::GetTextVal(nothing), L"");
        EXPECT_NE(CFamStuGlobe::SetTextVal(nothing, L"x"), Acad::eOk);
    });
}

TEST_F(EntityText, TextIsNotChangedWithoutALock)
{
    AcDbObjectId id;
    asCommand([&] { id = add(new AcDbText); });
    Name text(id);
    EXPECT_EQ(CFamStuGlobe::SetTextVal(text.name, L"x"), Acad::eLockViolation);
    EXPECT_EQ(CFamStuGlobe::GetTextVal(text.name), L"");
}

TEST_F(EntityText, HandleIsHexadecimal)
{
    asCommand([this] {
        const AcDbObjectId id = add(new AcDbLine({0, 0, 0}, {1, 0, 0}));
        Name line(id);
        const CString handle = CFamStuGlobe::GetObjectHandle(line.name);
        EXPECT_EQ(AcDbHandle(handle.GetString()), id.handle());
        EXPECT_EQ(handle, CString(handle).MakeUpper());
        ads_name nothing = {};
        EXPECT_EQ(CFamStuGlobe::GetObjectHandle(nothing), L"");
    });
}
} // namespace
