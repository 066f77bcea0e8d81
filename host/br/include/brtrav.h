#pragma once

/// Traversers: the parts of a part, one after the other.
///
///     AcBrBrepFaceTraverser faces;
///     for (faces.setBrep(brep); !faces.done(); faces.next()) ...

#include "brbrep.h"
#include "brparts.h"

/// Where a traverser stands. A traverser that was not set is done.
class AcBrTraverser : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcBrTraverser);

    bool done() const { return mAt >= mPlaces; }
    /// eEndOfTraverser when it is done already.
    AcBr::ErrorStatus next();
    AcBr::ErrorStatus restart();
    bool isNull() const { return !mShape; }

protected:
    friend struct BrAccess;
    AcBrTraverser() = default;
    std::shared_ptr<const br::Shape> mShape;
    br::Place mParent;
    std::size_t mAt = 0, mPlaces = 0;
};

class AcBrBrepFaceTraverser : public AcBrTraverser
{
public:
    ACRX_DECLARE_MEMBERS(AcBrBrepFaceTraverser);
    AcBrBrepFaceTraverser() = default;
    AcBr::ErrorStatus setBrep(const AcBrBrep& brep);
    AcBr::ErrorStatus getFace(AcBrFace& face) const;
};

/// The outer loop comes first.
class AcBrFaceLoopTraverser : public AcBrTraverser
{
public:
    ACRX_DECLARE_MEMBERS(AcBrFaceLoopTraverser);
    AcBrFaceLoopTraverser() = default;
    AcBr::ErrorStatus setFace(const AcBrFace& face);
    AcBr::ErrorStatus setFace(const AcBrBrepFaceTraverser& faces);
    AcBr::ErrorStatus getLoop(AcBrLoop& loop) const;
};

/// In the direction of the loop.
class AcBrLoopEdgeTraverser : public AcBrTraverser
{
public:
    ACRX_DECLARE_MEMBERS(AcBrLoopEdgeTraverser);
    AcBrLoopEdgeTraverser() = default;
    AcBr::ErrorStatus setLoop(const AcBrLoop& loop);
    AcBr::ErrorStatus setLoop(const AcBrFaceLoopTraverser& loops);
    AcBr::ErrorStatus getEdge(AcBrEdge& edge) const;
};

class AcBrLoopVertexTraverser : public AcBrTraverser
{
public:
    ACRX_DECLARE_MEMBERS(AcBrLoopVertexTraverser);
    AcBrLoopVertexTraverser() = default;
    AcBr::ErrorStatus setLoop(const AcBrLoop& loop);
    AcBr::ErrorStatus setLoop(const AcBrFaceLoopTraverser& loops);
    AcBr::ErrorStatus getVertex(AcBrVertex& vertex) const;
};
