#include <algorithm>

#include "app/frmMain.h"

// The outline in the main window: what becomes of the project, the list, and what is done to
// several topics at once.
namespace app {

using model::Topic;
using text::Text;
using text::TextView;
using ui::Prompter;

// ---- The project ----

void frmMain::topicChanged(int position) {
    work_.note();
    if (signs_.changed(position)) {
        lvLevels.redraw(); // others may share what they did not, or the other way round
    }
    lvLevels.rowChanged(position);
    if (folds_.isAnyFolded()) { // the level may be another
        if (position == project_.currentIndex()) {
            folds_.reveal(position);
        }
        showRows();
    }
    if (position == project_.currentIndex()) {
        fillFields(false);
        pane_.topicChanged();
    }
}

void frmMain::topicInserted(int position) {
    folds_.inserted(position);
    signs_.inserted(position);
    lvLevels.rowInserted();
    rowsChanged();
}

void frmMain::topicRemoved(int position) {
    folds_.removed(position);
    signs_.removed(position);
    lvLevels.rowRemoved();
    rowsChanged();
}

void frmMain::rowsChanged() {
    work_.note();
    find_.restart();
    showRows();
    selectCurrent();
}

void frmMain::projectReplaced() {
    folds_.reset();
    signs_.reset(project_.options());
    lvLevels.rowsReplaced();
    find_.restart();
    links_.forget();
    replace_.restart();
    showRows();
    showCurrent();
    lvLevels.fitColumns();
}

void frmMain::topicsSwapped(int a, int b) {
    folds_.swapped(a, b);
    signs_.swapped(a, b);
    find_.topicsSwapped(a, b);
}

void frmMain::currentIndexChanged(int /*position*/) {
    showCurrent();
}

void frmMain::currentTopicMoved(int /*position*/) {
    selectCurrent();
}

void frmMain::dataChangedToggled(bool dataChanged) {
    tbTools.setImage("Save", dataChanged ? "SaveChanged" : "Save");
    tbTools.setToolTip("Save",
                       dataChanged ? "Save - Current Data Changed" : "Save the Current Data");
    setChanged(dataChanged);
    status_.showDocument();
    if (dataChanged) {
        work_.note();
    } else {
        work_.keep(); // what is saved need not be brought back
    }
}

void frmMain::showCurrent() {
    enableFields(hasTopic());
    fillFields(true);
    selectCurrent();
    pane_.topicShown();
}

void frmMain::selectCurrent() {
    if (hasTopic()) {
        if (folds_.reveal(project_.currentIndex())) {
            showRows();
        }
        lvLevels.select(project_.currentIndex());
    }
    updateCommands();
    status_.update();
}

// ---- The list ----

bool frmMain::showTopic(int position) {
    if (position != project_.currentIndex() && !closeEditor()) {
        selectCurrent();
        return false;
    }
    project_.endTyping();
    project_.setCurrentIndex(position);
    return true;
}

void frmMain::openTopicEditor(int position) {
    if (showTopic(position)) {
        pane_.makeRoomForEditor();
        editor_.show();
        editor_.window()->txtBody.setFocus();
        editor_.window()->activate();
        pane_.topicShown();
    }
}

/// The selected topics where the row is one of several, otherwise that one.
model::Positions frmMain::topicsDragged(int row) const {
    model::Positions rows = selectedTopics();
    return std::find(rows.begin(), rows.end(), row) == rows.end() ? model::Positions{row} : rows;
}

void frmMain::lvLevels_RowDragged(int from, int to) {
    model::Positions rows = topicsDragged(from);
    if (showTopic(from)) {
        if (rows.size() == 1) {
            model::moveTopicTo(project_, to);
        } else {
            model::gatherTopics(project_, rows, to > from ? to : to - 1);
            lvLevels.selectAlso(rows);
        }
    }
    updateCommands();
}

/// Level by level, as the commands do it, as one step.
void frmMain::lvLevels_RowShifted(int row, int levels, bool withBranch) {
    const model::Positions rows = topicsDragged(row);
    if (showTopic(row) && rows.size() > 1) {
        model::shiftTopics(project_, rows, levels);
        lvLevels.selectAlso(rows);
    } else if (project_.currentIndex() == row) {
        const model::UndoStep step(project_, "Change Level");
        const auto shift = levels > 0 ? (withBranch ? model::promoteBranch : model::promoteTopic)
                                      : (withBranch ? model::demoteBranch : model::demoteTopic);
        for (int i = 0; i < std::abs(levels); ++i) {
            shift(project_);
        }
    }
    updateCommands();
}

/// The rows that are not folded away, and that the author looks for.
void frmMain::showRows() {
    const std::vector<bool> hidden = folds_.hidden();
    lvLevels.setHidden(hidden);
    const auto shown = std::count(hidden.begin(), hidden.end(), false);
    lblFiltered.setCaption(folds_.isFiltered()
                               ? std::to_string(shown) + " of " + std::to_string(hidden.size())
                               : Text());
    showStartPage();
}

/// A topic that is about to be folded away is left for the one above it.
void frmMain::lvLevels_FoldClick(int row) {
    const bool fold = !folds_.isFolded(row);
    const int current = project_.currentIndex();
    const bool hidesCurrent =
        fold && current > row && current <= model::branchEnd(project_.outline(), row);
    if (hidesCurrent && !showTopic(row)) {
        return;
    }
    folds_.setFolded(row, fold);
    showRows();
}

void frmMain::mnuViewFoldAll_Click(bool fold) {
    const int current = project_.currentIndex();
    int top = current;
    while (fold && top > 1 && project_.outline().depth(top) > 1) {
        --top;
    }
    if (top == current || showTopic(top)) {
        folds_.setAllFolded(fold);
        showRows();
    }
}

void frmMain::lvLevels_CellEdited(int row, int column, const Text& text) {
    const OutlineRows::Field field = OutlineRows::field(column);
    if (!showTopic(row)) {
        return;
    }
    const bool isInEditor =
        field == &Topic::shortDescription || field == &Topic::keywords || field == &Topic::image;
    if (isInEditor && !closeEditor()) {
        return;
    }
    if (field == &Topic::fileName) {
        links_.beforeTyping();
    }
    model::editField(project_, OutlineRows::undoName(column), field, text);
    finishField();
}

// ---- The filter ----

void frmMain::mnuViewFilter_Click() {
    const bool show = !pnlFilter.isShown();
    pnlFilter.setVisible(show);
    if (show) {
        txtFilter.setFocus();
        txtFilter.selectAll();
        return;
    }
    txtFilter.setText("");
    txtFilter_Change();
    lvLevels.setFocus();
}

void frmMain::txtFilter_Change() {
    folds_.setFilter(txtFilter.text());
    showRows();
    selectCurrent();
}

void frmMain::txtFilter_KeyDown(ui::Key& key) {
    if (key.code == ui::KeyCode::escape) {
        key.handled = true;
        mnuViewFilter_Click();
    } else if (key.code == ui::KeyCode::enter || (key.plain() && key.code == ui::KeyCode::down)) {
        key.handled = true;
        if (showFound()) {
            lvLevels.setFocus();
        }
    }
}

/// Commands should not mean a topic that nobody sees: one that was not looked for gives way to the
/// first one that was. False when there is none, or the author stays.
bool frmMain::showFound() {
    const std::vector<bool> hidden = folds_.hidden();
    const int current = project_.currentIndex();
    if (current > 0 && !hidden[static_cast<std::size_t>(current) - 1]) {
        return true;
    }
    const auto found = std::find(hidden.begin(), hidden.end(), false);
    return found != hidden.end() && showTopic(static_cast<int>(found - hidden.begin()) + 1);
}

// ---- Branches, and several topics ----

model::Positions frmMain::selectedTopics() const {
    return lvLevels.selectedRows();
}

bool frmMain::hasSeveral() const {
    return selectedTopics().size() > 1;
}

void frmMain::moveSelected(int step) {
    model::Positions rows = selectedTopics();
    if (model::moveTopics(project_, rows, step)) {
        lvLevels.selectAlso(rows);
    }
}

bool frmMain::canMoveUp() const {
    return hasSeveral() ? selectedTopics().front() > 1 : model::canMoveUp(project_);
}

bool frmMain::canMoveDown() const {
    return hasSeveral() ? selectedTopics().back() < project_.outline().count()
                        : model::canMoveDown(project_);
}

void frmMain::mnuEditUp_Click() {
    hasSeveral() ? moveSelected(-1) : model::moveTopicUp(project_);
}

void frmMain::mnuEditDown_Click() {
    hasSeveral() ? moveSelected(1) : model::moveTopicDown(project_);
}

/// What is not stored yet comes along, and back.
void frmMain::removeTopics(TextView name, const model::Positions& positions) {
    if (editor_.hasEdits()) {
        editor_.window()->mnuFileSave_Click();
    }
    if (editor_.close()) {
        model::deleteTopics(project_, name, positions);
    }
}

void frmMain::deleteAsked(TextView name, const Text& what, const model::Positions& positions) {
    const ui::Answer answer =
        Prompter::current().ask(this, {"Delete " + what + "?", "Delete Topics", ui::Buttons::yesNo,
                                       ui::QuestionIcon::question});
    if (answer == ui::Answer::yes && links_.mayDelete(positions)) {
        removeTopics(name, positions);
    }
}

void frmMain::mnuBranchDelete_Click() {
    const model::Positions branch = model::branchOf(project_.outline(), project_.currentIndex());
    const Text& title = project_.outline().at(branch.front()).title;
    const std::size_t below = branch.size() - 1;
    Text what = "the Topic '" + (title.empty() ? "<No Title>" : title) + "'";
    if (below > 0) {
        what += below == 1 ? " and the Topic Below It"
                           : " and the " + std::to_string(below) + " Topics Below It";
    }
    deleteAsked("Delete With Subtopics", what, branch);
}

/// The selected topics where there are several, otherwise the current one with its subtopics.
model::Positions frmMain::topicsToCopy() const {
    return hasSeveral() ? selectedTopics()
                        : model::branchOf(project_.outline(), project_.currentIndex());
}

void frmMain::mnuBranchCopy_Click() {
    if (editor_.hasEdits()) {
        editor_.window()->mnuFileSave_Click();
    }
    copied_ = model::copiesOf(project_.outline(), topicsToCopy());
}

void frmMain::mnuBranchCut_Click() {
    mnuBranchCopy_Click();
    removeTopics("Cut Topics", topicsToCopy());
}

void frmMain::mnuBranchPaste_Click() {
    carryOut({EditorFate::isClosed}, [this] {
        if (!model::pasteTopics(project_, copied_)) {
            Prompter::current().tell(this, model::topicLimitMessage("Topics Not Pasted"));
        }
    });
}

} // namespace app
