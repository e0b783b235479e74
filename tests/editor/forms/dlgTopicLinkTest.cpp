#include "editor/forms/dlgTopicLink.h"

#include "editor/forms/EditorFixture.h"

using namespace ui::testing;

namespace {

class dlgTopicLink : public test::TopicEditor {
protected:
    void openThree() {
        load(test::outlineOf({test::topic(1, "First \u00E9", "a.htm", "see it <h2>Own</h2>"),
                              test::topic(1, "Second", "b.htm", "<h1>Deep down</h1>"),
                              test::topic(1, "Third", "c.htm")}));
        openFirst();
        editor().txtBody.select(4, 2);
    }

    /// Types words, then presses keys, in the dialog.
    void link(const char* words, std::initializer_list<const char*> keys) {
        whenModal([words, keys](ui::Window& dialog) {
            show(dialog);
            dynamic_cast<editor::dlgTopicLink&>(dialog).txtFilter.setFocus();
            type(words);
            for (const char* key : keys) {
                press(key);
            }
        });
        press("Ctrl+K");
        show(editor()); // as a window manager does
        editor().txtBody.setFocus();
    }
};

} // namespace

TEST_F(dlgTopicLink, LinksTheSelectionToATopicAsOneStep) {
    openThree();
    link("SEC", {"Return"});
    EXPECT_EQ(body(), "see <a href='..\\html\\b.htm'>it</a>| <h2>Own</h2>");
    press("Ctrl+Z");
    EXPECT_EQ(editor().txtBody.text(), "see it <h2>Own</h2>");
    EXPECT_FALSE(editor().changed());
    editor().txtBody.select(4, 2);
    link("", {"Down", "Down", "Down", "Down", "Down", "Down", "Up", "Up", "Return"});
    EXPECT_EQ(body(), "see <a href='..\\html\\b.htm'>it</a>| <h2>Own</h2>");
    link("", {"Esc"});
    link("nothing like it", {"Return", "Esc"});
    EXPECT_EQ(body(), "see <a href='..\\html\\b.htm'>it</a>| <h2>Own</h2>");
}

TEST_F(dlgTopicLink, GivesHeadingsTheirAnchors) {
    openThree();
    link("own", {"Return"});
    EXPECT_EQ(body(), "see <a href='#own'>it</a>| <h2 id='own'>Own</h2>");
    editor().txtBody.select(4, 0);
    link("down deep", {"Return"});
    EXPECT_EQ(topic(2).body + topic(2).status, "<h1 id='deep-down'>Deep down</h1>C");
    EXPECT_EQ(body(), "see <a href='..\\html\\b.htm#deep-down'>Deep down</a>|<a href='#own'>it</a> "
                      "<h2 id='own'>Own</h2>");
    EXPECT_EQ(project().history().undoName(), "Add Anchor");
    project().undo();
    EXPECT_EQ(topic(2).body + topic(2).status, "<h1>Deep down</h1>");
}
