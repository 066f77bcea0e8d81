#include "AutomationObject.h"

namespace
{
const IID noIid = {};

/// A variant that is cleared at the end.
struct Variant : VARIANT {
    Variant() { VariantInit(this); }
    ~Variant() { VariantClear(this); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
};
} // namespace

AutomationObject::~AutomationObject()
{
    if (m_object) m_object->Release();
}

bool AutomationObject::find(const wchar_t* property, DISPID& id) const
{
    OLECHAR* name = const_cast<OLECHAR*>(property);
    return m_object && SUCCEEDED(m_object->GetIDsOfNames(noIid, &name, 1, LOCALE_USER_DEFAULT, &id));
}

bool AutomationObject::get(const wchar_t* property, VARTYPE type, VARIANT& value) const
{
    DISPID id = DISPID_UNKNOWN;
    DISPPARAMS none = {};
    return find(property, id) &&
           SUCCEEDED(m_object->Invoke(id, noIid, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value,
                                      nullptr, nullptr)) &&
           value.vt == type;
}

AutomationObject AutomationObject::object(const wchar_t* property) const
{
    Variant value;
    if (!get(property, VT_DISPATCH, value)) return AutomationObject(nullptr);
    value.vt = VT_EMPTY; // the reference is handed on
    return AutomationObject(value.pdispVal);
}

bool AutomationObject::getText(const wchar_t* property, CString& text) const
{
    Variant value;
    if (!get(property, VT_BSTR, value)) return false;
    text = CString(value.bstrVal, static_cast<int>(SysStringLen(value.bstrVal)));
    return true;
}

bool AutomationObject::setText(const wchar_t* property, const CString& text) const
{
    DISPID id = DISPID_UNKNOWN, put = DISPID_PROPERTYPUT;
    if (!find(property, id)) return false;
    Variant value;
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocString(text);
    DISPPARAMS arguments = {&value, &put, 1, 1};
    return SUCCEEDED(m_object->Invoke(id, noIid, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &arguments,
                                      nullptr, nullptr, nullptr));
}
