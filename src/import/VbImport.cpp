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

/// Why a form gives no topic; empty for one that does.
std::string problemOf(const VbProjectForm& form, bool takesNames) {
    const bool hasTitle = !(takesNames ? titleOf(form) : form.form.caption).empty();
    return form.readError ? form.readError.message()
           : hasTitle     ? std::string()
                          : reasonWithoutCaption(form.form);
}

/// Which forms are wanted, and whether the name of its object is title enough for one.
struct WantedForms {
    std::function<bool(std::size_t)> isWanted;
    bool takesNames;
};

void importForm(Project& project, const VbProject& source, const VbProjectForm& form,
                bool takesNames, ImportOutcome& outcome) {
    if (form.path.empty()) {
        outcome.skipped.push_back({source.file, "a form without a file"});
        return;
    }
    if (project.outline().full()) {
        ++outcome.leftOut;
        return;
    }
    if (const std::string problem = problemOf(form, takesNames); !problem.empty()) {
        outcome.skipped.push_back({text::nativePath(form.path), problem});
        return;
    }
    VbForm titled = form.form;
    titled.caption = titleOf(form);
    if (appendTopic(project, topicOf(std::move(titled), project.options().codePage()), outcome)) {
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

ImportOutcome importForms(Project& project, const VbProject& source, const WantedForms& wanted) {
    ImportOutcome outcome;
    const model::UndoStep step(project, "Import VB Project");
    if (project.outline().empty()) {
        appendTopic(project, overviewOf(source.title, project.options().codePage()), outcome);
    }
    if (source.title && *source.title != project.options().projectName) {
        model::ProjectOptions options = project.options();
        options.projectName = *source.title;
        project.setOptions(std::move(options));
        outcome.projectChanged = true;
    }
    for (std::size_t i = 0; i < source.forms.size(); ++i) {
        if (wanted.isWanted(i)) {
            importForm(project, source, source.forms[i], wanted.takesNames, outcome);
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

} // namespace

Text titleOf(const VbProjectForm& form) {
    return form.form.caption.empty() ? form.form.name : form.form.caption;
}

bool isThere(const VbProjectForm& form, const Project& project) {
    const Text title = titleOf(form);
    const Text fileName = fileNameOf(title, project.options().codePage());
    return !title.empty()
           && std::any_of(project.outline().begin(), project.outline().end(),
                          [&](const Topic& topic) {
                              return topic.title == title || topic.fileName == fileName;
                          });
}

VbProject readVbProject(const fs::path& projectFile, const text::CodePage& codePage) {
    VbProject project{projectFile, {}, {}, {}};
    Text text;
    if ((project.readError = text::readTextFile(projectFile, codePage.number(), text))) {
        return project;
    }
    VbProjectFile file = readVbProjectFile(text);
    project.title = std::move(file.title);
    text::FileFinder finder(platform::fullPath(projectFile).parent_path());
    for (Text& path : file.forms) {
        VbProjectForm form{std::move(path), {}, {}};
        if (!form.path.empty()) {
            form.readError = text::readTextFile(finder.find(form.path), codePage.number(), text);
            form.form = form.readError ? VbForm() : readVbForm(text);
        }
        project.forms.push_back(std::move(form));
    }
    return project;
}

ImportOutcome importVbForms(Project& project, const VbProject& source,
                            const std::function<bool(std::size_t)>& isWanted) {
    return importForms(project, source, {isWanted, true});
}

ImportOutcome importVbProject(Project& project, const fs::path& projectFile) {
    const VbProject source = readVbProject(projectFile, project.options().codePage());
    if (source.readError) {
        ImportOutcome outcome;
        outcome.readError = source.readError;
        return outcome;
    }
    return importForms(project, source, {[](std::size_t) { return true; }, false});
}

} // namespace importer
