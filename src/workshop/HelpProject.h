#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workshop/Encoding.h"
#include "workshop/Message.h"

/// The help workshop's project file (`.hhp`) as it is read. Texts are in UTF-8; paths are as they
/// are written, with either slash.
namespace workshop {

/// What may stand around the names and values of a line.
inline constexpr std::string_view lineBlanks = " \t";

/// A text and where it stands.
struct Line {
    std::string text;
    int line = 0;          ///< 0 where the project does not say anything
    std::string file = {}; ///< an included one; empty for the project itself
};

struct Options {
    Line compiledFile;
    Line contentsFile;
    Line indexFile;
    Line defaultTopic;
    Line defaultWindow;
    Line title;
    Line defaultFont;
    Line stopList;
    unsigned language = usualLanguage; ///< an LCID
    unsigned codePage = 1252;          ///< that of the language
    unsigned contentsLevels = 0;       ///< of headings that make the contents
    bool fullTextSearch = false;
    bool binaryIndex = true;
    bool binaryContents = false;
    bool indexFromPages = false;
    bool flat = false; ///< files are packed without their folders
    bool doubleByte = false;
    bool oldFormat = false; ///< for the first version of the viewer
};

/// A name of a context and what it is given: a page in [ALIAS], a number in [MAP].
struct Alias {
    std::string name;
    Line page;
};
struct ContextNumber {
    std::string name;
    std::uint32_t number = 0;
    Line place; ///< the text is not used
};

/// A window that the help defines; what is not given is empty.
struct WindowType {
    std::string name;
    std::string caption, contents, index, defaultTopic, home;
    std::string jump1File, jump1Text, jump2File, jump2Text;
    std::optional<std::uint32_t> properties, paneWidth, buttons;
    std::optional<std::array<std::uint32_t, 4>> rectangle;
    std::optional<std::uint32_t> style, extendedStyle, show, closed, tab, tabPosition, notify;
    int line = 0;
};

struct HelpProject {
    Options options;
    std::vector<Line> files;
    std::vector<Alias> aliases;
    std::vector<ContextNumber> numbers;
    std::vector<WindowType> windows;
    std::vector<Line> mergedFiles;
    std::vector<Line> popupFiles;
    std::vector<Message> messages; ///< without a file for the project's own
};

/// All included files together hold no more.
inline constexpr std::size_t mostIncludedBytes = std::size_t(16) << 20;

/// A file that the project includes, by its path from the project's folder; nothing when there is
/// none.
using IncludedFile = std::function<std::optional<std::string>(const std::string& path)>;

/// Reads a project, whatever it looks like.
HelpProject readProject(std::string_view bytes, const IncludedFile& include);

/// A line of [WINDOWS]; nothing when it is none.
std::optional<WindowType> readWindowType(std::string_view line);

/// A number as it stands in a project, decimal or hexadecimal ("0x1F"), whatever follows it.
std::optional<std::uint32_t> readNumber(std::string_view text);

} // namespace workshop
