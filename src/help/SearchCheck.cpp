#include "help/SearchCheck.h"

#include <algorithm>

#include "help/HelpPage.h"
#include "help/SearchTable.h"
#include "help/TopicReader.h"
#include "text/Address.h"
#include "text/CodePage.h"
#include "text/Path.h"
#include "workshop/SearchWords.h"

namespace help {

namespace {

class Check {
public:
    Check(const ChmFile& file, const ChmFacts& facts, const SearchTable& table)
        : file_(file), facts_(facts), table_(table), topics_(file), isLedTo_(topics_.size()) {}

    std::vector<std::string> run() {
        if (!facts_.isSearchable) {
            fault("the help does not say that it has one, so that some readers do not use it");
        }
        checkTree();
        checkWords();
        checkPages();
        return std::move(faults_);
    }

private:
    void fault(const std::string& text) { faults_.push_back("search index: " + text); }
    std::string shown(std::string_view word) const {
        return '"' + text::CodePage(table_.codePage()).decoded(word) + '"';
    }

    void checkTree();
    void checkWords();
    void checkPlaces(const SearchTable::Entry& entry);
    void checkPages();

    const ChmFile& file_;
    const ChmFacts& facts_;
    const SearchTable& table_;
    TopicReader topics_;
    std::vector<bool> isLedTo_; ///< by topic
    bool hasBadPlaces_ = false;
    std::vector<std::string> faults_;
};

/// From the root, each word leads to the first leaf that has it.
void Check::checkTree() {
    const auto leaves = table_.allLeaves();
    if (!leaves || leaves->size() != table_.leaves()) {
        fault("is damaged");
        return;
    }
    const std::string* before = nullptr;
    for (const SearchTable::Leaf& leaf : *leaves) {
        const bool isFirst = before == nullptr || *before != leaf.lastWord;
        if (isFirst && table_.leafOf(leaf.lastWord) != leaf.offset) {
            fault("some words up to " + shown(leaf.lastWord) + " are not found");
            return;
        }
        before = &leaf.lastWord;
    }
}

void Check::checkWords() {
    std::string last;
    bool wasTitle = false;
    bool isSorted = true;
    bool hasTitlesFirst = false;
    const bool isSound = table_.walk({}, [&](const SearchTable::Entry& entry) {
        isSorted = isSorted && last <= entry.word;
        if (wasTitle && !entry.isTitle && last == entry.word && !hasTitlesFirst) {
            hasTitlesFirst = true;
            fault("the titles with " + shown(entry.word)
                  + " come before the texts, which some readers then do not find");
        }
        last = entry.word;
        wasTitle = entry.isTitle;
        checkPlaces(entry);
        return true;
    });
    if (!isSorted) {
        fault("its words are not in order");
    }
    if (!isSound) {
        fault("parts of it are damaged");
    }
}

void Check::checkPlaces(const SearchTable::Entry& entry) {
    SearchTable::PageReader page(table_, entry);
    bool isThere = true;
    while (page.next()) {
        isThere = isThere && page.topic < isLedTo_.size();
        if (isThere) {
            isLedTo_[page.topic] = true;
        }
    }
    if ((page.isDamaged || !isThere) && !hasBadPlaces_) {
        hasBadPlaces_ = true;
        fault("the places of " + shown(entry.word) + " are damaged");
    }
}

/// Each page that has words is there.
void Check::checkPages() {
    std::vector<std::string> found;
    for (std::size_t topic = 0; topic < isLedTo_.size(); ++topic) {
        if (isLedTo_[topic]) {
            const std::string address =
                text::CodePage(facts_.codePage).decoded(topics_.address(topic).value_or(""));
            found.push_back(packedKey('/' + text::plainPath(address.substr(0, address.find('#')))));
        }
    }
    std::sort(found.begin(), found.end());
    workshop::SearchWords words(table_.codePage());
    for (const std::string& path : file_.paths()) {
        if (!text::isPageName(path)
            || std::binary_search(found.begin(), found.end(), packedKey(path))) {
            continue;
        }
        const HelpPage page = readHelpPage(file_.read(path).value_or(""), facts_.codePage);
        bool hasWords = false;
        for (const std::string& text : {page.title, page.text}) {
            words.read(text, false, [&](const workshop::SearchWord&) { hasWords = true; });
        }
        if (hasWords) {
            fault("lacks " + path);
        }
    }
}

} // namespace

std::vector<std::string> searchFaults(const ChmFile& file, const ChmFacts& facts) {
    std::string bytes = file.read("/$FIftiMain").value_or("");
    if (bytes.empty()) {
        return facts.isSearchable ? std::vector<std::string>{"search index: is missing"}
                                  : std::vector<std::string>();
    }
    const auto table = SearchTable::read(std::move(bytes));
    return table ? Check(file, facts, *table).run()
                 : std::vector<std::string>{"search index: is damaged"};
}

} // namespace help
