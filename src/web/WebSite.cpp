#include "web/WebSite.h"

#include "generate/TopicValidation.h"
#include "model/PagePath.h"
#include "model/Variables.h"
#include "platform/Files.h"
#include "text/Path.h"
#include "web/Assets.h"
#include "web/PageMemory.h"
#include "web/SearchData.h"
#include "web/SiteData.h"
#include "web/SiteFolder.h"
#include "web/SitePages.h"

namespace web {

namespace fs = std::filesystem;
using model::Project;
using text::append;
using text::lineBreak;
using text::Text;
using text::TextView;

namespace {

/// A project of its own, whose topics a help generation would not have to repair.
Project repaired(const Project& project, Text& report) {
    Project copy;
    model::TopicOutline outline = project.outline();
    const std::vector<model::Variable> variables = model::shownVariables(project.options());
    for (int position = 1; position <= outline.count() && !variables.empty(); ++position) {
        outline.at(position).body = model::withVariables(outline.at(position).body, variables);
    }
    copy.replace(std::move(outline), project.options(), project.projectPath());
    generate::ReportHeaders headers;
    generate::repairContexts(copy, report, headers);
    generate::renameDuplicateFiles(copy, report, headers);
    generate::reportDuplicateContexts(copy.outline(), report, headers);
    return copy;
}

class SiteRun {
public:
    SiteRun(const Project& project, const SiteRequest& request, SiteFolder& folder)
        : outline_(project.outline()), options_(project.options()), map_(outline_),
          sources_(project.projectPath(), request.programFolder), links_(outline_, map_, sources_),
          pages_(outline_, options_, map_, links_), folder_(folder),
          search_(outline_, map_, folder) {}

    void addStyle() {
        folder_.add(Text(stylePlace), pages_.projectStyle() + Text(siteStyle));
        folder_.add(Text(scriptPlace), pages_.script());
        const Text sheet = sources_.contentsOf(links_.optionPlace(options_.cssFile));
        isOnlyForLight_ = !sheet.empty() && sheet.find("prefers-color-scheme") == Text::npos;
        pages_.setOnlyForLight(isOnlyForLight_);
    }

    void addPages() {
        PageMemory memory(PageMemory::frameOf(outline_, options_, isOnlyForLight_),
                          static_cast<std::size_t>(map_.count()),
                          folder_.contentsOf(Text(memoryPlace)).value_or(""));
        addAround(memory);
        for (int position = 1; position <= map_.count(); ++position) {
            if (map_.hasPage(position)) {
                addTopic(memory, position);
            }
        }
        folder_.add(Text(memoryPlace), memory.format());
    }

    void shareSearch() { search_.shareWork(); }

    void addSearch() { search_.addTo(folder_); }

    /// To be called when all is known that pages and style name.
    void addSources() {
        for (const auto& [place, source] : sources_.collect()) {
            folder_.addCopy(place, source);
        }
    }

    model::FileFailures faults(const fs::path& folder) const {
        model::FileFailures faults;
        for (int position = 1; position <= map_.count(); ++position) {
            const Text& name = outline_.at(position).fileName;
            if (!map_.hasPage(position) && !name.empty()) {
                faults.push_back({model::pagePath(folder / model::pageFolderName, name),
                                  Text(model::pageNameFault(name)) + " (topic "
                                      + std::to_string(position) + ")"});
            }
        }
        return faults;
    }

private:
    /// A page of a topic; the first one is also the front of the site.
    void addTopic(PageMemory& memory, int position) {
        const std::uint64_t hash = search_.hashOf(position);
        const auto number = static_cast<std::size_t>(position);
        const bool isSame = memory.isSame(number, hash, sources_);
        bool isMade = false;
        const auto add = [&](const Text& place, bool isFront) {
            if (isSame && folder_.isAsWritten(place)) {
                folder_.keep(place);
                return;
            }
            pages_.makeTopic(page_, position, isFront);
            folder_.add(place, page_);
            isMade = true;
        };
        sources_.takeAsked();
        links_.takeNeedsOthers();
        add(map_.at(position).place, false);
        if (position == map_.first()) {
            add(Text(frontPlace), true);
        }
        if (isMade) {
            memory.remember(number, links_.takeNeedsOthers() ? PageMemory::neverSame : hash,
                            sources_.takeAsked());
        }
    }

    /// What shows all topics, and nothing of their texts.
    void addAround(PageMemory& memory) {
        constexpr std::uint64_t hash = 1;
        const bool isSame = memory.isSame(0, hash, sources_);
        sources_.takeAsked();
        const auto add = [&](TextView place, const auto& make) {
            if (isSame && folder_.isAsWritten(Text(place))) {
                folder_.keep(Text(place));
            } else {
                folder_.add(Text(place), make());
            }
        };
        if (map_.first() == 0) {
            add(frontPlace, [&] { return pages_.contentsPage(frontPlace); });
        }
        add(contentsPlace, [&] { return pages_.contentsPage(contentsPlace); });
        add(keywordsPlace, [&] { return pages_.keywordsPage(); });
        add("site/contents.js", [&] { return contentsData(outline_, map_); });
        add("site/keywords.js", [&] { return keywordsData(sortedKeywords(outline_, map_)); });
        add("site/contexts.js", [&] { return contextsData(outline_, map_); });
        if (!isSame) {
            memory.remember(0, hash, sources_.takeAsked());
        }
    }

    const model::TopicOutline& outline_;
    const model::ProjectOptions& options_;
    SiteMap map_;
    SiteSources sources_;
    SiteLinks links_;
    SitePages pages_;
    SiteFolder& folder_;
    SearchData search_;
    bool isOnlyForLight_ = false;
    Text page_; ///< kept for its memory
};

} // namespace

std::optional<model::FileFailure> siteFolderFault(const fs::path& folder, const Project& project) {
    if (platform::isFile(folder)) {
        return model::FileFailure{folder, "is a file, not a folder"};
    }
    const fs::path own = platform::fullPath(project.projectPath()).parent_path();
    if (folder == own || platform::isSameFile(folder, own)) {
        return model::FileFailure{folder, "is the folder of the project itself"};
    }
    return {};
}

fs::path frontPage(const fs::path& folder) {
    return folder / frontPlace;
}

SiteReport generateSite(const Project& project, const SiteRequest& request) {
    SiteReport report;
    append(report.text, "Output to:", lineBreak, text::displayText(frontPage(request.folder)),
           lineBreak);
    const auto list = request.list ? request.list : std::make_shared<SiteList>(request.folder);
    const Project copy = repaired(project, report.text);
    SiteFolder folder(request.folder, *list, request.isClean);
    SiteRun run(copy, request, folder);
    run.shareSearch();
    run.addStyle();
    run.addPages();
    run.addSources();
    folder.writeAdded();
    run.addSearch();
    folder.writeAdded();
    folder.finish();
    report.failures = run.faults(request.folder);
    for (model::FileFailure& failure : folder.takeFailures()) {
        report.failures.push_back(std::move(failure));
    }
    append(report.text, lineBreak, "Total Help Topics: ", std::to_string(copy.outline().count()),
           lineBreak, "Files written: ", std::to_string(folder.written()), lineBreak,
           "Files unchanged: ", std::to_string(folder.kept()), lineBreak,
           "Files removed: ", std::to_string(folder.removed()), lineBreak, lineBreak,
           "Generation Complete.");
    return report;
}

} // namespace web
