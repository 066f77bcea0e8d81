#pragma once

/// The vertices of a polyline or mesh: entities of their own, which belong to it.

#include "dbentity.h"

class AcDbObjectIterator;

/// As long as the owner is in no drawing the list owns its vertices; afterwards they are objects of the
/// drawing.
class VertexList
{
public:
    VertexList() = default;
    /// Vertices that the other list owns are copied; ids are taken over.
    VertexList(const VertexList& other);
    VertexList& operator=(const VertexList& other);

    DbSubentities& stored() { return mStored; }
    const DbSubentities& stored() const { return mStored; }

    /// The vertices in order, without erased ones.
    std::vector<AcDbEntity*> all() const;
    template <class T>
    std::vector<T*> allOf() const
    {
        std::vector<T*> found;
        for (AcDbEntity* vertex : all()) {
            if (T* wanted = T::cast(vertex)) found.push_back(wanted);
        }
        return found;
    }

    /// A new iterator over them that the caller deletes.
    AcDbObjectIterator* iterator() const;

    /// Puts a new vertex behind another one of this list (null: first), or last. It then belongs to the list:
    /// to the drawing, open for write, when the owner is in one. eAlreadyInDb for a vertex of a drawing,
    /// eInvalidInput for an unknown place; the vertex stays the caller's then.
    Acad::ErrorStatus append(AcDbEntity& owner, AcDbObjectId& id, AcDbEntity* vertex);
    Acad::ErrorStatus insertAfter(AcDbEntity& owner, const AcDbEntity* place, AcDbObjectId& id,
                                  AcDbEntity* vertex);
    /// The owner has been added to a drawing: its vertices follow, and the mark of their end.
    void addToDrawing(AcDbEntity& owner);
    /// Becomes a list of its own: copies of all vertices, in no drawing.
    void detach();

    /// Applies a map to every vertex. Vertices of a drawing are opened for it: the status of the first that
    /// cannot be, and nothing changed then.
    template <class Change>
    Acad::ErrorStatus change(const Change& changeVertex)
    {
        std::vector<AcDbEntity*> opened;
        const Acad::ErrorStatus status = openAll(opened);
        if (status == Acad::eOk) {
            for (AcDbEntity* vertex : all())
                changeVertex(*vertex);
        }
        for (AcDbEntity* vertex : opened)
            vertex->close();
        return status;
    }

private:
    Acad::ErrorStatus insert(AcDbEntity& owner, std::size_t index, AcDbObjectId& id, AcDbEntity* vertex);
    Acad::ErrorStatus openAll(std::vector<AcDbEntity*>& opened) const;

    DbSubentities mStored;
    std::vector<std::unique_ptr<AcDbEntity>> mOwned;
};
