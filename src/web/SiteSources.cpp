#include "web/SiteSources.h"

#include <algorithm>

#include "generate/PageAddress.h"
#include "platform/Files.h"
#include "text/Path.h"
#include "workshop/PageFacts.h"

namespace web {

namespace fs = std::filesystem;
using text::Text;

namespace {

constexpr std::uint64_t largestRead = std::uint64_t(16) << 20U;

} // namespace

std::optional<Text> SiteSources::want(const Text& place) {
    const auto [answer, isNew] = asked_.try_emplace(place);
    questions_.push_back(&*answer);
    if (!isNew) {
        return answer->second;
    }
    if (auto found = files_.find(place)) {
        answer->second = found->place;
        if (wanted_.emplace(found->place, std::move(found->file)).second) {
            unread_.push_back(*answer->second);
        }
    }
    return answer->second;
}

void SiteSources::repeat(std::size_t from, std::size_t to) {
    for (; from < to; ++from) {
        questions_.push_back(questions_[from]);
    }
}

std::vector<SiteSources::Asked> SiteSources::takeAsked() {
    std::vector<const Answer*> lately(questions_.begin() + static_cast<std::ptrdiff_t>(taken_),
                                      questions_.end());
    taken_ = questions_.size();
    std::sort(lately.begin(), lately.end(),
              [](const Answer* a, const Answer* b) { return a->first < b->first; });
    lately.erase(std::unique(lately.begin(), lately.end()), lately.end());
    std::vector<Asked> asked;
    asked.reserve(lately.size());
    for (const Answer* answer : lately) {
        asked.push_back({answer->first, answer->second});
    }
    return asked;
}

const std::map<Text, fs::path>& SiteSources::collect() {
    for (; !unread_.empty(); unread_.pop_front()) {
        follow(Text(unread_.front()));
    }
    return wanted_;
}

Text SiteSources::contentsOf(const Text& place) const {
    Text contents;
    const auto found = wanted_.find(place);
    return found != wanted_.end() && !platform::readFile(found->second, contents, largestRead)
               ? contents
               : Text();
}

void SiteSources::follow(const Text& place) {
    const bool isStyle = text::hasEnding(place, ".css");
    if (!isStyle && !text::hasEnding(place, ".htm") && !text::hasEnding(place, ".html")) {
        return;
    }
    const Text contents = contentsOf(place);
    const auto addresses =
        isStyle ? workshop::readStyleSheet(contents) : workshop::readPage(contents).addresses;
    for (const workshop::PageText& address : addresses) {
        if (const Text named = generate::placeBeside(place, address.text); !named.empty()) {
            want(named);
        }
    }
}

} // namespace web
