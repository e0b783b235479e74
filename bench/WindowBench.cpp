#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>
#include <sstream>
#include <thread>

#include "ProgramFolder.h"
#include "SampleProject.h"
#include "app/frmMain.h"
#include "editor/MarkUp.h"
#include "editor/TagStructure.h"
#include "generate/TopicSigns.h"
#include "model/ProjectFile.h"
#include "tools/SpellingScan.h"
#include "ui/Application.h"

// What the window adds to the work of the core.
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kilobyte = 1024;

fs::path largeProject() {
    static const fs::path file = [] {
        fs::path path = fs::temp_directory_path() / "window_bench.tsp";
        model::Project project;
        project.replace(bench::sampleOutline(500, 200 * kilobyte), bench::sampleOptions(), path);
        if (model::saveProject(project, path)) {
            std::abort();
        }
        return path;
    }();
    return file;
}

/// Settings of nobody: what the measurement before has stored is forgotten.
fs::path emptySettings() {
    fs::path file = fs::temp_directory_path() / "window_bench.ini";
    fs::remove(file);
    return file;
}

/// A main window with a project of 500 topics.
struct OpenWindow {
    explicit OpenWindow(const fs::path& file)
        : settings(emptySettings()), window(settings, bench::programFolder()) {
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

/// What the signs of wrong topics add to a key in a field that all topics are compared by, with the
/// rows that are in view asked again.
void signsOfAKey(benchmark::State& state) {
    model::TopicOutline outline =
        bench::sampleOutline(500, static_cast<std::size_t>(state.range(0)));
    generate::TopicSigns signs(outline);
    signs.reset(bench::sampleOptions());
    constexpr int edited = 250;
    for (auto _ : state) {
        outline.at(edited).fileName += outline.at(edited).fileName.size() < 30 ? "x" : "";
        signs.changed(edited);
        for (int row = edited - 20; row < edited + 20; ++row) {
            benchmark::DoNotOptimize(signs.problems(row));
        }
    }
}
BENCHMARK(signsOfAKey)->Arg(4 << 10)->Arg(200 << 10)->Unit(benchmark::kMicrosecond);

/// The key as a whole, drawn.
void keyInFileName(benchmark::State& state) {
    OpenWindow open(largeProject());
    open.window.showTopic(250);
    open.window.txtFilename.setFocus();
    int keys = 0;
    for (auto _ : state) {
        open.window.txtFilename.replaceSelection("x");
        ui::Window::letEventsRun();
        if (++keys % 20 == 0) {
            state.PauseTiming();
            open.window.txtFilename.selectAll();
            state.ResumeTiming();
        }
    }
}
BENCHMARK(keyInFileName)->Unit(benchmark::kMicrosecond);

/// The topic editor with a body in lines of ordinary length.
struct OpenEditor {
    explicit OpenEditor(std::size_t bytes = 1024 * kilobyte)
        : settings(emptySettings()), window(settings, bench::programFolder()) {
        model::TopicOutline outline = bench::sampleOutline(1, bytes);
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

/// With all marks in place; what the aids do in pauses is measured below.
void typeIntoMarkedBody(benchmark::State& state) {
    OpenEditor open(200 * kilobyte);
    std::vector<ui::TextMark> marks;
    for (std::size_t at = 0; at + 10 < open.body().countedText().size(); at += 200) {
        marks.push_back({at, 5});
    }
    for (const ui::MarkKind kind : {ui::MarkKind::misspelt, ui::MarkKind::fault}) {
        open.window.editor()->txtBody.setMarks(kind, marks);
    }
    for (auto _ : state) {
        open.body().replaceSelection("x");
        ui::Window::letEventsRun();
    }
}
BENCHMARK(typeIntoMarkedBody)->Unit(benchmark::kMicrosecond);

/// Milliseconds of a clock that began with it.
class Stopwatch {
public:
    double milliseconds() const {
        return std::chrono::duration<double, std::milli>(Clock::now() - begun_).count();
    }
    /// Of this thread, whatever other threads and programs did meanwhile.
    double processor() const { return threadTime() - processor_; }

private:
    static double threadTime() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return 1000.0 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e6;
    }

    using Clock = std::chrono::steady_clock;
    Clock::time_point begun_ = Clock::now();
    double processor_ = threadTime();
};

std::string inMilliseconds(double time) {
    std::ostringstream text;
    text.precision(1);
    text << std::fixed << time << " ms";
    return text.str();
}

std::string summary(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return "median " + inMilliseconds(times[times.size() / 2]) + ", worst "
           + inMilliseconds(times.back());
}

/// With everything that a body of 200 KB has around it: colours, marks, the docked editor and the
/// page beside it. Keys come in pauses just long enough that the page is being made anew, and what
/// is looked through is under way. What one key could have had to wait for is told besides; times
/// of the processor leave out what other programs did meanwhile.
void typeBesidePage(benchmark::State& state) {
    const fs::path file = fs::temp_directory_path() / "window_bench_page.tsp";
    model::Project project;
    project.replace(bench::sampleOutline(1, 200 * kilobyte), bench::sampleOptions(), file);
    if (model::saveProject(project, file)) {
        state.SkipWithError("the sample cannot be saved");
        return;
    }
    OpenWindow open(file);
    open.window.showTopic(1);
    open.window.mnuViewEditBeside_Click();
    const auto rest = [](double milliseconds, double& wait, double& waitProcessor) {
        const Stopwatch all;
        while (all.milliseconds() < milliseconds) {
            const Stopwatch one;
            ui::Window::letEventsRun();
            wait = std::max(wait, one.milliseconds());
            waitProcessor = std::max(waitProcessor, one.processor());
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
    };
    double ignored = 0;
    double wait = 0;
    double waitProcessor = 0;
    rest(3000, ignored, ignored);
    editor::frmEditBody* editor = open.window.editor();
    if (editor == nullptr || open.window.topicPane().browser() == nullptr) {
        state.SkipWithError("there is no editor with a page");
        return;
    }
    ui::HtmlBox& body = editor->txtBody;
    body.select(body.countedText().size() / 2, 0);
    rest(3000, ignored, ignored);
    std::vector<double> clock;
    std::vector<double> processor;
    for (auto _ : state) {
        const Stopwatch key;
        body.replaceSelection("x");
        editor->txtBody_Typed("x");
        ui::Window::letEventsRun();
        clock.push_back(key.milliseconds());
        processor.push_back(key.processor());
        state.SetIterationTime(clock.back() / 1000);
        rest(clock.size() % 3 == 0 ? 900 : 320, wait, waitProcessor);
    }
    state.SetLabel("a key until drawn: " + summary(clock)
                   + "; of the processor: " + summary(processor)
                   + "; other work that a key could meet: " + inMilliseconds(wait)
                   + ", of the processor: " + inMilliseconds(waitProcessor) + " at most");
}
BENCHMARK(typeBesidePage)->UseManualTime()->Iterations(30)->Unit(benchmark::kMillisecond);

text::Text bodyOf(std::size_t bytes) {
    return bench::sampleOutline(1, bytes).at(1).body;
}

/// In a pause of typing, as a whole.
void lookForFaults(benchmark::State& state) {
    const text::Text body = bodyOf(200 * kilobyte);
    for (auto _ : state) {
        benchmark::DoNotOptimize(editor::tagFaults(body));
        benchmark::DoNotOptimize(editor::visibleWordCount(body));
    }
}
BENCHMARK(lookForFaults)->Unit(benchmark::kMicrosecond);

/// When the caret rests at a tag.
void findPair(benchmark::State& state) {
    const text::Text body = bodyOf(200 * kilobyte);
    for (auto _ : state) {
        benchmark::DoNotOptimize(editor::tagPairAt(body, body.size() - 2));
    }
}
BENCHMARK(findPair)->Unit(benchmark::kMicrosecond);

/// With the key that ends "</".
void closeTag(benchmark::State& state) {
    OpenEditor open(200 * kilobyte);
    editor::frmEditBody& editor = *open.window.editor();
    for (auto _ : state) {
        editor.txtBody.replaceSelection("</");
        editor.txtBody_Typed("/");
        ui::Window::letEventsRun();
    }
}
BENCHMARK(closeTag)->Unit(benchmark::kMicrosecond);

/// In a pause, so many words at once.
void spellSomeWords(benchmark::State& state) {
    const auto folders = tools::dictionaryFolders(bench::programFolder());
    const auto dictionary =
        tools::Dictionary::open(folders, tools::languageFor(folders, text::defaultLanguage));
    if (dictionary == nullptr) {
        state.SkipWithError("no dictionary");
        return;
    }
    const tools::PersonalWords none{{}};
    const text::Text body = bodyOf(200 * kilobyte);
    std::optional<tools::SpellingScan> scan;
    bool more = false;
    for (auto _ : state) {
        if (!more) {
            state.PauseTiming();
            scan.emplace(body, *dictionary, none);
            state.ResumeTiming();
        }
        more = scan->goOn(200);
    }
}
BENCHMARK(spellSomeWords)->Unit(benchmark::kMicrosecond);

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
