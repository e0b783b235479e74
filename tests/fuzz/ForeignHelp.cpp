#include <algorithm>
#include <cstdint>
#include <filesystem>

#include "Require.h"
#include "SoundTopics.h"
#include "import/ForeignPage.h"
#include "import/HelpImport.h"
#include "workshop/Sitemap.h"

namespace {

/// A help whose files are the parts of the input: its contents, then pages, with "\1" between.
class FuzzedHelp : public importer::HelpSource {
public:
    explicit FuzzedHelp(std::string_view bytes) {
        for (std::size_t at = 0; at <= bytes.size();) {
            const std::size_t end = std::min(bytes.find('\1', at), bytes.size());
            parts_.emplace_back(bytes.substr(at, end - at));
            at = end + 1;
        }
        for (std::size_t i = 1; i < parts_.size(); ++i) {
            pages.push_back(std::to_string(i) + ".htm");
        }
        for (const auto& entry : workshop::readSitemap(parts_.front()).entries) {
            const std::string page = entry.targets.empty() ? "" : entry.targets.front().page;
            contents.push_back({entry.depth, entry.name, page});
            keywords.push_back({entry.name, page});
            contexts.push_back({entry.name, static_cast<std::uint32_t>(entry.name.size()), page});
        }
    }

    std::optional<std::string> find(std::string_view path) const override {
        const auto found = std::find(pages.begin(), pages.end(), path);
        return found == pages.end() ? std::nullopt : std::optional(*found);
    }
    std::optional<std::string> read(const std::string& path) const override {
        return parts_[static_cast<std::size_t>(std::stoi(path))];
    }
    std::uint64_t sizeOf(const std::string& path) const override { return read(path)->size(); }

private:
    std::vector<std::string> parts_;
};

} // namespace

/// Contents and pages of other tools' help make a sound outline, whatever they are.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const FuzzedHelp help(bytes);
    for (const bool cuts : {false, true}) {
        model::Project project;
        project.setProjectPath(std::filesystem::temp_directory_path() / "no" / "project.tsp");
        const importer::HelpPlan plan = importer::planImport(help, cuts);
        const auto outcome = importer::importHelp(project, help, plan, {});
        require(outcome.filesWritten == 0, "a file came from nowhere");
        requireSoundTopics(project.outline());
    }
    const std::string html(bytes);
    require(importer::withoutDoubleQuotes(html).size() <= html.size() * 6, "quotes grow");
    require(importer::plainText(importer::htmlFromText(html)).find('\n') == std::string::npos,
            "a text of several lines");
    return 0;
}
