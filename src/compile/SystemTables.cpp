#include "compile/SystemTables.h"

#include <algorithm>

#include "compile/Bytes.h"

namespace compile {

namespace {

constexpr std::uint32_t notGiven = 0xFFFFFFFFU;

/// The bits of a window's mask, which tells what its project gave.
enum Given : std::uint32_t {
    properties = 0x2,
    style = 0x4,
    extendedStyle = 0x8,
    rectangle = 0x10,
    paneWidth = 0x20,
    show = 0x40,
    buttons = 0x100,
    closed = 0x200,
    tabPosition = 0x400,
    tab = 0x2000
};

std::uint32_t givenOf(const WindowRow& window) {
    std::uint32_t given = tabPosition; // always set
    const auto add = [&given](bool isGiven, Given bit) { given |= isGiven ? bit : 0U; };
    add(window.properties.has_value(), properties);
    add(window.style.has_value(), style);
    add(window.extendedStyle.has_value(), extendedStyle);
    add(!window.rectangle.empty(), rectangle);
    add(window.paneWidth.has_value(), paneWidth);
    add(window.show.has_value(), show);
    add(window.buttons.has_value(), buttons);
    add(window.closed.has_value(), closed);
    add(window.tab.has_value(), tab);
    return given;
}

void appendZeros(std::string& bytes, std::size_t numbers) {
    bytes.append(numbers * 4, '\0');
}

void appendWindow(std::string& bytes, const WindowRow& window, std::uint32_t size,
                  StringTable& strings) {
    const std::size_t start = bytes.size();
    append32(bytes, size);
    append32(bytes, 0);
    append32(bytes, strings.add(window.name));
    append32(bytes, givenOf(window));
    append32(bytes, window.properties.value_or(0));
    append32(bytes, strings.add(window.caption));
    append32(bytes, window.style.value_or(0));
    append32(bytes, window.extendedStyle.value_or(0));
    for (std::size_t i = 0; i < 4; ++i) {
        append32(bytes, window.rectangle.empty() ? 0 : window.rectangle[i]);
    }
    append32(bytes, window.show.value_or(0));
    appendZeros(bytes, 6);
    append32(bytes, window.paneWidth.value_or(0));
    appendZeros(bytes, 4);
    for (const std::string* text :
         {&window.contents, &window.index, &window.defaultTopic, &window.home}) {
        append32(bytes, strings.add(*text));
    }
    for (const auto& number :
         {window.buttons, window.closed, window.tab, window.tabPosition, window.notify}) {
        append32(bytes, number.value_or(0));
    }
    appendZeros(bytes, 6); // the order of the tabs, and how much history is kept
    for (const std::string* text :
         {&window.jump1Text, &window.jump2Text, &window.jump1File, &window.jump2File}) {
        append32(bytes, strings.add(*text));
    }
    bytes.resize(start + size, '\0');
}

class SystemWriter {
public:
    std::string bytes;

    void record(unsigned code, const std::string& data) {
        append16(bytes, code);
        append16(bytes, data.size());
        bytes += data;
    }
    void text(unsigned code, const std::string& text) {
        if (!text.empty()) {
            record(code, text.substr(0, StringTable::longest) + '\0');
        }
    }
    void number(unsigned code, std::uint32_t value) {
        std::string data;
        append32(data, value);
        record(code, data);
    }
};

/// In units of 100 nanoseconds since 1601.
std::uint64_t fileTime(std::int64_t seconds) {
    constexpr std::int64_t before1970 = 11644473600;
    constexpr std::int64_t units = 10000000;
    return static_cast<std::uint64_t>((seconds + before1970) * units);
}

std::string languageRecord(const SystemFacts& facts) {
    std::string data;
    append32(data, facts.language);
    for (const bool has :
         {facts.doubleByte, facts.fullTextSearch, facts.hasKeywords, facts.hasAssociativeLinks}) {
        append32(data, has ? 1 : 0);
    }
    append64(data, fileTime(facts.time));
    if (!facts.oldFormat) {
        appendZeros(data, 2);
    }
    return data;
}

} // namespace

std::string windowTable(const std::vector<WindowRow>& windows, bool oldFormat,
                        StringTable& strings) {
    const std::uint32_t size = oldFormat ? 188 : 196;
    std::string bytes;
    append32(bytes, windows.size());
    append32(bytes, size);
    for (const WindowRow& window : windows) {
        appendWindow(bytes, window, size, strings);
    }
    return bytes;
}

std::string contextTable(const std::map<std::uint32_t, std::string>& contexts,
                         StringTable& strings) {
    constexpr std::size_t pairSize = 8;
    std::string bytes;
    append32(bytes, contexts.size() * pairSize);
    for (const auto& [number, page] : contexts) {
        append32(bytes, number);
        append32(bytes, strings.add(page));
    }
    return bytes;
}

std::string headerTable(std::uint32_t topics, const ContentsStyle* style,
                        const std::vector<std::string>& mergedFiles, StringTable& strings) {
    constexpr std::size_t size = 4096;
    constexpr std::size_t styleSize = 11; // numbers
    std::string bytes = "T#SM";
    const auto text = [&strings](const std::string& each) {
        return each.empty() ? notGiven : strings.add(each);
    };
    for (const std::uint32_t number : {0U, 1U, topics, 0U}) {
        append32(bytes, number);
    }
    if (style == nullptr) {
        appendZeros(bytes, styleSize);
    } else {
        for (const std::uint32_t number :
             {text(style->imageList), 0U, style->folders ? 1U : 0U,
              style->background.value_or(notGiven), style->foreground.value_or(notGiven),
              text(style->font), style->styles.value_or(notGiven),
              style->extendedStyles.value_or(notGiven), notGiven, text(style->frame),
              text(style->window)}) {
            append32(bytes, number);
        }
    }
    append32(bytes, 0);
    append32(bytes, 1);
    const std::size_t count = std::min(mergedFiles.size(), mostMergedFiles);
    append32(bytes, count);
    append32(bytes, 0);
    for (std::size_t i = 0; i < count; ++i) {
        append32(bytes, strings.add(mergedFiles[i]));
    }
    bytes.resize(size, '\0');
    return bytes;
}

std::string systemFile(const SystemFacts& facts) {
    SystemWriter file;
    append32(file.bytes, facts.oldFormat ? 2 : 3);
    file.number(10, static_cast<std::uint32_t>(facts.time));
    file.text(9, "HTML Topicsmith");
    file.record(4, languageRecord(facts));
    file.text(2, facts.defaultTopic);
    file.text(3, facts.title);
    file.text(16, facts.font);
    file.text(6, facts.stem);
    file.text(5, facts.window);
    // Other readers look for them here, also where a window names them. They read the beginning of
    // this file only, so what is large comes last.
    file.text(0, facts.contentsFile);
    file.text(1, facts.indexFile);
    if (facts.hasKeywords && !facts.indexFile.empty()) {
        file.number(7, addressHash(facts.indexFile));
    }
    if (facts.binaryContents && !facts.contentsFile.empty()) {
        file.number(11, addressHash(facts.contentsFile));
    }
    file.number(12, 0);
    file.record(13, facts.header);
    file.number(15, 0);
    return file.bytes;
}

} // namespace compile
