#include "app/frmMain.h"

#include <algorithm>
#include <sstream>

#include "model/Helper.h"
#include "model/OutlineEditing.h"
#include "platform/Version.h"
#include "ui/HelpContext.h"
#include "ui/ShowHelp.h"
#include "ui/WindowPlace.h"

namespace app {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;
using ui::Prompter;

frmMain::frmMain(ui::Settings& settings, fs::path programFolder)
    : Window(Kind::main, "frmMain"), settings_(settings), programFolder_(std::move(programFolder)),
      recovery_(settings.folder()), lvLevels(*this, OutlineRows::columns(), rows_) {
    arrange();
    fillMenus();
    connectControls();
    restoreWindow();
    const TextView full = platform::version;
    setCaption("HTML Topicsmith - " + Text(full.substr(0, full.rfind('.'))));
    helpFile_ = programFolder_ / "HTML Topicsmith.chm";
    if (!model::fileExists(helpFile_)) {
        Prompter::current().ask(this, {"WARNING: Missing Help File", "HTML Topicsmith",
                                       ui::Buttons::ok, ui::QuestionIcon::information});
    }
    setHelpContext(ui::mainWindowHelp);
    ui::setHelp([this](int context) { showHelpContext(context); });
    project_.setObserver(this);
    session_.recentFilesChanged = [this] { updateRecentFiles(); };
    session_.loadRecentFiles();
    showCurrent();
    project_.markSaved();
    lvLevels.setFocus();
}

frmMain::~frmMain() {
    project_.setObserver(nullptr);
    ui::setHelp({});
    FocusChange.connect({}); // the focus goes as the controls do
}

bool frmMain::openFile(const fs::path& path) {
    leaveField();
    if (!closeEditor()) {
        return false;
    }
    session_.setPendingOpenPath(path);
    const bool opened = session_.openProject();
    noticeOutcome(opened);
    return opened;
}

// ---- The window ----

void frmMain::arrange() {
    setMinimumSize(8850, 4680);
    txtLevel.setReadOnly();
    txtLevel.setFixedWidth(1350);
    txtFilename.setForeignCharacters(ui::ForeignCharacters::refused);
    txtHelpID.setForeignCharacters(ui::ForeignCharacters::refused);
    txtHelpNum.setForeignCharacters(ui::ForeignCharacters::refused);
    txtHelpNum.acceptOnly("0123456789.");
    lvLevels.setAccessibleName("Topics");
    lvLevels.setSearchColumn(OutlineRows::titleColumn);
    lvLevels.setRowsDraggable();
    lblStatus.setShortened();

    auto fields = ui::Layout::row();
    fields.withoutMargins().setSpacing(90);
    const auto addField = [&fields](ui::Label& label, ui::TextBox& box, int stretch) {
        auto column = ui::Layout::column();
        column.setSpacing(15).add(label).add(box);
        fields.add(std::move(column), stretch);
    };
    addField(lblLevel, txtLevel, 0);
    addField(lblTitle, txtTitle, 6);
    addField(lblFilename, txtFilename, 5);
    addField(lblHelpID, txtHelpID, 5);
    addField(lblHelpNum, txtHelpNum, 3);
    pnlFields.setLayout(std::move(fields));
}

void frmMain::connectControls() {
    UI_ON(lvLevels, ItemClick);
    UI_ON(lvLevels, DblClick);
    UI_ON(lvLevels, RowDragged);
    UI_ON(txtLevel, KeyDown);
    UI_ON(txtTitle, Change);
    UI_ON(txtTitle, GotFocus);
    UI_ON(txtTitle, LostFocus);
    UI_ON(txtTitle, KeyDown);
    UI_ON(txtFilename, Change);
    UI_ON(txtFilename, GotFocus);
    UI_ON(txtFilename, LostFocus);
    UI_ON(txtFilename, KeyDown);
    UI_ON(txtHelpID, Change);
    UI_ON(txtHelpID, LostFocus);
    UI_ON(txtHelpID, KeyDown);
    UI_ON(txtHelpNum, Change);
    UI_ON(txtHelpNum, LostFocus);
    UI_ON(txtHelpNum, KeyDown);
    for (ui::TextBox* box : {&txtLevel, &txtTitle, &txtFilename, &txtHelpID, &txtHelpNum}) {
        box->SelectionChange.connect([this] { updateCommands(); });
        box->leaveUndoToWindow();
        box->StepBegins.connect([this] { project_.endTyping(); });
    }
    clipboard_.Change.connect([this] { updateCommands(); });
    FocusChange.connect([this] { updateCommands(); });
    Activated.connect([this] { readAgainIfChanged(); });
    UI_ON(tmrRecovery, Tick);
    FilesDropped.connect([this](const std::vector<fs::path>& files) { files_Dropped(files); });
}

void frmMain::Resize() {
    if (state() == ui::WindowState::minimised) {
        return;
    }
    constexpr int margin = 180;
    constexpr int gap = 60;
    constexpr int statusHeight = 270;
    const int bottom = height() - contentTop() - statusHeight;
    const int listWidth = width() - 375;
    const int listHeight = height() - 1785;
    const int fieldsHeight = pnlFields.minimumHeight();
    // Large fonts take their room from the list.
    const int listTop = std::max(bottom - listHeight, fieldsHeight + 2 * gap);
    pnlFields.place(margin, (listTop - fieldsHeight) / 2, listWidth, fieldsHeight);
    lvLevels.place(margin, listTop, listWidth, bottom - listTop);
    lblStatus.place(margin, bottom, listWidth, statusHeight);
}

void frmMain::restoreWindow() {
    ui::restoreSize(*this, settings_, "Main", 9650, 5980);
    const int state = settings_.number("Main", "Window State", 0);
    if (state == 1 || state == 2) {
        setState(static_cast<ui::WindowState>(state));
    }
    std::istringstream stored(settings_.get("Main", "Column Widths"));
    std::vector<int> widths;
    for (int width = 0; stored >> width;) {
        widths.push_back(std::clamp(width, 300, 30000));
    }
    lvLevels.setColumnWidths(widths);
}

void frmMain::storeWindow() {
    if (state() != ui::WindowState::minimised) {
        settings_.setNumber("Main", "Window State", static_cast<int>(state()));
    }
    if (state() == ui::WindowState::normal) {
        settings_.setNumber("Main", "Height", height());
        settings_.setNumber("Main", "Width", width());
    }
    std::string widths;
    for (const int width : lvLevels.columnWidths()) {
        widths += std::to_string(width) + ' ';
    }
    settings_.set("Main", "Column Widths", widths);
}

bool frmMain::mayClose() {
    leaveField();
    // The editor first: what is saved there is a change of the project.
    if (!closeEditor()) {
        return false;
    }
    if (!session_.offerSave()) {
        noticeOutcome(false);
        return false;
    }
    storeWindow();
    session_.saveRecentFiles();
    tmrRecovery.stop();
    recovery_.forget();
    closeAllBut(*this);
    return true;
}

// ---- Commands ----

void frmMain::fillMenus() {
    commands_.fillMenuBar(menuBar());
    commands_.fillToolbar(tbTools, toolbarKeys());
    commands_.fillMenu(mnuList, listMenuCommands());
    lvLevels.setContextMenu(mnuList);
    commands_.BeforeRun.connect([this] { updateStatus(); });
    commands_.AfterRun.connect([this] { updateCommands(); });
}

void frmMain::updateCommands() {
    commands_.update();
    const model::UndoHistory& history = project_.history();
    commands_.setSubject("mnuEditUndo", history.undoName());
    commands_.setSubject("mnuEditRedo", history.redoName());
}

void frmMain::updateRecentFiles() {
    int slot = 0;
    for (ui::Command* command : commands_.all("mnuFileMRU")) {
        const bool used = slot < session_.recentFiles().count();
        command->setVisible(used);
        if (used) {
            command->setPlainCaption(session_.recentFiles().caption(slot));
        }
        ++slot;
    }
    commands_.menu("mnuFile")->setVisible("mnuFileBar3", session_.recentFiles().count() > 0);
}

// ---- The project ----

void frmMain::topicChanged(int position) {
    noteWork();
    lvLevels.rowChanged(position);
    if (position == project_.currentIndex()) {
        fillFields(false);
    }
}

void frmMain::topicInserted(int /*position*/) {
    noteWork();
    restartSearch();
    lvLevels.rowInserted();
    selectCurrent();
}

void frmMain::topicRemoved(int /*position*/) {
    noteWork();
    restartSearch();
    lvLevels.rowRemoved();
    selectCurrent();
}

void frmMain::projectReplaced() {
    restartSearch();
    lvLevels.reset();
    showCurrent();
}

void frmMain::topicsSwapped(int a, int b) {
    if (find_ != nullptr) {
        find_->topicsSwapped(a, b);
    }
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
    showDocument();
    if (dataChanged) {
        noteWork();
    } else {
        keepForRecovery(); // what is saved need not be brought back
    }
}

void frmMain::showCurrent() {
    enableFields(hasTopic());
    fillFields(true);
    selectCurrent();
}

void frmMain::selectCurrent() {
    if (hasTopic()) {
        lvLevels.select(project_.currentIndex());
    }
    updateCommands();
    updateStatus();
}

void frmMain::updateStatus() {
    const bool isTroubled =
        std::any_of(troubles_.begin(), troubles_.end(),
                    [](const auto& trouble) { return !trouble.second.empty(); });
    const int count = project_.outline().count();
    if (isTroubled) {
        notice({});
    } else if (count == 0) {
        notice("No topics");
    } else {
        notice("Topic " + std::to_string(project_.currentIndex()) + " of " + std::to_string(count));
    }
}

/// As long as nothing is open, the window shows the program's name alone.
void frmMain::showDocument() {
    const bool any = project_.hasFile() || project_.dataChanged();
    setDocument(any ? project_.projectFileTitle() : Text());
}

void frmMain::notice(const Text& text) {
    showDocument();
    Text line = project_.projectFileTitle();
    const auto add = [&line](const Text& part) { line += part.empty() ? part : "     " + part; };
    for (const auto& trouble : troubles_) {
        add(trouble.second);
    }
    add(text);
    lblStatus.setCaption(line);
}

/// An empty text for what has come right.
void frmMain::setTrouble(Trouble kind, const Text& text) {
    const bool isNews = troubles_[kind] != text;
    if (!text.empty() && (isNews || kind != Trouble::recovery)) { // which is tried again and again
        Prompter::current().beep();
    }
    if (isNews) {
        troubles_[kind] = text;
        updateStatus();
    }
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
        showEditor(position);
        editor_->activate();
    }
}

/// The topic must be the current one. The focus stays where it is.
void frmMain::showEditor(int position) {
    if (editor_ != nullptr && !editor_->isVisible()) {
        // Just closed, perhaps by a command of its own that is still running.
        editor_->Closed.connect({});
        discard(std::move(editor_));
    }
    if (editor_ == nullptr) {
        editor_ = std::make_unique<editor::frmEditBody>(*this, project_, settings_, editorMemory_,
                                                        programFolder_);
        editor_->Closed.connect([this] {
            discard(std::move(editor_));
            noteWork(); // what was not saved in it is not wanted
        });
        editor_->Find.connect([this] { editor_Find(); });
        editor_->Edited.connect([this] { noteWork(); });
        editor_->FindNext.connect([this] { editor_FindNext(); });
        editor_->Raised.connect([this] { editor_Raised(); });
        editor_->setCaption("Edit Topic - " + project_.outline().at(position).title);
    }
    editor_->showUnfocused();
}

/// The editor belongs to the current topic; whoever leaves that asks here first. False when the
/// author wants to go on editing.
bool frmMain::closeEditor() {
    return editor_ == nullptr || !editor_->isVisible() || editor_->close();
}

/// For commands that take the whole project while the editor stays open. False when the author
/// cancels.
bool frmMain::storeEditor() {
    return editor_ == nullptr || !editor_->isVisible() || editor_->offerSave();
}

void frmMain::lvLevels_RowDragged(int from, int to) {
    if (showTopic(from)) {
        model::moveTopicTo(project_, to);
    }
    updateCommands();
}

} // namespace app
