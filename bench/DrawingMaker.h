#pragma once

/// The drawing that benchmarks of files read and write: lines, circles, arcs and polylines, one in ten
/// with extended data.

#include "AsciiWriter.h"
#include "AtomicFile.h"

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

namespace bench
{
class DrawingMaker
{
public:
    explicit DrawingMaker(dxf::GroupWriter& to) : _to(to) {}

    void make(int count)
    {
        _to.name(0, "SECTION");
        _to.name(2, "HEADER");
        _to.name(9, "$ACADVER");
        _to.name(1, "AC1015");
        _to.name(0, "ENDSEC");
        _to.name(0, "SECTION");
        _to.name(2, "ENTITIES");
        for (int i = 0; i < count; ++i) makeEntity(i);
        _to.name(0, "ENDSEC");
        _to.name(0, "EOF");
        _to.finish();
    }

private:
    double coordinate() { return std::uniform_real_distribution<double>(0, 1e5)(_random); }
    void point(int code) { _to.point(code, coordinate(), coordinate(), 0); }

    void start(const char* name, const char* marker, int i)
    {
        _to.name(0, name);
        _to.handle(5, 0x100u + static_cast<unsigned>(i));
        _to.name(100, "AcDbEntity");
        _to.name(8, i % 3 ? "0" : "Walls");
        _to.integer(62, i % 256);
        _to.name(100, marker);
    }

    void makeEntity(int i)
    {
        switch (i % 4) {
        case 0:
            start("LINE", "AcDbLine", i);
            point(10);
            point(11);
            break;
        case 1:
        case 2:
            start(i % 4 == 1 ? "CIRCLE" : "ARC", "AcDbCircle", i);
            point(10);
            _to.real(40, coordinate());
            if (i % 4 == 2) arcAngles();
            break;
        default: makePolyline(i);
        }
        if (i % 10 == 0) makeXdata();
    }

    void arcAngles()
    {
        _to.name(100, "AcDbArc");
        _to.real(50, 45);
        _to.real(51, 270.5);
    }

    void makePolyline(int i)
    {
        start("LWPOLYLINE", "AcDbPolyline", i);
        _to.integer(90, 8);
        _to.integer(70, 1);
        for (int k = 0; k < 8; ++k) {
            _to.real(10, coordinate());
            _to.real(20, coordinate());
        }
    }

    void makeXdata()
    {
        _to.name(1001, "MAKER");
        _to.name(1000, "a note on this entity");
        _to.integer(1070, 7);
        _to.real(1040, coordinate());
    }

    dxf::GroupWriter& _to;
    std::mt19937 _random{1};
};

/// A drawing that is made once and removed at the end.
class DrawingFile
{
public:
    explicit DrawingFile(int count)
        : _count(count), _path(std::filesystem::temp_directory_path() /
                               ("drawing-" + std::to_string(std::random_device()()) + ".dxf"))
    {
        dxf::AtomicFile file(_path.wstring());
        dxf::AsciiWriter writer(file, dxf::TextEncoding(1252));
        DrawingMaker(writer).make(count);
        if (file.commit() != dxf::FileStatus::done) std::abort();
    }
    ~DrawingFile() { std::filesystem::remove(_path); }

    int count() const { return _count; }
    const std::filesystem::path& path() const { return _path; }
    std::filesystem::path copy() const { return std::filesystem::path(_path).concat(".out"); }
    std::int64_t size() const { return static_cast<std::int64_t>(std::filesystem::file_size(_path)); }

private:
    int _count;
    std::filesystem::path _path;
};

/// The number of entities of the usual drawing: QM_BENCH_ENTITIES, or 200,000.
inline int entityCount()
{
    const char* const text = std::getenv("QM_BENCH_ENTITIES");
    return text ? std::atoi(text) : 200000;
}
} // namespace bench
