#include "generate/GenerationRun.h"

#include <algorithm>
#include <map>
#include <string>

#include "generate/ContentsFile.h"
#include "generate/GeneratedFile.h"
#include "generate/TopicValidation.h"
#include "generate/WorkshopProject.h"
#include "model/PagePath.h"
#include "platform/Files.h"
#include "text/Path.h"

namespace generate {

namespace fs = std::filesystem;
using model::Project;
using model::Topic;
using text::append;
using text::lineBreak;
using text::Text;
using text::TextView;

namespace {

/// One run, step by step. The steps are called in the order in which they stand here.
class GenerationRun {
public:
    GenerationRun(Project& project, const GenerationRequest& request)
        : project_(project), request_(request), folder_(request.workshopFile.parent_path()) {
        append(report_.text, "Output to:", lineBreak, text::displayText(request.workshopFile),
               lineBreak);
    }

    void validate() {
        ReportHeaders headers;
        repairContexts(project_, report_.text, headers);
        renameDuplicateFiles(project_, report_.text, headers);
        reportDuplicateContexts(project_.outline(), report_.text, headers);
    }

    void writeWorkshopFiles() {
        const fs::path contents = siblingFile(request_.workshopFile, "hhc");
        const fs::path index = siblingFile(request_.workshopFile, "hhk");
        const WorkshopFileNames names = {
            text::displayText(siblingFile(request_.workshopFile, "chm").filename()),
            text::displayText(contents.filename()), text::displayText(index.filename())};
        writeText(request_.workshopFile,
                  workshopProject(project_.outline(), project_.options().language(), names));
        writeSibling(contents, contentsFile(project_.outline()));
        // The index is made from the keywords in the pages; the help workshop only wants the file.
        writeSibling(index, {});
    }

    void makeFolders() {
        for (const char* name : {model::pageFolderName, "std", model::imageFolderName}) {
            noteFailure(report_.failures, folder_ / name, platform::createFolder(folder_ / name));
            staysInside(folder_ / name);
        }
    }

    void copyPictures() {
        if (!staysInside(folder_ / model::imageFolderName)) {
            return;
        }
        for (const char* name : copiedPictures(project_.options())) {
            copyPicture(name);
        }
    }

    void showReport() {
        append(report_.text, lineBreak,
               "Total Help Topics: ", std::to_string(project_.outline().count()), lineBreak);
        if (request_.showReport) {
            request_.showReport(report_.text);
        }
    }

    void writePages() {
        Text page;
        for (int position = 1; position <= project_.outline().count(); ++position) {
            makeTopicPage(project_.outline(), project_.options(), position, page, report_.pages);
            writePage(position, page);
        }
    }

    void updateStatus() {
        for (int position = 1; position <= project_.outline().count(); ++position) {
            const Topic& topic = project_.outline().at(position);
            const TextView status = topic.status;
            if (status == "C" || status == "N" || status == "S" || status == "M") {
                project_.setField(position, &Topic::status, topic.body.empty() ? "E" : "");
            }
        }
    }

    /// The project counts as changed until the save has succeeded: the run may have renamed pages.
    void save() {
        project_.markChanged(model::projectChanged);
        noteFailure(report_.failures, project_.projectPath(), request_.save());
    }

    void completeReport() {
        const auto& topics = project_.outline();
        report_.contexts = static_cast<int>(std::count_if(
            topics.begin(), topics.end(), [](const Topic& t) { return !t.contextId.empty(); }));
        const auto line = [this](TextView caption, int number) {
            append(report_.text, lineBreak, caption, std::to_string(number));
        };
        line("Completed Help Topics: ", report_.pages.complete);
        line("Incomplete Help Topics: ", report_.pages.incomplete);
        line("Internet-Web Links: ", report_.pages.webLinks);
        line("Help Topics with Context IDs: ", report_.contexts);
        append(report_.text, lineBreak, lineBreak, "Generation Complete.");
    }

    GenerationReport takeReport() { return std::move(report_); }

private:
    void writePage(int position, TextView page) {
        const Text& fileName = project_.outline().at(position).fileName;
        const fs::path path = model::pagePath(folder_ / model::pageFolderName, fileName);
        if (const TextView fault = model::pageNameFault(fileName); !fault.empty()) {
            report_.failures.push_back({path, std::string(fault) + " (topic "
                                                  + std::to_string(position)
                                                  + "); it is in no list of the workshop's"});
        } else if (pageStaysInside(path, fileName)) {
            writeText(path, page);
        }
    }

    /// The same for all pages whose names have the same folder in them.
    bool pageStaysInside(const fs::path& path, const Text& fileName) {
        Text folder = fileName.substr(0, fileName.find_last_of("/\\") + 1);
        const auto [known, isNew] = stayingPages_.try_emplace(std::move(folder), false);
        if (isNew) {
            known->second = staysInside(path.parent_path());
        }
        return known->second;
    }

    /// Whether a folder is really one of the output's. One that is a link to elsewhere is named,
    /// but only once: whoever made the project must not choose what a generation overwrites.
    bool staysInside(const fs::path& folder) {
        const auto [place, isNew] = staying_.try_emplace(folder, true);
        if (isNew && platform::leadsOutOf(folder_, folder)) {
            place->second = false;
            report_.failures.push_back(
                {folder, "a link leads out of the output folder; nothing was written there"});
        }
        return place->second;
    }

    void writeText(const fs::path& path, TextView text) {
        files_.write(path, project_.options().codePage().encoded(text, text::Missing::reference));
    }

    /// The person may have given the workshop project the name of one of its companions.
    void writeSibling(const fs::path& path, TextView text) {
        if (haveSameName(path, request_.workshopFile)) {
            report_.failures.push_back({path, "is the name of the workshop project"});
        } else {
            writeText(path, text);
        }
    }

    void copyPicture(const char* name) {
        text::Bytes picture;
        const fs::path source = request_.programFolder / name;
        if (const std::error_code error = platform::readFile(source, picture.value)) {
            noteFailure(report_.failures, source, error);
            return;
        }
        files_.write(folder_ / model::imageFolderName / name, picture);
    }

    Project& project_;
    const GenerationRequest& request_;
    fs::path folder_;
    std::map<fs::path, bool> staying_;  ///< what staysInside() has found
    std::map<Text, bool> stayingPages_; ///< and for folders in names of pages
    GenerationReport report_;
    GeneratedFiles files_{project_.projectPath(), report_.failures};
};

} // namespace

std::vector<const char*> copiedPictures(const model::ProjectOptions& options) {
    std::vector<const char*> names = {model::topicPicture};
    if (options.navigationType == model::NavigationType::graphicButtons) {
        constexpr std::pair<model::NavigationSwitch, const char*> buttons[] = {
            {model::linkToFirst, model::homePicture},
            {model::linkToPrevious, model::previousPicture},
            {model::linkToNext, model::nextPicture}};
        for (const auto& [link, name] : buttons) {
            if (options.navigationButtons[link]) {
                names.push_back(name);
            }
        }
    }
    return names;
}

std::optional<text::Message> nothingToGenerate(const Project& project, Text title) {
    if (!project.outline().empty()) {
        return {};
    }
    return text::Message{"No Help Topic Files Found - Nothing to Generate", std::move(title)};
}

GenerationReport generateHelp(Project& project, const GenerationRequest& request) {
    GenerationRun run(project, request);
    run.validate();
    run.writeWorkshopFiles();
    run.makeFolders();
    run.copyPictures();
    run.showReport();
    run.writePages();
    run.updateStatus();
    run.save();
    run.completeReport();
    return run.takeReport();
}

} // namespace generate
