#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <vector>

#include "app/MainCommands.h"
#include "app/OutlineRows.h"
#include "app/ProjectSession.h"
#include "app/Recovery.h"
#include "app/dlgCompile.h"
#include "app/dlgReport.h"
#include "editor/forms/frmEditBody.h"
#include "generate/GenerationReport.h"
#include "help/forms/frmHelp.h"
#include "import/Synchroniser.h"
#include "import/forms/frmImport.h"
#include "model/ProjectFile.h"
#include "tools/SpellChecker.h"
#include "tools/forms/frmFind.h"
#include "ui/Clipboard.h"
#include "ui/ListView.h"
#include "ui/Panel.h"
#include "ui/Timer.h"
#include "ui/Toolbar.h"
#include "ui/Window.h"

namespace app {

/// The main window: the outline, the fields of the current topic, and every command. It owns the
/// open project, watches it and shows what becomes of it.
class frmMain : public ui::Window, private model::ProjectObserver, private tools::FindHost {
    // Before the controls, which show it.
    ui::Settings& settings_;
    std::filesystem::path programFolder_;
    std::filesystem::path helpFile_;
    model::Project project_;
    OutlineRows rows_{project_};
    ProjectSession session_{*this, project_, settings_};
    Recovery recovery_;

public:
    /// An empty project. Says so when the program's own help is missing from `programFolder`. The
    /// settings are not owned.
    frmMain(ui::Settings& settings, std::filesystem::path programFolder);
    ~frmMain() override;

    model::Project& project() { return project_; }

    /// Opens a project without asking for its name; true when it was read.
    bool openFile(const std::filesystem::path& path);

    /// Makes a topic current, as by a click on its row. False when the author does not want to
    /// leave the one that is being edited.
    bool showTopic(int position);

    /// Opens the editor for a topic's text.
    void openTopicEditor(int position);

    /// Without fields, no topic is current.
    void enableTopicFields(bool enabled);

    /// Keeps unsaved work for a restart at once: the program is about to be ended.
    void keepForRecovery();

    /// To be called once at the start, when the window is shown: asks whether unsaved work of an
    /// earlier run is wanted, and keeps that of this run from now on. True when work came back.
    bool offerRecovery();

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
    ui::ListView lvLevels;
    ui::Label lblStatus{*this, ""};
    ui::Toolbar tbTools{*this};
    ui::Menu mnuList{*this}; ///< the list's context menu
    ui::Timer tmrRecovery;

    // The events of the controls.
    void lvLevels_ItemClick(int row) { showTopic(row); }
    void lvLevels_DblClick(int row) { openTopicEditor(row); }
    void lvLevels_RowDragged(int from, int to);
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
    void tmrRecovery_Tick() { keepForRecovery(); }
    void files_Dropped(const std::vector<std::filesystem::path>& files);

    // The commands, see MainCommands.cpp.
    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileSave_Click(int index); ///< 1 asks for the name
    void mnuFileImportText_Click();
    void mnuFileImportHelp_Click();
    void mnuFileImportProject_Click();
    void mnuFileGenerateHelp_Click();
    void mnuFileGenerateDoc_Click();
    void mnuFileCompileHelp_Click() { compileHelp(false); }
    void mnuFileCompileTo_Click() { compileHelp(true); }
    void mnuFileSynch_Click();
    void mnuFileSpellChkAll_Click();
    void mnuFileProperties_Click();
    void mnuFileMRU_Click(int index);
    void mnuFileExit_Click() { close(); }
    void mnuEditUndo_Click();
    void mnuEditRedo_Click();
    void mnuEditCut_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuEditFind_Click();
    void mnuEditFindNext_Click(); ///< asks for the text where there is none yet
    void mnuEditAdd_Click();
    void mnuEditDelete_Click();
    void mnuEditPromote_Click();
    void mnuEditDemote_Click();
    void mnuEditUp_Click();
    void mnuEditDown_Click();
    void mnuHelpContents_Click();
    void mnuHelpIndex_Click();
    void mnuHelpAbout_Click();
    void mnuListEdit_Click() { openTopicEditor(project_.currentIndex()); }

    // When they can be chosen.
    bool hasTopic() const { return project_.currentIndex() > 0; }
    bool canCut() const;
    bool canCopy() const;
    bool canPaste() const;
    bool canPromote() const;
    bool canDemote() const;
    bool canMoveUp() const;
    bool canMoveDown() const;
    bool canUndo() const { return project_.history().canUndo(); }
    bool canRedo() const { return project_.history().canRedo(); }

    /// Null when no topic is being edited.
    editor::frmEditBody* editor() const { return editor_.get(); }

    /// Of the last command that had one, as long as it is open; null otherwise.
    dlgReport* report() const { return report_.get(); }

    /// Of the last compilation, as long as it is open; null otherwise.
    dlgCompile* compilation() const { return compilation_.get(); }

    /// Where what was compiled was opened; null otherwise.
    help::frmHelp* compiledHelpWindow() const { return compiledHelp_.get(); }

    /// For topics of another project, as long as it is open; null otherwise.
    importer::frmImport* importDialog() const { return import_.get(); }

    /// Null when nothing is being looked for.
    tools::frmFind* findDialog() const { return find_.get(); }

    /// Where the system has no viewer of its own and help was asked for; null otherwise.
    help::frmHelp* helpWindow() const { return help_.get(); }

    void Resize() override;
    bool mayClose() override;
    bool takesFiles(const std::vector<std::filesystem::path>& files) const override;

private:
    /// What the line at the bottom goes on saying until it has come right.
    enum class Trouble { file, input, output, recovery };

    // What happens to the project.
    void topicChanged(int position) override;
    void topicInserting(int position) override { lvLevels.rowInserting(position); }
    void topicInserted(int position) override;
    void topicRemoving(int position) override { lvLevels.rowRemoving(position); }
    void topicRemoved(int position) override;
    void projectReplaced() override;
    void topicsSwapped(int a, int b) override;
    void currentIndexChanged(int position) override;
    void currentTopicMoved(int position) override;
    void dataChangedToggled(bool dataChanged) override;

    // What a search asks for.
    const model::TopicOutline& outline() const override { return project_.outline(); }
    int selectedTopic() const override;
    std::optional<text::Text> editedText(int topic, tools::FindStage stage) const override;
    bool leaveBody() override { return closeEditor(); }
    bool showMatch(const tools::FindMatch& match) override;

    ui::Answer decideRecovery(const Recovery::Work& work, const model::ParsedProject& parsed);
    bool hasEdits() const;
    void noteWork();

    void showHelpContext(int context);
    bool openHelp();

    void restartSearch();
    bool canFindNext() const;
    void find_Closed();
    void editor_Find();
    void editor_FindNext();
    void editor_Raised();
    tools::SpellChecker::Outcome checkTopic(tools::SpellChecker& checker, int position);

    void arrange();
    void connectControls();
    void fillMenus();
    void restoreWindow();
    void storeWindow();

    void updateCommands();
    void updateRecentFiles();
    void updateStatus();
    void showDocument();
    void notice(const text::Text& text);
    void noticeOutcome(bool done);
    static text::Text failureNotice(const std::error_code& error); ///< empty for none
    void setTrouble(Trouble kind, const text::Text& text);
    void readAgainIfChanged();

    void showCurrent();
    void selectCurrent();
    void fillFields(bool always);
    void enableFields(bool enabled);
    bool closeEditor();
    bool storeEditor();
    bool leaveEditorForUndo(const model::UndoRecord& step);
    void showEditor(int position);
    void editField(text::TextView name, const ui::TextBox& box, text::Text model::Topic::*field);
    void leaveField();
    void finishField();
    void moveByKey(ui::Key& key);
    void moveByKeyOrEnter(ui::Key& key);
    void showNeighbour(int step);
    std::optional<std::filesystem::path> chooseWorkshopFile();
    bool refused(const std::optional<model::FileFailure>& fault, const char* command);
    bool mayGenerateInto(const std::filesystem::path& workshopFile, const char* command);
    generate::GenerationReport generateInto(const std::filesystem::path& workshopFile,
                                            const char* title,
                                            const std::function<void(const text::Text&)>& show);
    std::filesystem::path compiledHelp() const;
    void compileHelp(bool ask);
    std::optional<std::filesystem::path> chooseCompiledHelp();
    void compileFrom(const std::filesystem::path& workshopFile,
                     const std::filesystem::path& output);
    void showPlace(const workshop::Message& message);
    void openCompiledHelp(const std::filesystem::path& file);
    bool settleEditedPages(const std::filesystem::path& pageFolder);

    std::filesystem::path importFolder() const;
    std::optional<std::filesystem::path> chooseImport(text::TextView title, const char* pattern,
                                                      const char* filter);
    void importTextFile(const std::filesystem::path& file);
    void importVbProject(const std::filesystem::path& file);
    void finishImport(const importer::ImportOutcome& outcome);
    bool tellConflicts(const importer::Synchronisation& result);
    void showReport(text::TextView caption, ui::HelpContext context, const text::Text& text);

    std::map<Trouble, text::Text> troubles_; ///< what is wrong until it is mended
    bool keepsWork_ = false;                 ///< not while work of an earlier run is in question
    std::chrono::steady_clock::time_point oldestWork_; ///< the first edit that is not kept yet
    ui::Clipboard clipboard_;
    ui::CommandSet commands_{*this, mainCommands(), &lvLevels};
    editor::EditorMemory editorMemory_;
    std::unique_ptr<editor::frmEditBody> editor_;
    std::unique_ptr<dlgReport> report_;
    std::unique_ptr<importer::frmImport> import_;
    text::Text lastFindText_; ///< as long as the program runs
    std::unique_ptr<tools::frmFind> find_;
    std::unique_ptr<help::frmHelp> help_;
    std::unique_ptr<dlgCompile> compilation_;
    std::unique_ptr<help::frmHelp> compiledHelp_;
};

} // namespace app
