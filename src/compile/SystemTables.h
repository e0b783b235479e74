#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "compile/Tables.h"

/// The small tables of a compiled help. Texts are in the code page of its language.
namespace compile {

/// A window as its table holds it; empty texts and numbers are not given.
struct WindowRow {
    std::string name, caption, contents, index, defaultTopic, home;
    std::string jump1File, jump1Text, jump2File, jump2Text;
    std::optional<std::uint32_t> properties, paneWidth, buttons;
    std::vector<std::uint32_t> rectangle; ///< left, top, right and bottom
    std::optional<std::uint32_t> style, extendedStyle, show, closed, tab, tabPosition, notify;
};

/// "#WINDOWS".
std::string windowTable(const std::vector<WindowRow>& windows, bool oldFormat,
                        StringTable& strings);

/// "#IVB": pages by context number.
std::string contextTable(const std::map<std::uint32_t, std::string>& contexts,
                         StringTable& strings);

/// What the contents say of how they are shown.
struct ContentsStyle {
    std::string imageList, font, frame, window;
    bool folders = false;
    std::optional<std::uint32_t> background, foreground, styles, extendedStyles;
};

/// For as many merged files there is room.
inline constexpr std::size_t mostMergedFiles = 1000;

/// "#IDXHDR". `style` is null for a help without contents.
std::string headerTable(std::uint32_t topics, const ContentsStyle* style,
                        const std::vector<std::string>& mergedFiles, StringTable& strings);

/// What "#SYSTEM" tells; empty texts are left out.
struct SystemFacts {
    std::string contentsFile, indexFile, defaultTopic, title, font, stem, window;
    unsigned language = 0;
    std::int64_t time = 0; ///< seconds since 1970
    bool doubleByte = false;
    bool fullTextSearch = false;
    bool hasKeywords = false;         ///< in a tree
    bool hasAssociativeLinks = false; ///< likewise
    bool binaryContents = false;
    bool oldFormat = false;
    std::string header; ///< headerTable()
};

/// "#SYSTEM".
std::string systemFile(const SystemFacts& facts);

} // namespace compile
