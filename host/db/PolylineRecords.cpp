/// Which classes the records POLYLINE and VERTEX become: told by their sections, in files without sections by
/// the flags.

#include "db2dpl.h"
#include "db3dpl.h"
#include "dbpolymesh.h"
#include "dbvertex.h"
#include "RecordClass.h"

namespace
{
constexpr int in3d = 8, mesh = 16, polyface = 64;       // flags of a polyline
constexpr int on3d = 32, ofMesh = 64, ofPolyface = 128; // flags of a vertex

AcRxClass* classOfPolyline(const RecordView& record)
{
    const std::int64_t flags = record.integer(70, 0);
    if (record.hasSection("AcDb2dPolyline")) return AcDb2dPolyline::desc();
    if (record.hasSection("AcDb3dPolyline")) return AcDb3dPolyline::desc();
    if (record.hasSection("AcDbPolygonMesh") || (flags & mesh)) return AcDbPolygonMesh::desc();
    if (record.hasSection("AcDbPolyFaceMesh") || (flags & polyface)) return AcDbPolyFaceMesh::desc();
    return flags & in3d ? AcDb3dPolyline::desc() : AcDb2dPolyline::desc();
}

AcRxClass* classOfVertex(const RecordView& record)
{
    const std::int64_t flags = record.integer(70, 0);
    if (record.hasSection("AcDb2dVertex")) return AcDb2dVertex::desc();
    if (record.hasSection("AcDb3dPolylineVertex")) return AcDb3dPolylineVertex::desc();
    if (record.hasSection("AcDbFaceRecord")) return AcDbFaceRecord::desc();
    if (record.hasSection("AcDbPolygonMeshVertex")) return AcDbPolygonMeshVertex::desc();
    // A polyface mesh marks its vertices with both bits, its faces with one.
    if (flags & ofPolyface) return flags & ofMesh ? AcDbPolyFaceMeshVertex::desc() : AcDbFaceRecord::desc();
    if (flags & ofMesh) return AcDbPolygonMeshVertex::desc();
    return flags & on3d ? AcDb3dPolylineVertex::desc() : AcDb2dVertex::desc();
}

const RecordChoice polylines("POLYLINE", classOfPolyline);
const RecordChoice vertices("VERTEX", classOfVertex);
} // namespace
