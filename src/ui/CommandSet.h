#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "ui/Menu.h"
#include "ui/Toolbar.h"

namespace ui {

/// What a row in a window's table of commands stands for.
enum class CommandKind {
    menu,       ///< what follows is in it, up to the matching end
    end,        ///< of a menu
    separator,  //
    command,    //
    barCommand, ///< one that stands in the menu bar itself
    listCommand ///< a command whose shortcut counts in one control only
};

/// One row, in the order of the window's menus. What it lacks is null.
template <typename Form>
struct CommandRow {
    CommandKind kind = CommandKind::command;
    const char* name = nullptr;
    const char* caption = nullptr;
    const char* key = nullptr; ///< of the toolbar button
    const char* toolTip = nullptr;
    const char* image = nullptr;
    const char* shortcut = nullptr;
    void (*run)(Form&) = nullptr; ///< null as long as the command does nothing: it is disabled
    bool (*possible)(const Form&) = nullptr; ///< null for always
};

/// For a row's `run`: the handler, with its arguments.
template <typename Form, auto handler, auto... arguments>
void runHandler(Form& form) {
    (form.*handler)(arguments...);
}

/// For a row's `possible`.
template <typename Form, auto condition>
bool askCondition(const Form& form) {
    return (form.*condition)();
}

/// The commands of a window, made from its table. It fills menus and toolbar and runs what is
/// chosen.
class CommandSet {
public:
    /// The rows and the form must outlive the set. `list` is the control of the list commands.
    template <typename Form>
    CommandSet(Form& form, std::span<const CommandRow<Form>> rows, Control* list = nullptr) {
        for (const CommandRow<Form>& row : rows) {
            Entry entry{row.kind, row.name == nullptr ? "" : row.name, {}, {}, nullptr};
            if (row.run != nullptr) {
                entry.run = [&form, &row] { row.run(form); };
            }
            if (row.possible != nullptr) {
                entry.possible = [&form, &row] { return row.possible(form); };
            }
            add(form, std::move(entry),
                {text(row.name), text(row.caption), text(row.key), text(row.toolTip),
                 text(row.image), text(row.shortcut)},
                list);
        }
    }

    CommandSet(const CommandSet&) = delete;
    CommandSet& operator=(const CommandSet&) = delete;

    void fillMenuBar(Menu& bar);

    /// Buttons by their keys; null for a gap.
    void fillToolbar(Toolbar& toolbar, std::span<const char* const> keys);

    /// Commands by their names; null for a separator.
    void fillMenu(Menu& menu, std::span<const char* const> names);

    /// All commands with this name, in the order of the rows.
    std::vector<Command*> all(TextView name) const;
    /// The first of them; null when there is none.
    Command* find(TextView name) const;

    /// A menu of the filled menu bar, by its name; null when there is none.
    Menu* menu(TextView name) const;

    /// The caption of the command that runs at present, without marks; empty for none.
    const Text& running() const { return running_; }

    /// Says what a command is about at present: "Undo" becomes "Undo Typing". Empty for nothing.
    void setSubject(TextView name, TextView subject);

    /// See Command; a name that there is not does nothing.
    void setChecked(TextView name, bool checked);

    /// Asks all conditions anew.
    void update();

    Event<> BeforeRun;
    Event<> AfterRun;

private:
    struct Entry {
        CommandKind kind;
        TextView name;
        std::function<void()> run;
        std::function<bool()> possible;
        std::unique_ptr<Command> command; ///< null for menus and separators
        Menu* menu = nullptr;             ///< of a menu's row, once it is filled
        Text caption = {};                ///< of a menu

        bool isPossible() const { return run && (!possible || possible()); }
    };

    static Text text(const char* part) { return part == nullptr ? Text() : Text(part); }
    void add(Window& window, Entry entry, CommandLook look, Control* list);
    void run(std::size_t index);

    std::vector<Entry> entries_;
    Text running_;
    std::shared_ptr<int> alive_ = std::make_shared<int>(); ///< goes with the set
};

} // namespace ui
