#include "editor/forms/frmEditBody.h"

#include <algorithm>

#include "editor/MarkUp.h"
#include "ui/HelpContext.h"
#include "ui/Prompter.h"
#include "ui/WindowPlace.h"

namespace editor {

using model::Topic;
using ui::Prompter;

namespace {

constexpr const char* section = "Edit";
constexpr const char* headingButton = "heading";
constexpr const char* tableButton = "table";

constexpr int minimumWidth = 7965;
constexpr int minimumHeight = 5850;

} // namespace

frmEditBody::frmEditBody(ui::Window& owner, model::Project& project, ui::Settings& settings,
                         EditorMemory& memory, std::filesystem::path programFolder)
    : Window(Kind::main, windowName, &owner), project_(project), settings_(settings),
      memory_(memory), programFolder_(std::move(programFolder)),
      aids_({txtBody, settings_, memory_.words, tools::dictionaryFolders(programFolder_),
             project_.options(), names_}) {
    setCaption("Edit Body");
    setHelpContext(ui::editorHelp);
    arrange();
    restoreSettings();
    showTopic();
    connectControls();
    fillFromTemplate();
    updateCommands();
    txtBody.setFocus();
    aids_.textChanged();
    showPlace();
}

frmEditBody::~frmEditBody() {
    FocusChange.disconnect(); // the focus goes as the controls do
}

// ---- The window ----

void frmEditBody::arrange() {
    setMinimumSize(minimumWidth, minimumHeight);
    txtKeywords.setToolTip("Separate Keywords with ;");
    txtBody.setAccessibleName("Body");
    for (const char* key : {"Auto", "New", "Leaf", "New Leaf"}) {
        Text image = "Kind";
        std::copy_if(key, key + Text(key).size(), std::back_inserter(image),
                     [](char character) { return character != ' '; });
        icboImage.add(key, key, image);
    }
    auto fields = ui::Layout::form();
    auto keywords = ui::Layout::row();
    keywords.add(txtKeywords, 1).addSpace(90).add(lblImage).add(icboImage);
    fields.addField(lblKeywords, std::move(keywords)).addField(lblShortDesc, txtShortDesc);
    fields.withoutMargins().setSpacing(90);
    pnlFields.setLayout(std::move(fields));

    commands_.fillMenuBar(menuBar());
    commands_.fillToolbar(tbTools, editorToolbarKeys());
    tbTools.addDropDown(headingButton, "Insert Heading",
                        {{"Heading 1", "Heading1", "Heading1"},
                         {"Heading 2", "Heading2", "Heading2"},
                         {"Heading 3", "Heading3", "Heading3"},
                         {"Heading 4", "Heading4", "Heading4"},
                         {"Heading 5", "Heading5", "Heading5"}});
    tbTools.addDropDown(tableButton, "Insert Table",
                        {{"Insert Table Row", "NewLine", "Ins3"},
                         {"2 Column Table", "Col2", "Col2"},
                         {"3 Column Table", "Col3", "Col3"},
                         {"4 Column Table", "Col4", "Col4"},
                         {"5 Column Table", "Col5", "Col5"}});
    commands_.fillToolbar(tbTools, editorLastToolbarKeys());
}

void frmEditBody::Resize() {
    if (state() == ui::WindowState::minimised) {
        return;
    }
    constexpr int margin = 165;
    constexpr int bottomMargin = 120;
    constexpr int gap = 90;
    const int bottom = height() - contentTop() - bottomMargin;
    const int fieldsHeight = pnlFields.minimumHeight();
    const int placeHeight = lblPlace.minimumHeight();
    // Large fonts take their room from the body, and so does the bar.
    const int bodyTop = std::max(bottom - (height() - 2115), fieldsHeight + placeHeight + 2 * gap);
    const int barHeight = barFind.isOpen() ? barFind.minimumHeight() + gap : 0;
    const int bodyBottom = bottom - barHeight;
    pnlFields.place(margin, (bodyTop - placeHeight - fieldsHeight) / 2, width() - 330,
                    fieldsHeight);
    lblPlace.place(margin, bodyTop - placeHeight, width() - 330, placeHeight);
    txtBody.place(margin, bodyTop, width() - 330, bodyBottom - bodyTop);
    barFind.place(margin, bodyBottom + gap, width() - 330, barHeight - gap);
}

void frmEditBody::restoreSettings() {
    ui::restorePlace(*this, settings_, section, minimumWidth, minimumHeight);
    const auto stored = [this](const char* key, std::initializer_list<const char*> known,
                               const char* fallback) {
        const Text value = settings_.get(section, key, fallback);
        return std::find(known.begin(), known.end(), value) == known.end() ? fallback : value;
    };
    const Text headingKey =
        stored("Heading", {"Heading1", "Heading2", "Heading3", "Heading4", "Heading5"}, "Heading1");
    tbTools.setDropDown(headingButton, headingKey, headingKey);
    tableSize_ = validTableSize(settings_.number(section, "Table Size", 3));
    showTableButton(stored("Table", {"NewLine", "Col2", "Col3", "Col4", "Col5"}, "Col3"));
}

void frmEditBody::storeSettings() {
    settings_.set(section, "Heading", tbTools.dropDownKey(headingButton));
    settings_.set(section, "Table", tbTools.dropDownKey(tableButton));
    settings_.setNumber(section, "Table Size", tableSize_);
    ui::storePlace(*this, settings_, section);
}

bool frmEditBody::mayClose() {
    if (preview_ != nullptr) {
        preview_->close();
    }
    storeSettings(); // also when the author then cancels
    return offerSave();
}

bool frmEditBody::offerSave() {
    if (!changed_) {
        return true;
    }
    const ui::Answer answer =
        Prompter::current().ask(this, {"Changes Made, Save Changes?", "Save",
                                       ui::Buttons::yesNoCancel, ui::QuestionIcon::question});
    if (answer == ui::Answer::yes) {
        mnuFileSave_Click();
    }
    return answer != ui::Answer::cancel;
}

// ---- The topic ----

void frmEditBody::showTopic() {
    const Topic& topic = project_.outline().at(project_.currentIndex());
    icboImage.select(topic.image);
    if (icboImage.selectedKey().empty()) {
        icboImage.select("Auto");
    }
    txtShortDesc.setText(topic.shortDescription);
    txtKeywords.setText(topic.keywords);
    txtBody.setText(topic.body);
    image_ = icboImage.selectedKey();
}

void frmEditBody::fillFromTemplate() {
    const Text& fileName = project_.options().templateFile;
    if (!txtBody.text().empty() || fileName.empty()) {
        return;
    }
    const auto text = memory_.templates.text(fileName, project_.options().codePage());
    if (!text) {
        Prompter::current().ask(this,
                                {"Template file: " + fileName + " Not Found - Ignored",
                                 "Missing File", ui::Buttons::ok, ui::QuestionIcon::exclamation});
    } else if (!text->empty()) {
        txtBody.setText(*text);
        fromTemplate_ = true;
        lookForEdits();
    }
}

void frmEditBody::forgetTemplate() {
    fromTemplate_ = false;
    lookForEdits();
}

/// What has been taken back to the beginning, or to what was saved last, is no edit any more.
void frmEditBody::lookForEdits() {
    setChangedState(fromTemplate_ || txtBody.isEdited() || txtKeywords.isEdited()
                    || txtShortDesc.isEdited() || icboImage.selectedKey() != image_);
    Edited.raise();
    updateCommands();
}

void frmEditBody::updateCommands() {
    commands_.update();
    const ui::TextBox* box = focusedTextBox();
    commands_.setSubject("mnuEditUndo", box == nullptr ? Text() : box->undoName());
    commands_.setSubject("mnuEditRedo", box == nullptr ? Text() : box->redoName());
}

void frmEditBody::setChangedState(bool changed) {
    if (changed_ != changed) {
        changed_ = changed;
        tbTools.setImage("Save", changed ? "SaveChanged" : "Save");
        tbTools.setToolTip("Save", changed ? "Save - Current Data Changed" : "Save");
        setChanged(changed);
    }
}

Topic frmEditBody::editedTopic() const {
    Topic topic = project_.outline().at(project_.currentIndex());
    topic.image = icboImage.selectedKey();
    topic.shortDescription = txtShortDesc.text();
    topic.keywords = txtKeywords.text();
    topic.body = txtBody.text();
    return topic;
}

void frmEditBody::mnuFileSave_Click() {
    if (!changed_) {
        return;
    }
    const model::UndoStep step(project_, "Edit Topic Text");
    storeIn(project_);
    for (ui::TextBox* box : fields()) {
        box->setUnedited();
    }
    image_ = icboImage.selectedKey();
    fromTemplate_ = false;
    setChangedState(false);
}

void frmEditBody::storeIn(model::Project& project) const {
    const int position = project.currentIndex();
    const Topic edited = editedTopic();
    for (const auto field :
         {&Topic::image, &Topic::shortDescription, &Topic::keywords, &Topic::body}) {
        project.setField(position, field, edited.*field);
    }
    project.markChanged(model::statusChanged);
}

void frmEditBody::connectControls() {
    connectBody();
    UI_ON(txtKeywords, Change);
    UI_ON(txtShortDesc, Change);
    UI_ON(icboImage, Change);
    UI_ON(tmrPreview, Tick);
    UI_ON(tbTools, ButtonClick);
    UI_ON(tbTools, ButtonMenuClick);
    for (ui::TextBox* box : fields()) {
        box->SelectionChange.connect([this] { updateCommands(); });
    }
    clipboard_.Change.connect([this] { updateCommands(); });
    FocusChange.connect([this] { updateCommands(); });
    Activated.connect([this] { Raised.raise(); });
    commands_.BeforeRun.connect([this] { txtBody.nameSteps(commands_.running()); });
    commands_.AfterRun.connect([this] {
        txtBody.nameSteps({});
        updateCommands();
    });
}

// ---- The drop-down buttons ----

void frmEditBody::tbTools_ButtonClick(const Text& key) {
    const int number = key.empty() ? 0 : key.back() - '0';
    txtBody.nameSteps(key.starts_with("Heading") ? "Insert Heading" : "Insert Table");
    if (key.starts_with("Heading")) {
        mnuTagHeading_Click(number);
    } else if (key == "NewLine") {
        mnuTableCol_Click(1);
    } else if (key.starts_with("Col")) {
        mnuTableCol_Click(number);
    }
    txtBody.nameSteps({});
    updateCommands();
}

void frmEditBody::tbTools_ButtonMenuClick(const Text& key) {
    if (key.starts_with("Hea")) {
        tbTools.setDropDown(headingButton, key, key);
        return;
    }
    if (key.starts_with("Col")) {
        tableSize_ = validTableSize(key.back() - '0');
    }
    showTableButton(key);
}

void frmEditBody::showTableButton(const Text& key) {
    tbTools.setDropDown(tableButton, key,
                        key == "NewLine" ? "Ins" + std::to_string(tableSize_) : key);
}

} // namespace editor
