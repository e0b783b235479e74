#include "help/HelpCheck.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "help/BinaryCheck.h"
#include "help/HelpBook.h"
#include "help/ProjectCheck.h"
#include "help/SearchCheck.h"
#include "help/TopicReader.h"
#include "text/Address.h"
#include "text/CodePage.h"
#include "text/ForeignText.h"
#include "text/Path.h"
#include "workshop/Encoding.h"
#include "workshop/PageFacts.h"

namespace help {

namespace {

class Check {
public:
    explicit Check(HelpBook& book) : book_(book), faults_(book.file().faults()) {}

    std::vector<std::string> run() {
        if (!book_.isWhole()) {
            faults_.emplace_back("parts of the file are missing or damaged");
        }
        readPages();
        checkLists();
        checkContexts();
        checkTopics();
        checkLinks();
        for (auto* check : {contentsFaults, keywordFaults}) {
            append(check(book_.file()));
        }
        append(searchFaults(book_.file(), book_.facts()));
        return std::move(faults_);
    }

private:
    struct Page {
        std::string path;
        workshop::PageFacts facts;
        std::unordered_set<std::string> anchors;
    };

    void append(std::vector<std::string> faults) {
        faults_.insert(faults_.end(), std::make_move_iterator(faults.begin()),
                       std::make_move_iterator(faults.end()));
    }
    void readPages();
    void checkLists();
    void checkContexts();
    void checkTopics();
    void checkLinks();
    void checkTarget(const std::string& where, const std::string& address,
                     const std::string& folder, const Page* self = nullptr);
    std::string decoded(const std::string& bytes) const {
        return text::CodePage(book_.facts().codePage).decoded(bytes);
    }

    HelpBook& book_;
    std::vector<std::string> faults_;
    std::vector<Page> pages_;
    std::unordered_map<std::string, std::size_t> places_; ///< of pages, by packedKey()
};

void Check::readPages() {
    for (const std::string& path : book_.file().paths()) {
        if (!text::isPageName(path)) {
            continue;
        }
        const std::string bytes = book_.file().read(path).value_or("");
        Page page{path, workshop::readPage(text::decodedPage(bytes, book_.facts().codePage)), {}};
        for (const workshop::PageText& anchor : page.facts.anchors) {
            page.anchors.insert(anchor.text);
        }
        places_.emplace(packedKey(path), pages_.size());
        pages_.push_back(std::move(page));
    }
}

/// An address as it stands in a folder of the help, which ends with a slash. What lies elsewhere is
/// not looked at.
void Check::checkTarget(const std::string& where, const std::string& address,
                        const std::string& folder, const Page* self) {
    if (address.empty() || leadsElsewhere(address)) {
        return;
    }
    const std::string whole = address.substr(0, address.find('?'));
    const std::size_t end = std::min(whole.find('#'), whole.size());
    const Page* page = self;
    if (end > 0) {
        std::string found;
        for (const std::string& name :
             {whole.substr(0, end), text::unescaped(whole.substr(0, end))}) {
            const bool isWhole = name.front() == '/' || name.front() == '\\';
            std::string path = text::plainPath(isWhole ? name : folder + name);
            while (path.starts_with("../")) { // nothing lies above
                path.erase(0, 3);
            }
            path.insert(path.begin(), '/');
            found = book_.file().holds(path) ? path : found;
        }
        if (found.empty()) {
            faults_.push_back(where + ": leads to " + address + ", which is not there");
            return;
        }
        const auto place = places_.find(packedKey(found));
        page = place == places_.end() ? nullptr : &pages_[place->second];
    }
    const std::string place = whole.substr(std::min(end + 1, whole.size()));
    if (page != nullptr && !workshop::hasPlace(page->anchors, place, book_.facts().codePage)) {
        faults_.push_back(where + ": leads to " + address
                          + ", a place that its page does not have");
    }
}

/// Home page, contents and index.
void Check::checkLists() {
    checkTarget("home page", decoded(book_.facts().homePage), "/");
    if (book_.homePage().empty()) {
        faults_.emplace_back("there is no page");
    }
    for (const ContentsEntry& entry : book_.contents()) {
        checkTarget("contents: \"" + entry.target.title + '"', entry.target.page, "/");
    }
    for (const IndexEntry& entry : book_.index()) {
        for (const HelpTarget& target : entry.targets) {
            checkTarget("index: \"" + entry.keyword + '"', target.page, "/");
        }
    }
}

void Check::checkContexts() {
    for (const auto& [number, page] : book_.facts().contexts) {
        const std::string where = "context " + std::to_string(number);
        const std::string found = book_.pageOfContext(number);
        checkTarget(where, found.empty() ? decoded(page) : found, "/");
        if (found.empty() && page.empty()) {
            faults_.push_back(where + ": has no page");
        }
    }
}

/// The table by which contents and index in binary form lead to pages.
void Check::checkTopics() {
    const TopicReader topics(book_.file());
    std::set<std::string> known;
    for (std::size_t topic = 0; topic < topics.size(); ++topic) {
        const std::string where = "topic " + std::to_string(topic);
        const auto address = topics.address(topic);
        if (!address) {
            faults_.push_back(where + ": has no address");
        } else if (known.insert(*address).second) {
            checkTarget(where, decoded(*address), "/");
        }
    }
}

void Check::checkLinks() {
    for (const Page& page : pages_) {
        std::set<std::string> known;
        const std::string& base = page.facts.base;
        if (leadsElsewhere(base)) {
            continue;
        }
        const std::string folder = page.path.substr(0, page.path.rfind('/') + 1)
                                   + base.substr(0, base.find_last_of("/\\") + 1);
        for (const workshop::PageText& address : page.facts.addresses) {
            if (known.insert(address.text).second) {
                checkTarget(page.path + ':' + std::to_string(address.line), address.text, folder,
                            &page);
            }
        }
    }
}

} // namespace

std::optional<std::vector<std::string>> checkHelp(const std::filesystem::path& help) {
    const auto book = HelpBook::open(help);
    return book == nullptr ? std::nullopt : std::optional(Check(*book).run());
}

std::optional<std::vector<std::string>> checkHelp(const std::filesystem::path& help,
                                                  const std::filesystem::path& project) {
    const auto book = HelpBook::open(help);
    if (book == nullptr) {
        return {};
    }
    std::vector<std::string> faults = Check(*book).run();
    for (std::string& difference : differences(*book, project)) {
        faults.push_back(std::move(difference));
    }
    return faults;
}

} // namespace help
