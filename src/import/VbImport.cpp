#include "import/VbImport.h"

#include <algorithm>
#include <unordered_map>

#include "import/VbForm.h"
#include "import/VbProjectFile.h"
#include "model/Helper.h"
#include "platform/Files.h"
#include "text/FileFinder.h"
#include "text/ForeignText.h"
#include "text/Path.h"

namespace importer {

namespace fs = std::filesystem;
using model::Project;
using model::Topic;
using text::appendLine;
using text::Text;
using text::TextView;

namespace {

/// The letter of a topic whose links are still to come; never seen after the import.
constexpr TextView inTheMaking = "G";

constexpr TextView isNew = "N";

Text fileNameOf(TextView title, const text::CodePage& codePage) {
    return model::makeFileName(model::withoutForeignLetters(title, codePage) + ".htm");
}

Topic overviewOf(const std::optional<Text>& projectTitle, const text::CodePage& codePage) {
    Topic topic;
    topic.status = isNew;
    topic.title = projectTitle.value_or("Project") + " Overview";
    topic.fileName = fileNameOf(topic.title, codePage);
    return topic;
}

/// The called forms wait in the keywords until all topics are there.
Topic topicOf(VbForm form, const text::CodePage& codePage) {
    Topic topic;
    topic.status = inTheMaking;
    topic.title = form.caption;
    topic.fileName = fileNameOf(form.caption, codePage);
    if (!form.helpContextId.empty()) {
        topic.contextId = model::makeContextId(form.caption, codePage);
        topic.contextNumber = std::move(form.helpContextId);
    }
    if (!form.menuHtml.empty()) {
        topic.shortDescription = "Menus are available";
    }
    topic.body = std::move(form.menuHtml);
    topic.keywords = std::move(form.calledForms);
    topic.tag = std::move(form.name);
    return topic;
}

/// Authors of an application know a form by its object's name.
std::string reasonWithoutCaption(const VbForm& form) {
    return form.name.empty() ? "no caption" : form.name + " has no caption";
}

/// `path` is as it stands in the project file; not empty.
void importForm(Project& project, TextView path, text::FileFinder& finder, ImportOutcome& outcome) {
    if (project.outline().full()) {
        ++outcome.leftOut;
        return;
    }
    Text text;
    if (const std::error_code error =
            text::readTextFile(finder.find(path), project.options().codePage().number(), text)) {
        outcome.skipped.push_back({text::nativePath(path), error.message()});
        return;
    }
    VbForm form = readVbForm(text);
    if (form.caption.empty()) {
        outcome.skipped.push_back({text::nativePath(path), reasonWithoutCaption(form)});
    } else if (appendTopic(project, topicOf(std::move(form), project.options().codePage()),
                           outcome)) {
        project.markChanged(model::statusNew);
    }
}

/// Puts links to the called forms behind what a topic's body holds.
class CallLinker {
public:
    explicit CallLinker(Project& project) : project_(project) {
        const auto& outline = project.outline();
        for (int position = 1; position <= outline.count(); ++position) {
            // Other topics have an empty tag, and so is the name where code says ".Show" of the
            // form that a With names: the two have nothing to do with each other.
            if (const Text& form = outline.at(position).tag; !form.empty()) {
                forms_.try_emplace(form, position);
            }
        }
    }

    void link(int position) {
        const Text calledForms = project_.outline().at(position).keywords;
        project_.setField(position, &Topic::status, Text(isNew));
        if (calledForms.empty()) {
            return;
        }
        project_.setField(position, &Topic::keywords, {});
        Text body = project_.outline().at(position).body;
        appendLinks(calledForms, body);
        project_.setField(position, &Topic::body, std::move(body));
        if (project_.outline().at(position).shortDescription.empty()) {
            project_.setField(position, &Topic::shortDescription, "Other Windows are opened");
        }
    }

private:
    /// Names that no topic has are left out.
    void appendLinks(TextView calledForms, Text& body) const {
        bool any = false;
        for (std::size_t start = 1; start < calledForms.size();) {
            const std::size_t end = std::min(calledForms.find(';', start), calledForms.size());
            const auto form = forms_.find(Text(calledForms.substr(start, end - start)));
            start = end + 1;
            if (form == forms_.end()) {
                continue;
            }
            if (!any) {
                body += body.empty() ? TextView() : text::lineBreak;
                appendLine(body, "<p>The following Windows are called:</p>");
                appendLine(body, "<ul>");
                any = true;
            }
            const Topic& called = project_.outline().at(form->second);
            appendLine(body, "<li><a href='", called.fileName, "'>", called.title, "</a>");
        }
        if (any) {
            appendLine(body, "</ul>");
        }
    }

    Project& project_;
    std::unordered_map<Text, int> forms_; ///< the first topic of each form
};

} // namespace

ImportOutcome importVbProject(Project& project, const fs::path& projectFile) {
    ImportOutcome outcome;
    Text text;
    if ((outcome.readError =
             text::readTextFile(projectFile, project.options().codePage().number(), text))) {
        return outcome;
    }
    const VbProjectFile file = readVbProjectFile(text);
    const model::UndoStep step(project, "Import VB Project");
    if (project.outline().empty()) {
        appendTopic(project, overviewOf(file.title, project.options().codePage()), outcome);
    }
    if (file.title && *file.title != project.options().projectName) {
        model::ProjectOptions options = project.options();
        options.projectName = *file.title;
        project.setOptions(std::move(options));
        outcome.projectChanged = true;
    }
    text::FileFinder finder(platform::fullPath(projectFile).parent_path());
    for (const Text& form : file.forms) {
        if (form.empty()) {
            outcome.skipped.push_back({projectFile, "a form without a file"});
        } else {
            importForm(project, form, finder, outcome);
        }
    }
    CallLinker linker(project);
    for (int position = 1; position <= project.outline().count(); ++position) {
        if (project.outline().at(position).status == inTheMaking) {
            linker.link(position);
        }
    }
    if (outcome.projectChanged) {
        project.markChanged(model::projectChanged);
    }
    ensureCurrent(project);
    return outcome;
}

} // namespace importer
