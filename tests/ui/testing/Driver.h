#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ui/ListView.h"
#include "ui/Prompter.h"
#include "ui/TreeView.h"
#include "ui/Window.h"

/// Acts as a person does, for tests: real clicks and keys in real windows. Texts are in UTF-8, as
/// the tests are written.
namespace ui::testing {

/// The toolkit on a screen that is not there. Made first in a test program, and kept to its end.
class Toolkit {
public:
    Toolkit(int& argc, char** argv);
    ~Toolkit();
    Toolkit(const Toolkit&) = delete;
    Toolkit& operator=(const Toolkit&) = delete;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

/// In pixels.
struct Place {
    int left, top, width, height;
    bool operator==(const Place&) const = default;
};

/// Of a control in its window.
Place placeOf(const Control& control);

/// Shows a window and waits until it is active.
void show(Window& window);

/// Lets everything happen that is waiting.
void settle();

void click(const Control& control);

/// On one page of a tab strip.
void clickTab(const Control& tabStrip, int page);

/// On the row of a list, in its third column, or the last when there are fewer, or in another.
void clickRow(const ListView& list, int row, int column = 2);
void doubleClickRow(const ListView& list, int row);

/// Drags a row and drops it on the upper or lower half of another.
void dragRow(const ListView& list, int from, int onto, bool lowerHalf);

/// The bar that would show where the row goes: in pixels, of what changes in the list. All are 0
/// for none.
Place dropMarkOf(const ListView& list, int from, int onto, bool lowerHalf);

/// The same for a row that is dragged sideways by so many pixels, and the drop.
Place shiftMarkOf(const ListView& list, int row, int pixels);
void shiftRow(const ListView& list, int row, int pixels, bool withShift = false);

/// Clicks a cell again, and waits until it can be edited; false when it cannot.
bool clickToEdit(const ListView& list, int row, int column);

/// Drops a file from elsewhere on a window, or on a control in it, as by somebody who would rather
/// have it moved. False when it is refused, or taken as anything but a copy.
bool dropFile(Window& window, const std::filesystem::path& file);
bool dropFiles(Window& window, const std::vector<std::filesystem::path>& files);
bool dropFile(const Control& control, const std::filesystem::path& file);

/// Types into what has the focus. Letters outside of ASCII are as good as others.
void type(const std::string& utf8);

/// A key like "Alt+Right" for what has the focus, or as a shortcut.
void press(const char* key);

/// Chooses from the menu bar with the mouse: "File", "Generate Files", … in their order, without
/// "&". False when there is no such entry or it is disabled.
bool choose(Window& window, std::initializer_list<const char*> captions);

/// What the entries of a menu say, hidden ones left out, with their shortcuts: "New\tCtrl+N", "-"
/// for a separator, "(…)" around a disabled one.
std::string menuText(Window& window, std::initializer_list<const char*> captions);

/// The same for the context menu that the list would show.
std::string contextMenuText(Window& window, const ListView& list);

/// The same for the menu that is open, which is closed; empty for none.
std::string takeOpenMenu();

/// Presses a toolbar button, found by its tool tip; false when there is none or it is disabled.
bool pressButton(Window& window, const char* toolTip, bool withShift = false);

/// Chooses from the menu of a drop-down button.
bool chooseFromButton(Window& window, const char* toolTip, const char* caption);

/// The name of the picture on a toolbar button tells nothing; two buttons show the same picture
/// when these are equal.
std::string buttonPicture(Window& window, const char* toolTip);

/// Whether the program has a picture of this name.
bool hasPicture(const char* name);

/// The row that is drawn as the selected one; 0 for none or several.
int highlightedRow(const ListView& list);

/// The texts of a column in the rows that are not hidden, with blanks between them.
std::string visibleRows(const ListView& list, int column);

/// How many rows the list has been told to draw anew since the last call.
int takeRowUpdates(const ListView& list);

/// Whether a row is drawn anew on the screen when something is done.
bool isDrawnAnew(const ListView& list, int row, const std::function<void()>& act);

/// Clicks the box before a row, and tells whether it is ticked.
void clickBox(const ListView& list, int row);
bool isTicked(const ListView& list, int row);

std::string cellText(const ListView& list, int row, int column);
std::string cellToolTip(const ListView& list, int row, int column);
int indentOf(const ListView& list, int row, int column);

/// The items of a tree, one a line, with two blanks for each depth; "*" before the selected one.
std::string treeText(const TreeView& tree);

/// Clicks an item, after unfolding what it lies in. Fails the test when there is none.
void clickItem(const TreeView& tree, const std::string& text);

/// The windows that can be seen, in no order.
std::vector<Window*> openWindows();

/// The one of them that is of this class; null for none.
template <typename Class>
Class* openWindow() {
    for (Window* window : openWindows()) {
        if (auto* found = dynamic_cast<Class*>(window)) {
            return found;
        }
    }
    return nullptr;
}

/// Does something in the dialog that the next command will open and wait for.
void whenModal(std::function<void(Window&)> act);

// Browsers of either kind.

/// False when the toolkit's rich text draws its pages.
bool hasWebEngine(const Control& browser);

/// Waits until a page's text holds something, for ten seconds at most, and gives the text.
std::string waitForPage(const Control& browser, const std::string& expected);

/// Waits until a page is so high; false when it does not become so in time.
bool waitForPageHeight(const Control& browser, int pixels, int milliseconds = 10000);

int scrollOf(const Control& browser);
void clickInPage(const Control& browser, int x, int y);
void pressInPage(const Control& browser, const char* key);

/// Watches the list's model from now on; the program ends with a fault of it.
void watchModelOf(const ListView& list);

/// What one of the toolkit's own boxes or file dialogs shows.
struct BoxLook {
    std::string folder;
    std::string fileName;
    std::string selected;     ///< of that
    bool hasPictures = false; ///< on its buttons
    bool asksToReplace = false;
    std::string enter; ///< what the button says that Enter presses, without "&"
    std::string sign;  ///< which of the program's pictures stands beside the text
};

/// Looks at the box or file dialog that `ask` shows, and cancels it.
BoxLook lookAtBox(const std::function<void()>& ask);

/// As on desktops that show Cancel first and Yes last.
void setYesLast(bool last);

/// As when the desktop changes its colours, or takes that back.
void setDarkColours(bool dark);

/// Acts with the texts of all windows in a font that is larger by this factor.
void inLargerFont(double factor, const std::function<void()>& act);

/// Texts of labels, buttons and tabs that have less room than they need, with those on pages that
/// have to be chosen: one line each.
std::string textsCutOff(Window& window);

/// What a control is filled with, as "#rrggbb".
std::string backgroundOf(const Control& control);

/// As a window shows it, with "*" for the changed mark.
std::string titleOf(const Window& window);

/// Waits for ten seconds at most; false when the condition does not come true.
bool waitFor(const std::function<bool()>& condition);

/// Whatever a person can reach and no label or name tells about: one line each.
std::string unnamedControls(Window& window);

/// What assistive programs are told of a window: whatever can have the focus there, and has no name
/// or no role. One line each.
std::string namelessParts(Window& window);

/// The same of a cell of a list: its name, and its description after a comma.
std::string spokenCell(const ListView& list, int row, int column);

/// All that a window shows, as a file of a picture; the caret does not blink meanwhile.
std::string pictureOf(Window& window);

/// The letters of a window's labels, buttons and menus that are given twice among those that can be
/// seen together: pages of tabs cannot.
std::string doubledMnemonics(Window& window);

/// Whether the window shows the changed mark.
bool isMarkedChanged(Window& window);

/// The box's caret, as a position in the text.
int caretOf(const TextBox& box);

/// How the last line of a box for several lines is drawn, in characters.
struct LineLook {
    int beforeBreak; ///< what has room before it is broken
    int coloured;    ///< to where there are colours
};
LineLook lookOfLastLine(const TextBox& box);

/// Answers questions in the order in which they were foreseen. An unforeseen one, or one that did
/// not come, fails the test.
class ScriptedPrompter : public Prompter {
public:
    ScriptedPrompter();
    ~ScriptedPrompter() override;

    void expect(MessageBox box, Answer answer = Answer::ok);
    void expect(FileQuestion question, std::optional<std::filesystem::path> answer);
    void expect(FileQuestion question, std::vector<std::filesystem::path> answer);

    /// Fails the test when a foreseen question did not come.
    void verify();

    /// Whether all that was foreseen has been asked.
    bool done() const { return steps_.empty(); }

    int takeBeeps() { return std::exchange(beeps_, 0); }

    Answer ask(Window* window, const MessageBox& box) override;
    std::vector<std::filesystem::path> chooseFiles(Window* window,
                                                   const FileQuestion& question) override;
    void beep() override { ++beeps_; }
    void openAddress(const std::string& address) override { addresses_.push_back(address); }
    const std::vector<std::string>& addresses() const { return addresses_; }

private:
    struct Step {
        std::optional<MessageBox> box;
        Answer answer = Answer::ok;
        std::optional<FileQuestion> question;
        std::vector<std::filesystem::path> files;
    };
    std::deque<Step> steps_;
    int beeps_ = 0;
    std::vector<std::string> addresses_;
};

} // namespace ui::testing
