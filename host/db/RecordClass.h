#pragma once

/// Which class the records of a drawing file become. Most record names stand for one class; where several share a name
/// (polylines, vertices, dimensions) a function looks at the record's groups.

#include "rxclass.h"

#include <cstdint>
#include <string_view>

/// A record before it has become an object.
class RecordView
{
public:
    virtual ~RecordView() = default;
    /// Whether the record has a section (group 100) of this name.
    virtual bool hasSection(std::string_view marker) const = 0;
    /// The value of the first group with a code, in any section; `otherwise` when there is none.
    virtual std::int64_t integer(int code, std::int64_t otherwise) const = 0;
};

/// Chooses the class of a record; null: kept as a proxy.
using RecordChooser = AcRxClass* (*)(const RecordView&);

struct RecordKind {
    AcRxClass* aClass = nullptr; ///< the class of every record of the name; null for an unknown name
    RecordChooser chooser = nullptr;

    AcRxClass* classOf(const RecordView& record) const { return chooser ? chooser(record) : aClass; }
};

RecordKind recordKindOf(std::string_view recordName);

/// Registers a chooser while the host is loaded: static const RecordChoice vertices("VERTEX", classOfVertex);
struct RecordChoice {
    RecordChoice(const char* recordName, RecordChooser chooser);
};
