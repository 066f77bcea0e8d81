#pragma once

/// Groups of the drawing interchange format, as the classes of the database see them. Files, lists (resbuf) and
/// kept data all speak this.

#include <windows.h>

#include <atlstr.h>

#include <cstdint>
#include <string>
#include <string_view>

struct AcDbStub;

/// What the value of a group is; the code decides it, by the ranges of the DXF reference.
enum class DxfKind : std::uint8_t { text, real, integer, handle, binary };

DxfKind dxfKindOf(int code);

/// A text of the database as groups carry it, and back. Units that are half of a character are kept: as the three
/// bytes that UTF-8 would have for them.
std::string utf8Of(const CString& text);
CString wideOf(std::string_view utf8);

/// One group. Text and binary values are views that hold until the next group is asked for.
struct DxfGroup {
    int code = 0;
    DxfKind kind = DxfKind::text;
    std::string_view text;    ///< text: UTF-8, escapes decoded; binary: the bytes
    double real = 0.0;        ///< real: the number; points come as one group a coordinate
    std::int64_t integer = 0; ///< integer, boolean; handle: its value

    bool is(int wanted) const { return code == wanted; }
    /// The text as the database keeps it.
    CString wide() const { return wideOf(text); }
};

/// Gives groups one after the other. Faults are reported by the source itself, with their place in the file.
class DxfSource
{
public:
    virtual ~DxfSource() = default;

    /// The next group, without taking it; null at the end of the object.
    virtual const DxfGroup* peek() = 0;
    /// Takes the group that peek shows.
    virtual void take() = 0;
    /// The stub of a handle; made when the object has not been met yet. Null for the null handle.
    virtual AcDbStub* stubOf(std::uint64_t handle) = 0;
    /// The record of a symbol table by name: layers (8), line types (6), text styles (7) ... A name that the drawing does
    /// not define gives the table's default record and is reported.
    virtual AcDbStub* recordOf(int code, std::string_view name) = 0;
    /// Told when an entity says which space it stands in: files before R13 name no owners.
    virtual void paperSpace(bool) {}
    /// The angle of a group in radians: files have degrees, lists radians.
    virtual double angleOf(const DxfGroup& group) const;
    /// Says that a value cannot be used; the object goes on with what it has.
    virtual void report(const DxfGroup& group, const char* reason) = 0;
};

/// Takes groups. A point is three or two groups; the sink of lists joins them.
class DxfSink
{
public:
    virtual ~DxfSink() = default;

    virtual void real(int code, double value) = 0;
    virtual void integer(int code, std::int64_t value) = 0;
    virtual void text(int code, std::string_view utf8) = 0;
    virtual void handle(int code, AcDbStub* stub) = 0;
    virtual void binary(int code, std::string_view bytes) = 0;
    /// A handle that is not of a living object, kept as it was read.
    virtual void rawHandle(int code, std::uint64_t value) = 0;

    /// An angle in radians: files have degrees, lists radians.
    virtual void angle(int code, double radians);
    /// Whether a field is wanted also where it may be left out.
    virtual bool wantsDefault(int) const { return false; }
    /// The name of a record of a symbol table; nothing for the null stub.
    virtual void record(int code, AcDbStub* stub);

    /// A drawing file's version, 1000 (R12: 1009) to 1032 (R2018); lists count as the newest.
    virtual int version() const = 0;

    /// Whether an object is written too; files of old versions leave newer classes out.
    virtual bool holds(const AcDbStub*) const { return true; }

    void wide(int code, const CString& value);
    void point(int code, double x, double y, double z);
    void point(int code, double x, double y);
};
