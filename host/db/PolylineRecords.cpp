/// Which classes the records POLYLINE and VERTEX become: told by their sections, in files without sections by
/// the flags.

#include "db2dpl.h"
#include "db3dpl.h"
#include "dbvertex.h"
#include "RecordClass.h"

namespace
{
constexpr int in3d = 8, mesh = 16, polyface = 64;       // flags of a polyline
constexpr int on3d = 32, ofMesh = 64, ofPolyface = 128; // flags of a vertex

// Meshes are kept as proxies, and their vertices with them.
AcRxClass* classOfPolyline(const RecordView& record)
{
    const std::int64_t flags = record.integer(70, 0);
    if (record.hasSection("AcDb2dPolyline")) return AcDb2dPolyline::desc();
    if (record.hasSection("AcDb3dPolyline")) return AcDb3dPolyline::desc();
    if (flags & (mesh | polyface)) return nullptr;
    return flags & in3d ? AcDb3dPolyline::desc() : AcDb2dPolyline::desc();
}

AcRxClass* classOfVertex(const RecordView& record)
{
    const std::int64_t flags = record.integer(70, 0);
    if (record.hasSection("AcDb2dVertex")) return AcDb2dVertex::desc();
    if (record.hasSection("AcDb3dPolylineVertex")) return AcDb3dPolylineVertex::desc();
    if (flags & (ofMesh | ofPolyface)) return nullptr;
    return flags & on3d ? AcDb3dPolylineVertex::desc() : AcDb2dVertex::desc();
}

const RecordChoice polylines("POLYLINE", classOfPolyline);
const RecordChoice vertices("VERTEX", classOfVertex);
} // namespace
