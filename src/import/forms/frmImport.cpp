#include "import/forms/frmImport.h"

#include "ui/Prompter.h"
#include "ui/WaitCursor.h"

namespace importer {

using text::Text;

void TopicRows::replace(std::vector<model::Topic> topics) {
    titles_.clear();
    depths_.clear();
    ticks_.assign(topics.size(), false);
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
    : frmRowChoice(owner,
                   {"frmImport",
                    "Import from HTML Topicsmith File",
                    "Click on the Help Topics to Import:",
                    "Help Topics to Import",
                    {{"Topic Title", 5000}},
                    6600,
                    ui::topicImportHelp},
                   std::make_unique<TopicRows>()),
      project_(project), file_(std::move(file)), rows_(static_cast<TopicRows&>(rows())) {}

std::error_code frmImport::fill() {
    FileTopics source;
    {
        const ui::WaitCursor busy;
        source = readFileTopics(file_);
    }
    replaceRows([&] { rows_.replace(std::move(source.topics)); });
    if (const auto message = messageFor(source.stop)) {
        ui::Prompter::current().tell(this, *message);
    }
    return source.readError;
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
