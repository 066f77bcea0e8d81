#include "AcisCurves.h"
#include "CurveForm.h"

namespace kernel
{
namespace
{
/// Collects records; those that others point to get their numbers first.
class Writer
{
public:
    Writer(const AcGeMatrix3d& planeToWorld, int version)
        : mVersion(version), mBase(version >= 700 ? " $-1 -1 $-1" : " $-1")
    {
        AcGeVector3d yAxis;
        planeToWorld.getCoordSystem(mOrigin, mXAxis, yAxis, mNormal);
    }

    std::vector<std::string> run(const std::vector<FaceCurves>& faces)
    {
        if (!faces.empty()) addBody(faces);
        std::vector<std::string> lines = header(faces.empty() ? 0 : 1);
        lines.insert(lines.end(), mRecords.begin(), mRecords.end());
        if (mVersion >= 700) lines.emplace_back("End-of-ACIS-data");
        return lines;
    }

private:
    std::vector<std::string> header(int bodies) const
    {
        const char* mark = mVersion >= 700 ? "@" : "";
        const auto text = [&](const std::string& s) {
            return mark + std::to_string(s.size()) + " " + s + " ";
        };
        return {std::to_string(mVersion) + " " + std::to_string(mRecords.size()) + " " +
                    std::to_string(bodies) + " 0",
                text("arxhost") + text("ACIS " + std::to_string(mVersion / 100) + ".0") +
                    text("Thu Jan 01 00:00:00 1970"),
                "1 9.9999999999999995e-07 1e-10"};
    }

    int reserve()
    {
        mRecords.emplace_back();
        return static_cast<int>(mRecords.size()) - 1;
    }
    static std::string to(int index) { return " $" + std::to_string(index); }
    void set(int index, const char* name, const std::string& fields)
    {
        mRecords[static_cast<std::size_t>(index)] = name + mBase + fields + " #";
    }

    /// Each face is a lump: faces of a region do not share edges.
    void addBody(const std::vector<FaceCurves>& faces)
    {
        const int body = reserve();
        std::vector<int> lumps;
        for (std::size_t i = 0; i < faces.size(); ++i)
            lumps.push_back(reserve());
        set(body, "body", to(lumps[0]) + to(-1) + to(-1));
        for (std::size_t i = 0; i < faces.size(); ++i) {
            const int shell = reserve(), face = reserve();
            set(lumps[i], "lump", to(i + 1 < faces.size() ? lumps[i + 1] : -1) + to(shell) + to(body));
            set(shell, "shell", to(-1) + to(-1) + to(face) + to(-1) + to(lumps[i]));
            addFace(face, shell, faces[i]);
        }
    }

    void addFace(int face, int shell, const FaceCurves& curves)
    {
        const int surface = reserve();
        set(surface, "plane-surface",
            " " + acisText(mOrigin) + " " + acisText(mNormal) + " " + acisText(mXAxis) +
                " forward_v I I I I");
        std::vector<int> loops;
        for (std::size_t i = 0; i < curves.size(); ++i)
            loops.push_back(reserve());
        set(face, "face", to(-1) + to(loops[0]) + to(shell) + to(-1) + to(surface) + " forward double out");
        for (std::size_t i = 0; i < curves.size(); ++i)
            addLoop(loops[i], i + 1 < curves.size() ? loops[i + 1] : -1, face, curves[i]);
    }

    void addLoop(int loop, int next, int face, const LoopCurves& curves)
    {
        const std::size_t n = curves.size();
        std::vector<int> coedges, edges, vertices;
        for (std::size_t i = 0; i < n; ++i) {
            coedges.push_back(reserve());
            edges.push_back(reserve());
            vertices.push_back(reserve());
        }
        set(loop, "loop", to(next) + to(coedges[0]) + to(face));
        for (std::size_t i = 0; i < n; ++i) {
            const std::size_t after = (i + 1) % n, before = (i + n - 1) % n;
            set(coedges[i], "coedge",
                to(coedges[after]) + to(coedges[before]) + to(-1) + to(edges[i]) + " forward" + to(loop) +
                    to(-1));
            addEdge(edges[i], vertices[i], vertices[after], coedges[i], *curves[i]);
            addVertex(vertices[i], edges[i], *curves[i]);
        }
    }

    void addEdge(int edge, int start, int end, int coedge, const AcGeCurve3d& curve)
    {
        const int record = reserve();
        mRecords[static_cast<std::size_t>(record)] = acisCurveRecord(curve, mVersion, mBase) + " #";
        const gecore::CurveForm form = curve.form();
        const bool line = form.kind == gecore::FormKind::kLine;
        const double length = form.u.length(); // lines are written with a unit direction from their start
        const double lo = line ? 0 : form.lo, hi = line ? (form.hi - form.lo) * length : form.hi;
        const bool withParams = mVersion >= 500;
        set(edge, "edge",
            to(start) + (withParams ? " " + acisNumber(lo) : "") + to(end) +
                (withParams ? " " + acisNumber(hi) : "") + to(coedge) + to(record) + " forward" +
                (withParams ? " @7 unknown" : ""));
    }

    void addVertex(int vertex, int edge, const AcGeCurve3d& curve)
    {
        const int point = reserve();
        set(vertex, "vertex", to(edge) + to(point));
        set(point, "point", " " + acisText(startOf(curve.form())));
    }

    int mVersion;
    std::string mBase;
    AcGePoint3d mOrigin;
    AcGeVector3d mXAxis, mNormal;
    std::vector<std::string> mRecords;
};
} // namespace

std::vector<std::string> writeAcisText(const Region& region, int version)
{
    return Writer(region.planeToWorld(), version == 700 ? 700 : 400).run(region.faces());
}
} // namespace kernel
