// Copying and appending to strings, beside std::wstring.

#include <afx.h>

#include <benchmark/benchmark.h>

#include <string>

namespace
{
template <class String>
String sample(benchmark::State& state)
{
    return String(std::wstring(state.range(0), L'x').c_str());
}

template <class String>
void copies(benchmark::State& state)
{
    const String original = sample<String>(state);
    for (auto _ : state) {
        String copy(original);
        benchmark::DoNotOptimize(copy);
    }
}

template <class String>
void assignments(benchmark::State& state)
{
    const String original = sample<String>(state), other(L"another");
    String copy;
    for (auto _ : state) {
        copy = original;
        benchmark::DoNotOptimize(copy);
        copy = other;
        benchmark::DoNotOptimize(copy);
    }
}

/// A text grown from nothing by as many pieces as the argument says.
template <class String, class Piece>
void append(benchmark::State& state, const Piece& piece)
{
    for (auto _ : state) {
        String text;
        for (auto i = state.range(0); i > 0; --i)
            text += piece;
        benchmark::DoNotOptimize(text);
    }
}

template <class String>
void characters(benchmark::State& state)
{
    append<String>(state, L'x');
}

template <class String>
void strings(benchmark::State& state)
{
    append<String>(state, String(L"vertex 12.5, "));
}

template <class String>
void pointers(benchmark::State& state)
{
    append<String>(state, L"vertex 12.5, ");
}

using Function = void (*)(benchmark::State&);

/// Ours may not be slower than its peer by more than this ratio of times (peer / ours).
constexpr double goal = 1.0;

void addFamily(const std::string& name, Function ours, Function peer, int argument)
{
    const std::string family = name + std::to_string(argument);
    const auto withGoal = [ours](benchmark::State& state) {
        ours(state);
        state.counters["goal"] = goal;
    };
    benchmark::RegisterBenchmark((family + "/ours").c_str(), withGoal)->Arg(argument);
    benchmark::RegisterBenchmark((family + "/std::wstring").c_str(), peer)->Arg(argument);
}

const bool areAdded = [] {
    for (int length : {3, 12, 1000}) {
        addFamily("CopyString", copies<CString>, copies<std::wstring>, length);
        addFamily("AssignString", assignments<CString>, assignments<std::wstring>, length);
    }
    for (int count : {4, 100, 10000}) {
        addFamily("AppendCharacter", characters<CString>, characters<std::wstring>, count);
        addFamily("AppendString", strings<CString>, strings<std::wstring>, count);
        addFamily("AppendPointer", pointers<CString>, pointers<std::wstring>, count);
    }
    return true;
}();
} // namespace
