#pragma once

/// Registration of the host's own classes: each registers itself when the host is loaded, so that descriptors can be
/// asked for before there is a drawing.

#include "rxboiler.h"

struct ClassRegistration {
    ClassRegistration(void (*rxInit)(), AcRxClass* const& desc)
    {
        rxInit();
        desc->mIsBuiltIn = true;
    }
};

#define ACDB_REGISTER_CLASS(CLASS) static const ClassRegistration registrationOf##CLASS(&CLASS::rxInit, CLASS::gpDesc);

/// Of a class with no objects of its own.
#define ACDB_ABSTRACT_CLASS(CLASS, PARENT)                                                                   \
    ACRX_NO_CONS_DEFINE_MEMBERS(CLASS, PARENT)                                                               \
    ACDB_REGISTER_CLASS(CLASS)

/// Of a class whose objects are not records of their own in drawing files.
#define ACDB_CLASS(CLASS, PARENT)                                                                            \
    ACRX_CONS_DEFINE_MEMBERS(CLASS, PARENT, 0)                                                               \
    ACDB_REGISTER_CLASS(CLASS)

/// Of a class whose objects are records of drawing files under a name.
#define ACDB_DXF_CLASS(CLASS, PARENT, DXFNAME)                                                               \
    ACRX_DXF_DEFINE_MEMBERS(CLASS, PARENT, , , 0, DXFNAME, ObjectDBX Classes)                                \
    ACDB_REGISTER_CLASS(CLASS)
