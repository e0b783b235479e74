#include "help/IndexSearch.h"

#include <algorithm>

namespace help {

namespace {

using Form = workshop::SearchWord::Form;

constexpr std::size_t topicSize = 16;
constexpr unsigned topicShift = 32; ///< places are a topic and a position in one number

/// The first character of UTF-8, or the last one.
std::string_view firstCharacter(std::string_view utf8) {
    std::size_t end = 1;
    while (end < utf8.size() && (utf8[end] & 0xC0) == 0x80) {
        ++end;
    }
    return utf8.substr(0, end);
}
std::string_view lastCharacter(std::string_view utf8) {
    std::size_t start = utf8.size() - 1;
    while (start > 0 && (utf8[start] & 0xC0) == 0x80) {
        --start;
    }
    return utf8.substr(start);
}

} // namespace

std::unique_ptr<IndexSearch> IndexSearch::open(const ChmFile& file, const ChmFacts& facts,
                                               std::size_t pages) {
    auto table = SearchTable::read(file.read("/$FIftiMain").value_or(std::string()));
    const std::size_t topics = file.read("/#TOPICS").value_or(std::string()).size() / topicSize;
    if (!table || table->pages() < pages || topics == 0) {
        return nullptr;
    }
    return std::unique_ptr<IndexSearch>(
        new IndexSearch(std::move(*table), topics, facts.compiler == "HTML Topicsmith"));
}

IndexSearch::IndexSearch(SearchTable table, std::size_t topics, bool hasAllForms)
    : table_(std::move(table)), words_(table_.codePage()), topics_(topics),
      hasAllForms_(hasAllForms) {}

bool IndexSearch::isWordCharacter(std::string_view utf8) {
    bool isOne = false;
    words_.read(utf8, false, [&isOne](const workshop::SearchWord&) { isOne = true; });
    return isOne;
}

std::optional<IndexSearch::FoundTopics> IndexSearch::findTerm(const SearchTerm& term) {
    Slots folded;
    Slots natural;
    if (!isWordCharacter(firstCharacter(term.text)) || !isWordCharacter(lastCharacter(term.text))) {
        return {};
    }
    words_.position = 0;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> replaced; // by natural words
    words_.read(term.text, false, [&](const workshop::SearchWord& word) {
        if (word.form == Form::natural) {
            natural.push_back({std::string(word.bytes), word.position});
            replaced.emplace_back(word.position, word.end);
        } else if (word.form == Form::folded) {
            folded.push_back({std::string(word.bytes), word.position});
        }
    });
    for (const Slot& slot : folded) {
        const bool isReplaced =
            std::any_of(replaced.begin(), replaced.end(), [&slot](const auto& range) {
                return slot.distance >= range.first && slot.distance < range.second;
            });
        if (!isReplaced) {
            natural.push_back(slot);
        }
    }
    std::sort(natural.begin(), natural.end(),
              [](const Slot& a, const Slot& b) { return a.distance < b.distance; });
    FoundTopics found(topics_);
    if (!findSlots(natural, term.isWhole, found) && !hasAllForms_) {
        findSlots(folded, term.isWhole, found);
    }
    return found;
}

/// Gives the entries of a word, or of all words that begin with it.
void IndexSearch::walkWords(const std::string& word, bool isWhole,
                            const std::function<void(const SearchTable::Entry&)>& take) const {
    table_.walk(word, [&](const SearchTable::Entry& entry) {
        if (isWhole ? entry.word == word : entry.word.starts_with(word)) {
            take(entry);
            return true;
        }
        return entry.word < word;
    });
}

/// False when nothing is found.
bool IndexSearch::findSlots(const Slots& slots, bool isWhole, FoundTopics& found) const {
    if (slots.size() == 1) {
        findWord(slots.front().word, isWhole, found);
    } else if (!slots.empty()) {
        findPhrase(slots, isWhole, true, found);
        findPhrase(slots, isWhole, false, found);
    }
    return std::any_of(found.begin(), found.end(),
                       [](const Found& each) { return each.count > 0; });
}

void IndexSearch::findWord(const std::string& word, bool isWhole, FoundTopics& found) const {
    walkWords(word, isWhole, [&](const SearchTable::Entry& entry) {
        for (SearchTable::PageReader page(table_, entry); page.next();) {
            if (page.topic < found.size()) {
                Found& each = found[page.topic];
                each.count =
                    std::min(each.count + static_cast<int>(page.positions.size()), enoughPlaces);
                each.isInTitle = each.isInTitle || entry.isTitle;
            }
        }
    });
}

/// Words that stand where the first one makes them stand. Of the last one the beginning is enough,
/// unless it has to be whole.
void IndexSearch::findPhrase(const Slots& slots, bool isWhole, bool onlyTitles,
                             FoundTopics& found) const {
    std::vector<std::uint64_t> places;
    for (const Slot& slot : slots) {
        const std::uint64_t distance = slot.distance - slots.front().distance;
        std::vector<std::uint64_t> own;
        walkWords(slot.word, isWhole || &slot != &slots.back(),
                  [&](const SearchTable::Entry& entry) {
                      for (SearchTable::PageReader page(table_, entry);
                           (entry.isTitle || !onlyTitles) && page.next();) {
                          for (const std::uint32_t position : page.positions) {
                              if (position >= distance) {
                                  own.push_back((std::uint64_t(page.topic) << topicShift) + position
                                                - distance);
                              }
                          }
                      }
                  });
        std::sort(own.begin(), own.end());
        std::vector<std::uint64_t> both;
        std::set_intersection(places.begin(), places.end(), own.begin(), own.end(),
                              std::back_inserter(both));
        places = &slot == &slots.front() ? std::move(own) : std::move(both);
    }
    for (const std::uint64_t place : places) {
        if (const std::uint64_t topic = place >> topicShift; topic < found.size()) {
            found[topic].count = std::min(found[topic].count + 1, enoughPlaces);
            found[topic].isInTitle = found[topic].isInTitle || onlyTitles;
        }
    }
}

std::optional<std::vector<IndexSearch::Answer>> IndexSearch::find(const HelpQuestion& question) {
    std::vector<int> scores(topics_);
    for (const HelpQuestion::Terms& terms : question.alternatives()) {
        std::vector<int> own(topics_);
        std::vector<char> fails(topics_, 0);
        std::vector<char> inTitle(topics_, 1);
        for (const SearchTerm& term : terms) {
            const auto found = findTerm(term);
            if (!found) {
                return {};
            }
            for (std::size_t topic = 0; topic < topics_; ++topic) {
                const Found& each = (*found)[topic];
                fails[topic] |= (each.count == 0) != term.isExcluded ? 1 : 0;
                inTitle[topic] &= each.isInTitle || term.isExcluded ? 1 : 0;
                own[topic] += each.count;
            }
        }
        for (std::size_t topic = 0; topic < topics_; ++topic) {
            const int score = own[topic] + (inTitle[topic] != 0 ? titleBonus : 0);
            scores[topic] = std::max(scores[topic], fails[topic] != 0 ? 0 : score);
        }
    }
    std::vector<Answer> answers;
    for (std::size_t topic = 0; topic < topics_; ++topic) {
        if (scores[topic] > 0) {
            answers.push_back({static_cast<std::uint32_t>(topic), scores[topic]});
        }
    }
    return answers;
}

} // namespace help
