#pragma once

#include <filesystem>
#include <memory>

#include "help/forms/frmHelp.h"

namespace app {

/// Shows the program's own help: in the system's viewer where there is one, otherwise in ours. F1
/// and the Help buttons of all windows end here as long as this lives.
class ProgramHelp {
public:
    /// The help lies in the program's folder. Window and settings are not owned.
    ProgramHelp(ui::Window& window, ui::Settings& settings,
                const std::filesystem::path& programFolder);
    ~ProgramHelp();
    ProgramHelp(const ProgramHelp&) = delete;
    ProgramHelp& operator=(const ProgramHelp&) = delete;

    /// Says so when the program was installed without its help.
    void tellWhenMissing() const;

    void showPage(int context);
    void showIndex();

private:
    bool openViewer();

    ui::Window& window_;
    ui::Settings& settings_;
    std::filesystem::path helpFile_;
    std::unique_ptr<help::frmHelp> viewer_;
};

} // namespace app
