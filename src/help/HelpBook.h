#pragma once

#include "help/ChmFacts.h"
#include "help/IndexSearch.h"
#include "help/TopicReader.h"
#include "workshop/Sitemap.h"

namespace help {

/// A place that contents, index or search lead to.
struct HelpTarget {
    std::string title;
    std::string page; ///< as it stands in the file; empty for none
};

struct ContentsEntry {
    int depth = 1; ///< from 1
    HelpTarget target;
    bool isNew = false; ///< has the mark for what is new
    int picture = 0;    ///< the number of its picture; 0 for the viewer's own choice
};

struct IndexEntry {
    std::string keyword;
    std::vector<HelpTarget> targets; ///< at least one
};

/// A compiled help file as its reader sees it. Texts are in UTF-8. Pages are paths in the file, as
/// in "/html/setup.htm#part", or addresses elsewhere, as in "http://…".
class HelpBook {
public:
    /// Null when the file cannot be read or is no compiled help.
    static std::unique_ptr<HelpBook> open(const std::filesystem::path& path);

    const std::filesystem::path& path() const { return path_; }
    bool isWhole() const { return file_->isWhole(); } ///< false when parts are damaged
    const ChmFile& file() const { return *file_; }
    const ChmFacts& facts() const { return facts_; }
    const std::string& title() const { return title_; } ///< the file's name where it has none

    const std::vector<ContentsEntry>& contents() const { return contents_; }

    /// The page that is shown first; empty for a help without pages.
    const std::string& homePage() const { return homePage_; }

    /// Empty for a number that the help does not know.
    std::string pageOfContext(unsigned number) const;

    /// The bytes of a page or picture, by its path without "#…"; nothing when it is not there. A
    /// page is in UTF-8 and says so with a byte order mark.
    std::optional<std::string> read(const std::string& path) const;

    /// In alphabetical order: from the index file, and from the pages, as a compiler may leave the
    /// keywords there. All pages are read when it is first asked for.
    const std::vector<IndexEntry>& index();

    /// A keyword, behind those above it, and a place that it leads to.
    struct Keyword {
        std::string keyword;
        HelpTarget target;
    };

    /// In the order of the index file, without what only the pages hold.
    std::vector<Keyword> fileKeywords() const;

    /// The pages that answer a question, the best ones first: from the help's own index, or from
    /// the pages, which are all read then.
    std::vector<HelpTarget> search(const HelpQuestion& question);

    /// What there is to mark on a page that was found: the first word of the question that it
    /// holds.
    std::string wordOn(const std::string& page, const HelpQuestion& question) const;

private:
    struct Page {
        std::string path;
        HelpPage page;
        std::size_t place; ///< in the contents
    };

    struct Result {
        HelpTarget target;
        std::size_t place = 0; ///< of the page in the contents
        int score = 0;
    };

    HelpBook(std::filesystem::path path, std::unique_ptr<ChmFile> file);
    std::string decoded(const std::string& bytes) const;
    std::string pathOf(std::string_view local) const;
    std::string sitemapBytes(const std::string& file) const;
    std::vector<workshop::SitemapEntry> sitemap(const std::string& file) const;
    HelpTarget targetOf(const TopicReader& topics, std::uint32_t topic) const;
    void chooseCodePage();
    void readContents();
    void chooseHomePage();
    const std::vector<Page>& pages();
    std::size_t placeOf(const std::string& page);
    std::optional<std::vector<Result>> askIndex(const HelpQuestion& question);
    std::vector<Result> askPages(const HelpQuestion& question);
    const std::string& titleOf(const Page& page) const;

    std::filesystem::path path_;
    std::unique_ptr<ChmFile> file_;
    ChmFacts facts_;
    std::string title_;
    std::string homePage_;
    std::vector<ContentsEntry> contents_;
    std::optional<std::vector<Page>> pages_;
    std::optional<std::vector<IndexEntry>> index_;
    std::optional<std::unordered_map<std::string, std::size_t>> places_; ///< see placeOf()
    std::optional<std::unique_ptr<IndexSearch>> search_; ///< null where there is none
};

/// A page without "#…".
std::string withoutAnchor(const std::string& page);

/// Whether an address is none of a file in the same help.
bool leadsElsewhere(std::string_view address);

/// A page of another help file, as links between help files name it.
struct BookLink {
    std::filesystem::path file; ///< its name, without folders
    std::string page;           ///< as in HelpBook
};

/// Nothing for any other address.
std::optional<BookLink> linkToOtherBook(std::string_view address);

/// Where in a list sorted like an index the entries begin that begin with a text; the list's size
/// when all come before it.
std::size_t firstFrom(const std::vector<IndexEntry>& index, std::string_view beginning);

} // namespace help
