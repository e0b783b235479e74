#include <benchmark/benchmark.h>
#include <limits>
#include <malloc.h>

#include "SampleProject.h"
#include "generate/Documentation.h"
#include "generate/GenerationRun.h"
#include "model/ProjectFile.h"
#include "platform/Files.h"

// Arguments of every measurement: number of topics, kilobytes of body each. "bytes_per_second"
// counts the bytes of the project file; "per_topic" is the time for one topic.

namespace {

namespace fs = std::filesystem;

/// Whether the heap goes back to the system between two loads, to be fetched again page by page,
/// hangs on a few bytes and makes a load four times as long. A program loads once, so nothing of it
/// is measured here.
const bool keepsHeap = mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max()) != 0
                       && mallopt(M_MMAP_THRESHOLD, 1 << 30) != 0;

/// A sample project with a file, in a folder that goes when it does.
class Sample {
public:
    explicit Sample(benchmark::State& state)
        : topics_(static_cast<int>(state.range(0))),
          folder_(fs::temp_directory_path() / "topicsmith-bench") {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
        const auto bodySize = static_cast<std::size_t>(state.range(1)) * 1024;
        project.replace(bench::sampleOutline(topics_, bodySize), bench::sampleOptions(),
                        folder_ / "sample.tsp");
        if (!keepsHeap || model::saveProject(project, project.projectPath())) {
            state.SkipWithError("the sample cannot be saved");
        }
        size_ = fs::file_size(project.projectPath());
    }
    ~Sample() { fs::remove_all(folder_); }
    Sample(const Sample&) = delete;
    Sample& operator=(const Sample&) = delete;

    fs::path file(const char* name) const { return folder_ / name; }

    void report(benchmark::State& state) const {
        state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size_));
        state.counters["per_topic"] =
            benchmark::Counter(static_cast<double>(state.iterations()) * topics_,
                               benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    }

    model::Project project;

private:
    int topics_;
    fs::path folder_;
    std::uintmax_t size_ = 0;
};

void load(benchmark::State& state) {
    Sample sample(state);
    const fs::path path = sample.project.projectPath();
    for (auto _ : state) {
        model::Project project;
        benchmark::DoNotOptimize(model::loadProject(project, path));
    }
    sample.report(state);
}

void save(benchmark::State& state) {
    Sample sample(state);
    const fs::path path = sample.project.projectPath();
    for (auto _ : state) {
        benchmark::DoNotOptimize(model::saveProject(sample.project, path));
    }
    sample.report(state);
}

/// A save without the wait for the disk, to tell our part from the disk's.
void saveUnflushed(benchmark::State& state) {
    Sample sample(state);
    const fs::path path = sample.file("unflushed.tsp");
    for (auto _ : state) {
        benchmark::DoNotOptimize(platform::writeFile(
            path, model::formatProject(sample.project.outline(), sample.project.options()).value));
    }
    sample.report(state);
}

/// The run with its files, without the save at its end.
void generateHelp(benchmark::State& state) {
    Sample sample(state);
    const generate::GenerationRequest request = {sample.file("sample.hhp"),
                                                 sample.file("no-pictures"),
                                                 [] { return std::error_code(); },
                                                 {}};
    for (auto _ : state) {
        benchmark::DoNotOptimize(generate::generateHelp(sample.project, request));
    }
    sample.report(state);
}

void document(benchmark::State& state) {
    Sample sample(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(generate::generateDocumentation(
            sample.project, sample.file("sample.htm"), sample.file("")));
    }
    sample.report(state);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    for (const std::int64_t kilobytes : {1, 32, 1024}) {
        benchmark->Args({50, kilobytes})->Args({500, kilobytes});
    }
    benchmark->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(load)->Apply(sizes);
BENCHMARK(save)->Apply(sizes);
BENCHMARK(saveUnflushed)->Apply(sizes);
BENCHMARK(generateHelp)->Apply(sizes);
BENCHMARK(document)->Apply(sizes);

} // namespace
