#pragma once

#include <array>
#include <functional>

#include "editor/Passage.h"
#include "editor/ProjectNames.h"
#include "editor/References.h"
#include "editor/forms/EditorCommands.h"
#include "editor/forms/FindBar.h"
#include "editor/forms/Pasting.h"
#include "editor/forms/TemplateCache.h"
#include "editor/forms/WritingAids.h"
#include "editor/forms/frmPreview.h"
#include "model/Project.h"
#include "ui/Clipboard.h"
#include "ui/GridChoice.h"
#include "ui/HtmlBox.h"
#include "ui/ImageCombo.h"
#include "ui/Panel.h"
#include "ui/Settings.h"
#include "ui/Timer.h"
#include "ui/Window.h"

namespace editor {

/// What the editor keeps from one topic to the next, as long as the program runs.
struct EditorMemory {
    TemplateCache templates;
    GraphicOptions graphic;
    LiveDictionary words;
};

/// Edits the body, keywords, short description and image of the project's current topic. Edits
/// stay here until they are saved; the window must be closed before another topic becomes current.
class frmEditBody : public ui::Window {
    // Before the controls.
    model::Project& project_;
    ui::Settings& settings_;
    EditorMemory& memory_;
    std::filesystem::path programFolder_;

public:
    static constexpr const char* windowName = "frmEditBody";

    /// What mnuTagChars_Click inserts.
    enum SpecialCharacter {
        nbsp,
        apostrophe,
        quote,
        less,
        greater,
        copyright,
        trademark,
        registered
    };

    /// What mnuTableChange_Click does to the table at the caret.
    enum TableChange { rowAdded, rowRemoved, columnAdded, columnRemoved };

    /// There must be a current topic. Nothing is owned. The preview's page is written into
    /// `programFolder`, or where that cannot be written, into a folder of the person's.
    frmEditBody(ui::Window& owner, model::Project& project, ui::Settings& settings,
                EditorMemory& memory, std::filesystem::path programFolder);
    ~frmEditBody() override;

    bool changed() const { return changed_; }

    /// Asks whether edits are to be saved into the topic, and does so; false when the author
    /// cancels.
    bool offerSave();

    /// The topic with the edits, as saving would make it but for its letter.
    model::Topic editedTopic() const;

    /// Puts the fields into the current topic of a project.
    void storeIn(model::Project& project) const;

    /// The text of the template, as long as nobody has edited it, is no edit any more.
    void forgetTemplate();

    /// Null when no preview is open.
    frmPreview* preview() const { return preview_.get(); }

    /// The page of the text as it is now, for whoever shows it while it is written, with files
    /// below `folder`.
    Text livePage(const std::filesystem::path& folder) const;

    /// Puts the caret where the page of the text has been clicked; see ui::Browser::Clicked.
    void goToSeen(std::size_t seen, bool behind);

    ui::Panel pnlFields{*this};
    ui::TextBox txtKeywords{pnlFields};
    ui::TextBox txtShortDesc{pnlFields};
    ui::ImageCombo icboImage{pnlFields};
    ui::Label lblKeywords{pnlFields, "Keywords:", &txtKeywords};
    ui::Label lblShortDesc{pnlFields, "Short Description:", &txtShortDesc};
    ui::Label lblImage{pnlFields, "Image:", &icboImage};
    ui::HtmlBox txtBody{*this};
    FindBar barFind{*this, txtBody};
    ui::Label lblPlace{*this, ""}; ///< line, column and words
    ui::Toolbar tbTools{*this, ui::Toolbar::Size::small};

    ui::Timer tmrPreview;
    void tmrPreview_Tick();
    static constexpr int typingPause = 300; ///< milliseconds until the page is shown anew

    ui::Event<> Edited; ///< raised for every edit, also one that is taken back

    // The author wants to search the project, or the search to go on.
    ui::Event<> Find;
    ui::Event<> FindNext;

    ui::Event<Text> Replace; ///< in the whole project, of what is selected

    ui::Event<int> Neighbour; ///< the author wants the next topic, or with -1 the one before

    ui::Event<> CaretMoved; ///< in the body

    ui::Event<> Raised; ///< the window, perhaps with its preview, has come before others

    void txtBody_Change();
    void txtBody_CaretMove();
    void txtBody_Typed(TextView letters) { aids_.typed(letters); }
    void txtBody_Chosen() { aids_.complete(false); }
    void txtBody_MenuOpening(ui::TextMenu& menu) { aids_.fillMenu(menu); }
    void txtBody_Entering(ui::Incoming& incoming);
    void txtBody_EditKeyDown(ui::EditKey& key);
    void txtKeywords_Change() { lookForEdits(); }
    void txtShortDesc_Change() { lookForEdits(); }
    void icboImage_Change() { lookForEdits(); }
    void tbTools_ButtonClick(const Text& key);
    void tbTools_ButtonMenuClick(const Text& key);

    // The commands, see EditorCommands.cpp.
    void mnuFileImport_Click();
    void mnuFilePreview_Click();
    void mnuFileSave_Click();
    void mnuFileClose_Click() { close(); }
    void mnuPreviewClose_Click();
    void mnuEditUndo_Click() { focusedTextBox()->undo(); }
    void mnuEditRedo_Click() { focusedTextBox()->redo(); }
    void mnuEditCut_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuEditPasteText_Click();
    void mnuEditAll_Click();
    void mnuTagBold_Click();
    void mnuTagItalic_Click();
    void mnuTagUnderline_Click();
    void mnuTagPara_Click();
    void mnuTagHeading_Click(int level);
    void mnuTagBullet_Click();
    void mnuTagNumber_Click();
    void mnuTagIntoList_Click();
    void mnuTagInsert_Click();
    void mnuTagPagelink_Click();
    void mnuTagTopiclink_Click();
    void mnuTagWeblink_Click();
    void mnuTagChars_Click(SpecialCharacter character);
    void mnuTableCol_Click(int index); ///< 1 for a new row
    void mnuTableDraw_Click();
    void mnuTableChange_Click(TableChange what);
    void mnuSpellCheck_Click();
    void mnuEditFind_Click() { Find.raise(); }
    void mnuEditFindNext_Click();
    void mnuEditReplace_Click();
    void mnuEditFindText_Click(bool replacing) { barFind.open(replacing); }
    void mnuEditAids_Click();
    void mnuEditComplete_Click() { aids_.complete(true); }
    void mnuEditTopic_Click(int step) { Neighbour.raise(step); }
    void mnuTagSnippet_Click();

    bool hasPreview() const { return preview_ != nullptr && preview_->isVisible(); }
    bool canLeave() const { return barFind.isOpen() || hasPreview(); }
    bool canUndo() const;
    bool canRedo() const;
    bool canCopy() const;
    bool canPaste() const;

    void Resize() override;
    bool mayClose() override;

private:
    void arrange();
    void connectControls();
    void restoreSettings();
    void storeSettings();
    void showTopic();
    void fillFromTemplate();
    void lookForEdits();
    void setChangedState(bool changed);
    void updateCommands();
    void connectBody();
    void showPlace();
    void notePage();
    void showTableButton(const Text& key);

    /// False, and said so, in a field that is not for mark-up; false too where no field has the
    /// focus.
    bool mayInsertTags();
    void applyTag(const std::function<Passage(Passage)>& command);
    void change(const std::function<Passage(Passage)>& command);

    std::array<ui::TextBox*, 3> fields() { return {&txtBody, &txtKeywords, &txtShortDesc}; }
    std::filesystem::path projectFolder() const;
    std::optional<std::filesystem::path> chooseFile(const char* title, const char* filter,
                                                    const std::filesystem::path& folder);

    ui::Clipboard clipboard_;
    Pasting pasting_{*this, txtBody, project_};
    ui::GridChoice tableGrid_{*this};
    ProjectNames names_{project_, [this] { return txtBody.countedText(); }};
    WritingAids aids_;
    std::size_t wordCount_ = 0;
    ui::CommandSet commands_{*this, editorCommands()};
    std::unique_ptr<frmPreview> preview_;
    int tableSize_ = 3;
    Text image_;                ///< that was chosen at first, or is saved
    bool fromTemplate_ = false; ///< the body is, and not saved yet
    bool changed_ = false;
};

} // namespace editor
