#include "AcisCurves.h"

namespace kernel
{
namespace
{
constexpr int kOldest = 400, kNewest = 700;

/// Follows the records from the bodies down. The first fault ends it.
class Reader
{
public:
    explicit Reader(const AcisRecords& source) : mSource(source) {}

    AcisStatus run()
    {
        for (const AcisRecord& record : mSource.records)
            if (record.name == "body") readBody(record);
        return mStatus;
    }

    AcisFaces faces() const { return mFaces; }
    int line() const { return mLine; }

private:
    using Record = const AcisRecord*;

    AcisFields fieldsOf(Record record) const { return {*record, mSource.version}; }

    void fail(AcisStatus status, Record record)
    {
        if (mStatus != AcisStatus::kOk) return;
        mStatus = status;
        mLine = record ? record->line : 0;
    }

    /// The record at an index, which must have the name; null after a fault. Chains of records can be no
    /// longer than their number: a ring is a fault.
    Record at(int index, const char* name, Record from)
    {
        const bool exists = index >= 0 && static_cast<std::size_t>(index) < mSource.records.size();
        Record record = exists ? &mSource.records[static_cast<std::size_t>(index)] : nullptr;
        const bool suits = record && (!name || record->name == name);
        if (!suits || ++mSteps > 20 * mSource.records.size()) fail(AcisStatus::kDamaged, from);
        return mStatus == AcisStatus::kOk ? record : nullptr;
    }

    /// Follows a chain whose records hold the next one and then the one below.
    template <class Visit>
    void each(int index, const char* name, Record from, const Visit& visit)
    {
        while (index >= 0 && mStatus == AcisStatus::kOk) {
            const Record record = at(index, name, from);
            if (!record) return;
            AcisFields in = fieldsOf(record);
            index = in.pointer();
            visit(record, in);
            if (!in.ok()) fail(AcisStatus::kDamaged, record);
            from = record;
        }
    }

    void readBody(const AcisRecord& body)
    {
        AcisFields in = fieldsOf(&body);
        const int lumps = in.pointer();
        in.pointer(); // wires
        const int transform = in.pointer();
        if (!in.ok()) return fail(AcisStatus::kDamaged, &body);
        mMap.setToIdentity();
        if (transform >= 0) readTransform(transform, &body);
        each(lumps, "lump", &body, [&](Record lump, AcisFields& fields) {
            each(fields.pointer(), "shell", lump, [&](Record shell, AcisFields& inner) {
                inner.pointer(); // subshells
                each(inner.pointer(), "face", shell,
                     [&](Record face, AcisFields& parts) { readFace(face, parts); });
            });
        });
    }

    /// Rows of a matrix that is applied from the right, a translation and a scale.
    void readTransform(int index, Record from)
    {
        const Record record = at(index, "transform", from);
        if (!record) return;
        AcisFields in = fieldsOf(record);
        const AcGeVector3d x = in.vector(), y = in.vector(), z = in.vector(), move = in.vector();
        const double scale = in.real();
        if (!in.ok() || !(scale > 0)) return fail(AcisStatus::kDamaged, record);
        mMap.setCoordSystem(AcGePoint3d::kOrigin + move, x * scale, y * scale, z * scale);
    }

    void readFace(Record face, AcisFields& in)
    {
        const int loops = in.pointer();
        in.pointer(); // shell
        in.pointer(); // subshell
        const int surface = in.pointer();
        const bool reversed = in.accept("reversed");
        if (!reversed && !in.accept("forward")) return fail(AcisStatus::kDamaged, face);
        readPlane(surface, face, reversed);
        FaceCurves curves;
        each(loops, "loop", face,
             [&](Record loop, AcisFields& fields) { curves.push_back(readLoop(fields.pointer(), loop)); });
        if (curves.empty()) return fail(AcisStatus::kDamaged, face);
        mFaces.faces.push_back(std::move(curves));
    }

    void readPlane(int index, Record face, bool reversed)
    {
        const Record record = at(index, nullptr, face);
        if (!record) return;
        if (record->name != "plane-surface") return fail(AcisStatus::kUnsupported, record);
        AcisFields in = fieldsOf(record);
        in.point();
        const AcGeVector3d normal = mMap * in.vector();
        if (!in.ok() || !(normal.length() > 0)) return fail(AcisStatus::kDamaged, record);
        if (mFaces.faces.empty()) mFaces.normal = reversed ? -normal.normal() : normal.normal();
    }

    /// Coedges stand in a ring.
    LoopCurves readLoop(int first, Record loop)
    {
        LoopCurves curves;
        int index = first;
        do {
            const Record coedge = at(index, "coedge", loop);
            if (!coedge) return {};
            AcisFields in = fieldsOf(coedge);
            index = in.pointer();
            in.pointer(); // the one before
            in.pointer(); // partner
            const int edge = in.pointer();
            const bool reversed = in.accept("reversed");
            if (!in.ok() || (!reversed && !in.accept("forward"))) fail(AcisStatus::kDamaged, coedge);
            if (const auto curve = readEdge(edge, coedge, reversed)) curves.push_back(curve);
        } while (index != first && mStatus == AcisStatus::kOk);
        return curves;
    }

    std::shared_ptr<const AcGeCurve3d> readEdge(int index, Record coedge, bool reversed)
    {
        const Record edge = at(index, "edge", coedge);
        if (!edge) return nullptr;
        const bool withParams = mSource.version >= 500;
        AcisFields in = fieldsOf(edge);
        const AcGePoint3d from = vertex(in.pointer(), edge);
        if (withParams) in.real();
        const AcGePoint3d to = vertex(in.pointer(), edge);
        if (withParams) in.real();
        in.pointer(); // coedge
        const Record record = at(in.pointer(), nullptr, edge);
        const bool against = in.accept("reversed");
        if (!in.ok() || (!against && !in.accept("forward"))) fail(AcisStatus::kDamaged, edge);
        std::shared_ptr<const AcGeCurve3d> curve;
        if (mStatus != AcisStatus::kOk) return curve;
        const AcisStatus status = readAcisCurve(*record, mSource.version, from, to, against, curve);
        if (status != AcisStatus::kOk) fail(status, record);
        return curve ? placed(*curve, reversed) : nullptr;
    }

    std::shared_ptr<const AcGeCurve3d> placed(const AcGeCurve3d& curve, bool reversed) const
    {
        std::unique_ptr<AcGeCurve3d> copy(static_cast<AcGeCurve3d*>(curve.copy()));
        if (reversed) copy->reverseParam();
        copy->transformBy(mMap);
        return copy;
    }

    AcGePoint3d vertex(int index, Record edge)
    {
        const Record vertex = at(index, "vertex", edge);
        if (!vertex) return {};
        AcisFields in = fieldsOf(vertex);
        in.pointer(); // an edge of it
        const Record point = at(in.pointer(), "point", vertex);
        if (!point) return {};
        AcisFields place = fieldsOf(point);
        const AcGePoint3d p = place.point();
        if (!place.ok()) fail(AcisStatus::kDamaged, point);
        return p;
    }

    const AcisRecords& mSource;
    AcisFaces mFaces;
    AcGeMatrix3d mMap;
    AcisStatus mStatus = AcisStatus::kOk;
    int mLine = 0;
    std::size_t mSteps = 0;
};
} // namespace

AcisStatus readAcisText(const std::vector<std::string>& lines, AcisFaces& result, int* line)
{
    const AcisRecords records = acisRecords(lines);
    if (line) *line = 1;
    if (!records.hasHeader) return AcisStatus::kNoHeader;
    if (records.version < kOldest || records.version > kNewest) return AcisStatus::kVersion;
    if (line) *line = static_cast<int>(lines.size());
    if (!records.isWhole) return AcisStatus::kDamaged;
    Reader reader(records);
    const AcisStatus status = reader.run();
    if (line) *line = reader.line();
    if (status == AcisStatus::kOk) result = reader.faces();
    return status;
}
} // namespace kernel
