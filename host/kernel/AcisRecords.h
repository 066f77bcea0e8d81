#pragma once

/// The records of a modeller text.

#include "gepnt3d.h"

#include <string>
#include <vector>

namespace kernel
{
/// One record: its name and the fields up to the '#'.
struct AcisRecord {
    std::string name;
    std::vector<std::string> fields;
    int line = 0; ///< of its start, from 1
};

struct AcisRecords {
    int version = 0;
    std::vector<AcisRecord> records;
    bool hasHeader = false, isWhole = true; ///< whole: no record is cut off
};

AcisRecords acisRecords(const std::vector<std::string>& lines);

/// Reads the fields of a record one after the other. After a fault everything reads as zero and ok() is
/// false.
class AcisFields
{
public:
    AcisFields(const AcisRecord& record, int version) : mRecord(record)
    {
        pointer(); // attributes
        if (version >= 700) {
            skip(); // history
            pointer();
        }
    }

    bool ok() const { return mOk; }
    bool atEnd() const { return mNext >= mRecord.fields.size(); }
    std::string word();
    void skip() { word(); }
    /// True when the next word is this one, which is then passed.
    bool accept(const char* text);
    double real();
    int whole();
    /// The index of a record, -1 for none.
    int pointer();
    AcGePoint3d point();
    AcGeVector3d vector() { return point().asVector(); }

private:
    const AcisRecord& mRecord;
    std::size_t mNext = 0;
    bool mOk = true;
};

/// The shortest text that reads back as the same number.
std::string acisNumber(double value);
} // namespace kernel
