#include "ui/CommandSet.h"

#include "ui/Window.h"

namespace ui {

namespace {

Text plainCaption(Text caption) {
    std::erase(caption, '&');
    return caption.substr(0, caption.find("..."));
}

} // namespace

void CommandSet::add(Window& window, Entry entry, CommandLook look, Control* list) {
    const bool inList = entry.kind == CommandKind::listCommand;
    if (inList || entry.kind == CommandKind::command || entry.kind == CommandKind::barCommand) {
        entry.command = std::make_unique<Command>(window, std::move(look));
        entry.command->Click.connect([this, index = entries_.size()] { run(index); });
        if (inList && list != nullptr) {
            entry.command->limitShortcutTo(*list);
        }
    } else {
        entry.caption = std::move(look.caption);
    }
    entries_.push_back(std::move(entry));
}

void CommandSet::fillMenuBar(Menu& bar) {
    std::vector<Menu*> path{&bar};
    for (Entry& entry : entries_) {
        switch (entry.kind) {
        case CommandKind::menu:
            entry.menu = &path.back()->addMenu(entry.name, entry.caption);
            path.push_back(entry.menu);
            break;
        case CommandKind::end:
            path.pop_back();
            break;
        case CommandKind::separator:
            path.back()->addSeparator(entry.name);
            break;
        case CommandKind::barCommand:
            bar.add(*entry.command);
            break;
        case CommandKind::command:
        case CommandKind::listCommand:
            if (path.size() > 1) {
                path.back()->add(*entry.command);
            }
            break;
        }
    }
}

void CommandSet::fillToolbar(Toolbar& toolbar, std::span<const char* const> keys) {
    for (const char* key : keys) {
        if (key == nullptr) {
            toolbar.addSeparator();
            continue;
        }
        for (const Entry& entry : entries_) {
            if (entry.command && entry.command->look().key == key) {
                toolbar.add(*entry.command);
            }
        }
    }
}

void CommandSet::fillMenu(Menu& menu, std::span<const char* const> names) {
    for (const char* name : names) {
        if (name == nullptr) {
            menu.addSeparator("");
        } else if (Command* command = find(name)) {
            menu.add(*command);
        }
    }
}

std::vector<Command*> CommandSet::all(TextView name) const {
    std::vector<Command*> found;
    for (const Entry& entry : entries_) {
        if (entry.command && entry.name == name) {
            found.push_back(entry.command.get());
        }
    }
    return found;
}

Command* CommandSet::find(TextView name) const {
    const std::vector<Command*> found = all(name);
    return found.empty() ? nullptr : found.front();
}

void CommandSet::setSubject(TextView name, TextView subject) {
    if (Command* command = find(name)) {
        const Text& caption = command->look().caption;
        command->setCaption(subject.empty() ? caption : caption + ' ' + Text(subject));
    }
}

void CommandSet::setChecked(TextView name, bool checked) {
    if (Command* command = find(name)) {
        command->setChecked(checked);
    }
}

Menu* CommandSet::menu(TextView name) const {
    for (const Entry& entry : entries_) {
        if (entry.menu != nullptr && entry.name == name) {
            return entry.menu;
        }
    }
    return nullptr;
}

void CommandSet::run(std::size_t index) {
    const std::weak_ptr<int> alive = alive_;
    if (entries_[index].isPossible()) {
        running_ = plainCaption(entries_[index].command->look().caption);
        BeforeRun.raise();
        const std::function<void()> command = entries_[index].run;
        guarded(command); // what follows is due in any case
    }
    if (alive.expired()) {
        return; // the command has closed the window
    }
    running_.clear();
    update();
    AfterRun.raise();
}

void CommandSet::update() {
    for (const Entry& entry : entries_) {
        if (entry.command) {
            entry.command->setEnabled(entry.isPossible());
        }
    }
}

} // namespace ui
