#pragma once

#include "import/HelpImport.h"
#include "import/ImportFixture.h"

namespace test {

inline text::Text item(const text::Text& name, const text::Text& page) {
    return "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name + "\">"
           + (page.empty() ? text::Text() : "<param name=\"Local\" value=\"" + page + "\">")
           + "</OBJECT>\n";
}

/// Helps of other tools in "in", and a project in "out".
class HelpImportFixture : public ImportFixture {
protected:
    void write(const std::filesystem::path& name, const text::Text& bytes) {
        std::filesystem::create_directories((folder / "in" / name).parent_path());
        writeBytes(folder / "in" / name, bytes);
    }

    /// A workshop's project of some files with such contents.
    void writeProject(const text::Text& files, const text::Text& contents,
                      const text::Text& rest = {}) {
        write("h.hhp",
              "[OPTIONS]\nContents file=h.hhc\nTitle=T\xE9st & Co\n" + rest + "[FILES]\n" + files);
        write("h.hhc", "<UL>" + contents + "</UL>");
    }

    importer::HelpImportOutcome import(const importer::HelpImportChoice& choice = {},
                                       bool cuts = false, const text::Text& only = "*",
                                       const char* file = "in/h.hhp") {
        text::Text problem;
        const auto source = importer::HelpSource::open(folder / file, problem);
        EXPECT_TRUE(source) << problem;
        importer::HelpPlan plan =
            source ? importer::planImport(*source, cuts) : importer::HelpPlan();
        if (only != "*") {
            importer::wantOnly(plan, only);
        }
        return source ? importHelp(project, *source, plan, choice) : importer::HelpImportOutcome();
    }

    bool hasNote(const importer::HelpImportOutcome& outcome, const text::Text& part) const {
        return told(outcome).find(part) != text::Text::npos;
    }
};

} // namespace test
