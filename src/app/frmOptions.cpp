#include "app/frmOptions.h"

#include "model/HelpContext.h"

namespace app {

using model::NavigationType;

frmOptions::frmOptions(ui::Window& owner, const model::ProjectOptions& options)
    : Window(Kind::dialog, "frmOptions", &owner), options_(options) {
    setCaption("Properties");
    arrangeGeneration();
    arrangeAdditional();
    arrangeNavigation();
    arrangeDocumentation();
    auto buttons = ui::Layout::row();
    buttons.addStretch().add(cmdOK).add(cmdCancel).add(cmdApply);
    auto content = ui::Layout::column();
    content.add(tbsOptions, 1).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(8250, 5400);
    cmdOK.setDefault();
    fill();
    watch();
    tbsOptions_Click();
    txtProjectName.setFocus();
}

void frmOptions::arrangeGeneration() {
    txtCopyright.setAccessibleName("Copyright String");
    txtTemplate.setForeignCharacters(ui::ForeignCharacters::refused); // it is looked up on the disk
    auto form = ui::Layout::form();
    form.addField(lblProjectName, txtProjectName).addField(lblCSS, txtCSS);
    form.addField(lblBImage, txtBImage).addField(lblTemplate, txtTemplate);
    form.addField(chkCopyright, txtCopyright);
    pnlGeneration.setLayout(std::move(form));
    tbsOptions.add("File Generation Options", "Set Options for Generating Help Files",
                   pnlGeneration);
}

void frmOptions::arrangeAdditional() {
    lblAdditional.setWrapped();
    txtAdditional.setAccessibleName("Additional Code");
    auto column = ui::Layout::column();
    column.add(lblAdditional).add(txtAdditional, 1);
    pnlAdditional.setLayout(std::move(column));
    tbsOptions.add("Additional Code", "Enter Additional Code", pnlAdditional);
}

void frmOptions::arrangeNavigation() {
    auto column = ui::Layout::column();
    for (ui::CheckBox& box : chkNavigation) {
        column.add(box);
    }
    column.addSpace(180).add(optNavType[0]).add(optNavType[1]);
    column.addStretch();
    pnlNavigation.setLayout(std::move(column));
    tbsOptions.add("Navigation", "Set Options for Help File Navigation", pnlNavigation);
}

void frmOptions::arrangeDocumentation() {
    auto column = ui::Layout::column();
    column.add(chkIndentedTOC).add(chkNumbering).add(chkDocLinks).add(chkUnderline).addStretch();
    pnlDocumentation.setLayout(std::move(column));
    tbsOptions.add("Documentation", "Set Options for Documentation Generation", pnlDocumentation);
}

void frmOptions::fill() {
    txtProjectName.setText(options_.projectName);
    txtCSS.setText(options_.cssFile);
    txtBImage.setText(options_.backgroundImage);
    txtTemplate.setText(options_.templateFile);
    chkCopyright.setChecked(options_.showCopyright);
    txtCopyright.setText(options_.copyrightText);
    txtCopyright.setEnabled(options_.showCopyright);
    txtAdditional.setText(options_.additionalText);
    for (std::size_t i = 0; i < std::size(chkNavigation); ++i) {
        chkNavigation[i].setChecked(options_.navigationButtons[i]);
    }
    const auto type = static_cast<std::size_t>(options_.navigationType);
    if (type < std::size(optNavType)) { // a project file can hold any number
        optNavType[type].select();
    }
    chkIndentedTOC.setChecked(options_.indentedContents);
    chkNumbering.setChecked(options_.numbering);
    chkDocLinks.setChecked(options_.documentationLinks);
    chkUnderline.setChecked(options_.underlineLinks);
}

void frmOptions::watch() {
    const auto edited = [this] { changed_ = true; };
    txtTemplate.Change.connect([this, edited] {
        edited();
        TemplateEdited.raise();
    });
    for (ui::TextBox* box : {&txtProjectName, &txtCSS, &txtBImage, &txtCopyright, &txtAdditional}) {
        box->Change.connect(edited);
    }
    for (ui::CheckBox* box : {&chkIndentedTOC, &chkNumbering, &chkDocLinks, &chkUnderline}) {
        box->Click.connect(edited);
    }
    for (ui::CheckBox& box : chkNavigation) {
        box.Click.connect(edited);
    }
    for (ui::OptionButton& button : optNavType) {
        button.Click.connect(edited);
    }
    UI_ON(chkCopyright, Click);
    UI_ON(cmdOK, Click);
    UI_ON(cmdCancel, Click);
    UI_ON(cmdApply, Click);
    UI_ON(nextTab, Click);
    UI_ON(tbsOptions, Click);
}

void frmOptions::chkCopyright_Click() {
    txtCopyright.setEnabled(chkCopyright.checked());
    changed_ = true;
}

void frmOptions::readBack() {
    options_.projectName = txtProjectName.text();
    options_.cssFile = txtCSS.text();
    options_.backgroundImage = txtBImage.text();
    options_.templateFile = txtTemplate.text();
    options_.showCopyright = chkCopyright.checked();
    options_.copyrightText = txtCopyright.text();
    options_.additionalText = txtAdditional.text();
    for (std::size_t i = 0; i < std::size(chkNavigation); ++i) {
        options_.navigationButtons[i] = chkNavigation[i].checked();
    }
    options_.navigationType =
        optNavType[0].selected() ? NavigationType::textLinks : NavigationType::graphicButtons;
    options_.indentedContents = chkIndentedTOC.checked();
    options_.numbering = chkNumbering.checked();
    options_.documentationLinks = chkDocLinks.checked();
    options_.underlineLinks = chkUnderline.checked();
}

void frmOptions::cmdApply_Click() {
    if (changed_) {
        readBack();
        changed_ = false;
        Apply.raise(options_);
    }
}

void frmOptions::cmdOK_Click() {
    cmdApply_Click();
    close();
}

/// Each page has its own help.
void frmOptions::tbsOptions_Click() {
    constexpr model::HelpContext contexts[] = {model::pageOptionsHelp, model::pageOptionsHelp,
                                               model::navigationOptionsHelp,
                                               model::documentationOptionsHelp};
    setHelpContext(contexts[tbsOptions.selected()]);
}

void frmOptions::nextTab_Click() {
    tbsOptions.select((tbsOptions.selected() + 1) % tbsOptions.count());
    tbsOptions_Click();
}

} // namespace app
