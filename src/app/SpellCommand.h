#pragma once

#include <filesystem>

#include "app/CommandHost.h"
#include "app/TopicEditor.h"
#include "model/Project.h"
#include "tools/SpellChecker.h"
#include "ui/Settings.h"

namespace app {

/// Corrects the texts of all topics.
class SpellCommand {
public:
    /// Nothing is owned. Dictionaries are looked for in the folder, too.
    SpellCommand(CommandHost& host, model::Project& project, TopicEditor& editor,
                 ui::Settings& settings, std::filesystem::path programFolder);

    void checkAll();

private:
    tools::SpellChecker::Outcome checkTopics(tools::SpellChecker& checker);
    tools::SpellChecker::Outcome checkTopic(tools::SpellChecker& checker, int position);

    CommandHost& host_;
    model::Project& project_;
    TopicEditor& editor_;
    ui::Settings& settings_;
    std::filesystem::path programFolder_;
};

} // namespace app
