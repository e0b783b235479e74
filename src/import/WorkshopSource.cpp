#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "import/HelpSource.h"
#include "platform/Files.h"
#include "text/Address.h"
#include "text/FileFinder.h"
#include "text/ForeignText.h"
#include "text/Path.h"
#include "text/Unicode.h"
#include "workshop/HelpProject.h"
#include "workshop/PageFacts.h"
#include "workshop/Sitemap.h"

namespace importer {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;

namespace {

constexpr TextView climb = "../";

/// What pages lead to is followed no further.
constexpr std::size_t mostPages = 10000;
constexpr std::uint64_t mostPageBytes = std::uint64_t(64) << 20;

class WorkshopSource : public HelpSource {
public:
    WorkshopSource(const fs::path& file, const std::string& bytes)
        : folder_(platform::fullPath(file).parent_path()), finder_(folder_) {
        const auto include = [this](const std::string& path) -> std::optional<std::string> {
            std::string header;
            const fs::path found =
                finder_.findNative(platform::pathFromUtf8(text::plainPath(path)));
            return leadsElsewhere(path)
                           || platform::readFile(found, header, workshop::mostIncludedBytes)
                       ? std::nullopt
                       : std::optional(header);
        };
        project_ = workshop::readProject(bytes, include);
        const workshop::Options& options = project_.options;
        language = options.language;
        codePage = options.codePage;
        title = options.title.text;
        for (const workshop::WindowType& window : project_.windows) {
            title = title.empty() ? window.caption : title;
        }
        title = title.empty() ? platform::utf8FromPath(file.stem()) : title;
        homePage = options.defaultTopic.text.empty() ? Text() : pageOf(options.defaultTopic.text);
    }

    bool isProject() const {
        return !project_.files.empty() || !project_.options.contentsFile.text.empty();
    }

    void readAll() {
        for (const workshop::Line& line : project_.files) {
            allowFolderOf(line.text);
            addPage(pageOf(line.text), true);
        }
        readContents();
        for (auto& [keyword, target] :
             workshop::keywordsOf(sitemap(project_.options.indexFile.text))) {
            if (keywords.size() < mostEntries) {
                keywords.push_back({keyword, pageOf(target.page)});
            }
        }
        readContexts();
        for (const SourceContext& context : contexts) {
            addPage(context.page, false);
        }
        addPage(homePage, false);
        followLinks();
    }

    std::optional<Text> find(TextView path) const override {
        const Text relative = text::plainPath(path);
        if (relative.empty() || !isAllowed(relative)) {
            return {};
        }
        const auto [known, isNew] = found_.try_emplace(pathKey(relative));
        if (isNew) {
            known->second = search(relative);
        }
        return known->second;
    }

    std::optional<std::string> read(const Text& path) const override {
        std::string bytes;
        const bool failed = static_cast<bool>(platform::readFile(native(path), bytes, largestFile));
        return failed ? std::nullopt : std::optional(bytes);
    }

    std::uint64_t sizeOf(const Text& path) const override {
        std::error_code error;
        const std::uint64_t size = fs::file_size(native(path), error);
        return error ? 0 : size;
    }

private:
    fs::path native(const Text& path) const { return folder_ / platform::pathFromUtf8(path); }

    /// Only what the project itself names may lie above its folder, and what lies beside that.
    bool isAllowed(TextView relative) const {
        if (!relative.starts_with(climb)) {
            return true;
        }
        return std::any_of(outside_.begin(), outside_.end(), [relative](const Text& folder) {
            return relative.starts_with(folder)
                   && !relative.substr(folder.size()).starts_with(climb);
        });
    }

    void allowFolderOf(TextView path) {
        if (const Text relative = text::plainPath(path);
            !leadsElsewhere(path) && relative.starts_with(climb)) {
            outside_.emplace(folderOf(relative));
        }
    }

    /// A link in the file system may lead a page anywhere: then it is none of the project's.
    std::optional<Text> search(const Text& relative) const {
        const fs::path file = finder_.findNative(platform::pathFromUtf8(relative));
        std::error_code error;
        if (!fs::is_regular_file(file, error)
            || (!relative.starts_with(climb) && platform::leadsOutOf(folder_, file))) {
            return {};
        }
        Text spelt = platform::utf8FromPath(file.lexically_relative(folder_));
        std::replace(spelt.begin(), spelt.end(), '\\', '/');
        return spelt;
    }

    /// As find() spells it, with its anchor; an address elsewhere, and a page that is not there, as
    /// they stand.
    Text pageOf(TextView page) const {
        const auto found = target({}, page);
        if (!found) {
            return leadsElsewhere(page) ? Text(page) : text::plainPath(page);
        }
        return *found + Text(page.substr(std::min(page.find('#'), page.size())));
    }

    void addPage(TextView page, bool isNamed) {
        const auto found = find(withoutAnchor(page));
        if (found && text::isPageName(*found) && known_.insert(pathKey(*found)).second) {
            pages.push_back(*found);
        } else if (!found && isNamed && text::isPageName(page)) {
            missing_.insert(Text(page));
        }
    }

    std::vector<workshop::SitemapEntry> sitemap(const Text& file) {
        const auto path = file.empty() ? std::nullopt : find(file);
        const auto bytes = path ? read(*path) : std::nullopt;
        if (!bytes) {
            if (!file.empty()) {
                notes.push_back(file + " could not be read");
            }
            return {};
        }
        const unsigned references = text::isAscii(*bytes) ? codePage : workshop::plainReferences;
        auto entries =
            workshop::readSitemap(text::decodedSource(*bytes, codePage).utf8, references).entries;
        std::erase_if(entries, [](const auto& entry) { return entry.name.empty(); });
        return entries;
    }

    void readContents() {
        allowFolderOf(project_.options.contentsFile.text);
        allowFolderOf(project_.options.indexFile.text);
        for (const workshop::SitemapEntry& entry : sitemap(project_.options.contentsFile.text)) {
            const Text page = entry.targets.empty() ? Text() : entry.targets.front().page;
            if (!addContents({entry.depth, entry.name, page.empty() ? Text() : pageOf(page),
                              imageOf(workshop::pictureOf(entry), entry.isNew)})) {
                break;
            }
            addPage(contents.back().page, false);
        }
        for (const Text& page : missing_) {
            notes.push_back(page + " is in the project's list and cannot be found");
        }
    }

    void readContexts() {
        std::unordered_map<std::string, std::uint32_t> numbers;
        for (const workshop::ContextNumber& each : project_.numbers) {
            numbers.emplace(each.name, each.number);
        }
        for (const workshop::Alias& alias : project_.aliases) {
            allowFolderOf(alias.page.text);
            if (const auto number = numbers.find(alias.name); number != numbers.end()) {
                contexts.push_back({alias.name, number->second, pageOf(alias.page.text)});
            } else {
                notes.push_back("The context \"" + alias.name
                                + "\" has no number in [MAP] and was left out");
            }
        }
    }

    /// A compiler packs what pages lead to, too.
    void followLinks() {
        std::uint64_t total = 0;
        for (std::size_t i = 0; i < pages.size() && pages.size() < mostPages; ++i) {
            total += sizeOf(pages[i]);
            const auto html = total < mostPageBytes ? readText(pages[i]) : std::nullopt;
            if (!html) {
                continue;
            }
            const Text page = pages[i];
            for (const workshop::PageText& address : workshop::readPage(*html).addresses) {
                if (const auto found = target(page, address.text);
                    found && text::isPageName(*found)) {
                    addPage(*found, false);
                }
            }
        }
    }

    workshop::HelpProject project_;
    fs::path folder_;
    mutable text::FileFinder finder_; ///< remembers the folders that it has listed
    mutable std::unordered_map<Text, std::optional<Text>> found_; ///< by the key of the path
    std::set<Text> outside_;
    std::set<Text> missing_;
    std::unordered_set<Text> known_;
};

} // namespace

std::unique_ptr<HelpSource> openWorkshopProject(const fs::path& file, Text& problem) {
    constexpr std::uint64_t mostProjectBytes = std::uint64_t(16) << 20;
    std::string bytes;
    if (const std::error_code error = platform::readFile(file, bytes, mostProjectBytes)) {
        problem = error.message();
        return nullptr;
    }
    auto source = std::make_unique<WorkshopSource>(file, bytes);
    if (!source->isProject()) {
        problem = "is neither a compiled help nor a workshop's project";
        return nullptr;
    }
    source->readAll();
    return source;
}

} // namespace importer
