#pragma once

/// The subdivision of the plane by curves: where they meet, and the edges between.

#include "BoxTree.h"
#include "Winding.h"

#include <cstdint>
#include <deque>
#include <unordered_map>

namespace kernel
{
/// A stretch of one input curve that does not cross itself. Its form points into that curve.
struct Strand {
    gecore::CurveForm form;
    int source = 0;               ///< which input curve
    double scale = 1, offset = 0; ///< parameter of the input curve = offset + scale * parameter of the form

    double sourceParam(double t) const { return offset + scale * t; }
};

/// Adds the strands of a bounded curve: composite curves fall into their parts, splines are cut where they
/// turn so much that they could cross themselves. Parts shorter than tol are left out.
void addStrands(const gecore::CurveForm& form, int source, double tol, std::vector<Strand>& strands);

/// One side of an edge: the edge between two neighbouring events of a strand, and a direction. The side meant
/// is the left one.
struct HalfEdge {
    int strand = -1, index = 0;
    bool forward = true;

    HalfEdge twin() const { return {strand, index, !forward}; }
    std::uint64_t key() const
    {
        return (static_cast<std::uint64_t>(strand) << 32 | static_cast<std::uint32_t>(index)) << 1 |
               (forward ? 1u : 0u);
    }
    bool operator==(const HalfEdge& other) const { return key() == other.key(); }
};

/// Vertices and edges of the subdivision, worked out where they are asked for: a walk around one face
/// computes the crossings of the curves along it and no others. Points closer than a few tolerances are one
/// vertex; of strands that share a stretch only the first has edges there.
class Arrangement
{
public:
    /// `tol` > 0, in drawing units. The curves behind the strands must outlive the arrangement.
    Arrangement(std::vector<Strand> strands, double tol);

    /// A place on a strand that is a vertex; the ends of the strand are the first and the last.
    struct Event {
        double t = 0;
        int vertex = 0;
    };
    /// A stretch of a strand that another one shares.
    struct Shared {
        double lo = 0, hi = 0;
        int other = 0;
        bool sameDirection = true;
    };

    double tolerance() const { return mTol; }
    const BoxTree& tree() const { return mTree; }
    const std::vector<Strand>& strands() const { return mStrands; }
    const Strand& strand(int i) const { return mStrands[static_cast<std::size_t>(i)]; }
    const AcGePoint2d& point(int vertex) const { return mVertices[static_cast<std::size_t>(vertex)]; }
    const Box2& box(int strand) const { return mBoxes[static_cast<std::size_t>(strand)]; }

    /// Sorted along the strand; computed at the first call.
    const std::vector<Event>& events(int strand);
    int edgeCount(int strand) { return static_cast<int>(events(strand).size()) - 1; }
    /// True for an edge that is represented by another strand's.
    bool isRepeated(int strand, int index);
    /// The stretches that other strands share with the edge.
    std::vector<Shared> sharedWith(int strand, int index);

    int startOf(const HalfEdge& h);
    int endOf(const HalfEdge& h) { return startOf(h.twin()); }
    double middle(const HalfEdge& h);
    AcGePoint2d middlePoint(const HalfEdge& h);
    Run run(const HalfEdge& h);

    /// The half-edges that leave a vertex, counter-clockwise.
    const std::vector<HalfEdge>& fan(int vertex);
    /// The half-edge that follows along the same face.
    HalfEdge next(const HalfEdge& h);

private:
    struct Node {
        std::vector<Event> events;
        std::vector<Shared> shared;
        bool done = false;
    };

    Node& node(int i);
    int vertexAt(const AcGePoint2d& p);
    void meetStrands(int first, int second);
    void addMeeting(int first, double s, int second, double t);
    void snapToEnd(int first, double& s, int second, double& t) const;
    void sortEvents(int i);
    bool isSameEvent(int strand, const Event& a, const Event& b) const;
    std::vector<HalfEdge> leaving(int vertex);
    void sortByTangent(int vertex, std::vector<HalfEdge>& fan);
    void sortAtDistance(int vertex, std::vector<HalfEdge>& fan);
    double angleAtDistance(const HalfEdge& h, const AcGePoint2d& center, double radius);

    std::vector<Strand> mStrands;
    std::vector<Box2> mBoxes;
    BoxTree mTree;
    double mTol;
    std::deque<Node> mNodes;  ///< of the strands that were touched
    std::vector<int> mNodeOf; ///< -1 for the others
    std::vector<AcGePoint2d> mVertices;
    std::unordered_multimap<std::uint64_t, int> mCells; ///< vertices by the cell of the grid that they are in
    std::unordered_map<int, std::vector<HalfEdge>> mFans;
};

/// A tolerance that rounding at these coordinates cannot spoil.
double safeTolerance(double tol, const Box2& box);
} // namespace kernel
