#pragma once

/// The declarations and definitions that every run-time typed class repeats.

#include "rxclass.h"

/// In the class: its descriptor, the checked cast, isA and registration. isA stands in the source file, so that the class has
/// one table of virtual functions: were it a module's own, objects that the module made would not outlive its unloading.
#define ACRX_DECLARE_MEMBERS(CLASS)                                                                          \
    static AcRxClass* desc() { return gpDesc; }                                                              \
    static CLASS* cast(const AcRxObject* object)                                                             \
    {                                                                                                        \
        return object && object->isKindOf(gpDesc) ? const_cast<CLASS*>(static_cast<const CLASS*>(object))    \
                                                  : nullptr;                                                 \
    }                                                                                                        \
    AcRxClass* isA() const override;                                                                         \
    static AcRxClass* gpDesc;                                                                                \
    static void rxInit()

/// rxInit registers the bases first, so that classes may be registered in any order.

/// Of a class with no objects of its own.
#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS, PARENT)                                                           \
    AcRxClass* CLASS::gpDesc = nullptr;                                                                      \
    AcRxClass* CLASS::isA() const { return gpDesc; }                                                         \
    void CLASS::rxInit()                                                                                     \
    {                                                                                                        \
        PARENT::rxInit();                                                                                    \
        if (!gpDesc) gpDesc = newAcRxClass(L"" #CLASS, PARENT::desc());                                      \
    }

/// Of a class whose objects are made by run-time name but are not in drawing files.
#define ACRX_CONS_DEFINE_MEMBERS(CLASS, PARENT, VERNO)                                                       \
    static AcRxObject* make##CLASS() { return new CLASS(); }                                                 \
    AcRxClass* CLASS::gpDesc = nullptr;                                                                      \
    AcRxClass* CLASS::isA() const { return gpDesc; }                                                         \
    void CLASS::rxInit()                                                                                     \
    {                                                                                                        \
        PARENT::rxInit();                                                                                    \
        if (!gpDesc) gpDesc = newAcRxClass(L"" #CLASS, PARENT::desc(), 0, make##CLASS, L"");                 \
    }

/// Of a class whose objects are records of drawing files.
#define ACRX_DXF_DEFINE_MEMBERS(CLASS, PARENT, DWGVER, MAINTVER, PROXYFLAGS, DXFNAME, APP)                   \
    static AcRxObject* make##CLASS() { return new CLASS(); }                                                 \
    AcRxClass* CLASS::gpDesc = nullptr;                                                                      \
    AcRxClass* CLASS::isA() const { return gpDesc; }                                                         \
    void CLASS::rxInit()                                                                                     \
    {                                                                                                        \
        PARENT::rxInit();                                                                                    \
        if (!gpDesc)                                                                                         \
            gpDesc = newAcRxClass(L"" #CLASS, PARENT::desc(), PROXYFLAGS, make##CLASS, L"" #DXFNAME, L"" #APP); \
    }
