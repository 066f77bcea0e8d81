#pragma once

#include <afxwin.h>
#include <oleauto.h>

/// An automation object by the names of its properties, held with a reference of its own. A null object has
/// none.
class AutomationObject
{
public:
    /// Takes over a reference.
    explicit AutomationObject(LPDISPATCH object) : m_object(object) {}
    AutomationObject(AutomationObject&& other) noexcept : m_object(other.m_object)
    {
        other.m_object = nullptr;
    }
    AutomationObject& operator=(AutomationObject&&) = delete;
    ~AutomationObject();

    /// The object that a property holds; a null object when there is none.
    AutomationObject object(const wchar_t* property) const;
    /// The text of a property; false, and `text` unchanged, when there is none.
    bool getText(const wchar_t* property, CString& text) const;
    bool setText(const wchar_t* property, const CString& text) const;

private:
    bool get(const wchar_t* property, VARTYPE type, VARIANT& value) const;
    bool find(const wchar_t* property, DISPID& id) const;

    LPDISPATCH m_object;
};
