// Profile files of 10 MiB: listing all that is in them, and looking keys up, against GLib's GKeyFile.

#include <glib.h>

#undef TRUE // the Windows interface has its own
#undef FALSE

#include "QmCADLib.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace
{
constexpr std::size_t fileSize = 10u << 20;
constexpr int lookups = 1000;

/// A file that has just been written is read anew by each call: its time stamp proves nothing yet.
void rest()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
}

/// A file of sections with that many keys each; removed at the end of the program.
class IniFile
{
public:
    explicit IniFile(int keysOfSection) : _keysOfSection(keysOfSection)
    {
        const std::string name = "ini-bench-" + std::to_string(GetCurrentProcessId());
        _path = std::filesystem::temp_directory_path() / name;
        std::string bytes;
        for (; bytes.size() < fileSize; ++_sections) {
            bytes += "[section " + std::to_string(_sections) + "]\r\n";
            for (int key = 0; key < keysOfSection; ++key)
                bytes += "key " + std::to_string(key) + "=12.50,a value of some length\r\n";
            bytes += "# a comment\r\n\r\n";
        }
        std::ofstream(_path, std::ios::binary) << bytes;
        rest();
    }
    ~IniFile() { std::filesystem::remove(_path); }

    int pairs() const { return _sections * _keysOfSection; }
    const char* path() const { return _path.c_str(); }
    CString name() const { return L"Z:" + CString(_path.c_str()); }

    /// The section and the key of one of `lookups` places spread over the file.
    int sectionAt(int place) const { return static_cast<int>(pairAt(place) / _keysOfSection); }
    int keyAt(int place) const { return static_cast<int>(pairAt(place) % _keysOfSection); }
    /// To make what was read before worthless, as a change by another program does.
    void touch() const
    {
        std::filesystem::last_write_time(_path, std::filesystem::file_time_type::clock::now());
    }

private:
    long long pairAt(int place) const { return static_cast<long long>(pairs()) * place / lookups; }

    std::string _path;
    int _keysOfSection;
    int _sections = 0;
};

GKeyFile* loaded(const IniFile& file)
{
    GKeyFile* const keys = g_key_file_new();
    if (!g_key_file_load_from_file(keys, file.path(), G_KEY_FILE_NONE, nullptr)) std::abort();
    return keys;
}

/// Loads the file and takes every pair out of it; their number.
int listWithGlib(const IniFile& file)
{
    GKeyFile* const keyFile = loaded(file);
    int pairs = 0;
    gchar** const groups = g_key_file_get_groups(keyFile, nullptr);
    for (gchar** group = groups; *group; ++group) {
        gchar** const keys = g_key_file_get_keys(keyFile, *group, nullptr, nullptr);
        for (gchar** key = keys; *key; ++key, ++pairs)
            g_free(g_key_file_get_value(keyFile, *group, *key, nullptr));
        g_strfreev(keys);
    }
    g_strfreev(groups);
    g_key_file_free(keyFile);
    return pairs;
}

int listOurs(const IniFile& file)
{
    CStringArray sections, keys, values;
    const CString name = file.name();
    int pairs = 0;
    CFamStuIniFile::GetAllSeg(sections, name);
    for (INT_PTR i = 0; i < sections.GetSize(); ++i) {
        CFamStuIniFile::GetSegValue(keys, values, name, sections[i]);
        pairs += static_cast<int>(keys.GetSize());
    }
    return pairs;
}

template <int list(const IniFile&)>
void listing(benchmark::State& state)
{
    const IniFile file(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        file.touch();
        rest();
        state.ResumeTiming();
        if (list(file) != file.pairs()) state.SkipWithError("not all pairs were listed");
    }
    state.counters["goal"] = 2;
}

void lookUpOurs(benchmark::State& state)
{
    const IniFile file(static_cast<int>(state.range(0)));
    const CString name = file.name();
    for (auto _ : state) {
        state.PauseTiming();
        file.touch();
        rest();
        state.ResumeTiming();
        for (int i = 0; i < lookups; ++i) {
            CString section, key;
            section.Format(L"section %d", file.sectionAt(i));
            key.Format(L"key %d", file.keyAt(i));
            if (CFamStuIniFile::ReadKey(name, section, key, L"").IsEmpty())
                state.SkipWithError("a key is missing");
        }
    }
    state.counters["goal"] = 0.5; // at most two loads
}

void loadGlib(benchmark::State& state)
{
    const IniFile file(static_cast<int>(state.range(0)));
    for (auto _ : state)
        g_key_file_free(loaded(file));
}

using Function = void (*)(benchmark::State&);

void add(const std::string& name, Function function, int keysOfSection)
{
    benchmark::RegisterBenchmark(name.c_str(), function)->Arg(keysOfSection)->Unit(benchmark::kMillisecond);
}

const bool areAdded = [] {
    constexpr int few = 20, all = 400000; // keys of a section
    for (int keys : {few, all}) {
        const std::string kind = keys == few ? "_10MiB_ManySections" : "_10MiB_OneSection";
        add("ListIni" + kind + "/ours", listing<listOurs>, keys);
        add("ListIni" + kind + "/GKeyFile", listing<listWithGlib>, keys);
        add("ReadKey_1000" + kind + "/ours", lookUpOurs, keys);
        add("ReadKey_1000" + kind + "/GKeyFile load", loadGlib, keys);
    }
    return true;
}();
} // namespace
