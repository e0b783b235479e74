#include "help/HelpBook.h"
#include "import/HelpSource.h"
#include "text/Path.h"

namespace importer {

using text::Text;
using text::TextView;

namespace {

/// Without the slash in front that paths have in a compiled help.
Text plain(const std::string& page) {
    return page.starts_with('/') && !page.starts_with("//") ? page.substr(1) : page;
}

bool isInternal(TextView path) {
    return path.starts_with("#") || path.starts_with("$") || path.ends_with('/');
}

class CompiledSource : public HelpSource {
public:
    explicit CompiledSource(std::unique_ptr<help::HelpBook> book) : book_(std::move(book)) {
        title = book_->title();
        language = book_->facts().language;
        codePage = book_->facts().codePage;
        homePage = plain(book_->homePage());
        for (const std::string& path : book_->file().paths()) {
            const Text spelt = plain(path);
            paths_.emplace(help::packedKey(spelt), spelt);
            if (text::isPageName(spelt) && !isInternal(spelt)) {
                pages.push_back(spelt);
            }
        }
        readLists();
        for (const auto& [number, page] : book_->facts().contexts) {
            contexts.push_back({{}, number, plain(book_->pageOfContext(number))});
        }
        if (!book_->isWhole()) {
            notes.emplace_back("Parts of the help are damaged and could not be read");
        }
    }

    std::optional<Text> find(TextView path) const override {
        const auto found = paths_.find(help::packedKey(Text(path)));
        return found == paths_.end() ? std::nullopt : std::optional(found->second);
    }

    std::optional<std::string> read(const Text& path) const override {
        return book_->file().read('/' + path);
    }

    std::uint64_t sizeOf(const Text& path) const override {
        return book_->file().sizeOf('/' + path);
    }

private:
    void readLists() {
        for (const help::ContentsEntry& entry : book_->contents()) {
            if (!addContents({entry.depth, entry.target.title, plain(entry.target.page),
                              imageOf(entry.picture, entry.isNew)})) {
                break;
            }
        }
        for (help::HelpBook::Keyword& each : book_->fileKeywords()) {
            if (keywords.size() < mostEntries) {
                keywords.push_back({std::move(each.keyword), plain(each.target.page)});
            }
        }
    }

    std::unique_ptr<help::HelpBook> book_;
    std::unordered_map<std::string, Text> paths_; ///< as they are spelt, by their keys
};

} // namespace

std::unique_ptr<HelpSource> openCompiledHelp(const std::filesystem::path& file, Text& problem) {
    auto book = help::HelpBook::open(file);
    if (book == nullptr) {
        problem = "is damaged: nothing could be unpacked from it";
        return nullptr;
    }
    return std::make_unique<CompiledSource>(std::move(book));
}

} // namespace importer
