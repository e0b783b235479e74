#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <gtest/gtest.h>

#include "support/TestFiles.h"
#include "ui/CommandSet.h"
#include "ui/ImageCombo.h"
#include "ui/Settings.h"
#include "ui/TypingSteps.h"
#include "ui/WindowPlace.h"
#include "ui/testing/Driver.h"

using namespace ui::testing;
using ui::TextBox;

namespace {

class Controls : public ::testing::Test {
protected:
    ui::Window window{ui::Window::Kind::main, "window"};
};

} // namespace

TEST_F(Controls, OffsetsInABoxOfManyLinesAreThoseOfItsText) {
    TextBox box(window, TextBox::Lines::many);
    const text::Text text = "ab\r\n\r\nc\u00A0\u0416\u20AC\U0001F600\r\n";
    box.setText(text);
    for (std::size_t start = 0; start <= text.size(); ++start) {
        for (std::size_t length = 0; start + length <= text.size(); ++length) {
            const auto isInside = [&text](std::size_t at) { // a line break or a character
                return (at > 0 && text[at - 1] == '\r')
                       || (at < text.size() && text::continuesCharacter(text[at]));
            };
            if (isInside(start) || isInside(start + length)) {
                continue;
            }
            box.select(start, length);
            EXPECT_EQ(box.selection().start, start);
            EXPECT_EQ(box.selection().length, length);
            EXPECT_EQ(box.selectedText(), text.substr(start, length));
        }
    }
    box.select(1000, 5);
    EXPECT_EQ(box.selection().start, text.size());
    int changes = 0;
    box.Change.connect([&changes] { ++changes; });
    box.select(4, 2);
    box.replaceSelection("x\r\ny");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(box.text(), "ab\r\nx\r\nyc\u00A0\u0416\u20AC\U0001F600\r\n");
    box.setText("set");
    EXPECT_EQ(changes, 1); // the program's own doing
}

TEST_F(Controls, AnEditOfTheProgramIsOneStepToTakeBack) {
    for (const TextBox::Lines lines : {TextBox::Lines::one, TextBox::Lines::many}) {
        TextBox box(window, lines);
        const text::Text lineBreak = lines == TextBox::Lines::many ? "\r\n" : "";
        box.setText("ab" + lineBreak + "c");
        int changes = 0;
        box.Change.connect([&changes] { ++changes; });
        box.edit("ab<b>" + lineBreak + "</b>c", 5);
        EXPECT_EQ(box.selection().start, 5U);
        box.edit(box.countedText(), 0); // no other text
        EXPECT_EQ(changes, 1);
        show(window);
        box.setVisible(true);
        box.setFocus();
        press("Ctrl+Z");
        EXPECT_EQ(box.text(), "ab" + lineBreak + "c");
        press("Ctrl+Y");
        EXPECT_EQ(box.text(), "ab<b>" + lineBreak + "</b>c");
    }
}

TEST(TypingSteps, AreWordsPausesDeletionsAndWhatWasPasted) {
    ui::TypingSteps steps;
    auto now = ui::TypingSteps::Time() + std::chrono::hours(1);
    std::size_t place = 0;
    std::string cut;
    const auto enter = [&](std::u16string_view letters) {
        cut += steps.entering(place, letters, now) ? "|" : "";
        for (const char16_t letter : letters) {
            cut += static_cast<char>(letter);
        }
        place += letters.size();
    };
    const auto enterEach = [&](std::u16string_view letters) {
        for (std::size_t i = 0; i < letters.size(); ++i) {
            enter(letters.substr(i, 1));
        }
    };
    enterEach(u"one  two");
    now += ui::TypingSteps::pause - std::chrono::milliseconds(1);
    enterEach(u"s");
    now += ui::TypingSteps::pause;
    enterEach(u"aid ");
    enter(u"pasted");
    enterEach(u"on");
    place = 3;
    enterEach(u"up");
    EXPECT_EQ(cut, "|one  |twos|aid |pasted|on|up");
    now += ui::TypingSteps::pause;
    EXPECT_TRUE(steps.deleting(now));
    EXPECT_FALSE(steps.deleting(now));
    EXPECT_TRUE(steps.entering(place, u"x", now));
}

TEST_F(Controls, ADropDownButtonKeepsTheLastChoice) {
    ui::Toolbar bar(window);
    bar.addDropDown("edit", "Insert", {{"First", "One", "Cut"}, {"Second", "Two", "Copy"}});
    bar.setDropDown("edit", "Two", "Copy");
    std::string pressed;
    bar.ButtonClick.connect([&pressed](const text::Text& key) { pressed += key + ' '; });
    bar.ButtonMenuClick.connect([&](const text::Text& key) { bar.setDropDown("edit", key, ""); });
    show(window);
    EXPECT_TRUE(pressButton(window, "Insert"));
    EXPECT_TRUE(chooseFromButton(window, "Insert", "First"));
    EXPECT_TRUE(pressButton(window, "Insert"));
    EXPECT_EQ(pressed, "Two One ");
}

TEST_F(Controls, AnImageComboKnowsItsKeys) {
    ui::ImageCombo combo(window);
    combo.add("Auto", "Automatic", "Help");
    combo.add("New", "New topic", "New");
    combo.select("New");
    EXPECT_EQ(combo.selectedKey(), "New");
    combo.select("unknown");
    EXPECT_EQ(combo.selectedKey(), "");
    int changes = 0;
    combo.Change.connect([&changes] { ++changes; });
    show(window);
    combo.setFocus();
    press("Down");
    EXPECT_EQ(combo.selectedKey(), "Auto");
    EXPECT_EQ(changes, 1);
}

TEST_F(Controls, AnEventHasOneHandlerUntilThatIsLetGoOf) {
    int called = 0;
    ui::Event<> event;
    event.connect([&called] { called = 1; });
    event.disconnect();
    event.connect([&called] { called = 2; });
    event.raise();
    EXPECT_EQ(called, 2);
    EXPECT_DEBUG_DEATH(event.connect([] {}), "has a handler already");
}

TEST_F(Controls, AnExceptionEndsWhereTheEventWasRaised) {
    ScriptedPrompter prompter;
    ui::Event<> event;
    event.connect([] { throw std::runtime_error("no more room"); });
    prompter.expect({"Something unexpected went wrong.\n\nno more room", "", ui::Buttons::ok,
                     ui::QuestionIcon::critical});
    event.raise();
}

TEST_F(Controls, ACommandThatFailsIsOverAllTheSame) {
    struct Form : ui::Window {
        Form() : Window(Kind::main, "form") {}
        void fail() { throw std::runtime_error("no more room"); }
    };
    using Row = ui::CommandRow<Form>;
    const Row rows[] = {
        {.name = "fail", .caption = "Fail", .run = ui::runHandler<Form, &Form::fail>}};
    Form form;
    ui::CommandSet commands(form, std::span<const Row>(rows));
    bool isOver = false;
    commands.AfterRun.connect([&isOver] { isOver = true; });
    ScriptedPrompter prompter;
    prompter.expect({"Something unexpected went wrong.\n\nno more room", "", ui::Buttons::ok,
                     ui::QuestionIcon::critical});
    commands.find("fail")->Click.raise();
    EXPECT_TRUE(isOver);
    EXPECT_EQ(commands.running(), "");
}

TEST_F(Controls, AWindowStaysAsLongAsOneOfItsHandlersMayRun) {
    class Watched : public ui::Window {
    public:
        explicit Watched(bool& gone) : Window(Kind::dialog, "watched"), gone_(gone) {}
        ~Watched() override { gone_ = true; }

    private:
        bool& gone_;
    };
    bool gone = false;
    auto watched = std::make_unique<Watched>(gone);
    ui::Event<> outer;
    ui::Event<> inner;
    inner.connect([&] { ui::Window::discard(std::move(watched)); });
    outer.connect([&] {
        inner.raise();
        settle(); // as while a box stands
        EXPECT_FALSE(gone);
    });
    outer.raise();
    settle();
    EXPECT_TRUE(gone);
}

TEST_F(Controls, AWindowIsNeverLargerThanTheScreen) {
    const test::TemporaryFolder folder;
    ui::Settings settings(folder / "settings.ini");
    for (const char* key : {"Width", "Height", "Left", "Top"}) {
        settings.setNumber("Place", key, 90000);
    }
    ui::restorePlace(window, settings, "Place", 3000, 3000);
    EXPECT_EQ(window.width(), ui::Window::screenWidth());
    EXPECT_LT(window.height(), ui::Window::screenHeight()); // it has a title bar as well
    EXPECT_GT(window.height(), ui::Window::screenHeight() * 9 / 10);
    EXPECT_EQ(window.left(), 0);
    EXPECT_EQ(window.top(), 0);
}

TEST_F(Controls, TheToolkitsBoxesAskWhatTheyAreTold) {
    ui::Prompter real;
    EXPECT_FALSE(lookAtBox([&] {
                     real.ask(&window, {"text", "", ui::Buttons::yesNoCancel});
                 }).hasPictures);
    for (const bool yesLast : {true, false}) {
        setYesLast(yesLast);
        for (const ui::Buttons buttons : {ui::Buttons::yesNo, ui::Buttons::yesNoCancel}) {
            ui::Answer answer{};
            const BoxLook box = lookAtBox([&] {
                answer = real.ask(&window, {"text", "", buttons});
            });
            EXPECT_EQ(box.enter, "Yes");
            EXPECT_EQ(answer, buttons == ui::Buttons::yesNo ? ui::Answer::no : ui::Answer::cancel);
        }
    }
    using ui::QuestionIcon;
    for (const auto& [icon, sign] :
         {std::pair(QuestionIcon::information, "BoxInformation"),
          std::pair(QuestionIcon::question, "BoxQuestion"),
          std::pair(QuestionIcon::exclamation, "BoxWarning"),
          std::pair(QuestionIcon::critical, "BoxFailure"), std::pair(QuestionIcon::none, "")}) {
        EXPECT_EQ(lookAtBox([&, shown = icon] {
                      real.ask(&window, {"text", "", ui::Buttons::ok, shown});
                  }).sign,
                  sign);
    }
    const test::TemporaryFolder folder;
    const auto look = [&](ui::FileQuestion::Kind kind, const char* name, bool asksToReplace) {
        return lookAtBox([&] {
            real.chooseFile(&window, {kind, "Title", "Text Files (*.txt)|*.txt", 1, folder.path(),
                                      name, "txt", asksToReplace});
        });
    };
    const BoxLook open = look(ui::FileQuestion::Kind::open, "*.txt", true);
    EXPECT_EQ(open.fileName, "*.txt");
    EXPECT_EQ(open.selected, "*.txt"); // the next key replaces it
    EXPECT_FALSE(open.hasPictures);
    const BoxLook save = look(ui::FileQuestion::Kind::save, "a.txt", true);
    EXPECT_EQ(save.fileName, "a.txt");
    EXPECT_TRUE(save.asksToReplace);
    EXPECT_FALSE(look(ui::FileQuestion::Kind::save, "a.txt", false).asksToReplace);
}

TEST(Settings, AreKeptBySectionAndKey) {
    const test::TemporaryFolder folder;
    const std::filesystem::path path = folder / "\xC3\xA4 b\\c,d";
    {
        ui::Settings settings(folder / "settings.ini");
        settings.set("Main", "Window State", "2");
        settings.setNumber("Main", "Height", 5980);
        settings.set("Edit", "Height", "tall");
        settings.setPath("Open", "File Path", path);
    }
    const ui::Settings settings(folder / "settings.ini");
    EXPECT_EQ(settings.get("Main", "Window State", "0"), "2");
    EXPECT_EQ(settings.number("Main", "Height", 1), 5980);
    EXPECT_EQ(settings.number("Edit", "Height", 5850), 5850);
    EXPECT_EQ(settings.get("Main", "Missing", "fallback"), "fallback");
    EXPECT_EQ(settings.path("Open", "File Path"), path);
}

TEST(Settings, WhatCannotBeReadDoesNotStopTheStart) {
    const test::TemporaryFolder folder;
    test::writeBytes(folder / "huge.ini", "[Main]\nHeight=1\n");
    resize_file(folder / "huge.ini", std::uintmax_t(5) << 30U); // takes no room on the disk
    std::filesystem::create_directory(folder / "folder.ini");
#ifndef _WIN32
    ASSERT_EQ(::mkfifo((folder / "pipe.ini").c_str(), 0600), 0);
    for (const char* name : {"huge.ini", "folder.ini", "pipe.ini"}) {
#else
    for (const char* name : {"huge.ini", "folder.ini"}) {
#endif
        ui::Settings settings(folder / name);
        EXPECT_EQ(settings.number("Main", "Height", 7), 7);
        settings.setNumber("Main", "Height", 8);
        EXPECT_EQ(settings.number("Main", "Height", 7), 8) << "as long as the program runs";
        EXPECT_EQ(settings.folder(), folder.path());
    }
}
