#include "QmCADLib.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cblas.h>
#include <cstring>
#include <Eigen/Dense>
#include <random>
#include <string>
#include <vector>

extern "C" void openblas_set_num_threads(int);

namespace
{
/// The same numbers as a matrix of ours and of the peers; ours runs along the columns, as Eigen's does.
struct Numbers {
    CMatrix ours;
    Eigen::MatrixXd eigen;

    Numbers(int size, unsigned seed, double diagonal = 0.0) : ours(size, size), eigen(size, size)
    {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> spread(-1.0, 1.0);
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x) {
                eigen(x, y) = spread(random) + (x == y ? diagonal : 0.0);
                ours.SetElement(x, y, eigen(x, y));
            }
    }
};

/// Ours and the peer's result must be the same up to rounding, or there is nothing to compare.
void requireEqual(benchmark::State& state, const CMatrix& ours, const Eigen::MatrixXd& peers)
{
    double worst = 0.0;
    for (int y = 0; y < ours.GetNumRows(); ++y)
        for (int x = 0; x < ours.GetNumColumns(); ++x)
            worst = std::max(worst, std::abs(ours.GetElement(x, y) - peers(x, y)));
    if (!(worst < 1e-9)) state.SkipWithError("the results differ");
}

void setFlops(benchmark::State& state, int size)
{
    state.counters["flops"] =
        benchmark::Counter(2.0 * size * size * size, benchmark::Counter::kIsIterationInvariantRate);
}

void productOurs(benchmark::State& state, int size, double goal)
{
    const Numbers a(size, 1), b(size, 2);
    requireEqual(state, a.ours * b.ours, a.eigen * b.eigen);
    for (auto _ : state) {
        const CMatrix c = a.ours * b.ours;
        benchmark::DoNotOptimize(&c.GetElement(0, 0));
    }
    setFlops(state, size);
    state.counters["goal"] = goal;
}

void productEigen(benchmark::State& state, int size)
{
    const Numbers a(size, 1), b(size, 2);
    for (auto _ : state) {
        const Eigen::MatrixXd c = a.eigen * b.eigen;
        benchmark::DoNotOptimize(c.data());
    }
    setFlops(state, size);
}

void productOpenBlas(benchmark::State& state, int size)
{
    openblas_set_num_threads(1);
    const Numbers a(size, 1), b(size, 2);
    for (auto _ : state) {
        Eigen::MatrixXd c(size, size);
        cblas_dgemm(CblasColMajor, CblasNoTrans, CblasNoTrans, size, size, size, 1.0, a.eigen.data(), size,
                    b.eigen.data(), size, 0.0, c.data(), size);
        benchmark::DoNotOptimize(c.data());
    }
    setFlops(state, size);
}

void inverseOurs(benchmark::State& state, int size)
{
    const Numbers a(size, 3, size);
    requireEqual(state, a.ours.GetInverted(), a.eigen.partialPivLu().inverse());
    for (auto _ : state) {
        const CMatrix inverse = a.ours.GetInverted();
        benchmark::DoNotOptimize(&inverse.GetElement(0, 0));
    }
    setFlops(state, size);
    state.counters["goal"] = 0.5;
}

void inverseEigen(benchmark::State& state, int size)
{
    const Numbers a(size, 3, size);
    for (auto _ : state) {
        const Eigen::MatrixXd inverse = a.eigen.partialPivLu().inverse();
        benchmark::DoNotOptimize(inverse.data());
    }
    setFlops(state, size);
}

void setBytes(benchmark::State& state, int size)
{
    state.SetBytesProcessed(state.iterations() * 2 * static_cast<std::int64_t>(sizeof(double)) * size * size);
}

void transposeOurs(benchmark::State& state, int size, double goal)
{
    const Numbers a(size, 4);
    requireEqual(state, a.ours.GetTransposed(), a.eigen.transpose());
    for (auto _ : state) {
        const CMatrix transposed = a.ours.GetTransposed();
        benchmark::DoNotOptimize(&transposed.GetElement(0, 0));
    }
    setBytes(state, size);
    state.counters["goal"] = goal;
}

void transposeEigen(benchmark::State& state, int size)
{
    const Numbers a(size, 4);
    for (auto _ : state) {
        const Eigen::MatrixXd transposed = a.eigen.transpose();
        benchmark::DoNotOptimize(transposed.data());
    }
    setBytes(state, size);
}

/// What memory allows: the same bytes copied as they lie.
void copyBytes(benchmark::State& state, int size)
{
    const Numbers a(size, 4);
    for (auto _ : state) {
        Eigen::MatrixXd copy(size, size);
        std::memcpy(copy.data(), a.eigen.data(), sizeof(double) * copy.size());
        benchmark::DoNotOptimize(copy.data());
    }
    setBytes(state, size);
}

/// Families differ by the peer, because each has a goal of its own.
bool registerAll()
{
    using benchmark::RegisterBenchmark;
    for (const int size : {64, 256, 1024}) {
        const std::string name = "MatrixProduct" + std::to_string(size);
        RegisterBenchmark((name + "/ours").c_str(), productOurs, size, 1.0);
        RegisterBenchmark((name + "/Eigen").c_str(), productEigen, size);
        RegisterBenchmark((name + "Blas/ours").c_str(), productOurs, size, 0.7);
        RegisterBenchmark((name + "Blas/OpenBLAS").c_str(), productOpenBlas, size);
    }
    RegisterBenchmark("MatrixInverse1024/ours", inverseOurs, 1024);
    RegisterBenchmark("MatrixInverse1024/Eigen", inverseEigen, 1024);
    for (const int size : {1024, 4096}) {
        const std::string name = "MatrixTranspose" + std::to_string(size);
        RegisterBenchmark((name + "/ours").c_str(), transposeOurs, size, 1.0);
        RegisterBenchmark((name + "/Eigen").c_str(), transposeEigen, size);
    }
    // Far beyond the caches, where the memory sets the pace.
    RegisterBenchmark("MatrixTranspose4096Copy/ours", transposeOurs, 4096, 0.5);
    RegisterBenchmark("MatrixTranspose4096Copy/memcpy", copyBytes, 4096);
    return true;
}

const bool registered = registerAll();
} // namespace
