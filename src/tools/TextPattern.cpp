#include "tools/TextPattern.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "text/Unicode.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

namespace tools {

namespace {

// A search in vain from one place may take that much; from all places together, the pattern's
// patience is the limit.
constexpr std::uint32_t mostSteps = 200'000;
constexpr std::uint32_t mostHeap = 32U * 1024; // in KB
constexpr std::size_t mostStack = 1U << 20U;
constexpr std::size_t longestPattern = 20'000;

/// From how many places an expression is tried before somebody looks at the clock.
constexpr std::size_t placesAtOnce = 4096;

// Looking at the clock takes longer than most searches in short texts, so one of these is watched
// for many.
constexpr std::size_t shortText = 256;
constexpr int searchesAtOnce = 16;
using Clock = std::chrono::steady_clock;

PCRE2_SPTR bytesOf(TextView text) {
    return reinterpret_cast<PCRE2_SPTR>(text.data()); // NOLINT: the library's bytes are unsigned
}

bool isLetterOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')
           || (static_cast<unsigned char>(c) & 0x80U) != 0;
}

/// A place that is not the first.
bool cutsLineBreak(TextView text, std::size_t place) {
    return text.substr(place - 1, text::lineBreak.size()) == text::lineBreak;
}

/// The expression that matches just this.
Text quoted(TextView text) {
    Text expression;
    for (const char c : text) {
        expression += isLetterOrDigit(c) ? "" : "\\";
        expression += c;
    }
    return expression;
}

/// Holds wherever one of the characters beside it is none of a word's.
constexpr TextView wordEnd = R"((?:(?<!\w)|(?!\w)))";

Text messageOf(int error) {
    std::array<PCRE2_UCHAR, 256> message{};
    pcre2_get_error_message(error, message.data(), message.size());
    Text text;
    std::transform(message.begin(), std::find(message.begin(), message.end(), PCRE2_UCHAR{0}),
                   std::back_inserter(text), [](PCRE2_UCHAR c) { return static_cast<char>(c); });
    return text;
}

} // namespace

struct TextPattern::Native {
    explicit Native(pcre2_code* compiled)
        : code(compiled), data(pcre2_match_data_create_from_pattern(compiled, nullptr)),
          context(pcre2_match_context_create(nullptr)),
          stack(pcre2_jit_stack_create(1U << 15U, mostStack, nullptr)) {
        pcre2_set_match_limit(context, mostSteps);
        pcre2_set_heap_limit(context, mostHeap);
        // Where there is no compiler for this machine, the interpreter does the same.
        static_cast<void>(pcre2_jit_compile(code, PCRE2_JIT_COMPLETE));
        pcre2_jit_stack_assign(context, nullptr, stack);
        pcre2_pattern_info(code, PCRE2_INFO_MINLENGTH, &shortest);
    }
    ~Native() {
        pcre2_jit_stack_free(stack);
        pcre2_match_context_free(context);
        pcre2_match_data_free(data);
        pcre2_code_free(code);
    }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;

    pcre2_code* code;
    pcre2_match_data* data;
    pcre2_match_context* context;
    pcre2_jit_stack* stack;
    bool isExpression = false;
    std::uint32_t shortest = 0; ///< of what it matches, in characters
    Clock::duration spent{};
    unsigned shortSearches = 0;
};

TextPattern::TextPattern(std::unique_ptr<Native> native) : native_(std::move(native)) {}
TextPattern::TextPattern(TextPattern&&) noexcept = default;
TextPattern& TextPattern::operator=(TextPattern&&) noexcept = default;
TextPattern::~TextPattern() = default;

std::optional<TextPattern> TextPattern::make(const PatternQuestion& question, Text& problem) {
    const auto fails = [&problem](Text why) {
        problem = std::move(why);
        return std::nullopt;
    };
    if (question.text.empty()) {
        return fails("there is nothing to look for");
    }
    if (question.text.size() > longestPattern || !text::isUtf8(question.text)) {
        return fails("the text to look for is too long, or no text");
    }
    Text expression = question.isExpression ? question.text : quoted(question.text);
    std::size_t before = 0;
    if (question.wholeWords) {
        expression = Text(wordEnd) + "(?:" + expression + ")" + Text(wordEnd);
        before = wordEnd.size() + 3;
    }
    const std::unique_ptr<pcre2_compile_context, void (*)(pcre2_compile_context*)> context(
        pcre2_compile_context_create(nullptr), pcre2_compile_context_free);
    pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANYCRLF);
    constexpr std::uint32_t options =
        PCRE2_UTF | PCRE2_UCP | PCRE2_MULTILINE | PCRE2_NEVER_BACKSLASH_C | PCRE2_USE_OFFSET_LIMIT;
    int error = 0;
    PCRE2_SIZE offset = 0;
    pcre2_code* code = pcre2_compile(bytesOf(expression), expression.size(),
                                     options | (question.matchCase ? 0U : PCRE2_CASELESS), &error,
                                     &offset, context.get());
    if (code == nullptr) {
        const std::size_t place = std::min(offset - std::min(offset, before), question.text.size());
        const std::size_t characters =
            text::characterCount(TextView(question.text).substr(0, place));
        return fails(messageOf(error) + ", behind character " + std::to_string(characters));
    }
    auto native = std::make_unique<Native>(code);
    native->isExpression = question.isExpression;
    return TextPattern(std::move(native));
}

void TextPattern::restartClock() {
    native_->spent = {};
}

std::size_t TextPattern::leastLength() const {
    return native_->shortest;
}

std::optional<unsigned> TextPattern::group(TextView name) const {
    std::uint32_t count = 0;
    pcre2_pattern_info(native_->code, PCRE2_INFO_CAPTURECOUNT, &count);
    unsigned number = 0;
    const char* end = name.data() + name.size();
    if (const auto [rest, error] = std::from_chars(name.data(), end, number);
        error == std::errc() && rest == end) {
        return number <= count ? std::optional(number) : std::nullopt;
    }
    const int found = pcre2_substring_number_from_name(native_->code, bytesOf(Text(name)));
    return found > 0 ? std::optional(static_cast<unsigned>(found)) : std::nullopt;
}

PatternSearch::PatternSearch(TextPattern& pattern, TextView text, Surroundings around)
    : pattern_(pattern), text_(text), around_(around), isSound_(around.isSound),
      ended_(text.size() < pattern.leastLength()) {}

/// The last of the places from which is tried at once: never within a line break, whose second half
/// is no place to begin at.
std::size_t PatternSearch::lastStart(std::size_t from) const {
    if (!pattern_.native_->isExpression || text_.size() - from <= placesAtOnce) {
        return text_.size();
    }
    const std::size_t last = from + placesAtOnce;
    return text_[last] == '\r' ? last + 1 : last;
}

bool PatternSearch::next() {
    std::size_t from = end_;
    bool notEmptyThere = wasEmpty_;
    while (!ended_) {
        const std::size_t last = lastStart(from);
        if (matchFrom(from, last, notEmptyThere)) {
            return true;
        }
        ended_ = ended_ || last >= text_.size();
        from = last + 1;
        notEmptyThere = false;
        while (from < text_.size() && text::continuesCharacter(text_[from])) {
            ++from;
        }
        if (from > text_.size()) {
            ended_ = true;
        }
    }
    return false;
}

bool PatternSearch::matchFrom(std::size_t from, std::size_t last, bool notEmptyThere) {
    TextPattern::Native& native = *pattern_.native_;
    const std::uint32_t options = (std::exchange(isSound_, true) ? PCRE2_NO_UTF_CHECK : 0U)
                                  | (notEmptyThere ? PCRE2_NOTEMPTY_ATSTART : 0U)
                                  | (around_.lineBegins ? 0U : PCRE2_NOTBOL)
                                  | (around_.lineEnds ? 0U : PCRE2_NOTEOL);
    pcre2_set_offset_limit(native.context, last);
    const bool isLong = text_.size() - from > shortText;
    const bool isWatched = isLong || ++native.shortSearches % unsigned{searchesAtOnce} == 0;
    const auto begun = isWatched ? Clock::now() : Clock::time_point();
    const int result = pcre2_match(native.code, bytesOf(text_), text_.size(), from, options,
                                   native.data, native.context);
    if (isWatched) {
        native.spent += (Clock::now() - begun) * (isLong ? 1 : searchesAtOnce);
    }
    if (result <= PCRE2_ERROR_UTF8_ERR1 && result >= PCRE2_ERROR_UTF8_ERR21) {
        ended_ = true;
        return false;
    }
    if (result == PCRE2_ERROR_NOMATCH) {
        failed_ = native.spent > TextPattern::patience;
        ended_ = failed_;
        return false;
    }
    const PCRE2_SIZE* places = pcre2_get_ovector_pointer(native.data);
    if (result < 0 || places[0] < end_ || places[1] < places[0]) {
        failed_ = true;
        ended_ = true;
        return false;
    }
    const std::size_t least = std::exchange(end_, places[1]);
    start_ = places[0];
    wasEmpty_ = start_ == end_;
    if (!wasEmpty_) {
        start_ -= start_ > least && cutsLineBreak(text_, start_) ? 1U : 0U;
        end_ += cutsLineBreak(text_, end_) ? 1U : 0U;
    }
    return true;
}

TextView PatternSearch::group(unsigned number) const {
    if (number == 0) {
        return text_.substr(start(), length());
    }
    const PCRE2_SIZE* places = pcre2_get_ovector_pointer(pattern_.native_->data);
    if (number >= pcre2_get_ovector_count(pattern_.native_->data)) {
        return {};
    }
    const PCRE2_SIZE start = places[std::size_t{2} * number];
    const PCRE2_SIZE end = places[std::size_t{2} * number + 1];
    return start == PCRE2_UNSET || end < start ? TextView() : text_.substr(start, end - start);
}

} // namespace tools
