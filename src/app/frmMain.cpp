#include "app/frmMain.h"

#include <algorithm>
#include <sstream>

#include "app/Example.h"
#include "app/FileKind.h"
#include "platform/Version.h"
#include "ui/HelpContext.h"
#include "ui/Prompter.h"
#include "ui/WindowPlace.h"

namespace app {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;

frmMain::frmMain(ui::Settings& settings, const fs::path& programFolder)
    : Window(Kind::main, "frmMain"), settings_(settings),
      lvLevels(pnlOutline, OutlineRows::columns(), rows_),
      editor_(*this, project_, settings, programFolder),
      pane_(splParts, project_, editor_, settings),
      work_(*this, project_, session_, editor_, settings.folder()),
      help_(*this, settings, programFolder),
      generation_(*this, project_, session_, lastReport_, settings, programFolder),
      books_(*this, project_, session_, lastReport_, programFolder),
      compilation_(*this, project_, session_, settings, generation_, lastReport_),
      webSite_(*this, project_, session_, settings, generation_, lastReport_, programFolder),
      imports_(*this, project_, session_, settings, lastReport_),
      spelling_(*this, project_, editor_, settings, programFolder) {
    arrange();
    fillMenus();
    connectControls();
    restoreWindow();
    editor_.setStoresUnasked(settings.number("Main", "Store Unasked", 0) != 0);
    const TextView full = platform::version;
    setCaption("HTML Topicsmith - " + Text(full.substr(0, full.rfind('.'))));
    help_.tellWhenMissing();
    setHelpContext(ui::mainWindowHelp);
    project_.setObserver(this);
    session_.recentFilesChanged = [this] { updateRecentFiles(); };
    session_.loadRecentFiles();
    showRows();
    showCurrent();
    project_.markSaved();
    lvLevels.setFocus();
}

frmMain::~frmMain() {
    project_.setObserver(nullptr);
    FocusChange.disconnect(); // the focus goes as the controls do
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
    lvLevels.allowSeveral();
    lvLevels.setEditable(OutlineRows::editableColumns());
    lvLevels.setFillColumns(OutlineRows::fillColumns());
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

    auto outline = ui::Layout::column();
    auto filter = ui::Layout::row();
    filter.withoutMargins().add(lblFilter).add(txtFilter, 1).add(lblFiltered);
    pnlFilter.setLayout(std::move(filter));
    pnlFilter.setVisible(false);
    outline.withoutMargins().setSpacing(60).add(pnlFilter).add(lvLevels, 1);
    pnlOutline.setLayout(std::move(outline));
}

void frmMain::connectControls() {
    // The page goes as topics come; the focus must not go to a field then, on its way elsewhere.
    const auto onStart = [this](ui::Event<>& event, void (frmMain::*act)()) {
        event.connect([this, act] {
            lvLevels.setFocus();
            (this->*act)();
        });
    };
    onStart(startPage.Add, &frmMain::mnuEditAdd_Click);
    onStart(startPage.Open, &frmMain::mnuFileOpen_Click);
    onStart(startPage.Text, &frmMain::mnuFileImportText_Click);
    onStart(startPage.Project, &frmMain::mnuFileImportProject_Click);
    onStart(startPage.Help, &frmMain::mnuFileImportHelpFile_Click);
    onStart(startPage.Example, &frmMain::openExample);
    startPage.Recent.connect([this](int slot) {
        lvLevels.setFocus();
        mnuFileMRU_Click(slot);
    });
    UI_ON(splParts, Moved);
    pane_.EditorLeft.connect([this] { lvLevels.setFocus(); });
    editor_.Neighbour.connect([this](int step) { editNeighbour(step); });
    UI_ON(lvLevels, ItemClick);
    UI_ON(lvLevels, DblClick);
    UI_ON(lvLevels, RowDragged);
    UI_ON(lvLevels, RowShifted);
    UI_ON(lvLevels, FoldClick);
    UI_ON(lvLevels, CellEdited);
    UI_ON(txtFilter, Change);
    UI_ON(txtFilter, KeyDown);
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
    Activated.connect([this] {
        signs_.forgetFiles(); // others may have come or gone meanwhile
        readAgainIfChanged();
    });
    lastReport_.TopicAsked.connect([this](TextView line) { showTopicOfReport(line, false); });
    lastReport_.PageAsked.connect([this](TextView line) { showTopicOfReport(line, true); });
    FilesDropped.connect([this](const std::vector<fs::path>& files) { files_Dropped(files); });
}

void frmMain::Resize() {
    if (state() == ui::WindowState::minimised) {
        return;
    }
    constexpr int margin = 180;
    constexpr int gap = 60;
    const int statusHeight = std::max(270, lblStatus.minimumHeight());
    const int bottom = height() - contentTop() - statusHeight;
    const int listWidth = width() - 375;
    const int listHeight = height() - 1785;
    const int fieldsHeight = pnlFields.minimumHeight();
    // Large fonts take their room from the list.
    const int listTop = std::max(bottom - listHeight, fieldsHeight + 2 * gap);
    pnlFields.place(margin, (listTop - fieldsHeight) / 2, listWidth, fieldsHeight);
    splParts.place(margin, listTop, listWidth, bottom - listTop);
    showParts();
    constexpr int captions = 420;
    const int startWidth = pane_.isShown() ? splParts.firstWidth() : listWidth;
    const int startHeight = bottom - listTop - captions - gap;
    startPage.place(margin + gap, listTop + captions, startWidth - 2 * gap, startHeight);
    lblStatus.place(margin, bottom, listWidth, statusHeight);
    growForStart(startPage.heightFor(startWidth - 2 * gap) - startHeight);
}

/// The size of the first start is meant for usual fonts; in a large one, what can be done first
/// needs more. Another size is the author's.
void frmMain::growForStart(int missing) {
    if (height() == firstHeight_ && startPage.isShown() && missing > 0) {
        setSize(width(), std::min(height() + missing, screenHeight()));
    }
}

/// The pane comes when the window is made wide enough for both, and goes again unless a text is
/// being edited in it.
void frmMain::showParts() {
    const bool isEditing = pane_.hasEditor() && editor_.isOpen();
    const bool shown = pane_.isWanted() && (width() >= widthForPane || isEditing);
    if (shown != pane_.isShown()) {
        pane_.setShown(shown);
        if (shown) {
            splParts.setFirstWidth(settings_.number("Main", "Outline Width", width() / 2));
        }
        updateCommands();
    }
}

void frmMain::showStartPage() {
    const bool isEmpty = project_.outline().empty();
    if (isEmpty) {
        startPage.update(project_.hasFile(), session_.recentFiles());
    }
    startPage.setVisible(isEmpty);
}

void frmMain::openExample() {
    if (runSession(EditorFate::isClosed, [this] { return session_.newProject(); })) {
        project_.replace(exampleOutline(), project_.options(), project_.projectPath());
        lvLevels.setFocus();
    }
}

void frmMain::splParts_Moved() {
    settings_.setNumber("Main", "Outline Width", splParts.firstWidth());
    Resize();
}

void frmMain::restoreWindow() {
    ui::restoreSize(*this, settings_, "Main", 9650, 5980);
    firstHeight_ = settings_.number("Main", "Height", 0) == 0 ? height() : 0;
    ui::restoreState(*this, settings_, "Main");
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
    pane_.storeSettings();
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
    work_.stop();
    closeAllBut(*this);
    return true;
}

// ---- Commands ----

void frmMain::fillMenus() {
    commands_.fillMenuBar(menuBar());
    commands_.fillToolbar(tbTools, toolbarKeys());
    commands_.fillMenu(mnuList, listMenuCommands());
    lvLevels.setContextMenu(mnuList);
    commands_.BeforeRun.connect([this] { status_.update(); });
    commands_.AfterRun.connect([this] { updateCommands(); });
}

void frmMain::updateCommands() {
    const text::CodePage codePage = project_.options().codePage();
    for (ui::TextBox* box : {&txtFilename, &txtHelpID}) {
        box->setCodePage(codePage); // which undoing changes, too
    }
    signs_.setFolder(project_.hasFile() ? project_.projectPath().parent_path() : fs::path());
    commands_.update();
    const model::UndoHistory& history = project_.history();
    commands_.setSubject("mnuEditUndo", history.undoName());
    commands_.setSubject("mnuEditRedo", history.redoName());
    commands_.setChecked("mnuViewTopicPane", pane_.isShown());
    commands_.setChecked("mnuViewEditBeside", pane_.hasEditor());
    commands_.setChecked("mnuViewStoreUnasked", editor_.storesUnasked());
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
    showStartPage();
}

// ---- Dropped files ----

bool frmMain::takesFiles(const std::vector<fs::path>& files) const {
    return std::any_of(files.begin(), files.end(), [](const fs::path& file) {
        return hasExtension(file, ".tsp") || ImportCommands::takes(file);
    });
}

/// A project is opened; anything that can be imported is, into that project where there is one.
void frmMain::files_Dropped(const std::vector<fs::path>& files) {
    const auto project = std::find_if(files.begin(), files.end(), [](const fs::path& file) {
        return hasExtension(file, ".tsp");
    });
    if (project == files.end() || openFile(*project)) {
        imports_.importDropped(files);
    }
}

} // namespace app
