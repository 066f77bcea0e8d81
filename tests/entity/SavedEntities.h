#pragma once

/// The drawing of a test, saved and read again. Stands in front of all headers that bring <windows.h>.

#include "SavedDrawing.h"

#include "dbdatabase.h"
#include "dbobjptr.h"

/// What a drawing holds after it was written and read. The file is sound, or the test fails.
class SavedEntities
{
public:
    explicit SavedEntities(AcDbDatabase& drawing, AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT)
    {
        const auto file = m_folder.file("saved.dxf");
        EXPECT_EQ(drawing.saveAs(file.wstring().c_str(), false, version), Acad::eOk);
        EXPECT_EQ(m_reopened.readDwgFile(file.wstring().c_str()), Acad::eOk);
        dxftest::expectSound(file);
    }
    AcDbDatabase& drawing() { return m_reopened; }

    /// The object that has become of one of the drawing that was saved.
    template <class T>
    AcDbObjectPointer<T> of(AcDbObjectId original)
    {
        AcDbObjectId id;
        EXPECT_EQ(m_reopened.getAcDbObjectId(id, false, original.handle()), Acad::eOk);
        return AcDbObjectPointer<T>(id, AcDb::kForRead);
    }

private:
    dxftest::OutputFolder m_folder;
    AcDbDatabase m_reopened{false, true};
};
