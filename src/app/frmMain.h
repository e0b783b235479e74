#pragma once

#include "app/BookCommands.h"
#include "app/CompileCommand.h"
#include "app/FindCommand.h"
#include "app/GenerateCommands.h"
#include "app/ImportCommands.h"
#include "app/LinkFollower.h"
#include "app/MainCommands.h"
#include "app/OutlineRows.h"
#include "app/ProgramHelp.h"
#include "app/ReplaceCommand.h"
#include "app/SpellCommand.h"
#include "app/StartPage.h"
#include "app/StatusLine.h"
#include "app/SynchroniseCommand.h"
#include "app/TopicPane.h"
#include "app/WebSiteCommand.h"
#include "app/WorkKeeper.h"
#include "generate/TopicSigns.h"
#include "model/BranchEditing.h"
#include "model/OutlineEditing.h"
#include "ui/Clipboard.h"
#include "ui/Key.h"
#include "ui/ListView.h"
#include "ui/Panel.h"
#include "ui/Toolbar.h"

namespace app {

/// The main window: the outline, the fields of the current topic, and every command. It owns the
/// open project, watches it and shows what becomes of it. Others carry out what is more than a call
/// of a function over the project.
class frmMain final : public ui::Window, private model::ProjectObserver, private CommandHost {
    // Before the controls, which show it.
    ui::Settings& settings_;
    model::Project project_;
    OutlineFolds folds_{project_.outline()};
    generate::TopicSigns signs_{project_.outline()};
    OutlineRows rows_{project_, folds_, signs_};

public:
    /// An empty project. Says so when the program's own help is missing from `programFolder`. The
    /// settings are not owned.
    frmMain(ui::Settings& settings, const std::filesystem::path& programFolder);
    ~frmMain() override;

    model::Project& project() { return project_; }

    /// Opens a project without asking for its name; true when it was read.
    bool openFile(const std::filesystem::path& path);

    bool showTopic(int position) override;

    /// Opens the editor for a topic's text.
    void openTopicEditor(int position);

    ui::Panel pnlFields{*this};
    ui::TextBox txtLevel{pnlFields};
    ui::TextBox txtTitle{pnlFields};
    ui::TextBox txtFilename{pnlFields};
    ui::TextBox txtHelpID{pnlFields};
    ui::TextBox txtHelpNum{pnlFields};
    ui::Label lblLevel{pnlFields, "&Level", &txtLevel};
    ui::Label lblTitle{pnlFields, "Topic &Title", &txtTitle};
    ui::Label lblFilename{pnlFields, "Topic File&name", &txtFilename};
    ui::Label lblHelpID{pnlFields, "HelpCont &ID", &txtHelpID};
    ui::Label lblHelpNum{pnlFields, "HelpC&ont #", &txtHelpNum};
    ui::Splitter splParts{*this};
    ui::Panel pnlOutline{splParts};
    ui::Panel pnlFilter{static_cast<ui::Container&>(pnlOutline)};
    ui::TextBox txtFilter{pnlFilter};
    ui::Label lblFilter{pnlFilter, "Filte&r:", &txtFilter};
    ui::Label lblFiltered{pnlFilter, ""};
    ui::ListView lvLevels;
    StartPage startPage{*this}; ///< over the list, while that is empty
    ui::Label lblStatus{*this, ""};
    ui::Toolbar tbTools{*this};
    ui::Menu mnuList{*this}; ///< the list's context menu

    /// Beside the outline, where the window is wide enough.
    TopicPane& topicPane() { return pane_; }

    // The events of the controls.
    void splParts_Moved();
    void lvLevels_ItemClick(int row) { showTopic(row); }
    void lvLevels_DblClick(int row) { openTopicEditor(row); }
    void lvLevels_RowDragged(int from, int to);
    void lvLevels_RowShifted(int row, int levels, bool withBranch);
    void lvLevels_FoldClick(int row);
    void lvLevels_CellEdited(int row, int column, const text::Text& text);
    void txtFilter_Change();
    void txtFilter_KeyDown(ui::Key& key);
    void txtLevel_KeyDown(ui::Key& key) { moveByKey(key); }
    void txtTitle_Change();
    void txtTitle_GotFocus();
    void txtTitle_LostFocus() { finishField(); }
    void txtTitle_KeyDown(ui::Key& key);
    void txtFilename_Change();
    void txtFilename_GotFocus();
    void txtFilename_LostFocus() { finishField(); }
    void txtFilename_KeyDown(ui::Key& key) { moveByKey(key); }
    void txtHelpID_Change();
    void txtHelpID_KeyDown(ui::Key& key) { moveByKeyOrEnter(key); }
    void txtHelpNum_Change();
    void txtHelpNum_KeyDown(ui::Key& key) { moveByKeyOrEnter(key); }
    void txtHelpID_LostFocus() { project_.endTyping(); }
    void txtHelpNum_LostFocus() { project_.endTyping(); }
    void files_Dropped(const std::vector<std::filesystem::path>& files);

    // The commands, see MainCommands.cpp.
    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileSave_Click(int index); ///< 1 asks for the name
    void mnuFileImportText_Click() { imports_.importText(); }
    void mnuFileImportHelp_Click() { imports_.importTopics(); }
    void mnuFileImportHelpFile_Click() { imports_.importHelp(); }
    void mnuFileImportPages_Click() { imports_.importPages(); }
    void mnuFileImportProject_Click() { imports_.importVbProject(); }
    void mnuFileGenerateHelp_Click() { generation_.generateHelp(); }
    void mnuFileGenerateDoc_Click() { generation_.generateDocumentation(); }
    void mnuFileGenerateEpub_Click() { books_.generateEpub(); }
    void mnuFileGeneratePdf_Click() { books_.generatePdf(); }
    void mnuFileCompileHelp_Click() { compilation_.compile(ui::isShiftDown()); }
    void mnuFileCompileTo_Click() { compilation_.compile(true); }
    void mnuFileGenerateWeb_Click() { webSite_.generate(false); }
    void mnuFileGenerateWebTo_Click() { webSite_.generate(true); }
    void mnuFileSynch_Click() { synchronisation_.synchronise(); }
    void mnuFileSpellChkAll_Click() { spelling_.checkAll(); }
    void mnuFileProperties_Click();
    void mnuFileMRU_Click(int index);
    void mnuFileExit_Click() { close(); }
    void mnuEditUndo_Click();
    void mnuEditRedo_Click();
    void mnuEditCut_Click() { focusedTextBox()->cut(); }
    void mnuEditCopy_Click() { focusedTextBox()->copy(); }
    void mnuEditPaste_Click() { focusedTextBox()->paste(); }
    void mnuEditFind_Click() { find_.find(); }
    void mnuEditFindNext_Click() { find_.findNext(); }
    void mnuEditReplace_Click() { replace_.replace(); }
    void mnuEditAdd_Click();
    void mnuEditDelete_Click();
    void mnuEditPromote_Click() { model::promoteTopic(project_); }
    void mnuEditDemote_Click() { model::demoteTopic(project_); }
    void mnuEditUp_Click();
    void mnuEditDown_Click();
    void mnuBranchPromote_Click() { model::promoteBranch(project_); }
    void mnuBranchDemote_Click() { model::demoteBranch(project_); }
    void mnuBranchUp_Click() { model::moveBranchUp(project_); }
    void mnuBranchDown_Click() { model::moveBranchDown(project_); }
    void mnuBranchCut_Click();
    void mnuBranchCopy_Click();
    void mnuBranchPaste_Click();
    void mnuBranchDelete_Click();
    void mnuViewFilter_Click();
    void mnuViewFoldAll_Click(bool fold);
    void mnuViewReport_Click() { lastReport_.reopen(); }
    void mnuFileGenerateAgain_Click() { generation_.generateAgain(); }
    void mnuViewTopicPane_Click();
    void mnuViewEditBeside_Click();
    void mnuViewPart_Click(int step);
    void mnuViewStoreUnasked_Click();
    void mnuHelpContents_Click() { help_.showPage(helpContext()); }
    void mnuHelpIndex_Click() { help_.showIndex(); }
    void mnuHelpAbout_Click();
    void mnuListEdit_Click() { openTopicEditor(project_.currentIndex()); }

    // When they can be chosen.
    bool hasTopic() const { return project_.currentIndex() > 0; }
    bool canCut() const;
    bool canCopy() const;
    bool canPaste() const;
    bool canPromote() const { return model::canPromote(project_); }
    bool canDemote() const { return model::canDemote(project_); }
    bool canMoveUp() const;
    bool canMoveDown() const;
    bool canPromoteBranch() const { return model::canPromoteBranch(project_); }
    bool canDemoteBranch() const { return model::canDemoteBranch(project_); }
    bool canMoveBranchUp() const { return model::canMoveBranchUp(project_); }
    bool canMoveBranchDown() const { return model::canMoveBranchDown(project_); }
    bool canPasteTopics() const { return !copied_.empty(); }
    bool canReopenReport() const { return lastReport_.canReopen(); }
    bool canGenerateAgain() const { return generation_.canGenerateAgain(); }
    bool canUndo() const { return project_.history().canUndo(); }
    bool canRedo() const { return project_.history().canRedo(); }

    WorkKeeper& workKeeper() { return work_; }

    /// Null when no topic is being edited.
    editor::frmEditBody* editor() const { return editor_.window(); }

    void Resize() override;
    bool mayClose() override;
    bool takesFiles(const std::vector<std::filesystem::path>& files) const override;

private:
    // What happens to the project.
    void topicChanged(int position) override;
    void topicInserting(int position) override { lvLevels.rowInserting(position); }
    void topicInserted(int position) override;
    void topicRemoving(int position) override { lvLevels.rowRemoving(position); }
    void topicRemoved(int position) override;
    void projectReplacing() override { lvLevels.rowsReplacing(); }
    void projectReplaced() override;
    void topicsSwapped(int a, int b) override;
    void currentIndexChanged(int position) override;
    void currentTopicMoved(int position) override;
    void dataChangedToggled(bool dataChanged) override;

    // What those who carry out commands ask for.
    ui::Window& window() override { return *this; }
    StatusLine& status() override { return status_; }
    void carryOut(const Precondition& before, const std::function<void()>& act) override;
    bool closeEditor() override { return editor_.close(); }
    void leaveField() override;
    void updateCommands() override;

    bool mayBegin(const Precondition& before);
    bool runSession(EditorFate editor, const std::function<bool()>& act);
    void noticeOutcome(bool done);
    void readAgainIfChanged();
    bool wantsEveryCharacter(ui::Window& dialog, const model::ProjectOptions& edited) const;

    static constexpr int widthForPane = 11700;
    static constexpr int usualWidthForPane = 18000;

    void arrange();
    void connectControls();
    void fillMenus();
    void restoreWindow();
    void storeWindow();

    void updateRecentFiles();
    void rowsChanged();
    void showCurrent();
    void selectCurrent();
    void fillFields(bool always);
    void enableFields(bool enabled);
    bool leaveEditorForUndo(const model::UndoRecord& step);
    void editField(text::TextView name, const ui::TextBox& box, text::Text model::Topic::*field);
    void finishField();
    void showParts();
    bool isInOutline() const;
    model::Positions topicsDragged(int row) const;
    void showStartPage();
    void growForStart(int missing);
    void openExample();
    void showRows();
    bool showFound();
    model::Positions selectedTopics() const;
    bool hasSeveral() const;
    model::Positions topicsToCopy() const;
    void moveSelected(int step);
    void removeTopics(text::TextView name, const model::Positions& positions);
    void deleteAsked(text::TextView name, const text::Text& what,
                     const model::Positions& positions);
    void showTopicOfReport(text::TextView line, bool page);
    void moveByKey(ui::Key& key);
    void moveByKeyOrEnter(ui::Key& key);
    void showNeighbour(int step);
    void editNeighbour(int step);

    int firstHeight_ = 0; ///< at the first start, until the window has another; 0 at others
    ui::Clipboard clipboard_;
    std::vector<model::Topic> copied_; ///< to be pasted; never on the system's clipboard
    ui::CommandSet commands_{*this, mainCommands(), &lvLevels};
    StatusLine status_{*this, lblStatus, project_};
    ProjectSession session_{*this, project_, settings_};
    LastReport lastReport_{*this};
    TopicEditor editor_;
    TopicPane pane_;
    WorkKeeper work_;
    ProgramHelp help_;
    GenerateCommands generation_;
    BookCommands books_;
    CompileCommand compilation_;
    WebSiteCommand webSite_;
    ImportCommands imports_;
    SynchroniseCommand synchronisation_{*this, project_, session_, lastReport_};
    FindCommand find_{*this, project_, editor_, lvLevels, txtTitle};
    LinkFollower links_{*this, project_};
    ReplaceCommand replace_{*this, project_, editor_, txtTitle};
    SpellCommand spelling_;
};

} // namespace app
