#pragma once

#include "model/ProjectOptions.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ImageCombo.h"
#include "ui/OptionButton.h"
#include "ui/Prompter.h"
#include "ui/TabStrip.h"
#include "ui/Window.h"

namespace app {

/// Edits the options of a project, on pages. It changes a copy, and hands that over by Apply.
class frmOptions : public ui::Window {
public:
    /// Files that are chosen are named as the project in `projectFolder` finds them.
    frmOptions(ui::Window& owner, const model::ProjectOptions& options,
               const std::filesystem::path& projectFolder = {});

    /// Raised by Apply and OK when something was edited since.
    ui::Event<const model::ProjectOptions&> Apply;

    /// Ticks the box of that name, as its owner was asked to: what is handed over by Apply has not
    /// got it.
    void keepEveryCharacter();

    /// Raised when the texts of the project are to be read anew in the language that was chosen;
    /// the dialog is closed behind it. Whatever else was edited has been applied before.
    ui::Event<const text::Language&> Reread;

    /// Raised with every edit of the template's name, applied or not.
    ui::Event<> TemplateEdited;

    ui::TabStrip tbsOptions{*this};
    ui::Panel pnlGeneration{tbsOptions};
    ui::Panel pnlAdditional{tbsOptions};
    ui::Panel pnlNavigation{tbsOptions};
    ui::Panel pnlDocumentation{tbsOptions};
    ui::Panel pnlLanguage{tbsOptions};
    ui::Panel pnlVariables{tbsOptions};

    ui::TextBox txtProjectName{pnlGeneration};
    ui::TextBox txtCSS{pnlGeneration};
    ui::Button cmdCSS{pnlGeneration, "..."};
    ui::TextBox txtBImage{pnlGeneration};
    ui::Button cmdBImage{pnlGeneration, "..."};
    ui::TextBox txtTemplate{pnlGeneration};
    ui::Button cmdTemplate{pnlGeneration, "..."};
    ui::CheckBox chkCopyright{pnlGeneration, "   &Copyright String:"};
    ui::TextBox txtCopyright{pnlGeneration};

    ui::TextBox txtAdditional{pnlAdditional, ui::TextBox::Lines::many};

    ui::CheckBox chkNavigation[model::navigationSwitchCount] = {
        {pnlNavigation, "Generate Link to Ne&xt Help Topic"},
        {pnlNavigation, "Generate Link to Pre&vious Help Topic"},
        {pnlNavigation, "Generate Links to Chi&ld Help Topics"},
        {pnlNavigation, "Generate Link to Next Par&ent Help Topic"},
        {pnlNavigation, "Generate Link to Previous Pa&rent Help Topic"},
        {pnlNavigation, "Generate Link to Overvie&w (First) Help Topic on all Pages "},
    };
    ui::OptionButton optNavType[2] = {
        {pnlNavigation, "Generate Home, Previous and Next as Text Lin&ks"},
        {pnlNavigation, "Generate Home, Previous and Next as &Graphic Buttons"},
    };

    ui::CheckBox chkIndentedTOC{pnlDocumentation, "&Indented TOC for Documentation"};
    ui::CheckBox chkNumbering{pnlDocumentation, "Include Help Topic N&umbering (e.g., 1.4.7)"};
    ui::CheckBox chkDocLinks{pnlDocumentation, "Docu&mentation includes Links to Help Topics"};
    ui::CheckBox chkUnderline{pnlDocumentation, "Un&derline the Help Topic Titles"};

    ui::TextBox txtVariables{pnlVariables, ui::TextBox::Lines::many};

    ui::ImageCombo icboLanguage{pnlLanguage};
    ui::CheckBox chkEveryCharacter{pnlLanguage, "Keep ever&y character in the project's file"};
    ui::Button cmdReread{pnlLanguage, "Read Letters i&n This Language"};

    ui::Button cmdOK{*this, "OK"};
    ui::Button cmdCancel{*this, "Cancel"};
    ui::Button cmdApply{*this, "&Apply"};

    ui::Command nextTab{*this, {"nextTab", "", "", "", "", "Ctrl+Tab"}};
    ui::Label lblProjectName{pnlGeneration, "&Project Name:", &txtProjectName};
    ui::Label lblCSS{pnlGeneration, "Cascading &Style Sheet:", &txtCSS};
    ui::Label lblBImage{pnlGeneration, "&Background Image:", &txtBImage};
    ui::Label lblTemplate{pnlGeneration, "&Template Filename:", &txtTemplate};
    ui::Label lblLanguage{pnlLanguage, "Language &of the help:", &icboLanguage};
    ui::Label lblCodePage{pnlLanguage, ""};
    ui::Label lblEveryCharacter{
        pnlLanguage,
        "Double quotes stay what they are, and blanks at the ends of texts. The file is "
        "then of a kind that earlier versions of this program cannot open, as it is "
        "for every language but English (United States)."};
    ui::Label lblReread{pnlLanguage,
                        "If letters of this project look wrong because its file was written in "
                        "another language, choose that language and have them read again."};
    ui::Label lblVariables{
        pnlVariables,
        "One &variable a line, such as version=1.2. Where the text of a topic has {{version}}, "
        "pages, books, documentation and preview have 1.2. In a value, {{today}} is the day on "
        "which they are made. The file is then of a kind that earlier versions of this program "
        "cannot open.",
        &txtVariables};
    ui::Label lblAdditional{pnlAdditional,
                            "Any &HTML code entered here will be displayed on the First (Overview) "
                            "Help Topic only.  It will be positioned just before the copyright "
                            "notice (if one is used).",
                            &txtAdditional};

    void chkCopyright_Click();
    void icboLanguage_Change();
    void chkEveryCharacter_Click() { setEdited(true); }
    void cmdReread_Click();
    void cmdCSS_Click();
    void cmdBImage_Click();
    void cmdTemplate_Click();
    void cmdOK_Click();
    void cmdCancel_Click() { close(); }
    void cmdApply_Click() { apply(); }
    void nextTab_Click();
    void tbsOptions_Click();

private:
    void arrangeGeneration();
    void arrangeAdditional();
    void arrangeNavigation();
    void arrangeDocumentation();
    void arrangeLanguage();
    void arrangeVariables();
    bool apply();
    void showLanguage();
    template <typename Visitor>
    void visitBoxes(Visitor visitor);
    void watch();
    void setEdited(bool edited);
    void chooseFile(const ui::FileQuestion& question, const std::filesystem::path& countsFrom,
                    ui::TextBox& box);

    model::ProjectOptions options_;
    std::filesystem::path folder_;
    bool changed_ = false;
};

} // namespace app
