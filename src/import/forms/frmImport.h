#pragma once

#include "import/TopicImport.h"
#include "import/forms/frmRowChoice.h"

namespace importer {

/// The topics of a project file as rows to be ticked.
class TopicRows : public TickedRows {
public:
    void replace(std::vector<model::Topic> topics);

    text::Text cell(int row, int column) const override;
    int indent(int row, int column) const override;

private:
    std::vector<text::Text> titles_;
    std::vector<int> depths_;
};

/// Lets the author choose topics of another project file, which are appended to the open project.
/// Stays open beside the main window.
class frmImport : public frmRowChoice {
public:
    /// The project is not owned and must outlive the window.
    frmImport(ui::Window& owner, model::Project& project, std::filesystem::path file);

    /// Reads the file and lists its topics, or says what is wrong with it.
    std::error_code fill();

    ui::Event<const ImportOutcome&> Imported;

    void cmdOK_Click() override;

private:
    model::Project& project_;
    std::filesystem::path file_;
    TopicRows& rows_; ///< the list's
};

} // namespace importer
