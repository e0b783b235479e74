#include "web/PageMemory.h"

#include <charconv>

#include "platform/Version.h"
#include "web/NumberTable.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

constexpr TextView title = "What the pages of this web site were made of\n";
constexpr std::uint64_t form = 2; ///< to be changed when pages are made otherwise

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

PageMemory::PageMemory(std::uint64_t frame, std::size_t lastPage, Text before)
    : frame_(frame), before_(std::move(before)), linesBefore_(lastPage + 1), lines_(lastPage + 1) {
    TextView rest = before_;
    if (!rest.starts_with(title)) {
        return;
    }
    rest.remove_prefix(title.size());
    if (numberOf(takeUntil(rest, '\n')) != frame) {
        return;
    }
    while (!rest.empty()) {
        const TextView line = takeUntil(rest, '\n');
        if (const std::uint64_t page = numberOf(line); page <= lastPage) {
            linesBefore_[page] = line;
        }
    }
}

bool PageMemory::isSame(std::size_t page, std::uint64_t hash, SiteSources& sources) {
    TextView line = linesBefore_[page];
    takeUntil(line, '\t');
    if (hash == neverSame || numberOf(takeUntil(line, '\t')) != hash) {
        return false;
    }
    bool isSame = true;
    while (!line.empty()) {
        const Text place(takeUntil(line, '\t'));
        isSame = sources.want(place).value_or("") == takeUntil(line, '\t') && isSame;
    }
    if (isSame) {
        lines_[page] = linesBefore_[page];
    }
    return isSame;
}

void PageMemory::remember(std::size_t page, std::uint64_t hash,
                          const std::vector<SiteSources::Asked>& asked) {
    Text line;
    text::append(line, std::to_string(page), "\t", std::to_string(hash), "\t");
    for (const SiteSources::Asked& file : asked) {
        if (file.place.find_first_of("\t\n") != Text::npos) {
            hash = neverSame; // no line can hold it
        }
        text::append(line, file.place, "\t", file.found.value_or(""), "\t");
    }
    if (hash != neverSame) {
        lines_[page] = made_.emplace_back(std::move(line));
    }
}

Text PageMemory::format() const {
    Text text(title);
    text::append(text, std::to_string(frame_), "\n");
    for (const TextView line : lines_) {
        text::append(text, line, line.empty() ? "" : "\n");
    }
    return text;
}

} // namespace web
