#include "help/HelpBook.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_set>

#include "help/BinaryLists.h"
#include "platform/Files.h"
#include "text/Address.h"
#include "text/CodePage.h"
#include "text/ForeignText.h"
#include "text/Path.h"
#include "text/Text.h"
#include "workshop/Encoding.h"

namespace help {

namespace {

/// What comes behind so much is not searched: it would not fit into memory.
constexpr std::size_t mostPageBytes = std::size_t(256) << 20;

bool hasPageEnding(std::string_view path) {
    return text::hasEnding(path, ".htm") || text::hasEnding(path, ".html");
}

bool isAddress(std::string_view text) {
    constexpr std::size_t shortest = 2; // one letter is a drive
    const std::size_t colon = text.find(':');
    return colon != std::string_view::npos && colon >= shortest
           && text.find_first_of("/\\#?") > colon;
}

bool isPlain(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) == 0; });
}

} // namespace

std::unique_ptr<HelpBook> HelpBook::open(const std::filesystem::path& path) {
    auto file = ChmFile::open(path);
    return file == nullptr ? nullptr
                           : std::unique_ptr<HelpBook>(new HelpBook(path, std::move(file)));
}

HelpBook::HelpBook(std::filesystem::path path, std::unique_ptr<ChmFile> file)
    : path_(std::move(path)), file_(std::move(file)), facts_(readFacts(*file_)) {
    chooseCodePage();
    title_ = decoded(facts_.title);
    if (title_.empty()) {
        title_ = platform::utf8FromPath(path_.stem());
    }
    readContents();
    chooseHomePage();
}

std::string HelpBook::decoded(const std::string& bytes) const {
    return isPlain(bytes) ? bytes : text::CodePage(facts_.codePage).decoded(bytes);
}

std::optional<std::string> HelpBook::read(const std::string& path) const {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    auto bytes = file_->read(path);
    if (bytes && hasPageEnding(path)) {
        bytes = text::decodedPage(*bytes, facts_.codePage).insert(0, byteOrderMark);
    }
    return bytes;
}

/// A page as it stands in contents or index; another help's page and a place elsewhere stay as
/// they are.
std::string HelpBook::pathOf(std::string_view local) const {
    if (local.empty() || leadsElsewhere(local)) {
        return std::string(local);
    }
    const std::size_t anchor = std::min(local.find('#'), local.size());
    std::string path = text::plainPath(local.substr(0, anchor));
    while (path.starts_with("../")) { // nothing lies above
        path.erase(0, 3);
    }
    return "/" + path + std::string(local.substr(anchor));
}

std::string HelpBook::sitemapBytes(const std::string& file) const {
    if (file.empty()) {
        return {};
    }
    const auto bytes = file_->read(pathOf(decoded(file)));
    return bytes ? *bytes : file_->read(pathOf(file)).value_or("");
}

/// There is help whose texts are not in the code page of its language, but in that of its pages.
void HelpBook::chooseCodePage() {
    constexpr std::size_t enoughPages = 8;
    constexpr unsigned windowsPages[] = {874,  932,  936,  949,  950,  1250, 1251,
                                         1252, 1253, 1254, 1255, 1256, 1257, 1258};
    const std::string contents = sitemapBytes(facts_.contentsFile);
    if (isPlain(contents) || text::decodedSource(contents, facts_.codePage).isUnicode) {
        return;
    }
    std::set<unsigned> named;
    std::size_t count = 0;
    for (const std::string& path : file_->paths()) {
        if (hasPageEnding(path) && count++ < enoughPages) {
            named.insert(text::declaredCodePage(file_->read(path).value_or("")));
        }
    }
    named.erase(0);
    if (named.size() == 1
        && std::find(std::begin(windowsPages), std::end(windowsPages), *named.begin())
               != std::end(windowsPages)) {
        facts_.codePage = *named.begin();
    }
}

/// Workshops write letters beyond ASCII as references to bytes of the code page; a file that has
/// such letters was not written by one.
std::vector<workshop::SitemapEntry> HelpBook::sitemap(const std::string& file) const {
    const std::string bytes = sitemapBytes(file);
    const unsigned references = isPlain(bytes) ? facts_.codePage : workshop::plainReferences;
    auto entries =
        workshop::readSitemap(text::decodedSource(bytes, facts_.codePage).utf8, references).entries;
    // One may stand for another help's contents and have no name.
    std::erase_if(entries, [](const auto& entry) { return entry.name.empty(); });
    return entries;
}

/// With its title; empty for a damaged table.
HelpTarget HelpBook::targetOf(const TopicReader& topics, std::uint32_t topic) const {
    return {text::decodedSource(topics.title(topic), facts_.codePage).utf8,
            pathOf(decoded(topics.address(topic).value_or("")))};
}

void HelpBook::readContents() {
    for (const workshop::SitemapEntry& entry : sitemap(facts_.contentsFile)) {
        const std::string page =
            entry.targets.empty() ? std::string() : pathOf(entry.targets.front().page);
        contents_.push_back(
            {entry.depth, {entry.name, page}, entry.isNew, workshop::pictureOf(entry)});
    }
    if (contents_.empty()) {
        const TopicReader topics(*file_);
        for (const BinaryEntry& entry : readBinaryContents(*file_)) {
            contents_.push_back(
                {entry.depth,
                 entry.topic ? targetOf(topics, *entry.topic) : HelpTarget{decoded(entry.name), {}},
                 false, 0});
        }
    }
}

void HelpBook::chooseHomePage() {
    homePage_ = pathOf(decoded(facts_.homePage));
    if (!homePage_.empty() && file_->holds(withoutAnchor(homePage_))) {
        return;
    }
    const auto inContents =
        std::find_if(contents_.begin(), contents_.end(), [this](const ContentsEntry& entry) {
            return !entry.target.page.empty() && file_->holds(withoutAnchor(entry.target.page));
        });
    if (inContents != contents_.end()) {
        homePage_ = inContents->target.page;
        return;
    }
    const std::vector<std::string>& paths = file_->paths();
    const auto page = std::find_if(paths.begin(), paths.end(), hasPageEnding);
    homePage_ = page == paths.end() ? std::string() : *page;
}

/// A compiler may have written the page's full path on the machine where it ran: then the longest
/// end of it that is a page here counts.
std::string HelpBook::pageOfContext(unsigned number) const {
    const auto found = facts_.contexts.find(number);
    if (found == facts_.contexts.end() || found->second.empty()) {
        return {};
    }
    const std::string whole = pathOf(decoded(found->second));
    const std::string path = withoutAnchor(whole);
    for (std::size_t start = 0; start != std::string::npos; start = path.find('/', start + 1)) {
        if (file_->holds(path.substr(start))) {
            return whole.substr(start);
        }
    }
    return {};
}

/// Where a page first stands in the contents; behind their end when it does not.
std::size_t HelpBook::placeOf(const std::string& page) {
    if (!places_) {
        places_.emplace();
        for (std::size_t i = contents_.size(); i-- > 0;) {
            (*places_)[packedKey(withoutAnchor(contents_[i].target.page))] = i;
        }
    }
    const auto place = places_->find(packedKey(page));
    return place == places_->end() ? contents_.size() : place->second;
}

/// In the order of the contents; those that are not in there come behind.
const std::vector<HelpBook::Page>& HelpBook::pages() {
    if (!pages_) {
        pages_.emplace();
        std::size_t total = 0;
        for (const std::string& path : file_->paths()) {
            if (!hasPageEnding(path) || total > mostPageBytes) {
                continue;
            }
            if (const auto bytes = file_->read(path)) {
                total += bytes->size();
                pages_->push_back({path, readHelpPage(*bytes, facts_.codePage), 0});
            }
        }
        for (Page& page : *pages_) {
            page.place = placeOf(page.path);
        }
        std::stable_sort(pages_->begin(), pages_->end(),
                         [](const Page& a, const Page& b) { return a.place < b.place; });
    }
    return *pages_;
}

const std::string& HelpBook::titleOf(const Page& page) const {
    if (!page.page.title.empty()) {
        return page.page.title;
    }
    return page.place < contents_.size() ? contents_[page.place].target.title : page.path;
}

std::vector<HelpBook::Keyword> HelpBook::fileKeywords() const {
    std::vector<Keyword> keywords;
    for (auto& [keyword, target] : workshop::keywordsOf(sitemap(facts_.indexFile))) {
        keywords.push_back({std::move(keyword), {std::move(target.title), pathOf(target.page)}});
    }
    if (keywords.empty()) {
        const TopicReader topics(*file_);
        for (const BinaryKeyword& keyword : readBinaryIndex(*file_)) {
            for (const std::uint32_t topic : keyword.topics) {
                keywords.push_back({keyword.keyword, targetOf(topics, topic)});
            }
        }
    }
    return keywords;
}

const std::vector<IndexEntry>& HelpBook::index() {
    if (index_) {
        return *index_;
    }
    std::map<std::string, IndexEntry> sorted;
    std::set<std::pair<std::string, std::string>> known; // keywords and pages
    const auto add = [&](const std::string& keyword, HelpTarget target) {
        const std::string key = searchable(keyword);
        if (known.emplace(key, packedKey(target.page)).second) {
            IndexEntry& entry = sorted[key];
            entry.keyword = entry.targets.empty() ? keyword : entry.keyword;
            entry.targets.push_back(std::move(target));
        }
    };
    for (Keyword& each : fileKeywords()) {
        add(each.keyword, std::move(each.target));
    }
    for (const Page& page : pages()) {
        for (const std::string& keyword : page.page.keywords) {
            add(keyword, {titleOf(page), page.path});
        }
    }
    index_.emplace();
    for (auto& [key, entry] : sorted) {
        index_->push_back(std::move(entry));
    }
    return *index_;
}

std::optional<std::vector<HelpBook::Result>> HelpBook::askIndex(const HelpQuestion& question) {
    if (!search_) {
        const std::vector<std::string>& paths = file_->paths();
        const auto pages = std::count_if(paths.begin(), paths.end(), hasPageEnding);
        search_ = IndexSearch::open(*file_, facts_, static_cast<std::size_t>(pages));
    }
    const auto answers = *search_ == nullptr ? std::nullopt : (*search_)->find(question);
    if (!answers) {
        return {};
    }
    std::vector<Result> results;
    const TopicReader topics(*file_);
    for (const IndexSearch::Answer& answer : *answers) {
        auto [title, address] = targetOf(topics, answer.topic);
        const std::string page = withoutAnchor(address);
        if (page.empty()) {
            continue;
        }
        const std::size_t place = placeOf(page);
        if (title.empty()) {
            title = place < contents_.size() ? contents_[place].target.title : page;
        }
        results.push_back({{std::move(title), page}, place, answer.score});
    }
    return results;
}

std::vector<HelpBook::Result> HelpBook::askPages(const HelpQuestion& question) {
    std::vector<Result> results;
    for (const Page& page : pages()) {
        if (const int score = question.score(page.page); score > 0) {
            results.push_back({{titleOf(page), page.path}, page.place, score});
        }
    }
    return results;
}

std::vector<HelpTarget> HelpBook::search(const HelpQuestion& question) {
    auto indexed = askIndex(question);
    std::vector<Result> results = indexed ? std::move(*indexed) : askPages(question);
    std::stable_sort(results.begin(), results.end(), [](const Result& a, const Result& b) {
        return a.score != b.score ? a.score > b.score : a.place < b.place;
    });
    std::vector<HelpTarget> targets;
    std::unordered_set<std::string> known; // several topics may be one page
    for (Result& each : results) {
        if (known.insert(packedKey(each.target.page)).second) {
            targets.push_back(std::move(each.target));
        }
    }
    return targets;
}

std::string HelpBook::wordOn(const std::string& page, const HelpQuestion& question) const {
    const HelpPage text =
        readHelpPage(file_->read(withoutAnchor(page)).value_or(""), facts_.codePage);
    const std::vector<std::string>& words = question.words();
    const auto held = std::find_if(words.begin(), words.end(), [&text](const std::string& word) {
        return text.text.find(word) != std::string::npos;
    });
    return held != words.end() ? *held : words.empty() ? std::string() : words.front();
}

std::string withoutAnchor(const std::string& page) {
    return page.substr(0, page.find('#'));
}

bool leadsElsewhere(std::string_view address) {
    return address.starts_with("//") || address.find("::") != std::string_view::npos
           || isAddress(address);
}

std::optional<BookLink> linkToOtherBook(std::string_view address) {
    constexpr std::string_view divider = "::";
    constexpr std::string_view protocols[] = {"ms-its:", "its:", "mk:@msitstore:"};
    const std::size_t end = address.find(divider);
    const std::string_view place = address.substr(0, end);
    const bool hasProtocol = std::any_of(std::begin(protocols), std::end(protocols),
                                         [address](std::string_view protocol) {
                                             return text::startsWithIgnoringCase(address, protocol);
                                         });
    if (end == std::string_view::npos || (!hasProtocol && !text::hasEnding(place, ".chm"))) {
        return {};
    }
    std::string page(address.substr(end + divider.size()));
    if (!page.starts_with('/')) {
        page.insert(page.begin(), '/');
    }
    const std::string_view name = place.substr(place.find_last_of(":/\\") + 1);
    return BookLink{platform::pathFromUtf8(name), page};
}

std::size_t firstFrom(const std::vector<IndexEntry>& index, std::string_view beginning) {
    const std::string key = searchable(beginning);
    const auto found = std::lower_bound(
        index.begin(), index.end(), key,
        [](const IndexEntry& entry, const auto& k) { return searchable(entry.keyword) < k; });
    return static_cast<std::size_t>(found - index.begin());
}

} // namespace help
