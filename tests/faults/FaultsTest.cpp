#include <sys/mount.h>

#include "app/MainWindowFixture.h"
#include "faults/FaultyFiles.h"
#include "generate/Documentation.h"
#include "generate/GenerationRun.h"

using namespace ui::testing;
namespace fs = std::filesystem;
using model::Project;

namespace {

/// A project with changes that its file lacks. The file lies in a folder of its own.
class Faults : public test::MainWindow {
protected:
    void SetUp() override {
        fs::create_directory(folder / "work");
        model::TopicOutline outline = test::flatOutline(3);
        test::writeBytes(file, model::formatProject(outline, {}));
        before = test::bytesOf(file);
        outline.at(1).title = "Changed\x80";
        changed = outline;
    }

    void change(Project& project) {
        project.replace(changed, {}, file);
        project.markChanged(model::projectChanged);
    }

    /// Does something again and again, with another operation failing each time, once and for
    /// good, until none fails. `act` gets a changed project, and `check` whether a fault happened.
    template <typename Act, typename Check>
    void withEveryFault(const Act& act, const Check& check) {
        for (const bool forGood : {false, true}) {
            int n = 1;
            for (bool happened = true; happened; ++n) {
                ASSERT_LT(n, 500) << "the faults do not come to an end";
                SCOPED_TRACE((forGood ? "for good from " : "only ") + std::to_string(n));
                fs::remove_all(folder / "work");
                fs::create_directory(folder / "work");
                test::writeBytes(file, before);
                Project project;
                change(project);
                test::injectFault((folder / "work").c_str(), n, forGood);
                act(project);
                happened = test::takeFault();
                check(project, happened);
                EXPECT_EQ(leftovers(), 0);
            }
            EXPECT_GT(n, 3) << "hardly anything could fail";
        }
    }

    int leftovers() const {
        int count = 0;
        for (const auto& entry : fs::directory_iterator(folder / "work")) {
            count += entry.path().filename().string().starts_with(".topicsmith") ? 1 : 0;
        }
        return count;
    }

    const fs::path file = folder / "work" / "p.tsp";
    std::string before;
    model::TopicOutline changed;
};

} // namespace

TEST_F(Faults, ASaveThatFailsLeavesTheOldProject) {
    std::error_code error;
    withEveryFault([&](Project& project) { error = model::saveProject(project, file); },
                   [&](const Project& project, bool happened) {
                       EXPECT_EQ(static_cast<bool>(error), happened);
                       EXPECT_EQ(project.dataChanged(), happened);
                       EXPECT_EQ(test::bytesOf(file),
                                 happened ? before : model::formatProject(changed, {}));
                   });
}

TEST_F(Faults, AGenerationNamesWhatFailsAndGoesOn) {
    generate::GenerationReport report;
    withEveryFault(
        [&](Project& project) {
            const auto save = [&] { return model::saveProject(project, file); };
            report = generate::generateHelp(
                project, {folder / "work/help.hhp", TOPICSMITH_PROGRAM_FOLDER, save, {}});
        },
        [&](const Project& project, bool happened) {
            EXPECT_EQ(report.failures.empty(), !happened);
            EXPECT_NE(report.text.find("Generation Complete."), std::string::npos);
            const std::string now = test::bytesOf(file);
            EXPECT_EQ(now, project.dataChanged() ? before : formatProject(project.outline(), {}));
        });
}

TEST_F(Faults, ADocumentationNamesWhatFails) {
    model::FileFailures failures;
    withEveryFault(
        [&](Project& project) {
            failures =
                generate::generateDocumentation(project, folder / "work/out.htm", folder / "work");
        },
        [&](const Project&, bool happened) {
            EXPECT_EQ(failures.empty(), !happened);
            EXPECT_EQ(test::bytesOf(file), before);
        });
}

TEST_F(Faults, TheWindowStaysMarkedAsChanged) {
    withEveryFault(
        [&](Project&) {
            change(project());
            settle();
            press("Ctrl+S");
        },
        [&](const Project&, bool happened) {
            EXPECT_EQ(isMarkedChanged(*window), happened);
            EXPECT_EQ(test::bytesOf(file), happened ? before : model::formatProject(changed, {}));
            EXPECT_EQ(window->lblStatus.caption().find("No space") != std::string::npos, happened);
            prompter.takeBeeps();
        });
}

TEST_F(Faults, AFolderThatGoesAwayAndAFullDiskAreSaid) {
    change(project());
    fs::remove_all(folder / "work");
    press("Ctrl+S");
    EXPECT_TRUE(isMarkedChanged(*window));
    EXPECT_NE(window->lblStatus.caption().find("No such file"), std::string::npos);
    fs::create_directory(folder / "work");
    if (::mount("tmpfs", (folder / "work").c_str(), "tmpfs", 0, "size=64k") != 0) {
        GTEST_SKIP() << "no small disk can be made here";
    }
    test::writeBytes(file, before);
    model::TopicOutline large = changed;
    large.at(1).body = model::Text(100000, 'x');
    Project full;
    full.replace(large, {}, file);
    EXPECT_EQ(model::saveProject(full, file), std::errc::no_space_on_device);
    EXPECT_EQ(test::bytesOf(file), before);
    EXPECT_EQ(leftovers(), 0);
    ::umount((folder / "work").c_str());
}
