#include <benchmark/benchmark.h>

#include "SampleProject.h"
#include "generate/GenerationRun.h"
#include "import/Synchroniser.h"
#include "import/VbImport.h"
#include "platform/Files.h"

// Every time should grow as the argument does. "bytes_per_second" counts the bytes of the input.

namespace {

namespace fs = std::filesystem;
using text::Text;

/// A folder that goes when it does.
class Folder {
public:
    Folder() : path_(fs::temp_directory_path() / "topicsmith-import-bench") {
        fs::remove_all(path_);
        fs::create_directories(path_);
    }
    ~Folder() { fs::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    fs::path write(const Text& name, const Text& bytes) {
        size_ += bytes.size();
        (void)platform::writeFile(path_ / name, bytes);
        return path_ / name;
    }
    const fs::path& path() const { return path_; }
    void report(benchmark::State& state) const {
        state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size_));
    }

private:
    fs::path path_;
    std::size_t size_ = 0;
};

Text menus(std::int64_t count) {
    Text text;
    for (std::int64_t i = 0; i < count; ++i) {
        text::append(text, "   Begin VB.Menu mnu\r\n      Caption = \"&Entry ", std::to_string(i),
                     "\"\r\n   End\r\n");
    }
    return text;
}

/// A form with so many menus, controls and calls, and code up to a size.
Text form(int number, std::int64_t menuCount, std::int64_t calls, std::size_t size) {
    const Text id = std::to_string(number);
    Text text =
        "VERSION 5.00\r\nBegin VB.Form frm" + id + "\r\n   Caption = \"Form " + id + "\"\r\n";
    text += menus(menuCount);
    text += "End\r\nAttribute VB_Name = \"frm" + id + "\"\r\n";
    for (std::int64_t i = 0; i < calls; ++i) {
        text::appendLine(text, "    frm", std::to_string(i), "x.Show vbModal");
    }
    while (text.size() < size) {
        text::appendLine(text,
                         "    If Len(txtName.Text) = 0 Then MsgBox \"A name is missing\" ' why");
    }
    return text;
}

void importAgain(benchmark::State& state, const Folder& folder, const fs::path& project) {
    for (auto _ : state) {
        model::Project receiver;
        benchmark::DoNotOptimize(importer::importVbProject(receiver, project));
    }
    folder.report(state);
}

/// A project of the one form.
void importOneForm(benchmark::State& state, const Text& form) {
    Folder folder;
    folder.write("f.frm", form);
    importAgain(state, folder, folder.write("app.vbp", "Form=f.frm"));
}

/// 26 forms of together so many megabytes, and the reading of their files.
void importForms(benchmark::State& state) {
    Folder folder;
    constexpr int forms = 26;
    constexpr std::size_t megabyte = 1'000'000;
    Text project;
    for (int i = 0; i < forms; ++i) {
        const Text name = "f" + std::to_string(i) + ".frm";
        folder.write(
            name, form(i, 200, forms, static_cast<std::size_t>(state.range(0)) * megabyte / forms));
        text::appendLine(project, "Form=", name);
    }
    const fs::path file = folder.write("app.vbp", project);
    importAgain(state, folder, file);
}

void importMenus(benchmark::State& state) {
    importOneForm(state, form(0, state.range(0), 0, 0));
}

void importCalls(benchmark::State& state) {
    importOneForm(state, form(0, 0, state.range(0), 0));
}

/// Names in another letter case, in a folder of so many files.
void importMisspeltForms(benchmark::State& state) {
    Folder folder;
    Text project;
    for (int i = 0; i < state.range(0); ++i) {
        const Text name = "f" + std::to_string(i) + ".frm";
        folder.write(name, form(i, 1, 1, 0));
        text::appendLine(project, "Form=", text::upperCase(name));
    }
    const fs::path file = folder.write("app.vbp", project);
    importAgain(state, folder, file);
}

/// 500 pages with bodies of so many kilobytes, none of them edited.
void synchronise(benchmark::State& state) {
    Folder folder;
    constexpr int topics = 500;
    model::Project project;
    project.replace(bench::sampleOutline(topics, static_cast<std::size_t>(state.range(0)) * 1024),
                    {}, folder.path() / "p.tsp");
    generate::generateHelp(project,
                           {folder.path() / "p.hhp", {}, [] { return std::error_code(); }, {}});
    for (auto _ : state) {
        benchmark::DoNotOptimize(importer::synchronise(project, folder.path() / "html"));
    }
    state.SetBytesProcessed(state.iterations() * topics * state.range(0) * 1024);
}

BENCHMARK(importForms)->Arg(1)->Arg(13)->Unit(benchmark::kMillisecond);
BENCHMARK(importMenus)->Arg(500)->Arg(5000)->Arg(50'000)->Unit(benchmark::kMillisecond);
BENCHMARK(importCalls)->Arg(1000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(importMisspeltForms)->Arg(40)->Arg(400)->Unit(benchmark::kMillisecond);
BENCHMARK(synchronise)->Arg(4)->Arg(200)->Unit(benchmark::kMillisecond);

} // namespace
