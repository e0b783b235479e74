#include <benchmark/benchmark.h>

#include "ProgramFolder.h"
#include "SampleProject.h"
#include "app/frmMain.h"
#include "editor/MarkUp.h"
#include "model/ProjectFile.h"
#include "ui/Application.h"

// What the window adds to the work of the core.
namespace {

namespace fs = std::filesystem;

fs::path largeProject() {
    static const fs::path file = [] {
        const fs::path path = fs::temp_directory_path() / "window_bench.tsp";
        model::Project project;
        project.replace(bench::sampleOutline(500, 200 * 1024), bench::sampleOptions(), path);
        if (model::saveProject(project, path)) {
            std::abort();
        }
        return path;
    }();
    return file;
}

/// A main window with a project of 500 topics.
struct OpenWindow {
    explicit OpenWindow(const fs::path& file)
        : settings(fs::temp_directory_path() / "window_bench.ini"),
          window(settings, bench::programFolder()) {
        window.show();
        window.openFile(file);
        ui::Window::letEventsRun();
    }

    ui::Settings settings;
    app::frmMain window;
};

void loadLarge(benchmark::State& state) {
    const fs::path file = largeProject();
    model::Project project;
    for (auto _ : state) {
        model::loadProject(project, file);
    }
}
BENCHMARK(loadLarge)->Unit(benchmark::kMillisecond);

void openLargeInWindow(benchmark::State& state) {
    const fs::path file = largeProject();
    OpenWindow open(file);
    for (auto _ : state) {
        open.window.openFile(file);
        ui::Window::letEventsRun(); // drawn
    }
}
BENCHMARK(openLargeInWindow)->Unit(benchmark::kMillisecond);

void moveTopicUpAndDown(benchmark::State& state) {
    OpenWindow open(largeProject());
    open.window.showTopic(250);
    for (auto _ : state) {
        open.window.mnuEditUp_Click();
        open.window.mnuEditDown_Click();
        ui::Window::letEventsRun();
    }
}
BENCHMARK(moveTopicUpAndDown)->Unit(benchmark::kMicrosecond);

/// The topic editor with a body of a megabyte in lines of ordinary length.
struct OpenEditor {
    OpenEditor()
        : settings(fs::temp_directory_path() / "window_bench.ini"),
          window(settings, bench::programFolder()) {
        model::TopicOutline outline = bench::sampleOutline(1, 1024 * 1024);
        window.project().replace(std::move(outline), {}, "bench.tsp");
        window.show();
        window.openTopicEditor(1);
        body().select(body().countedText().size() / 2, 0);
        ui::Window::letEventsRun();
    }

    ui::TextBox& body() { return window.editor()->txtBody; }

    ui::Settings settings;
    app::frmMain window;
};

void typeIntoMegabyte(benchmark::State& state) {
    OpenEditor open;
    for (auto _ : state) {
        open.body().replaceSelection("x");
        ui::Window::letEventsRun();
    }
}
BENCHMARK(typeIntoMegabyte)->Unit(benchmark::kMicrosecond);

void boldInMegabyte(benchmark::State& state) {
    OpenEditor open;
    for (auto _ : state) {
        open.window.editor()->mnuTagBold_Click();
        ui::Window::letEventsRun();
    }
}
BENCHMARK(boldInMegabyte)->Unit(benchmark::kMillisecond);

void listOverLines(benchmark::State& state) {
    text::Text text;
    for (std::int64_t line = 0; line < state.range(0); ++line) {
        text::appendLine(text, "One more line of the list.");
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(editor::list({text, 0, text.size()}, "ul"));
    }
}
BENCHMARK(listOverLines)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    ui::Application application(argc, argv, "window_bench", "0");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
