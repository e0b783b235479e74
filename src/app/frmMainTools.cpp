#include <algorithm>

#include "app/frmMain.h"
#include "text/TextLines.h"
#include "tools/Dictionary.h"
#include "tools/forms/StartSpelling.h"

// Find and spelling in the main window.
namespace app {

using tools::FindMatch;
using tools::FindStage;
using tools::SpellChecker;

namespace {

ui::TextBox& boxOf(editor::frmEditBody& editor, FindStage stage) {
    return stage == FindStage::body ? editor.txtBody : editor.txtShortDesc;
}

} // namespace

void frmMain::mnuEditFind_Click() {
    leaveField();
    if (find_ == nullptr || !find_->isVisible()) {
        tools::FindHost& host = *this;
        find_ = std::make_unique<tools::frmFind>(*this, host, lastFindText_);
        find_->Closed.connect([this] { find_Closed(); });
        find_->show();
        // Beside the fields and the upper rows of the list, where matches appear.
        find_->setPosition(left() + width() - find_->width(), top() + height() - find_->height());
    }
    find_->ask();
}

void frmMain::find_Closed() {
    const bool inText = find_->match().stage != FindStage::title;
    discard(std::move(find_));
    if (inText && editor_ != nullptr && editor_->isVisible()) {
        editor_->activate(); // to go on with what was found
    }
}

/// Who asks from the midst of a text means the texts.
void frmMain::editor_Find() {
    mnuEditFind_Click();
    find_->includeBodies();
}

void frmMain::editor_FindNext() {
    if (canFindNext()) {
        mnuEditFindNext_Click();
    } else {
        editor_Find();
    }
}

bool frmMain::canFindNext() const {
    return find_ != nullptr && find_->isVisible() && find_->cmdFindNext.isEnabled();
}

void frmMain::mnuEditFindNext_Click() {
    leaveField();
    if (canFindNext()) {
        find_->cmdFindNext_Click();
    } else {
        mnuEditFind_Click();
    }
}

int frmMain::selectedTopic() const {
    return std::max(project_.currentIndex(), 1);
}

/// The editor belongs to the current topic. It counts every line end as two characters, which
/// others may not have.
std::optional<text::Text> frmMain::editedText(int topic, FindStage stage) const {
    if (editor_ != nullptr && editor_->isVisible() && topic == project_.currentIndex()) {
        return boxOf(*editor_, stage).countedText();
    }
    const text::Text& body = project_.outline().at(topic).body;
    if (stage != FindStage::body || !text::hasOtherLineEnds(body)) {
        return {};
    }
    return text::withLineBreaks(body);
}

/// The focus of the window that shows the match goes there; which window has it is left alone, so
/// that Enter in Find means the next match and never what is marked.
bool frmMain::showMatch(const FindMatch& match) {
    if (project_.history().isTyping()) {
        leaveField();
    }
    if (!showTopic(match.topic)) {
        return false;
    }
    lvLevels.select(match.topic);
    const bool inTitle = match.stage == FindStage::title;
    if (!inTitle) {
        showEditor(match.topic);
    }
    ui::TextBox& box = inTitle ? txtTitle : boxOf(*editor_, match.stage);
    const ui::Window& shown = inTitle ? static_cast<const ui::Window&>(*this) : *editor_;
    if (ui::TextBox* before = shown.focusedTextBox(); before != nullptr && before != &box) {
        before->select(before->selection().start, 0); // one match is marked, not two
    }
    box.setFocus();
    box.select(match.start, match.length);
    if (!find_->isActive()) { // from the key for the next match
        inTitle ? activate() : editor_->activate();
    }
    find_->raise();
    find_->uncover(box.selectionPlace());
    return true;
}

/// Both are the main window's, and the one that came to the front last would cover the other.
void frmMain::editor_Raised() {
    if (find_ != nullptr && find_->isVisible()) {
        find_->raise();
    }
}

/// Positions mean other topics from here on.
void frmMain::restartSearch() {
    if (find_ != nullptr) {
        find_->restart();
    }
}

/// Every topic becomes the current one while it is corrected: the rule for letters is about that.
void frmMain::mnuFileSpellChkAll_Click() {
    leaveField();
    if (project_.outline().empty() || !closeEditor()) {
        return;
    }
    const auto checker =
        tools::startSpelling(*this, settings_, tools::dictionaryFolders(programFolder_));
    auto outcome =
        checker == nullptr ? SpellChecker::Outcome::failed : SpellChecker::Outcome::checked;
    {
        const model::UndoStep step(project_, "Spell Check All");
        const int current = project_.currentIndex();
        for (int position = 1;
             position <= project_.outline().count() && outcome == SpellChecker::Outcome::checked;
             ++position) {
            outcome = checkTopic(*checker, position);
        }
        project_.setCurrentIndex(current);
    }
    tools::tellOutcome(*this, outcome, checker.get());
}

SpellChecker::Outcome frmMain::checkTopic(SpellChecker& checker, int position) {
    using model::Topic;
    constexpr std::pair<text::Text Topic::*, const char*> fields[] = {
        {&Topic::title, "title"},
        {&Topic::shortDescription, "short description"},
        {&Topic::body, "text"}};
    for (const auto& [field, name] : fields) {
        const text::Text& written = project_.outline().at(position).*field;
        if (written.empty()) {
            continue;
        }
        const text::Text before = text::withLineBreaks(written); // as it comes back
        text::Text text = before;
        const text::Text place = project_.outline().at(position).title + " (" + name + ')';
        const SpellChecker::Outcome outcome = checker.check(text, place);
        if (text != before) {
            project_.setCurrentIndex(position);
            project_.setField(position, field, text);
            project_.setField(position, &Topic::status, "C");
            project_.markChanged(model::statusChanged);
        }
        if (outcome != SpellChecker::Outcome::checked) {
            return outcome;
        }
    }
    return SpellChecker::Outcome::checked;
}

} // namespace app
