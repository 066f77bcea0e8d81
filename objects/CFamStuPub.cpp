#include "CFamStuPub.h"

#include "dbapserv.h"
#include "dbdatabase.h"
#include "dbobjptr.h"

namespace
{
constexpr int handleTextSize = 64;
constexpr int pointGrowth = 8;
} // namespace

bool CFamStuPub::DllInit(HINSTANCE module)
{
    void* const address = module ? reinterpret_cast<void*>(GetProcAddress(module, "Init")) : nullptr;
    const auto init = reinterpret_cast<bool (*)()>(address);
    if (init && init()) return true;
    AfxMessageBox(L"数据库初始化错误");
    return false;
}

int CFamStuPub::HandleStrToObjectId(CString text, AcDbObjectId& id)
{
    id.setNull();
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database) return 0;
    const CString kept = text.Left(handleTextSize - 1);
    if (database->getAcDbObjectId(id, false, AcDbHandle(kept.GetString())) == Acad::eOk) return 1;
    id.setNull();
    return 0;
}

CString CFamStuPub::HandleToStr(AcDbHandle handle)
{
    ACHAR text[handleTextSize] = {};
    handle.getIntoAsciiBuffer(text);
    return text;
}

void CFamStuPub::ObjectIdToHandleStr(AcDbObjectId id, CString& text)
{
    text.Empty();
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForRead);
    if (object.openStatus() != Acad::eOk) return;
    AcDbHandle handle;
    object->getAcDbHandle(handle);
    text = HandleToStr(handle);
}

void CFamStuPub::pt3dToadsPt(AcGePoint3d point, ads_point& adsPoint)
{
    adsPoint[X] = point.x;
    adsPoint[Y] = point.y;
    adsPoint[Z] = point.z;
}

AcGePoint2dArray CFamStuPub::pt3dTopt2d(AcGePoint3dArray points)
{
    AcGePoint2dArray flat(points.length(), pointGrowth);
    for (const AcGePoint3d& point : points) flat.append(AcGePoint2d(point.x, point.y));
    return flat;
}
