#include <sys/mount.h>
#include <unistd.h>

#include "app/HelpCompilation.h"
#include "app/MainWindowFixture.h"
#include "faults/FaultyFiles.h"
#include "generate/Documentation.h"
#include "generate/GenerationRun.h"
#include "platform/Files.h"
#include "text/Path.h"

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
        test::writeBytes(file, test::projectFile(outline, {}));
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
    void withEveryFault(const Act& act, const Check& check,
                        std::initializer_list<int> errors = {ENOSPC, EIO, EACCES, EDQUOT}) {
        for (const int error : errors) {
            forGood = !forGood;
            int n = 1;
            for (bool happened = true; happened; ++n) {
                ASSERT_LT(n, 500) << "the faults do not come to an end";
                SCOPED_TRACE((forGood ? "for good from " : "only ") + std::to_string(n) + ", error "
                             + std::to_string(error));
                fs::remove_all(folder / "work");
                fs::create_directory(folder / "work");
                test::writeBytes(file, before);
                Project project;
                change(project);
                test::injectFault((folder / "work").c_str(), n, forGood, error);
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
    bool forGood = false;
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
                                 happened ? before : test::projectFile(changed, {}));
                   });
}

TEST_F(Faults, AGenerationNamesWhatFailsAndGoesOn) {
    generate::GenerationReport report;
    withEveryFault(
        [&](Project& project) {
            const auto save = [&] { return model::saveProject(project, file); };
            report = generate::generateHelp(
                project, {folder / "work/help.hhp", test::programFolder(), save, {}});
        },
        [&](const Project& project, bool happened) {
            EXPECT_EQ(report.failures.empty(), !happened);
            EXPECT_NE(report.text.find("Generation Complete."), std::string::npos);
            const std::string now = test::bytesOf(file);
            EXPECT_EQ(now,
                      project.dataChanged() ? before : test::projectFile(project.outline(), {}));
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

TEST_F(Faults, ASaveReachesTheDiskBeforeItTakesTheOldFilesPlace) {
    Project project;
    change(project);
    test::recordOperations((folder / "work").c_str());
    EXPECT_FALSE(model::saveProject(project, file));
    const std::string operations = test::takeOperations();
    EXPECT_NE(operations.find("open rights write flush close rename flush folder "),
              std::string::npos)
        << operations;
}

TEST_F(Faults, AWriteInPiecesWritesAll) {
    Project project;
    change(project);
    test::injectFault((folder / "work").c_str(), 0, false);
    test::writeInPieces();
    EXPECT_FALSE(model::saveProject(project, file));
    test::takeFault();
    EXPECT_EQ(test::bytesOf(file), test::projectFile(changed, {}));
}

TEST_F(Faults, AProjectThatCannotBeReadIsNotOpenedInParts) {
    for (int n = 1; n < 10; ++n) {
        Project project;
        test::injectFault((folder / "work").c_str(), n, true, EIO, true);
        const auto outcome = model::loadProject(project, file);
        const bool happened = test::takeFault();
        EXPECT_EQ(outcome.readError == std::errc::io_error, happened) << n;
        EXPECT_EQ(project.outline().count(), happened ? 0 : 3);
    }
}

TEST_F(Faults, AWriteProtectedProjectIsNotReplaced) {
    Project project;
    change(project);
    fs::permissions(file, fs::perms::owner_read);
    constexpr uid_t nobody = 65534;
    const bool isSuperuser = ::getuid() == 0; // for whom nothing is protected
    if (isSuperuser) {
        fs::permissions(folder.path(), fs::perms::all);
        fs::permissions(folder / "work", fs::perms::all);
        ASSERT_EQ(::setresuid(nobody, nobody, 0), 0);
    }
    const std::error_code error = model::saveProject(project, file);
    if (isSuperuser) {
        ASSERT_EQ(::setresuid(0, 0, 0), 0);
    }
    EXPECT_EQ(error, std::errc::permission_denied);
    EXPECT_EQ(test::bytesOf(file), before);
    EXPECT_TRUE(project.dataChanged());
}

TEST_F(Faults, WhereAListOfRightsIsLostOnlyTheOwnerIsLeft) {
    for (const char* call : {"getxattr", "fsetxattr", "fremovexattr"}) {
        Project project;
        change(project);
        test::writeBytes(file, before);
        fs::permissions(file, fs::perms(0664));
        test::failToCopyRights((folder / "work").c_str(), call);
        EXPECT_FALSE(model::saveProject(project, file, model::Overwrite::anything));
        test::takeFault();
        EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600)) << call;
    }
}

TEST_F(Faults, WhatCannotBeWrittenWhereItLiesIsPutBack) {
    const fs::path copy = folder / "work/copy";
    std::error_code error;
    withEveryFault([&](Project&) { error = platform::overwriteFile(file, "new\x80", copy); },
                   [&](const Project&, bool happened) {
                       EXPECT_EQ(static_cast<bool>(error), happened);
                       const std::string now = test::bytesOf(file);
                       EXPECT_TRUE(now == before || test::bytesOf(copy) == before);
                       EXPECT_TRUE(forGood || now == (happened ? before : "new\x80"));
                   });
}

TEST_F(Faults, ACompilationWithoutAThreadHasFailed) {
    test::refuseThreads();
    const app::HelpCompilation compilation(folder / "p.hhp", {});
    test::takeFault();
    ASSERT_TRUE(compilation.isDone());
    EXPECT_FALSE(compilation.outcome().isWritten);
    ASSERT_EQ(compilation.outcome().messages.size(), 1U);
    EXPECT_EQ(compilation.outcome().messages[0].severity, workshop::Severity::error);
}

TEST_F(Faults, AClosedFoldersFileIsWrittenWhereItLiesWhenTheAuthorWantsThat) {
    change(project());
    settle();
    const fs::path copy = folder / "p.bak.tsp"; // beside the settings
    const ui::MessageBox question = {
        "The folder does not allow new files, so the file can only be written where it lies:\n"
            + text::displayText(file)
            + "\nIf that is interrupted, the file is damaged. What it holds now will be kept as:\n"
            + text::displayText(copy),
        "Save - p.tsp",
        ui::Buttons::yesNoCancel,
        ui::QuestionIcon::exclamation,
        "&Write It There",
        "Save &As..."};
    for (const ui::Answer answer : {ui::Answer::cancel, ui::Answer::yes}) {
        prompter.expect(question, answer);
        test::closeFolder((folder / "work").c_str());
        press("Ctrl+S");
        test::takeFault();
        prompter.verify();
        EXPECT_EQ(isMarkedChanged(*window), answer == ui::Answer::cancel);
    }
    EXPECT_EQ(test::bytesOf(file), test::projectFile(changed, {}));
    EXPECT_EQ(test::bytesOf(copy), before);
    project().markChanged(model::projectChanged); // from now on without a question
    test::closeFolder((folder / "work").c_str());
    press("Ctrl+S");
    test::takeFault();
    EXPECT_FALSE(isMarkedChanged(*window));
    EXPECT_EQ(test::bytesOf(copy), test::projectFile(changed, {}));
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
            EXPECT_EQ(test::bytesOf(file), happened ? before : test::projectFile(changed, {}));
            EXPECT_EQ(window->lblStatus.caption().find("No space") != std::string::npos, happened);
            prompter.takeBeeps();
        },
        {ENOSPC, ENOSPC}); // once and for good: others lead to a question
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
    large.at(1).body = text::Text(100000, 'x');
    Project full;
    full.replace(large, {}, file);
    EXPECT_EQ(model::saveProject(full, file), std::errc::no_space_on_device);
    EXPECT_EQ(test::bytesOf(file), before);
    EXPECT_EQ(leftovers(), 0);
    ::umount((folder / "work").c_str());
}
