#pragma once

#include "app/ProgramHelp.h"

namespace app {

/// The program for somebody who only reads: the help window on any compiled help, without a
/// project.
class HelpReader {
public:
    /// The settings are not owned.
    HelpReader(ui::Settings& settings, const std::filesystem::path& programFolder);

    /// Whether a file named at the start is for reading.
    static bool takes(const std::filesystem::path& file);

    /// Shows the window on the file. False, and said so, when that cannot be read.
    bool open(const std::filesystem::path& file);

private:
    help::frmHelp window_;
    ProgramHelp programHelp_; ///< about this window
};

} // namespace app
