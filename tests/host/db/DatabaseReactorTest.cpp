/// What a drawing and its entities tell those who are attached to them.

#include "DatabaseFixture.h"
#include "db3dpl.h"
#include "dbblkref.h"
#include "dbcircle.h"
#include "dbdatabasereactor.h"
#include "dbobjptr.h"

#include <memory>
#include <string>

namespace
{
/// Notes what it is told, a word each.
class Listener : public AcDbDatabaseReactor
{
public:
    void objectAppended(const AcDbDatabase*, const AcDbObject*) override { told += "appended "; }
    void objectUnAppended(const AcDbDatabase*, const AcDbObject*) override { told += "unappended "; }
    void objectOpenedForModify(const AcDbDatabase*, const AcDbObject*) override { told += "opened "; }
    void objectModified(const AcDbDatabase*, const AcDbObject* object) override
    {
        told += object->isErased() ? "modified(erased) " : "modified ";
    }
    void objectErased(const AcDbDatabase*, const AcDbObject*, Adesk::Boolean erased) override
    {
        told += erased ? "erased " : "back ";
    }
    void headerSysVarWillChange(const AcDbDatabase* drawing, const ACHAR* name) override
    {
        told += "will:" + narrow(name) + "=" + std::to_string(static_cast<int>(drawing->ltscale())) + " ";
    }
    void headerSysVarChanged(const AcDbDatabase* drawing, const ACHAR* name,
                             Adesk::Boolean succeeded) override
    {
        told += narrow(name) + "=" + std::to_string(static_cast<int>(drawing->ltscale())) +
                (succeeded ? " " : "! ");
    }
    void goodbye(const AcDbDatabase*) override { told += "goodbye "; }

    std::string take() { return std::exchange(told, std::string()); }

private:
    static std::string narrow(const std::wstring& wide) { return {wide.begin(), wide.end()}; }
    std::string told;
};

class EntityListener : public AcDbEntityReactor
{
public:
    void modifiedGraphics(const AcDbEntity*) override { ++pictures; }
    void subObjModified(const AcDbObject*, const AcDbObject* part) override { lastPart = part; }
    void unappended(const AcDbObject*) override { ++gone; }

    int pictures = 0, gone = 0;
    const AcDbObject* lastPart = nullptr;
};

class DatabaseReactor : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        ASSERT_EQ(mDatabase.addReactor(&listener), Acad::eOk);
    }
    /// The drawing outlives its listener.
    void TearDown() override
    {
        mDatabase.removeReactor(&listener);
        DatabaseFixture::TearDown();
    }

    template <class Entity>
    AcDbObjectId add(Entity* entity)
    {
        AcDbObjectId id;
        const AcDbBlockTableRecordPointer space(mDatabase.modelSpaceId(), AcDb::kForWrite);
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    }

    Listener listener;
};
} // namespace

TEST_F(DatabaseReactor, HearsOfTheLifeOfAnObject)
{
    const AcDbObjectId id = add(new AcDbCircle(AcGePoint3d(), AcGeVector3d::kZAxis, 1.0));
    // The block that takes the circle is told of as changed, the new circle as added only.
    EXPECT_EQ(listener.take(), "opened appended modified ");
    AcDbObjectPointer<AcDbCircle> circle(id, AcDb::kForWrite);
    circle->setRadius(2.0);
    circle->setRadius(3.0);
    EXPECT_EQ(listener.take(), "opened ");
    circle->close();
    EXPECT_EQ(listener.take(), "modified ");
    circle.open(id, AcDb::kForWrite);
    circle->erase();
    circle->close();
    EXPECT_EQ(listener.take(), "opened erased modified(erased) ");
    circle.open(id, AcDb::kForWrite, true);
    circle->erase(false);
    circle->close();
    EXPECT_EQ(listener.take(), "opened back modified ");
    circle.open(id, AcDb::kForWrite);
    circle->setRadius(9.0);
    circle->cancel();
    EXPECT_EQ(listener.take(), "opened ") << "what is taken back was no change";
}

TEST_F(DatabaseReactor, HearsThatAnAdditionWasCancelled)
{
    auto* circle = new AcDbCircle(AcGePoint3d(), AcGeVector3d::kZAxis, 1.0);
    EntityListener own;
    circle->addReactor(&own);
    {
        const AcDbBlockTableRecordPointer space(mDatabase.modelSpaceId(), AcDb::kForWrite);
        ASSERT_EQ(space->appendAcDbEntity(circle), Acad::eOk);
    }
    listener.take();
    circle->cancel();
    EXPECT_EQ(listener.take(), "unappended ");
    EXPECT_EQ(own.gone, 1);
    circle->removeReactor(&own);
}

TEST_F(DatabaseReactor, HearsOfVariablesBeforeAndAfter)
{
    ASSERT_EQ(mDatabase.setLtscale(3.0), Acad::eOk);
    EXPECT_EQ(listener.take(), "will:LTSCALE=1 LTSCALE=3 ");
    EXPECT_EQ(mDatabase.setLtscale(-1.0), Acad::eInvalidInput);
    EXPECT_EQ(mDatabase.setClayer(AcDbObjectId()), Acad::eInvalidInput);
    EXPECT_EQ(listener.take(), "") << "refused values change nothing";
    ASSERT_EQ(mDatabase.setClayer(mDatabase.layerZero()), Acad::eOk);
    EXPECT_EQ(listener.take(), "will:CLAYER=3 CLAYER=3 ");
}

TEST_F(DatabaseReactor, IsAttachedOnceAndCanBeDetached)
{
    EXPECT_EQ(mDatabase.addReactor(&listener), Acad::eDuplicateKey);
    EXPECT_EQ(mDatabase.addReactor(nullptr), Acad::eNullObjectPointer);
    EXPECT_EQ(mDatabase.removeReactor(&listener), Acad::eOk);
    EXPECT_EQ(mDatabase.removeReactor(&listener), Acad::eKeyNotFound);
    mDatabase.setLtscale(2.0);
    EXPECT_EQ(listener.take(), "");
}

TEST_F(DatabaseReactor, HearsTheDrawingGo)
{
    auto drawing = std::make_unique<AcDbDatabase>();
    drawing->addReactor(&listener);
    drawing.reset();
    EXPECT_EQ(listener.take(), "goodbye ");
}

TEST_F(DatabaseReactor, OfAnEntityHearsOfItsPictureAndItsParts)
{
    AcGePoint3dArray points;
    points.append(AcGePoint3d(0, 0, 0));
    points.append(AcGePoint3d(1, 0, 0));
    const AcDbObjectId id = add(new AcDb3dPolyline(AcDb::k3dSimplePoly, points));
    EntityListener own;
    AcDbObjectPointer<AcDb3dPolyline> polyline(id, AcDb::kForWrite);
    polyline->addReactor(&own);
    polyline->makeClosed();
    polyline->close();
    EXPECT_EQ(own.pictures, 1);
    polyline.open(id, AcDb::kForRead);
    const AcDbObjectId vertexId = polyline->subentities()->ids[1];
    polyline->close();
    AcDbObjectPointer<AcDb3dPolylineVertex> vertex(vertexId, AcDb::kForWrite);
    vertex->setPosition(AcGePoint3d(2, 0, 0));
    vertex->close();
    EXPECT_EQ(own.lastPart, vertex.object());
    EXPECT_EQ(own.pictures, 1);
    polyline.open(id, AcDb::kForRead);
    polyline->removeReactor(&own);
}
