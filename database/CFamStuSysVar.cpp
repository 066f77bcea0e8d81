#include "CFamStuSysVar.h"

#include "acedads.h"

namespace
{
resbuf valueOf(short type)
{
    resbuf value = {};
    value.restype = type;
    return value;
}

void freeText(resbuf& value)
{
    if (value.restype == RTSTR) acutDelString(value.resval.rstring);
    value = {};
}

/// The value of a variable for as long as this lives.
class ReadVariable
{
public:
    explicit ReadVariable(const CString& name)
    {
        if (acedGetVar(name, &m_value) != RTNORM) m_value = {};
    }
    ~ReadVariable() { freeText(m_value); }
    ReadVariable(const ReadVariable&) = delete;
    ReadVariable& operator=(const ReadVariable&) = delete;

    bool is(short type) const { return m_value.restype == type; }
    const auto& value() const { return m_value.resval; }

private:
    resbuf m_value = {};
};
} // namespace

void CFamStuSysVar::change(const CString& name, const resbuf& value, int restore)
{
    if (acedGetVar(name, &m_saved) != RTNORM) return;
    if (acedSetVar(name, &value) != RTNORM) return;
    m_name = name;
    m_restore = restore;
}

CFamStuSysVar::CFamStuSysVar(CString name, CString value, int restore)
{
    resbuf text = valueOf(RTSTR);
    text.resval.rstring = const_cast<wchar_t*>(value.GetString());
    change(name, text, restore);
}

CFamStuSysVar::CFamStuSysVar(CString name, int value, int restore)
{
    if (value < SHRT_MIN || value > SHRT_MAX) return; // no variable of 16 bits takes it
    resbuf number = valueOf(RTSHORT);
    number.resval.rint = static_cast<short>(value);
    change(name, number, restore);
}

CFamStuSysVar::CFamStuSysVar(CString name, double value, int restore)
{
    resbuf number = valueOf(RTREAL);
    number.resval.rreal = value;
    change(name, number, restore);
}

CFamStuSysVar::CFamStuSysVar(CString name, const AcGePoint3d& value, int restore)
{
    resbuf point = valueOf(RT3DPOINT);
    for (int i = 0; i < 3; ++i)
        point.resval.rpoint[i] = value[i];
    change(name, point, restore);
}

CFamStuSysVar::CFamStuSysVar(CString name, resbuf* value, int restore)
{
    if (value) change(name, *value, restore);
}

CFamStuSysVar::~CFamStuSysVar()
{
    if (m_restore) Release();
    freeText(m_saved);
}

int CFamStuSysVar::Release()
{
    if (m_name.IsEmpty() || acedSetVar(m_name, &m_saved) != RTNORM) return 0;
    m_restore = 0;
    return 1;
}

int CFamStuSysVar::Get(CString name, int& value)
{
    const ReadVariable variable(name);
    if (!variable.is(RTSHORT)) return 0;
    value = variable.value().rint;
    return 1;
}

int CFamStuSysVar::Get(CString name, double& value)
{
    const ReadVariable variable(name);
    if (!variable.is(RTREAL)) return 0;
    value = variable.value().rreal;
    return 1;
}

int CFamStuSysVar::Get(CString name, CString& value)
{
    const ReadVariable variable(name);
    if (!variable.is(RTSTR)) return 0;
    value = variable.value().rstring;
    return 1;
}

int CFamStuSysVar::Get(CString name, AcGePoint3d& value)
{
    const ReadVariable variable(name);
    if (!variable.is(RTPOINT) && !variable.is(RT3DPOINT)) return 0;
    const ads_point& point = variable.value().rpoint;
    value.set(point[X], point[Y], variable.is(RT3DPOINT) ? point[Z] : 0.0);
    return 1;
}
