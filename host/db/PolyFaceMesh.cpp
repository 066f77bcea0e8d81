#include "ClassRegistration.h"
#include "dbpolymesh.h"
#include "DxfFollowed.h"

#include <cstdlib>

ACDB_DXF_CLASS(AcDbPolyFaceMesh, AcDbEntity, POLYLINE)

/// The counts of files are written as they are now; those of a mesh that nobody changed are the file's.
struct PolyFaceFields {
    template <auto Member>
    static void read(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        static_cast<AcDbPolyFaceMesh&>(object).*Member = static_cast<std::int16_t>(source.peek()->integer);
        source.take();
    }
    template <auto Member, auto Count>
    static void write(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const auto& mesh = static_cast<const AcDbPolyFaceMesh&>(object);
        const int now = (mesh.*Count)();
        sink.integer(field.code, now ? now : mesh.*Member);
    }
    template <auto Member, auto Count>
    static DxfField count(int code)
    {
        return dxf::custom(code, read<Member>, write<Member, Count>);
    }
    static constexpr auto vertices = &AcDbPolyFaceMesh::mFileVertices;
    static constexpr auto faces = &AcDbPolyFaceMesh::mFileFaces;
};

const DxfClass AcDbPolyFaceMesh::dxf(
    "AcDbPolyFaceMesh", &AcDbEntity::dxf,
    {
        dxf::followed(),
        dxf::point<&AcDbPolyFaceMesh::mOrigin>(10),
        dxf::integer<&AcDbPolyFaceMesh::mFlags>(70),
        PolyFaceFields::count<PolyFaceFields::vertices, &AcDbPolyFaceMesh::numVertices>(71),
        PolyFaceFields::count<PolyFaceFields::faces, &AcDbPolyFaceMesh::numFaces>(72),
    });

Adesk::Int16 AcDbPolyFaceMesh::numVertices() const
{
    return static_cast<Adesk::Int16>(mVertices.allOf<AcDbPolyFaceMeshVertex>().size());
}

Adesk::Int16 AcDbPolyFaceMesh::numFaces() const
{
    return static_cast<Adesk::Int16>(mVertices.allOf<AcDbFaceRecord>().size());
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendVertex(AcDbPolyFaceMeshVertex* vertex)
{
    AcDbObjectId id;
    return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendVertex(AcDbObjectId& id, AcDbPolyFaceMeshVertex* vertex)
{
    return mVertices.append(*this, id, vertex);
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendFaceRecord(AcDbFaceRecord* face)
{
    AcDbObjectId id;
    return appendFaceRecord(id, face);
}

Acad::ErrorStatus AcDbPolyFaceMesh::appendFaceRecord(AcDbObjectId& id, AcDbFaceRecord* face)
{
    return mVertices.append(*this, id, face);
}

std::vector<VertexMesh::Facet> AcDbPolyFaceMesh::facets() const
{
    const std::vector<AcDbPolyFaceMeshVertex*> vertices = mVertices.allOf<AcDbPolyFaceMeshVertex>();
    std::vector<Facet> found;
    for (const AcDbFaceRecord* face : mVertices.allOf<AcDbFaceRecord>()) {
        Facet facet;
        for (std::uint16_t i = 0; i < 4; ++i) {
            Adesk::Int16 number = 0;
            face->getVertexAt(i, number);
            const auto at = static_cast<std::size_t>(std::abs(static_cast<int>(number)));
            // A number that names no vertex is none.
            if (at == 0 || at > vertices.size()) continue;
            facet.edges[facet.count] = number > 0;
            facet.corners[facet.count++] = vertices[at - 1]->position();
        }
        if (facet.count > 0) found.push_back(facet);
    }
    return found;
}
