#include <cstring>
#include <filesystem>

#include "ProgramFolder.h"
#include "app/frmMain.h"
#include "ui/Application.h"

// Shows a window and ends: the program's main window, or with "bare" an empty one of the same size.
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
    window.show();
    ui::Window::letEventsRun();
    return 0;
}
