#pragma once

#include "model/ProjectOptions.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
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

    /// Raised with every edit of the template's name, applied or not.
    ui::Event<> TemplateEdited;

    ui::TabStrip tbsOptions{*this};
    ui::Panel pnlGeneration{tbsOptions};
    ui::Panel pnlAdditional{tbsOptions};
    ui::Panel pnlNavigation{tbsOptions};
    ui::Panel pnlDocumentation{tbsOptions};

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

    ui::Button cmdOK{*this, "OK"};
    ui::Button cmdCancel{*this, "Cancel"};
    ui::Button cmdApply{*this, "&Apply"};

    ui::Command nextTab{*this, {"nextTab", "", "", "", "", "Ctrl+Tab"}};
    ui::Label lblProjectName{pnlGeneration, "&Project Name:", &txtProjectName};
    ui::Label lblCSS{pnlGeneration, "Cascading &Style Sheet:", &txtCSS};
    ui::Label lblBImage{pnlGeneration, "&Background Image:", &txtBImage};
    ui::Label lblTemplate{pnlGeneration, "&Template Filename:", &txtTemplate};
    ui::Label lblAdditional{pnlAdditional,
                            "Any &HTML code entered here will be displayed on the First (Overview) "
                            "Help Topic only.  It will be positioned just before the copyright "
                            "notice (if one is used).",
                            &txtAdditional};

    void chkCopyright_Click();
    void cmdCSS_Click();
    void cmdBImage_Click();
    void cmdTemplate_Click();
    void cmdOK_Click();
    void cmdCancel_Click() { close(); }
    void cmdApply_Click();
    void nextTab_Click();
    void tbsOptions_Click();

private:
    void arrangeGeneration();
    void arrangeAdditional();
    void arrangeNavigation();
    void arrangeDocumentation();
    void fill();
    void readBack();
    void watch();
    void setEdited(bool edited);
    void chooseFile(const ui::FileQuestion& question, const std::filesystem::path& countsFrom,
                    ui::TextBox& box);

    model::ProjectOptions options_;
    std::filesystem::path folder_;
    bool changed_ = false;
};

} // namespace app
