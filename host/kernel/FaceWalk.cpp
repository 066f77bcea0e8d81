#include "FaceWalk.h"

namespace kernel
{
Cycle walkFace(Arrangement& plane, const HalfEdge& h)
{
    Cycle walk;
    HalfEdge at = h;
    do {
        walk.push_back(at);
        at = plane.next(at);
    } while (!(at == h));
    return walk;
}

std::vector<Cycle> simpleCycles(Arrangement& plane, const Cycle& walk)
{
    std::vector<Cycle> cycles;
    Cycle open;
    std::unordered_map<int, std::size_t> depth; // of the vertices on the open path
    for (const HalfEdge& h : walk) {
        depth.emplace(plane.startOf(h), open.size());
        open.push_back(h);
        const auto back = depth.find(plane.endOf(h));
        if (back == depth.end()) continue;
        const std::size_t first = back->second;
        Cycle cycle(open.begin() + static_cast<std::ptrdiff_t>(first), open.end());
        for (const HalfEdge& part : cycle)
            depth.erase(plane.startOf(part));
        open.resize(first);
        const bool toAndFro = cycle.size() == 2 && cycle[0] == cycle[1].twin();
        if (!toAndFro) cycles.push_back(std::move(cycle));
    }
    return cycles;
}

std::vector<Run> runsOf(Arrangement& plane, const Cycle& cycle)
{
    std::vector<Run> runs;
    runs.reserve(cycle.size());
    for (const HalfEdge& h : cycle)
        runs.push_back(plane.run(h));
    return runs;
}

Box2 flatBoxOf(Arrangement& plane, const Cycle& cycle)
{
    Box2 box;
    for (const HalfEdge& h : cycle)
        box.add(flatBoxOf(plane.run(h).form));
    return box;
}
} // namespace kernel
