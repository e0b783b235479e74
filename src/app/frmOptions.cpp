#include "app/frmOptions.h"

#include <algorithm>
#include <functional>

#include "model/PagePath.h"
#include "model/Variables.h"
#include "platform/Files.h"
#include "text/Path.h"
#include "ui/HelpContext.h"

namespace app {

namespace fs = std::filesystem;
using model::NavigationType;
using text::Text;
using ui::FileQuestion;
using ui::Prompter;

namespace {

/// How a file is written in an option that counts from a folder: with "..", and backslashes as in
/// all paths of a project.
fs::path pathFrom(const fs::path& folder, const fs::path& file) {
    const fs::path relative = file.lexically_relative(folder);
    return relative.empty() ? file : relative; // on another drive
}

constexpr std::size_t variablesPage = 5;

constexpr const char* chooseStyleSheet = "Select Style Sheet";
constexpr const char* chooseBackground = "Select Background Image";
constexpr const char* chooseTemplate = "Select Template";

Text withBackslashes(Text path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

/// The boxes of the options, in the order of the project file. A visitor of the options that hands
/// each on together with its box.
template <typename Visitor>
struct OptionBoxes {
    ui::TextBox* const* texts;
    ui::CheckBox* const* flags;
    ui::OptionButton (&types)[2];
    Visitor& visitor;

    void title(Text& value) { visitor.text(**texts++, value); }
    void html(Text& value) { visitor.text(**texts++, value); }
    void name(Text& value) { visitor.text(**texts++, value); }
    void flag(bool& value) { visitor.flag(**flags++, value); }
    void navigation(NavigationType& value) { visitor.type(types, value); }
};

/// Shows what the options are.
struct Fill {
    void text(ui::TextBox& box, const Text& value) const { box.setText(value); }
    void flag(ui::CheckBox& box, bool value) const { box.setChecked(value); }
    void type(ui::OptionButton (&buttons)[2], NavigationType value) const {
        const auto type = static_cast<std::size_t>(value);
        if (type < std::size(buttons)) { // a project file can hold any number
            buttons[type].select();
        }
    }
};

/// Takes over what was edited.
struct ReadBack {
    void text(const ui::TextBox& box, Text& value) const { value = box.text(); }
    void flag(const ui::CheckBox& box, bool& value) const { value = box.checked(); }
    void type(const ui::OptionButton (&buttons)[2], NavigationType& value) const {
        value = buttons[0].selected() ? NavigationType::textLinks : NavigationType::graphicButtons;
    }
};

/// Hears of every edit, but for those that have handlers of their own.
struct Watch {
    std::function<void()> edited;
    std::array<const void*, 2> others;

    template <typename Source>
    void connect(const void* box, Source& event) const {
        if (std::find(others.begin(), others.end(), box) == others.end()) {
            event.connect(edited);
        }
    }
    void text(ui::TextBox& box, const Text&) const { connect(&box, box.Change); }
    void flag(ui::CheckBox& box, bool) const { connect(&box, box.Click); }
    void type(ui::OptionButton (&buttons)[2], NavigationType) const {
        for (ui::OptionButton& button : buttons) {
            connect(&button, button.Click);
        }
    }
};

} // namespace

template <typename Visitor>
void frmOptions::visitBoxes(Visitor visitor) {
    ui::TextBox* const texts[] = {&txtProjectName, &txtCSS,        &txtBImage,
                                  &txtTemplate,    &txtAdditional, &txtCopyright};
    ui::CheckBox* const flags[] = {&chkCopyright,     &chkNavigation[0], &chkNavigation[1],
                                   &chkNavigation[2], &chkNavigation[3], &chkNavigation[4],
                                   &chkNavigation[5], &chkIndentedTOC,   &chkNumbering,
                                   &chkDocLinks,      &chkUnderline};
    OptionBoxes<Visitor> boxes{texts, flags, optNavType, visitor};
    model::visitOptions(options_, boxes);
}

frmOptions::frmOptions(ui::Window& owner, const model::ProjectOptions& options,
                       const fs::path& projectFolder)
    : Window(Kind::dialog, "frmOptions", &owner), options_(options),
      folder_(platform::fullPath(projectFolder.empty() ? fs::path(".") : projectFolder)) {
    setCaption("Properties");
    arrangeGeneration();
    arrangeAdditional();
    arrangeNavigation();
    arrangeDocumentation();
    arrangeLanguage();
    arrangeVariables();
    auto buttons = ui::Layout::row();
    buttons.addStretch().add(cmdOK).add(cmdCancel).add(cmdApply);
    auto content = ui::Layout::column();
    content.add(tbsOptions, 1).add(std::move(buttons));
    setLayout(std::move(content));
    cmdOK.setDefault();
    icboLanguage.select(options_.languageTag);
    chkEveryCharacter.setChecked(options_.keepsEveryCharacter);
    showLanguage();
    visitBoxes(Fill());
    txtCopyright.setEnabled(options_.showCopyright);
    setEdited(false);
    setSizeForTexts(10650, 5400);
    watch();
    tbsOptions_Click();
    txtProjectName.setFocus();
}

void frmOptions::arrangeGeneration() {
    txtCopyright.setAccessibleName("Copyright String");
    txtTemplate.setForeignCharacters(ui::ForeignCharacters::refused); // it is looked up on the disk
    auto form = ui::Layout::form();
    form.addField(lblProjectName, txtProjectName);
    const auto addFile = [&form](ui::Label& label, ui::TextBox& box, ui::Button& choose,
                                 const char* name) {
        choose.setAccessibleName(name);
        choose.setToolTip(name);
        choose.setFixedWidth(525);
        auto both = ui::Layout::row();
        both.withoutMargins().add(box, 1).add(choose);
        form.addField(label, std::move(both));
    };
    addFile(lblCSS, txtCSS, cmdCSS, chooseStyleSheet);
    addFile(lblBImage, txtBImage, cmdBImage, chooseBackground);
    addFile(lblTemplate, txtTemplate, cmdTemplate, chooseTemplate);
    form.addField(chkCopyright, txtCopyright);
    pnlGeneration.setLayout(std::move(form));
    tbsOptions.setAccessibleName("Pages of Properties");
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

void frmOptions::arrangeVariables() {
    lblVariables.setWrapped();
    txtVariables.setAccessibleName("Variables");
    Text lines;
    for (const model::Variable& variable : model::variablesOf(options_)) {
        text::appendLine(lines, variable.name, "=", variable.value);
    }
    txtVariables.setText(lines);
    auto column = ui::Layout::column();
    column.add(lblVariables).add(txtVariables, 1);
    pnlVariables.setLayout(std::move(column));
    tbsOptions.add("Variables", "Texts with Names", pnlVariables);
}

void frmOptions::arrangeLanguage() {
    for (const text::Language& language : text::languages()) {
        icboLanguage.add(language.tag, language.name, "");
    }
    if (text::findLanguage(options_.languageTag) == nullptr) { // of a later version
        icboLanguage.add(options_.languageTag, options_.languageTag, "");
    }
    for (ui::Label* label : {&lblCodePage, &lblEveryCharacter, &lblReread}) {
        label->setWrapped();
    }
    auto language = ui::Layout::row();
    language.withoutMargins().add(lblLanguage).add(icboLanguage, 1);
    auto reread = ui::Layout::row();
    reread.withoutMargins().add(cmdReread).addStretch();
    auto column = ui::Layout::column();
    column.add(std::move(language)).add(lblCodePage).addSpace(180);
    column.add(chkEveryCharacter).add(lblEveryCharacter).addSpace(180);
    column.add(lblReread).add(std::move(reread)).addStretch();
    pnlLanguage.setLayout(std::move(column));
    tbsOptions.add("Language", "Set the Language of the Help", pnlLanguage);
}

void frmOptions::watch() {
    const auto edited = [this] { setEdited(true); };
    txtVariables.Change.connect(edited);
    txtTemplate.Change.connect([this, edited] {
        edited();
        TemplateEdited.raise();
    });
    visitBoxes(Watch{edited, {&txtTemplate, &chkCopyright}});
    UI_ON(icboLanguage, Change);
    UI_ON(chkEveryCharacter, Click);
    UI_ON(cmdReread, Click);
    UI_ON(chkCopyright, Click);
    UI_ON(cmdCSS, Click);
    UI_ON(cmdBImage, Click);
    UI_ON(cmdTemplate, Click);
    UI_ON(cmdOK, Click);
    UI_ON(cmdCancel, Click);
    UI_ON(cmdApply, Click);
    UI_ON(nextTab, Click);
    UI_ON(tbsOptions, Click);
}

/// Since the last Apply.
void frmOptions::setEdited(bool edited) {
    changed_ = edited;
    cmdApply.setEnabled(edited);
}

void frmOptions::chkCopyright_Click() {
    txtCopyright.setEnabled(chkCopyright.checked());
    setEdited(true);
}

void frmOptions::icboLanguage_Change() {
    setEdited(true);
    showLanguage();
}

void frmOptions::showLanguage() {
    const text::Language& chosen = text::languageOf(icboLanguage.selectedKey());
    lblCodePage.setCaption("Pages and contents are written in code page "
                           + std::to_string(chosen.codePage)
                           + ". Letters that it lacks become references in pages.");
    // Other files say what they are written in.
    cmdReread.setEnabled(options_.codePage() == text::CodePage() && !options_.keepsEveryCharacter
                         && chosen.codePage != text::CodePage::western);
}

/// What was edited in texts is read anew with all others.
void frmOptions::cmdReread_Click() {
    const text::Language& language = text::languageOf(icboLanguage.selectedKey());
    icboLanguage.select(options_.languageTag);
    if (!apply()) {
        return;
    }
    Reread.raise(language);
    close();
}

/// Pages lie in a folder of their own, and what they show is found from there.
void frmOptions::cmdCSS_Click() {
    chooseFile({FileQuestion::Kind::open,
                chooseStyleSheet,
                "Style Sheets (*.css)|*.css|All Files (*.*)|*.*",
                1,
                folder_,
                {}},
               folder_ / model::pageFolderName, txtCSS);
}

void frmOptions::cmdBImage_Click() {
    chooseFile({FileQuestion::Kind::open,
                chooseBackground,
                "All Image Files|*.gif;*.jpg;*.jpeg;*.png;*.bmp|All Files (*.*)|*.*",
                1,
                folder_,
                {}},
               folder_ / model::pageFolderName, txtBImage);
}

void frmOptions::cmdTemplate_Click() {
    chooseFile({FileQuestion::Kind::open,
                chooseTemplate,
                "HTML Files|*.htm;*.html|Text Files (*.txt)|*.txt|All Files (*.*)|*.*",
                1,
                folder_,
                {}},
               folder_, txtTemplate);
}

void frmOptions::chooseFile(const FileQuestion& question, const fs::path& countsFrom,
                            ui::TextBox& box) {
    const auto file = Prompter::current().chooseFile(this, question);
    if (!file) {
        return;
    }
    const fs::path path = pathFrom(countsFrom, platform::fullPath(*file));
    const Text text = text::displayText(path);
    if (!options_.codePage().hasAll(text)) {
        Prompter::current().ask(this,
                                {"The name of this file has characters that a project cannot hold.",
                                 caption(), ui::Buttons::ok, ui::QuestionIcon::exclamation});
        return;
    }
    box.edit(withBackslashes(text), text.size());
    box.setFocus();
}

void frmOptions::keepEveryCharacter() {
    options_.keepsEveryCharacter = true;
    chkEveryCharacter.setChecked(true);
    showLanguage();
}

/// False, and said so, when something cannot be applied.
bool frmOptions::apply() {
    if (changed_) {
        Text wrongLine;
        const auto variables = model::parseVariables(txtVariables.text(), wrongLine);
        if (!variables) {
            tbsOptions.select(variablesPage);
            tbsOptions_Click();
            Prompter::current().ask(
                this, {"This is no variable, which is a name of letters and digits, \"=\" and a "
                       "value:\n"
                           + wrongLine,
                       caption(), ui::Buttons::ok, ui::QuestionIcon::exclamation});
            txtVariables.setFocus();
            return false;
        }
        if (*variables != model::variablesOf(options_)) {
            model::setVariables(options_, *variables);
        }
        options_.languageTag = icboLanguage.selectedKey();
        options_.keepsEveryCharacter = chkEveryCharacter.checked();
        visitBoxes(ReadBack());
        setEdited(false);
        Apply.raise(options_);
    }
    return true;
}

void frmOptions::cmdOK_Click() {
    if (apply()) {
        close();
    }
}

/// Each page has its own help.
void frmOptions::tbsOptions_Click() {
    constexpr ui::HelpContext contexts[] = {ui::pageOptionsHelp,       ui::pageOptionsHelp,
                                            ui::navigationOptionsHelp, ui::documentationOptionsHelp,
                                            ui::languageOptionsHelp,   ui::variableOptionsHelp};
    setHelpContext(contexts[tbsOptions.selected()]);
}

void frmOptions::nextTab_Click() {
    tbsOptions.select((tbsOptions.selected() + 1) % tbsOptions.count());
    tbsOptions_Click();
}

} // namespace app
