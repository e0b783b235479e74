#include "web/PageMemory.h"

#include <charconv>

#include "platform/Version.h"
#include "web/NumberTable.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr TextView title = "What the pages of this web site were made of\n";
constexpr std::uint64_t form = 1; ///< to be changed when pages are made otherwise

class Hash {
public:
    void add(std::uint64_t number) { hash_ = hashOf(hash_ + hashOf(number)); }
    void add(TextView text) { hash_ = hashOf(hash_ + hashOf(text)); }
    std::uint64_t value() const { return hash_; }

    // As a visitor of options.
    void title(const Text& text) { add(TextView(text)); }
    void html(const Text& text) { add(TextView(text)); }
    void name(const Text& text) { add(TextView(text)); }
    void flag(bool flag) { add(std::uint64_t(flag ? 1 : 0)); }
    void navigation(model::NavigationType type) { add(static_cast<std::uint64_t>(type)); }

private:
    std::uint64_t hash_ = hashOf(form);
};

/// Takes what stands before a character, and that.
TextView takeUntil(TextView& text, char end) {
    const TextView taken = text.substr(0, text.find(end));
    text.remove_prefix(std::min(taken.size() + 1, text.size()));
    return taken;
}

std::uint64_t numberOf(TextView digits) {
    std::uint64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

} // namespace

std::uint64_t PageMemory::frameOf(const model::TopicOutline& outline,
                                  const model::ProjectOptions& options, bool isOnlyForLight) {
    Hash hash;
    hash.add(TextView(platform::version));
    model::visitOptions(options, hash);
    hash.add(TextView(options.languageTag));
    hash.flag(isOnlyForLight);
    for (int position = 1; position <= outline.count(); ++position) {
        const model::Topic& topic = outline.at(position);
        for (const Text* text : {&topic.level, &topic.title, &topic.fileName, &topic.contextId,
                                 &topic.contextNumber, &topic.shortDescription, &topic.keywords}) {
            hash.add(TextView(*text));
        }
    }
    return hash.value();
}

/// Each page is a line: its number, its hash, and for each file the place and what was found, with
/// a tab behind each.
PageMemory::PageMemory(std::uint64_t frame, TextView before) : frame_(frame) {
    if (!before.starts_with(title)) {
        return;
    }
    before.remove_prefix(title.size());
    if (numberOf(takeUntil(before, '\n')) != frame) {
        return;
    }
    while (!before.empty()) {
        TextView line = takeUntil(before, '\n');
        Page& page = before_[numberOf(takeUntil(line, '\t'))];
        page.hash = numberOf(takeUntil(line, '\t'));
        while (!line.empty()) {
            const TextView place = takeUntil(line, '\t');
            page.files.push_back({Text(place), Text(takeUntil(line, '\t'))});
        }
    }
}

bool PageMemory::isSame(std::size_t page, std::uint64_t hash, SiteSources& sources) {
    const auto found = before_.find(page);
    if (found == before_.end() || hash == neverSame || found->second.hash != hash) {
        return false;
    }
    bool isSame = true;
    for (const File& file : found->second.files) {
        isSame = sources.want(file.place).value_or("") == file.found && isSame;
    }
    if (isSame) {
        now_[page] = found->second;
    }
    return isSame;
}

void PageMemory::remember(std::size_t page, std::uint64_t hash,
                          const std::vector<SiteSources::Asked>& asked) {
    Page made;
    made.hash = hash;
    for (const SiteSources::Asked& file : asked) {
        if (file.place.find_first_of("\t\n") != Text::npos) {
            made.hash = neverSame; // no line can hold it
        }
        made.files.push_back({file.place, file.found.value_or("")});
    }
    if (made.hash != neverSame) {
        now_[page] = std::move(made);
    }
}

Text PageMemory::format() const {
    Text text(title);
    text::append(text, std::to_string(frame_), "\n");
    for (const auto& [number, page] : now_) {
        text::append(text, std::to_string(number), "\t", std::to_string(page.hash), "\t");
        for (const File& file : page.files) {
            text::append(text, file.place, "\t", file.found, "\t");
        }
        text += '\n';
    }
    return text;
}

} // namespace web
