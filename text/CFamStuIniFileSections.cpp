#include "CFamStuIniFile.h"

#include "IniStore.h"

#include <utility>

using namespace inifile;

namespace
{
/// The first section of a name, together with the file that it is in.
struct Found {
    std::shared_ptr<const Contents> contents;
    const Section* section = nullptr;

    Found(const CString& file, const CString& name) : contents(load(file))
    {
        if (contents) section = contents->section(name);
    }
};

/// A list that is filled from its start. It gets its greatest size at once: one that grows step by step is
/// copied often.
class Filling
{
public:
    Filling(CStringArray& list, std::size_t most) : _list(list), _next(0)
    {
        _list.SetSize(static_cast<INT_PTR>(most));
    }
    ~Filling() { _list.SetSize(_next); }
    void add(CString&& text) { _list.GetData()[_next++] = std::move(text); }

private:
    CStringArray& _list;
    INT_PTR _next;
};
} // namespace

int CFamStuIniFile::GetAllSeg(CStringArray& names, const CString& file)
{
    const auto contents = load(file);
    names.RemoveAll();
    if (!contents) return 0;
    names.SetSize(static_cast<INT_PTR>(contents->sections().size()));
    for (INT_PTR i = 0; i < names.GetSize(); ++i)
        names[i] = contents->sections()[static_cast<std::size_t>(i)].name;
    return 1;
}

int CFamStuIniFile::GetSegKey(CStringArray& keys, const CString& file, const CString& section, int wholeLines)
{
    const Found found(file, section);
    keys.RemoveAll();
    if (!found.section) return 0;
    Filling filling(keys, found.section->lines);
    found.contents->forEachKey(*found.section, [&](const KeyLine& key) {
        filling.add(wholeLines ? found.contents->text().decode(key.line.begin, key.line.end)
                               : found.contents->nameOf(key));
    });
    return 1;
}

int CFamStuIniFile::GetSegKey(CString& keys, const CString& file, const CString& section, int wholeLines)
{
    CStringArray list;
    const int result = GetSegKey(list, file, section, wholeLines);
    keys.Empty();
    for (INT_PTR i = 0; i < list.GetSize(); ++i)
        keys += i > 0 ? L"\r\n" + list[i] : list[i];
    return result;
}

int CFamStuIniFile::GetSegValue(CStringArray& keys, CStringArray& values, const CString& file,
                                const CString& section)
{
    const Found found(file, section);
    keys.RemoveAll();
    values.RemoveAll();
    if (!found.section) return 0;
    Filling names(keys, found.section->lines), texts(values, found.section->lines);
    found.contents->forEachKey(*found.section, [&](const KeyLine& key) {
        names.add(found.contents->nameOf(key));
        texts.add(found.contents->valueOf(key));
    });
    return 1;
}

int CFamStuIniFile::GetSegValue(CMapStringToString& values, const CString& file, const CString& section)
{
    CStringArray keys, texts;
    const int result = GetSegValue(keys, texts, file, section);
    values.RemoveAll();
    for (INT_PTR i = 0; i < keys.GetSize(); ++i)
        if (!values.PLookup(keys[i])) values[keys[i]] = texts[i];
    return result;
}

int CFamStuIniFile::SetSegValue(const CStringArray& keys, const CStringArray& values, const CString& file,
                                const CString& section)
{
    if (keys.GetSize() != values.GetSize()) return 0;
    for (INT_PTR i = 0; i < keys.GetSize(); ++i)
        if (!WriteKey(section, keys[i], values[i], file)) return 0;
    return 1;
}
