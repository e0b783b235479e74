#include <benchmark/benchmark.h>

#include "SampleProject.h"
#include "tools/PlaceSearch.h"

// Replacing in the whole of 500 topics of 200 KB; the argument says whether mark-up is passed over.

namespace {

model::Project& largeProject() {
    static model::Project project;
    if (project.outline().count() == 0) {
        project.replace(bench::sampleOutline(500, std::size_t(200) * 1024), bench::sampleOptions(),
                        "bench.tsp");
    }
    return project;
}

/// What stands in every hundredth line: some 10,000 places in all.
tools::PlaceSearch searchFor(const tools::PatternQuestion& pattern, bool visibleOnly) {
    text::Text problem;
    tools::PlaceQuestion question;
    question.visibleOnly = visibleOnly;
    return {*tools::TextPattern::make(pattern, problem), question};
}

std::vector<tools::Place> findAll(tools::PlaceSearch& search) {
    std::vector<tools::Place> places;
    const model::TopicOutline& outline = largeProject().outline();
    for (int position = 1; position <= outline.count(); ++position) {
        search.search(outline, position, places, 1'000'000);
    }
    return places;
}

void find(benchmark::State& state, const tools::PatternQuestion& pattern) {
    largeProject();
    std::size_t found = 0;
    for (auto _ : state) {
        tools::PlaceSearch search = searchFor(pattern, state.range(0) != 0);
        found = findAll(search).size();
    }
    state.counters["places"] = static_cast<double>(found);
}

const tools::PatternQuestion anyCase{"LINE 5", false, false, false};
const tools::PatternQuestion sameCase{"Line 77", false, true, false};
const tools::PatternQuestion words{"Line 7", false, false, true};
const tools::PatternQuestion expression{R"(l\w+e (?=77))", true, false, false};
BENCHMARK_CAPTURE(find, anyCase, anyCase)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(find, sameCase, sameCase)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(find, words, words)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(find, expression, expression)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void replaceAndUndo(benchmark::State& state) {
    model::Project& project = largeProject();
    tools::PlaceSearch search = searchFor(anyCase, state.range(0) != 0);
    const std::vector<tools::Place> places = findAll(search);
    for (auto _ : state) {
        search.replace(project, places, tools::Replacement("Row 88"));
        project.undo();
    }
    state.counters["places"] = static_cast<double>(places.size());
}
BENCHMARK(replaceAndUndo)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
