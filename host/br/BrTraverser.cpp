#include "brtrav.h"

#include "BrAccess.h"
#include "ClassRegistration.h"

ACDB_ABSTRACT_CLASS(AcBrTraverser, AcRxObject)
ACDB_ABSTRACT_CLASS(AcBrBrepFaceTraverser, AcBrTraverser)
ACDB_ABSTRACT_CLASS(AcBrFaceLoopTraverser, AcBrTraverser)
ACDB_ABSTRACT_CLASS(AcBrLoopEdgeTraverser, AcBrTraverser)
ACDB_ABSTRACT_CLASS(AcBrLoopVertexTraverser, AcBrTraverser)

namespace
{
/// The part that a traverser stands at.
template <class Part>
AcBr::ErrorStatus take(const AcBrTraverser& traverser, const std::shared_ptr<const br::Shape>& shape,
                       const br::Place& place, Part& part)
{
    if (traverser.isNull()) return AcBr::eUninitialisedObject;
    if (traverser.done()) return AcBr::eEndOfTraverser;
    BrAccess::set(part, shape, place);
    return AcBr::eOk;
}

AcBr::ErrorStatus startEdges(AcBrTraverser& traverser, const AcBrLoop& loop)
{
    if (loop.isNull()) return AcBr::eUninitialisedObject;
    BrAccess::start(traverser, BrAccess::shape(loop), BrAccess::place(loop), BrAccess::loop(loop).size());
    return AcBr::eOk;
}

AcBr::ErrorStatus startEdges(AcBrTraverser& traverser, const AcBrFaceLoopTraverser& loops)
{
    AcBrLoop loop;
    const AcBr::ErrorStatus status = loops.getLoop(loop);
    return status == AcBr::eOk ? startEdges(traverser, loop) : status;
}
} // namespace

AcBr::ErrorStatus AcBrTraverser::next()
{
    if (isNull()) return AcBr::eUninitialisedObject;
    if (done()) return AcBr::eEndOfTraverser;
    ++mAt;
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrTraverser::restart()
{
    if (isNull()) return AcBr::eUninitialisedObject;
    mAt = 0;
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrBrepFaceTraverser::setBrep(const AcBrBrep& brep)
{
    if (brep.isNull()) return AcBr::eUninitialisedObject;
    BrAccess::start(*this, BrAccess::shape(brep), {}, BrAccess::shape(brep)->faces.size());
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrBrepFaceTraverser::getFace(AcBrFace& face) const
{
    return take(*this, mShape, {mAt, 0, 0}, face);
}

AcBr::ErrorStatus AcBrFaceLoopTraverser::setFace(const AcBrFace& face)
{
    if (face.isNull()) return AcBr::eUninitialisedObject;
    const br::Place& place = BrAccess::place(face);
    BrAccess::start(*this, BrAccess::shape(face), place, BrAccess::shape(face)->faces[place.face].size());
    return AcBr::eOk;
}

AcBr::ErrorStatus AcBrFaceLoopTraverser::setFace(const AcBrBrepFaceTraverser& faces)
{
    AcBrFace face;
    const AcBr::ErrorStatus status = faces.getFace(face);
    return status == AcBr::eOk ? setFace(face) : status;
}

AcBr::ErrorStatus AcBrFaceLoopTraverser::getLoop(AcBrLoop& loop) const
{
    return take(*this, mShape, {mParent.face, mAt, 0}, loop);
}

AcBr::ErrorStatus AcBrLoopEdgeTraverser::setLoop(const AcBrLoop& loop)
{
    return startEdges(*this, loop);
}
AcBr::ErrorStatus AcBrLoopEdgeTraverser::setLoop(const AcBrFaceLoopTraverser& loops)
{
    return startEdges(*this, loops);
}
AcBr::ErrorStatus AcBrLoopEdgeTraverser::getEdge(AcBrEdge& edge) const
{
    return take(*this, mShape, {mParent.face, mParent.loop, mAt}, edge);
}

AcBr::ErrorStatus AcBrLoopVertexTraverser::setLoop(const AcBrLoop& loop)
{
    return startEdges(*this, loop);
}
AcBr::ErrorStatus AcBrLoopVertexTraverser::setLoop(const AcBrFaceLoopTraverser& loops)
{
    return startEdges(*this, loops);
}
AcBr::ErrorStatus AcBrLoopVertexTraverser::getVertex(AcBrVertex& vertex) const
{
    return take(*this, mShape, {mParent.face, mParent.loop, mAt}, vertex);
}
