#include "import/forms/frmImport.h"

#include "ui/HelpContext.h"
#include "ui/Prompter.h"
#include "ui/ShowHelp.h"
#include "ui/WaitCursor.h"

namespace importer {

using text::Text;

void TopicRows::replace(std::vector<model::Topic> topics) {
    titles_.clear();
    depths_.clear();
    checked_.assign(topics.size(), false);
    for (model::Topic& topic : topics) {
        titles_.push_back(std::move(topic.title));
        depths_.push_back(model::levelDepth(topic.level));
    }
}

Text TopicRows::cell(int row, int /*column*/) const {
    return titles_[static_cast<std::size_t>(row - 1)];
}

int TopicRows::indent(int row, int /*column*/) const {
    return ui::indentOfLevel(depths_[static_cast<std::size_t>(row - 1)]);
}

frmImport::frmImport(ui::Window& owner, model::Project& project, std::filesystem::path file)
    : Window(Kind::dialog, "frmImport", &owner), project_(project), file_(std::move(file)),
      lblTopics(*this, "Click on the Help Topics to Import:"),
      lvTopics(*this, {{"Topic Title", 5000}}, rows_) {
    setCaption("Import from HTML Topicsmith File");
    lvTopics.setAccessibleName("Help Topics to Import");
    setHelpContext(ui::topicImportHelp);
    cmdOK.setDefault();
    auto ticks = ui::Layout::row();
    ticks.withoutMargins().add(cmdAll).add(cmdNone).addStretch();
    auto buttons = ui::Layout::row();
    buttons.withoutMargins().addStretch().add(cmdOK).add(cmdCancel).add(cmdHelp);
    auto content = ui::Layout::column();
    content.add(lblTopics).add(lvTopics, 1).add(std::move(ticks)).add(std::move(buttons));
    setLayout(std::move(content));
    setSize(6600, 6600);
    UI_ON(lvTopics, ItemCheck);
    UI_ON(cmdAll, Click);
    UI_ON(cmdNone, Click);
    UI_ON(cmdOK, Click);
    UI_ON(cmdCancel, Click);
    UI_ON(cmdHelp, Click);
    lvTopics.setFocus();
}

std::error_code frmImport::fill() {
    FileTopics source;
    {
        const ui::WaitCursor busy;
        source = readFileTopics(file_);
    }
    lvTopics.rowsReplacing();
    rows_.replace(std::move(source.topics));
    lvTopics.rowsReplaced();
    lvTopics.select(1);
    if (const auto message = messageFor(source.stop)) {
        ui::Prompter::current().tell(this, *message);
    }
    return source.readError;
}

void frmImport::lvTopics_ItemCheck(int row) {
    rows_.setChecked(row, !rows_.isChecked(row));
    lvTopics.rowChanged(row);
}

void frmImport::checkAll(bool checked) {
    for (int row = 1; row <= rows_.rowCount(); ++row) {
        rows_.setChecked(row, checked);
        lvTopics.rowChanged(row);
    }
}

void frmImport::cmdHelp_Click() {
    ui::showHelp(helpContext());
}

void frmImport::cmdOK_Click() {
    ImportOutcome outcome;
    {
        const ui::WaitCursor busy;
        outcome = importTopics(project_, file_, [this](int row) { return rows_.isChecked(row); });
    }
    close();
    Imported.raise(outcome);
}

} // namespace importer
