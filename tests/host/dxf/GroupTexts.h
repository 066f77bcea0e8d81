#pragma once

/// Short ways from bytes to groups and back, for the tests of this folder.

#include "AsciiReader.h"
#include "AsciiWriter.h"
#include "BinaryReader.h"
#include "BinaryWriter.h"
#include "GroupCollector.h"
#include "OpenDrawing.h"

#include <string>
#include <vector>

namespace dxftest
{
using Groups = std::vector<dxf::CollectedGroup>;

inline Groups collect(dxf::GroupReader& reader)
{
    dxf::GroupCollector collector(reader.encoding());
    copyGroups(reader, collector);
    return collector.groups();
}

/// The groups of a whole file, which has to open.
inline Groups groupsOf(std::string_view bytes)
{
    const dxf::OpenedDrawing opened = openDrawing(dxf::Input::ofBytes(bytes));
    return opened.reader ? collect(*opened.reader) : Groups();
}

inline std::vector<dxf::FaultKind> faultKinds(const dxf::FaultList& faults)
{
    std::vector<dxf::FaultKind> kinds;
    for (const dxf::Fault& fault : faults.kept())
        kinds.push_back(fault.kind);
    return kinds;
}

inline std::string toAscii(dxf::GroupReader& reader)
{
    dxf::MemorySink sink;
    dxf::AsciiWriter writer(sink, reader.encoding());
    copyGroups(reader, writer);
    writer.finish();
    return sink.bytes();
}

inline std::string toBinary(dxf::GroupReader& reader, bool hasWideCodes)
{
    dxf::MemorySink sink;
    dxf::BinaryWriter writer(sink, reader.encoding(), hasWideCodes);
    copyGroups(reader, writer);
    writer.finish();
    return sink.bytes();
}

/// A small drawing with a value of every kind, as an ASCII file.
std::string smallDrawing();
} // namespace dxftest
