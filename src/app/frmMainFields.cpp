#include "app/frmMain.h"
#include "ui/Prompter.h"

// The fields of the current topic in the main window.
namespace app {

using model::Topic;
using text::Text;
using text::TextView;

namespace {
/// Where the caret goes: the end of any usual text.
constexpr std::size_t usualEnd = 99;
} // namespace

/// With `always`, another topic is shown: the fields forget what could be undone in them. Otherwise
/// only what differs is filled in, so that a field keeps its caret while it is typed into.
void frmMain::fillFields(bool always) {
    Topic none;
    none.level.clear();
    const Topic& topic = hasTopic() ? project_.outline().at(project_.currentIndex()) : none;
    const std::pair<ui::TextBox*, const Text*> fields[] = {{&txtLevel, &topic.level},
                                                           {&txtTitle, &topic.title},
                                                           {&txtFilename, &topic.fileName},
                                                           {&txtHelpID, &topic.contextId},
                                                           {&txtHelpNum, &topic.contextNumber}};
    for (const auto& [box, text] : fields) {
        if (always) {
            box->setText(*text);
        } else if (box->text() != *text) {
            box->changeText(*text);
        }
    }
}

void frmMain::enableFields(bool enabled) {
    for (ui::TextBox* box : {&txtLevel, &txtTitle, &txtFilename, &txtHelpID, &txtHelpNum}) {
        box->setEnabled(enabled);
    }
}

void frmMain::editField(TextView name, const ui::TextBox& box, Text Topic::*field) {
    model::editField(project_, name, field, box.text());
    updateCommands();
}

void frmMain::txtTitle_Change() {
    editField("Edit Topic Title", txtTitle, &Topic::title);
}

void frmMain::txtFilename_Change() {
    links_.beforeTyping();
    editField("Edit Topic Filename", txtFilename, &Topic::fileName);
}

void frmMain::txtHelpID_Change() {
    editField("Edit HelpCont ID", txtHelpID, &Topic::contextId);
}

void frmMain::txtHelpNum_Change() {
    editField("Edit HelpCont #", txtHelpNum, &Topic::contextNumber);
}

/// For a command that means the end of what is being typed, though the focus stays.
void frmMain::leaveField() {
    const ui::TextBox* box = focusedTextBox();
    if (box == &txtTitle || box == &txtFilename) {
        finishField();
    }
    project_.endTyping();
}

void frmMain::finishField() {
    model::completeFileName(project_);
    links_.finishTyping();
    project_.endTyping();
    updateCommands();
}

void frmMain::txtTitle_GotFocus() {
    txtTitle.select(usualEnd, 0);
}

void frmMain::txtFilename_GotFocus() {
    txtFilename.select(usualEnd, 0);
}

void frmMain::txtTitle_KeyDown(ui::Key& key) {
    if (key.code == ui::KeyCode::enter) {
        key.handled = true;
        mnuEditAdd_Click();
        return;
    }
    moveByKey(key);
}

void frmMain::moveByKey(ui::Key& key) {
    if (key.plain() && (key.code == ui::KeyCode::up || key.code == ui::KeyCode::down)) {
        key.handled = true;
        showNeighbour(key.code == ui::KeyCode::up ? -1 : 1);
    }
}

void frmMain::moveByKeyOrEnter(ui::Key& key) {
    if (key.code == ui::KeyCode::enter) {
        key.handled = true;
        showNeighbour(1);
    } else {
        moveByKey(key);
    }
}

void frmMain::showNeighbour(int step) {
    const int position = project_.currentIndex() + step;
    if (hasTopic() && position >= 1 && position <= project_.outline().count()) {
        leaveField();
        ui::TextBox* box = focusedTextBox();
        if (showTopic(position) && box != nullptr) {
            box->select(usualEnd, 0); // as on entering it
        }
    }
}

/// For the author who goes on in the editor.
void frmMain::editNeighbour(int step) {
    const int position = project_.currentIndex() + step;
    if (position >= 1 && position <= project_.outline().count()) {
        openTopicEditor(position);
    } else {
        ui::Prompter::current().beep();
    }
}

} // namespace app
