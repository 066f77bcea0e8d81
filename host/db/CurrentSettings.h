#pragma once

#include "dbcolor.h"
#include "dbid.h"

/// What of a drawing's settings is kept as objects and not in the header.
struct CurrentSettings {
    AcDbObjectId clayer, celtype, textstyle, dimstyle; ///< what new entities get
    AcCmColor cecolor;
    AcDbObjectId paperSpace;
    AcDbObjectId modelViewport; ///< of the layout, in which one works; null for the sheet itself

    bool operator==(const CurrentSettings& other) const
    {
        return clayer == other.clayer && celtype == other.celtype && textstyle == other.textstyle &&
               dimstyle == other.dimstyle && cecolor == other.cecolor && paperSpace == other.paperSpace &&
               modelViewport == other.modelViewport;
    }
};
