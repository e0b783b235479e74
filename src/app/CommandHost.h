#pragma once

#include <functional>
#include <optional>

#include "text/Message.h"

namespace ui {
class Window;
}

namespace app {

class StatusLine;

/// What becomes of an open editor before a command acts.
enum class EditorFate { stays, isStored, isClosed };

/// What has to be so before a command acts.
struct Precondition {
    EditorFate editor = EditorFate::stays;

    /// Why there is nothing for it to do. Asked when nothing is being typed any more, and before
    /// the editor.
    std::function<std::optional<text::Message>()> objection = {};
};

/// The main window as those see it who carry out its commands.
class CommandHost {
public:
    virtual ~CommandHost() = default;

    /// The owner of their boxes and dialogs.
    virtual ui::Window& window() = 0;

    virtual StatusLine& status() = 0;

    /// The way of every command: what is being typed is completed, an objection told, the editor
    /// left; then it acts, unless the author would rather go on editing, and the commands show
    /// whether they can be chosen now.
    virtual void carryOut(const Precondition& before, const std::function<void()>& act) = 0;

    /// For a command that the author has to decide on first: as EditorFate::isClosed. False when
    /// the author wants to go on editing.
    virtual bool closeEditor() = 0;

    /// Ends what is being typed, though the focus stays.
    virtual void leaveField() = 0;

    /// Makes a topic current, as by a click on its row. False when the author does not want to
    /// leave the one that is being edited.
    virtual bool showTopic(int position) = 0;

    /// What was done outside of carryOut() may allow other commands.
    virtual void updateCommands() = 0;
};

} // namespace app
