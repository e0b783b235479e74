#include <iostream>
#include <string_view>

#include "app/HelpReader.h"
#include "app/PdfProgram.h"
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "platform/Files.h"
#include "platform/Version.h"
#include "ui/Application.h"

namespace {

/// Without the blanks around it.
std::filesystem::path trimmed(const std::filesystem::path& argument) {
    return platform::pathFromUtf8(text::trim(platform::utf8FromPath(argument)));
}

/// Without a project, and without what was left of one: the author has the window for that.
int readHelp(ui::Application& application, ui::Settings& settings,
             const std::filesystem::path& file) {
    app::HelpReader reader(settings, platform::programFolder());
    return reader.open(file) ? application.run() : 1;
}

/// With the main window, on a project unless the path is empty.
int writeHelp(ui::Application& application, ui::Settings& settings,
              const std::filesystem::path& path) {
    app::frmMain window(settings, platform::programFolder());
    application.Ending.connect([&window] { window.workKeeper().keep(); });
    window.show();
    window.waitUntilSeen();
    const bool recovered = window.workKeeper().offer();
    const bool isHere = recovered && path == window.project().projectPath();
    if (!path.empty() && !isHere) {
        window.openFile(path);
    }
    app::frmSplash splash(window);
    splash.startTimer();
    splash.show();
    return application.run();
}

} // namespace

int main(int argc, char* argv[]) {
    const std::string_view first = argc > 1 ? argv[1] : "";
    if (first == "--help" || first == "--version") {
        std::cout << "HTML Topicsmith " << platform::version << "\n";
        if (first == "--help") {
            std::cout
                << "\ntopicsmith [PROJECT.tsp]   opens the window, on a project if one is named\n"
                   "topicsmith HELP.chm        shows a compiled help, as its readers see it\n"
                   "topicsmith --pdf PROJECT.tsp OUT.pdf   prints a project into a PDF file\n"
                   "See topicsmith-batch --help for work without a window.\n";
        }
        return 0;
    }
    if (first == "--pdf") {
        return app::runPdfProgram(argc, argv);
    }
    platform::turnSizeLimitIntoError();
    ui::Application application(argc, argv, "HTML Topicsmith", platform::version);
    ui::Settings settings;
    const auto arguments = application.arguments();
    auto path = arguments.empty() ? std::filesystem::path() : trimmed(arguments.front());
    if (!path.empty()) {
        path = platform::fullPath(path); // before the recovery changes the current folder
    }
    return app::HelpReader::takes(path) ? readHelp(application, settings, path)
                                        : writeHelp(application, settings, path);
}
