#include <cstring>
#include <filesystem>

#include "ProgramFolder.h"
#include "app/frmMain.h"
#include "ui/Application.h"

// Shows a window and ends: the program's main window, or with "bare" an empty one of the same size;
// with "wide" and a project, one that has room for the page beside the outline, and with "narrow"
// and a project the same without that room. The page itself comes when the window is there.
int main(int argc, char* argv[]) {
    ui::Application application(argc, argv, "start_window", "0");
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    if (argc > 1 && std::strcmp(argv[1], "bare") == 0) {
        ui::Window window(ui::Window::Kind::main, "bare");
        window.setSize(9650, 5980);
        window.show();
        ui::Window::letEventsRun();
        return 0;
    }
    ui::Settings settings(folder / "start_window.ini");
    app::frmMain window(settings, bench::programFolder());
    if (argc > 2) {
        window.setSize(std::strcmp(argv[1], "wide") == 0 ? 18000 : 11000, 9000);
        window.openFile(argv[2]);
    }
    window.show();
    ui::Window::letEventsRun();
    return 0;
}
