#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "text/Message.h"

namespace ui {

using text::Text;
using text::TextView;

class Window;

enum class Buttons { ok, yesNo, yesNoCancel };
enum class Answer { ok, yes, no, cancel };
enum class QuestionIcon { none, information, question, exclamation, critical };

struct MessageBox {
    Text text;
    Text title; ///< empty for the program's name
    Buttons buttons = Buttons::ok;
    QuestionIcon icon = QuestionIcon::none;
    /// What the buttons for yes, no and cancel say, "&" before a mnemonic; empty for those words.
    Text yes = {};
    Text no = {};
    Text cancel = {};

    bool operator==(const MessageBox&) const = default;
};

struct FileQuestion {
    enum class Kind { open, openSeveral, save, folder };

    Kind kind = Kind::open;
    Text title;
    /// Descriptions and patterns in turn, all separated by "|".
    Text filter;
    int filterIndex = 1;
    std::filesystem::path folder;   ///< shown first; empty for the current one
    std::filesystem::path fileName; ///< preset; with a folder of its own, that one is shown
    Text defaultExtension = {};     ///< for a name without one; without the point
    bool asksToReplace = true;      ///< where a file is to be saved that is there already

    bool operator==(const FileQuestion&) const = default;
};

/// Shows message boxes and file dialogs, and beeps: all that waits for a person. A test puts its
/// own in the place of the real one.
class Prompter {
public:
    Prompter() = default;
    virtual ~Prompter() = default;
    Prompter(const Prompter&) = delete;
    Prompter& operator=(const Prompter&) = delete;

    /// Enter says Yes. A box closed without a button, or with Esc, counts as cancelled, or as No
    /// where nothing can be cancelled.
    virtual Answer ask(Window* window, const MessageBox& box);

    /// Empty when cancelled; several, in no order, where the question asks for them. That a file
    /// is replaced was confirmed where the question wants that.
    virtual std::vector<std::filesystem::path> chooseFiles(Window* window,
                                                           const FileQuestion& question);

    /// The first of them.
    std::optional<std::filesystem::path> chooseFile(Window* window, const FileQuestion& question);
    virtual void beep();

    /// Shows a web page, or begins a letter, in the program that the person uses for that.
    virtual void openAddress(const std::string& address);

    void tell(Window* window, const text::Message& message);

    static Prompter& current();
    /// Null for the real one. Not owned.
    static void use(Prompter* prompter);
};

} // namespace ui
