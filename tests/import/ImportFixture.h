#pragma once

#include <gtest/gtest.h>

#include "import/HelpImport.h"
#include "support/TestFiles.h"

namespace test {

/// Imports into a project that is to be saved in `folder / "out"`.
class ImportFixture : public testing::Test {
protected:
    ImportFixture() {
        std::filesystem::create_directories(folder / "out");
        project.setProjectPath(folder / "out/p.tsp");
    }

    /// "level title file", one a line.
    text::Text outline() const {
        text::Text all;
        for (const model::Topic& topic : project.outline()) {
            all += topic.level + ' ' + topic.title + " [" + topic.fileName + "]\n";
        }
        return all;
    }

    const text::Text& body(int position) const { return project.outline().at(position).body; }

    /// Notes of an outcome, one a line.
    text::Text told(const importer::HelpImportOutcome& outcome) const {
        text::Text all;
        for (const importer::HelpNote& note : outcome.notes) {
            all += lineOf(note, project.outline()) + '\n';
        }
        return all;
    }

    TemporaryFolder folder;
    model::Project project;
};

} // namespace test
