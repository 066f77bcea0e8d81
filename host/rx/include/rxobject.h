#pragma once

/// The root of all run-time typed classes.

#include <windows.h>

#include "acadstrc.h"

class AcRxClass;

/// Three-way answers of comparisons.
namespace AcRx
{
enum Ordering { kLessThan = -1, kEqual = 0, kGreaterThan = 1, kNotOrderable = 2 };
}

class AcRxObject
{
public:
    virtual ~AcRxObject();

    /// The descriptor of AcRxObject itself; null before the class system is up and after it is down.
    static AcRxClass* desc();
    /// The root is always registered.
    static void rxInit() {}
    static AcRxObject* cast(const AcRxObject* object) { return const_cast<AcRxObject*>(object); }

    /// The descriptor of this object's own class.
    virtual AcRxClass* isA() const;
    /// True when this object's class is `aClass` or derives from it; false for null.
    bool isKindOf(const AcRxClass* aClass) const;
    /// The protocol extension that this object's class, or the nearest of its bases, has under `protocol`;
    /// null when none has. The object stays the owner's.
    AcRxObject* queryX(const AcRxClass* protocol) const;

    /// A copy made by the class; null for classes that cannot be copied so.
    virtual AcRxObject* clone() const;
    /// Takes over the contents of another object of the same class; eNotApplicable where a class does not
    /// support it.
    virtual Acad::ErrorStatus copyFrom(const AcRxObject* other);

    virtual bool isEqualTo(const AcRxObject* other) const;
    virtual AcRx::Ordering comparedTo(const AcRxObject* other) const;

protected:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = default;
    AcRxObject& operator=(const AcRxObject&) = default;
};
