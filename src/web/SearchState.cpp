#include "web/SearchState.h"

#include <charconv>

#include "platform/ContentsHash.h"
#include "platform/Version.h"
#include "web/Assets.h"
#include "web/NumberTable.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr TextView title = "What the search of this web site was made of\n";
constexpr std::uint64_t form = 4; ///< to be changed when the files of a search are made otherwise

std::uint64_t joined(std::uint64_t hash, TextView text) {
    return hashOf(hash + platform::contentsHash(text));
}

void appendNumbers(Text& text, const auto& numbers) {
    for (const auto number : numbers) {
        text::append(text, std::to_string(number), " ");
    }
    text += '\n';
}

/// Takes a line of numbers; false when there is anything else.
template <typename Number>
bool takeNumbers(TextView& text, std::vector<Number>& numbers) {
    while (!text.empty() && text.front() != '\n') {
        const char* end = text.data() + text.size();
        const auto [rest, error] = std::from_chars(text.data(), end, numbers.emplace_back());
        if (error != std::errc() || rest == end || *rest != ' ') {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(rest - text.data()) + 1);
    }
    const bool isLine = !text.empty();
    text.remove_prefix(isLine ? 1 : 0);
    return isLine;
}

} // namespace

SearchState SearchState::of(const model::TopicOutline& outline, const SiteMap& map) {
    SearchState state;
    state.maker = joined(joined(hashOf(form), platform::version), siteScript);
    state.pages.resize(static_cast<std::size_t>(map.count()) + 1);
    for (int position = 1; position <= map.count(); ++position) {
        if (map.hasPage(position)) {
            const model::Topic& topic = outline.at(position);
            state.pages[static_cast<std::size_t>(position)] =
                joined(joined(joined(1, map.at(position).title), topic.keywords), topic.body);
        }
    }
    return state;
}

Text SearchState::format() const {
    Text text(title);
    appendNumbers(text, std::vector<std::uint64_t>{maker, changes, wordFiles});
    appendNumbers(text, firstPages);
    appendNumbers(text, pages);
    return text;
}

std::optional<SearchState> SearchState::parse(TextView text) {
    constexpr std::size_t numbers = 3;
    SearchState state;
    std::vector<std::uint64_t> head;
    if (!text.starts_with(title)) {
        return {};
    }
    text.remove_prefix(title.size());
    if (!takeNumbers(text, head) || head.size() != numbers || !takeNumbers(text, state.firstPages)
        || !takeNumbers(text, state.pages) || state.pages.empty()) {
        return {};
    }
    state.maker = head[0];
    state.changes = head[1];
    state.wordFiles = head[2];
    return state;
}

} // namespace web
