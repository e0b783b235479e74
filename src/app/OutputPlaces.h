#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "ui/Prompter.h"
#include "ui/Settings.h"

namespace app {

/// Where what a command makes of projects went last, in the settings: for the last twenty projects.
class OutputPlaces {
public:
    /// The section of the settings is the command's, and `key` in it names the places. The
    /// settings must outlive this.
    OutputPlaces(ui::Settings& settings, const char* section, const char* key)
        : settings_(settings), section_(section), key_(key) {}

    /// The question for the place, with what is known of the last one; it may be empty.
    using Question = std::function<ui::FileQuestion(const std::filesystem::path& last)>;

    /// Where a project's output is to go: the last place, or what the author chooses when told to
    /// ask or where there is none. Empty when the author cancelled.
    std::filesystem::path choose(const std::filesystem::path& project, ui::Window& window, bool ask,
                                 const Question& question) const;

    void remember(const std::filesystem::path& project, const std::filesystem::path& place);

private:
    struct Place {
        std::filesystem::path project;
        std::filesystem::path output;
    };
    std::vector<Place> known() const;

    ui::Settings& settings_;
    const char* section_;
    const char* key_;
};

} // namespace app
