#pragma once

/// What a document remembers of views and coordinate systems that were current before.

#include "dbid.h"
#include "DisplayView.h"

#include <atlstr.h>

#include <map>
#include <vector>

namespace ed
{
struct NamedFrame {
    AcGeMatrix3d toWorld;
    CString name;
};

struct ViewHistory {
    static constexpr std::size_t depth = 10; ///< AutoCAD's

    std::map<AcDbObjectId, std::vector<DisplayView>> views; ///< of each viewport, the newest last
    std::map<bool, std::vector<NamedFrame>> frames;         ///< of model space (false) and paper space (true)

    /// Adds an entry; the oldest one goes when there are too many.
    template <class Entry>
    static void push(std::vector<Entry>& entries, const Entry& entry)
    {
        if (entries.size() == depth) entries.erase(entries.begin());
        entries.push_back(entry);
    }
};
} // namespace ed
