/// The variables of a drawing's header by their setters, and the extents.

#include "DatabaseFixture.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbobjptr.h"

#include <cmath>
#include <type_traits>

namespace
{
class DatabaseVariables : public DatabaseFixture
{
protected:
    /// Sets a number, reads it back, and sees that one outside of the range changes nothing.
    template <class Value>
    void check(const char* name, Value (AcDbDatabase::*get)() const,
               Acad::ErrorStatus (AcDbDatabase::*set)(Value), double least, double most)
    {
        SCOPED_TRACE(name);
        using Number = std::conditional_t<std::is_enum_v<Value>, int, Value>;
        for (const double wanted : {least, most}) {
            const auto value = static_cast<Value>(static_cast<Number>(wanted));
            EXPECT_EQ((mDatabase.*set)(value), Acad::eOk);
            EXPECT_EQ((mDatabase.*get)(), value);
        }
        const Value before = (mDatabase.*get)();
        for (const double outside : {least - 1.0, most + 1.0}) {
            // A range as wide as the type has no outside.
            if (static_cast<double>(static_cast<Number>(outside)) != outside ||
                (outside >= least && outside <= most))
                continue;
            EXPECT_EQ((mDatabase.*set)(static_cast<Value>(static_cast<Number>(outside))),
                      Acad::eInvalidInput);
            EXPECT_EQ((mDatabase.*get)(), before);
        }
    }

    template <class Entity>
    void add(Entity* entity)
    {
        const AcDbBlockTableRecordPointer space(mDatabase.modelSpaceId(), AcDb::kForWrite);
        ASSERT_EQ(space->appendAcDbEntity(entity), Acad::eOk);
        entity->close();
    }
};
} // namespace

TEST_F(DatabaseVariables, NumbersKeepToTheirRanges)
{
#define CHECK_REAL(GET, SET, NAME, LEAST, MOST)                                                              \
    check<double>(NAME, &AcDbDatabase::GET, &AcDbDatabase::SET, LEAST, MOST);
#define CHECK_INTEGER(TYPE, GET, SET, NAME, LEAST, MOST)                                                     \
    check<TYPE>(NAME, &AcDbDatabase::GET, &AcDbDatabase::SET, LEAST, MOST);
    ACDB_HEADER_REALS(CHECK_REAL)
    ACDB_HEADER_INTEGERS(CHECK_INTEGER)
#undef CHECK_REAL
#undef CHECK_INTEGER
}

TEST_F(DatabaseVariables, NumbersThatAreNoneAreRefused)
{
    for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
#define REFUSE_REAL(GET, SET, NAME, LEAST, MOST) EXPECT_EQ(mDatabase.SET(bad), Acad::eInvalidInput) << NAME;
        ACDB_HEADER_REALS(REFUSE_REAL)
#undef REFUSE_REAL
        EXPECT_EQ(mDatabase.setAngbase(bad), Acad::eInvalidInput);
        const AcGePoint3d before = mDatabase.insbase();
        EXPECT_EQ(mDatabase.setInsbase({0, 0, bad}), Acad::eInvalidInput);
        EXPECT_EQ(mDatabase.insbase(), before);
        EXPECT_EQ(mDatabase.setLimmax({bad, 0}), Acad::eInvalidInput);
    }
}

TEST_F(DatabaseVariables, CurrentRecordsAreOfTheirKindAndDrawing)
{
    AcDbDatabase other;
    EXPECT_EQ(mDatabase.setClayer(other.layerZero()), Acad::eWrongDatabase);
    EXPECT_EQ(mDatabase.setClayer(mDatabase.continuousLinetype()), Acad::eInvalidInput);
    EXPECT_EQ(mDatabase.setClayer(AcDbObjectId()), Acad::eInvalidInput);
    EXPECT_EQ(mDatabase.clayer(), mDatabase.layerZero());
    EXPECT_EQ(mDatabase.setCeltype(mDatabase.continuousLinetype()), Acad::eOk);
    EXPECT_EQ(mDatabase.celtype(), mDatabase.continuousLinetype());
    EXPECT_EQ(mDatabase.setTextstyle(mDatabase.dimstyle()), Acad::eInvalidInput);
    EXPECT_EQ(mDatabase.setAngbase(1.0), Acad::eOk);
    EXPECT_NEAR(mDatabase.angbase(), 1.0, 1e-15);
}

TEST_F(DatabaseVariables, ExtentsFollowTheEntitiesWhenAsked)
{
    EXPECT_EQ(mDatabase.updateExt(), Acad::eOk);
    EXPECT_GT(mDatabase.extmin().x, mDatabase.extmax().x) << "an empty drawing's are inside out";
    add(new AcDbLine(AcGePoint3d(1, 2, 3), AcGePoint3d(-4, 5, 6)));
    add(new AcDbCircle(AcGePoint3d(10, 0, 0), AcGeVector3d::kZAxis, 2.0));
    auto* ray = new AcDbRay;
    ray->setUnitDir(AcGeVector3d::kXAxis);
    add(ray); // endless: it has no part in them
    EXPECT_EQ(mDatabase.updateExt(true), Acad::eOk);
    EXPECT_EQ(mDatabase.extmin(), AcGePoint3d(-4, -2, 0));
    EXPECT_EQ(mDatabase.extmax(), AcGePoint3d(12, 5, 6));
}
