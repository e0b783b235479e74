#include "app/MainWindowFixture.h"
#include "model/ProjectFile.h"
#include "platform/Files.h"

using namespace ui::testing;
using ui::FileQuestion;

namespace fs = std::filesystem;

namespace {

class WebSiteCommand : public test::MainWindow {
protected:
    void SetUp() override {
        test::writeBytes(folder / "p.tsp",
                         test::projectFile(test::outlineOf({test::topic(1, "Caf\u00E9", "a.htm"),
                                                            test::topic(1, "B", "../b.htm")}),
                                           {}));
        ASSERT_TRUE(window->openFile(folder / "p.tsp"));
    }

    void expectFolder(const fs::path& shown, std::optional<fs::path> answer) {
        prompter.expect(
            FileQuestion{FileQuestion::Kind::folder, "Folder for the Web Site", {}, 1, shown, {}},
            std::move(answer));
    }
    void expectEnd(const fs::path& site, ui::Answer answer) {
        prompter.expect({"The web site is in " + platform::utf8FromPath(site) + ".",
                         "Generate Web Site", ui::Buttons::yesNo, ui::QuestionIcon::information,
                         "&Open in Browser", "&Close"},
                        answer);
    }
    void generate(const char* caption) {
        EXPECT_TRUE(choose(*window, {"File", "Generate Files", caption}));
        prompter.verify();
    }
};

} // namespace

TEST_F(WebSiteCommand, AsksOnceReportsAndOpensTheSite) {
    const fs::path site = folder / fs::path(u8"Site é #1");
    expectFolder(folder.path(), std::nullopt);
    generate("Generate Web Site...");
    EXPECT_EQ(openWindow<app::dlgReport>(), nullptr);

    expectFolder(folder.path(), folder.path()); // the project's own
    prompter.expect(
        {platform::utf8FromPath(folder.path().filename()) + ": is the folder of the project itself",
         "Generate Web Site", ui::Buttons::ok, ui::QuestionIcon::exclamation});
    generate("Generate Web Site...");

    expectFolder(folder.path(), site);
    expectEnd(site, ui::Answer::yes);
    generate("Generate Web Site...");
    EXPECT_TRUE(fs::exists(site / "html/a.htm"));
    ASSERT_EQ(prompter.addresses().size(), 1U);
    EXPECT_TRUE(prompter.addresses()[0].starts_with("file:///"));
    EXPECT_TRUE(prompter.addresses()[0].ends_with("/Site%20%C3%A9%20%231/index.html"));
    const auto report = openWindow<app::dlgReport>()->txtReport.text();
    EXPECT_NE(report.find("\r\nNot written:\r\n"), std::string::npos) << report;
    EXPECT_FALSE(project().dataChanged());

    expectEnd(site, ui::Answer::no); // to the same place, without a question
    generate("Generate Web Site...");
    EXPECT_EQ(prompter.addresses().size(), 1U);
    expectFolder(site, std::nullopt);
    generate("Generate Web Site To...");

    const fs::path other = folder / "other.tsp";
    fs::copy_file(folder / "p.tsp", other);
    ASSERT_TRUE(window->openFile(other));
    expectFolder(folder.path(), folder / "other site");
    expectEnd(folder / "other site", ui::Answer::no);
    generate("Generate Web Site...");
    ASSERT_TRUE(window->openFile(folder / "p.tsp"));
    expectEnd(site, ui::Answer::no); // each project has its place
    generate("Generate Web Site...");
}
