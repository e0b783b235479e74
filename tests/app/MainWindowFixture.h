#pragma once

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "support/TestFiles.h"
#include "ui/testing/Driver.h"

namespace test {

/// A main window of the test's own: with its own settings, program folder and current folder, and
/// a person who only answers what the test foresees.
class MainWindow : public ::testing::Test {
protected:
    MainWindow() : before_(std::filesystem::current_path()) {
        std::filesystem::create_directory(folder / "program");
        for (const char* name : {"HTML Topicsmith.chm", "Image.jpg"}) {
            writeBytes(folder / "program" / name, "x");
        }
        std::filesystem::current_path(folder.path());
        restart();
    }
    ~MainWindow() override {
        window.reset();
        std::filesystem::current_path(before_);
    }

    /// Ends the program without a question, and starts it again with the same settings.
    void restart() {
        window.reset();
        settings.emplace(folder / "settings.ini");
        window.emplace(*settings, folder / "program");
        ui::testing::show(*window);
        ui::testing::watchModelOf(window->lvLevels);
    }

    model::Project& project() { return window->project(); }
    const model::Topic& topic(int position) { return project().outline().at(position); }

    void load(model::TopicOutline outline) {
        project().replace(std::move(outline), {}, folder / "p.tsp");
        ui::testing::settle();
    }

    /// The titles, each with its status letter: "a:M b:".
    std::string titles() {
        std::string text;
        for (const model::Topic& topic : project().outline()) {
            text += (text.empty() ? "" : " ") + topic.title + ':' + topic.status;
        }
        return text;
    }

    /// Puts the focus into a field, as a click does.
    void enter(const ui::TextBox& field) { ui::testing::click(field); }

    TemporaryFolder folder;
    ui::testing::ScriptedPrompter prompter;
    std::optional<ui::Settings> settings;
    std::optional<app::frmMain> window;

private:
    std::filesystem::path before_;
};

inline model::TopicOutline titled(std::initializer_list<const char*> titles) {
    model::TopicOutline outline;
    for (const char* title : titles) {
        outline.append(topic(1, title, text::Text(title) + ".htm"));
    }
    return outline;
}

} // namespace test
