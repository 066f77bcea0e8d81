#include "PreferencesObject.h"

#include "acedvars.h"

#include <functional>
#include <string>
#include <vector>

namespace
{
struct Property {
    std::wstring name;
    std::function<void(VARIANT& result)> get;
    std::function<bool(const VARIANT& value)> put; ///< empty: read-only
};

/// An object of named properties that lives as long as the program: its references are not counted.
class PropertyObject : public IDispatch
{
public:
    explicit PropertyObject(std::vector<Property> properties) : mProperties(std::move(properties)) {}
    virtual ~PropertyObject() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualGUID(id, IID_IUnknown) || IsEqualGUID(id, IID_IDispatch);
        if (object) *object = known ? static_cast<IDispatch*>(this) : nullptr;
        return known && object ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        if (count) *count = 0;
        return count ? S_OK : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override
    {
        if (!names || !ids || count == 0) return E_INVALIDARG;
        for (UINT i = 0; i < count; ++i)
            ids[i] = i == 0 ? idOf(names[0]) : DISPID_UNKNOWN;
        return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO*, UINT*) override
    {
        if (id < 1 || id > static_cast<DISPID>(mProperties.size())) return DISP_E_MEMBERNOTFOUND;
        const Property& property = mProperties[static_cast<std::size_t>(id - 1)];
        return flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF) ? put(property, arguments)
                                                                        : get(property, result);
    }

private:
    static HRESULT get(const Property& property, VARIANT* result)
    {
        if (result) {
            VariantInit(result);
            property.get(*result);
        }
        return S_OK;
    }
    static HRESULT put(const Property& property, const DISPPARAMS* arguments)
    {
        if (!property.put) return DISP_E_MEMBERNOTFOUND;
        if (!arguments || arguments->cArgs != 1) return DISP_E_BADPARAMCOUNT;
        return property.put(arguments->rgvarg[0]) ? S_OK : DISP_E_TYPEMISMATCH;
    }
    DISPID idOf(const OLECHAR* name) const
    {
        for (std::size_t i = 0; name && i < mProperties.size(); ++i) {
            if (_wcsicmp(mProperties[i].name.c_str(), name) == 0) return static_cast<DISPID>(i + 1);
        }
        return DISPID_UNKNOWN;
    }

    std::vector<Property> mProperties;
};

Property textProperty(const wchar_t* name, const wchar_t* text)
{
    return {name,
            [text](VARIANT& result) {
                result.vt = VT_BSTR;
                result.bstrVal = SysAllocString(text);
            },
            nullptr};
}

Property objectProperty(const wchar_t* name, PropertyObject& object)
{
    return {name,
            [&object](VARIANT& result) {
                result.vt = VT_DISPATCH;
                result.pdispVal = &object;
            },
            nullptr};
}

void getSupportPath(VARIANT& result)
{
    std::wstring path(32768, L'\0');
    acedGetEnv(L"ACAD", &path[0], path.size());
    result.vt = VT_BSTR;
    result.bstrVal = SysAllocString(path.c_str());
}

bool putSupportPath(const VARIANT& value)
{
    return value.vt == VT_BSTR && acedSetEnv(L"ACAD", value.bstrVal ? value.bstrVal : L"") == RTNORM;
}

PropertyObject& files()
{
    static PropertyObject& object = *new PropertyObject({{L"SupportPath", getSupportPath, putSupportPath}});
    return object;
}

PropertyObject& preferences()
{
    static PropertyObject& object = *new PropertyObject({objectProperty(L"Files", files())});
    return object;
}
} // namespace

LPDISPATCH automation::applicationObject()
{
    static PropertyObject& object =
        *new PropertyObject({textProperty(L"Name", L"AutoCAD"), textProperty(L"Version", L"24.0s (LMS Tech)"),
                             objectProperty(L"Preferences", preferences())});
    return &object;
}
