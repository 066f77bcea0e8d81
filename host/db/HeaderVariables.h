#pragma once

/// The variables of a drawing's header ("$LTSCALE" ...): one table of those that the host knows, and the values of one
/// drawing.

#include "DxfFields.h"
#include "NotCopied.h"
#include "PackedGroups.h"
#include "gepnt3d.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

struct HeaderVariable {
    const char* name;
    int code;         ///< of the (first) group of the value; it decides its kind
    DxfVersion since; ///< the first file version that has it
    const char* value; ///< the default: a text, an integer, or reals with a blank between
};

/// Told before a value changes.
class HeaderWatcher
{
public:
    virtual void willSet(std::string_view name, const PackedGroups& value) = 0;

protected:
    ~HeaderWatcher() = default;
};

/// Values stand as the groups they have in files, so a file's own wording survives. A variable that the table does not
/// know is kept too.
class HeaderVariables
{
public:
    HeaderVariables();

    /// The place of a variable in the table; -1 when it is not there.
    static int indexOf(std::string_view name);
    /// The table's entry; null past its end.
    static const HeaderVariable* known(int index);

    /// The value at a place of the table, for those who ask often.
    const PackedGroups& atPlace(int index) const { return mValues[static_cast<std::size_t>(index)]; }
    double real(int index) const { return firstOf(atPlace(index)).real; }
    std::int64_t integer(int index) const { return firstOf(atPlace(index)).integer; }
    AcGePoint3d point(int index) const { return pointOf(atPlace(index)); }
    /// Another number whenever a value may have changed, and none that other values had.
    std::uint64_t revision() const { return mRevision; }

    /// The value; null for a variable that neither the table nor the file knows.
    const PackedGroups* find(std::string_view name) const;
    /// The value to fill; an unknown variable is added.
    PackedGroups& at(std::string_view name);

    double real(std::string_view name) const { return first(name).real; }
    std::int64_t integer(std::string_view name) const { return first(name).integer; }
    CString text(std::string_view name) const { return first(name).wide(); }
    /// A point of two or three reals.
    AcGePoint3d point(std::string_view name) const;
    void setReal(std::string_view name, double value);
    void setInteger(std::string_view name, std::int64_t value);
    void setText(std::string_view name, const CString& value);
    void setPoint(std::string_view name, const AcGePoint3d& value);

    /// Takes the settings of another drawing, but for its times and identifiers and what names objects or
    /// coordinate systems of it.
    void takeSettings(const HeaderVariables& other);
    /// Who is told from now on; null for none. Copies tell nobody.
    void watch(HeaderWatcher* watcher) { mWatch.watcher = watcher; }

    /// Writes those that a file of the sink's version may hold, in the table's order.
    void write(DxfSink& sink, bool withUnknown) const;

private:
    static DxfGroup firstOf(const PackedGroups& groups);
    static AcGePoint3d pointOf(const PackedGroups& groups);
    /// The first group of a value.
    DxfGroup first(std::string_view name) const;

    PackedGroups& place(std::string_view name);

    struct Watch {
        HeaderWatcher* watcher = nullptr;
    };

    NotCopied<Watch> mWatch;
    std::vector<PackedGroups> mValues;
    std::vector<std::pair<std::string, PackedGroups>> mUnknown;
    std::uint64_t mRevision;
};
