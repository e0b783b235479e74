#include "app/MainWindowFixture.h"
#include "app/frmOptions.h"
#include "app/frmSplash.h"
#include "editor/forms/dlgGraphicOptions.h"
#include "editor/forms/dlgPictureName.h"
#include "editor/forms/dlgSnippets.h"
#include "editor/forms/dlgTopicLink.h"
#include "editor/forms/dlgWebLinkText.h"
#include "editor/forms/dlgWritingAids.h"
#include "tools/forms/dlgSpelling.h"

using namespace ui::testing;

namespace {

struct Nothing : tools::FindHost {
    const model::TopicOutline& outline() const override { return topics; }
    int selectedTopic() const override { return 1; }
    model::TopicOutline topics;
};

class NothingToReplace : public tools::ReplaceHost {
public:
    const model::TopicOutline& outline() const override { return topics; }
    bool storeEdits() override { return false; }
    void showPlace(const tools::Place&) override {}
    std::optional<tools::PlaceSearch::Replaced> replace(tools::PlaceSearch&,
                                                        std::span<const tools::Place>,
                                                        const tools::Replacement&) override {
        return {};
    }

    model::TopicOutline topics;
};

/// Windows that Escape closes, by themselves.
class AllWindows : public test::MainWindow {
protected:
    std::vector<std::unique_ptr<ui::Window>> windows() {
        std::vector<std::unique_ptr<ui::Window>> all;
        all.push_back(std::make_unique<app::dlgReport>(*window));
        all.push_back(std::make_unique<app::dlgCompile>(*window, folder / "none.hhp",
                                                        compile::CompileOptions()));
        all.push_back(std::make_unique<app::frmOptions>(*window, model::ProjectOptions()));
        all.push_back(std::make_unique<app::frmSplash>(*window));
        all.push_back(
            std::make_unique<editor::dlgGraphicOptions>(*window, editor::GraphicOptions()));
        all.push_back(std::make_unique<editor::dlgWebLinkText>(*window));
        all.push_back(
            std::make_unique<editor::dlgTopicLink>(*window, std::vector<editor::LinkTarget>()));
        all.push_back(std::make_unique<editor::dlgPictureName>(*window, "a.png", "b.png"));
        all.push_back(std::make_unique<editor::dlgSnippets>(*window, snippets, "text"));
        all.push_back(std::make_unique<editor::dlgWritingAids>(*window, editor::AidChoice()));
        all.push_back(std::make_unique<help::frmHelp>(*settings));
        all.push_back(std::make_unique<importer::frmImport>(*window, project(), folder / "none"));
        test::writeBytes(folder / "h.hhp", "[FILES]\na.htm\n");
        text::Text problem;
        all.push_back(std::make_unique<importer::frmHelpImport>(
            *window, importer::HelpSource::open(folder / "h.hhp", problem),
            importer::frmHelpImport::Target()));
        all.push_back(std::make_unique<importer::frmImportReport>(
            *window, importer::HelpImportOutcome(), project().outline()));
        all.push_back(
            std::make_unique<importer::frmVbImport>(*window, importer::VbProject(), project()));
        all.push_back(std::make_unique<tools::frmFind>(*window, host, text));
        all.push_back(std::make_unique<tools::frmReplace>(*window, replaceHost, replaceMemory));
        all.push_back(tools::dlgSpelling::create(
            *window, {*settings, {test::sourceFolder() / "tests/data/spelling"}, "en-US"}));
        return all;
    }

    Nothing host;
    editor::Snippets snippets{folder / "none.txt"};
    NothingToReplace replaceHost;
    tools::ReplaceMemory replaceMemory;
    text::Text text;
};

} // namespace

TEST_F(AllWindows, NameTheirControlsAndCloseWithEscape) {
    for (const auto& each : windows()) {
        ASSERT_NE(each, nullptr);
        SCOPED_TRACE(each->caption());
        show(*each);
        EXPECT_EQ(unnamedControls(*each), "");
        EXPECT_EQ(namelessParts(*each), "");
        EXPECT_EQ(doubledMnemonics(*each), "");
        press("Esc");
        settle();
        EXPECT_FALSE(each->isVisible());
    }
    EXPECT_TRUE(window->isVisible());
}

TEST_F(AllWindows, TheMainWindowAndItsEditorTellAssistiveProgramsOfAllTheirParts) {
    EXPECT_EQ(namelessParts(*window), ""); // with the page of what can be done first
    auto topics = test::titled({"a", "b"});
    topics.at(1).body = "<img src='..\\images\\none.gif'>";
    topics.at(2).level = "..2";
    load(std::move(topics));
    window->setSize(15000, 9000);
    press("Ctrl+L");
    press("Ctrl+E");
    ASSERT_TRUE(waitFor([this] { return window->topicPane().browser() != nullptr; }));
    press("Ctrl+F3");
    EXPECT_EQ(namelessParts(*window), "");
    EXPECT_EQ(spokenCell(window->lvLevels, 1, 1), "..\\images\\none.gif: the picture is missing");
    EXPECT_EQ(spokenCell(window->lvLevels, 1, 2), "a, unfolded");
    EXPECT_EQ(spokenCell(window->lvLevels, 2, 2), "b");

    press("Ctrl+W");
    EXPECT_TRUE(waitFor([this] { return window->editor() == nullptr; }));
    doubleClickRow(window->lvLevels, 2);
    ASSERT_NE(window->editor(), nullptr);
    window->editor()->mnuEditFindText_Click(true);
    EXPECT_EQ(namelessParts(*window->editor()), "");
    EXPECT_TRUE(pressButton(*window->editor(), "Preview Help Topic"));
    EXPECT_EQ(namelessParts(*window->editor()->preview()), "");
}

TEST_F(AllWindows, HaveRoomForTheirTextsInALargeFont) {
    for (const double factor : {1.2, 1.6}) {
        inLargerFont(factor, [this] {
            restart(); // with the page of what can be done first
            EXPECT_EQ(textsCutOff(*window), "");
            for (const auto& each : windows()) {
                SCOPED_TRACE(each->caption());
                show(*each);
                EXPECT_EQ(textsCutOff(*each), "");
                each->close();
            }
        });
    }
}

/// As the desktop does it in the evening.
TEST_F(AllWindows, ChangeTheirColoursWhileTheyAreOpen) {
    const auto all = windows();
    for (const auto& each : all) {
        if (dynamic_cast<help::frmHelp*>(each.get()) != nullptr) {
            continue; // its page is drawn elsewhere, at its time
        }
        SCOPED_TRACE(each->caption());
        show(*each);
        each->close();
        show(*each); // some styles draw a default button a shade differently the first time
        const std::string light = pictureOf(*each);
        setDarkColours(true);
        const std::string changed = pictureOf(*each);
        EXPECT_NE(changed, light);
        each->close();
        show(*each);
        EXPECT_TRUE(pictureOf(*each) == changed);
        setDarkColours(false);
        EXPECT_TRUE(pictureOf(*each) == light);
        each->close();
    }
}

TEST_F(AllWindows, TheSplashGoesWithTheNextKeyOrClickInAnyOfThem) {
    app::frmSplash splash(*window);
    const auto reappear = [&] {
        show(splash);
        show(*window);
        return splash.isVisible();
    };
    EXPECT_TRUE(reappear());
    press("Down");
    EXPECT_FALSE(splash.isVisible());
    EXPECT_TRUE(reappear());
    click(window->lvLevels);
    EXPECT_FALSE(splash.isVisible());
    press("Ctrl+F"); // and reaches its window as ever
    EXPECT_NE(openWindow<tools::frmFind>(), nullptr);
}
