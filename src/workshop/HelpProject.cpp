#include "workshop/HelpProject.h"

#include <algorithm>
#include <utility>

#include "text/ForeignText.h"
#include "text/Text.h"
#include "text/TextLines.h"
#include "workshop/Header.h"

namespace workshop {

namespace {

using text::equalIgnoringCase;

/// What stands on either side of a line's first "="; the second part is null when it has none.
std::pair<std::string_view, std::string_view> split(std::string_view line) {
    const std::size_t equals = line.find('=');
    return equals == std::string_view::npos
               ? std::pair(line, std::string_view())
               : std::pair(text::trimmed(line.substr(0, equals), lineBlanks),
                           text::trimmed(line.substr(equals + 1), lineBlanks));
}

bool isYes(std::string_view value) {
    constexpr std::string_view yes[] = {"yes", "1", "true", "on"};
    return std::any_of(std::begin(yes), std::end(yes),
                       [value](std::string_view each) { return equalIgnoringCase(value, each); });
}

struct TextOption {
    std::string_view name;
    Line Options::*value;
};

constexpr TextOption textOptions[] = {
    {"compiled file", &Options::compiledFile},
    {"contents file", &Options::contentsFile},
    {"index file", &Options::indexFile},
    {"default topic", &Options::defaultTopic},
    {"default window", &Options::defaultWindow},
    {"title", &Options::title},
    {"default font", &Options::defaultFont},
    {"full text search stop list file", &Options::stopList},
};

struct Switch {
    std::string_view name;
    bool Options::*value;
};

constexpr Switch switches[] = {
    {"full-text search", &Options::fullTextSearch},
    {"full text search", &Options::fullTextSearch},
    {"binary index", &Options::binaryIndex},
    {"binary toc", &Options::binaryContents},
    {"auto index", &Options::indexFromPages},
    {"flat", &Options::flat},
    {"dbcs", &Options::doubleByte},
};

/// These have nothing to say here: a compiler's messages are where its caller wants them, and the
/// language tells the letters.
constexpr std::string_view silentOptions[] = {"display compile progress",
                                              "display compile notes",
                                              "error log file",
                                              "language",
                                              "enhanced decompilation",
                                              "compress",
                                              "tmpdir",
                                              "charset"};

template <typename Table>
const auto* rowOf(const Table& table, std::string_view name) {
    const auto* row = std::find_if(std::begin(table), std::end(table), [name](const auto& each) {
        return equalIgnoringCase(each.name, name);
    });
    return row == std::end(table) ? nullptr : row;
}

/// The language, which has to be known before anything else can be read; it is ASCII.
std::optional<std::uint32_t> languageIn(std::string_view bytes) {
    text::LineReader lines(bytes);
    for (std::string_view line; lines.next(line);) {
        const auto [name, value] = split(line);
        if (equalIgnoringCase(name, "language")) {
            return readNumber(value);
        }
    }
    return {};
}

class ProjectReader {
public:
    explicit ProjectReader(const IncludedFile& include) : include_(include) {}

    HelpProject read(std::string_view bytes) {
        project_.options.language = languageIn(bytes).value_or(usualLanguage) & 0xFFFFU;
        project_.options.codePage = codePageOf(project_.options.language);
        if (!hasCodePage(project_.options.language)) {
            say(Severity::warning, "no code page has the letters of the project's language; titles "
                                   "are written in code page 1252");
        }
        const std::string text = text::decodedSource(bytes, project_.options.codePage).utf8;
        text::LineReader lines(text);
        for (std::string_view line; lines.next(line);) {
            ++line_;
            line = text::trimmed(line, lineBlanks);
            if (line.starts_with('[') && line.ends_with(']')) {
                enterSection(line.substr(1, line.size() - 2));
            } else if (!line.empty() && line.front() != ';' && section_ != nullptr) {
                (this->*section_)(line);
            }
        }
        return std::move(project_);
    }

private:
    using Section = void (ProjectReader::*)(std::string_view line);

    void say(Severity severity, std::string text) {
        project_.messages.push_back({currentFile_, line_, severity, std::move(text)});
    }

    Line here(std::string_view text) const { return {std::string(text), line_, currentFile_}; }

    void enterSection(std::string_view name) {
        struct Row {
            std::string_view name;
            Section section;
        };
        constexpr Row rows[] = {
            {"options", &ProjectReader::takeOption},
            {"files", &ProjectReader::takeFile},
            {"windows", &ProjectReader::takeWindow},
            {"alias", &ProjectReader::takeAlias},
            {"map", &ProjectReader::takeMap},
            {"merge files", &ProjectReader::takeMerged},
            {"text popups", &ProjectReader::takePopup},
            {"infotypes", nullptr},
            {"subsets", nullptr},
        };
        const Row* row = rowOf(rows, text::trimmed(name, lineBlanks));
        section_ = row == nullptr ? nullptr : row->section;
        header_ = {};
        if (row == nullptr) {
            say(Severity::warning, "section [" + std::string(name) + "] is not known");
        }
    }

    void takeOption(std::string_view line) {
        const auto [name, value] = split(line);
        Options& options = project_.options;
        if (value.data() == nullptr) {
            say(Severity::warning, "\"" + std::string(line) + "\" is no option");
        } else if (const auto* text = rowOf(textOptions, name)) {
            options.*(text->value) = here(value);
        } else if (const auto* choice = rowOf(switches, name)) {
            options.*(choice->value) = isYes(value);
        } else if (equalIgnoringCase(name, "compatibility")) {
            options.oldFormat = value == "1.0";
        } else if (equalIgnoringCase(name, "auto toc")) {
            options.contentsLevels = readNumber(value).value_or(0);
        } else if (std::find_if(std::begin(silentOptions), std::end(silentOptions),
                                [name = name](std::string_view each) {
                                    return equalIgnoringCase(each, name);
                                })
                       == std::end(silentOptions)
                   && !(equalIgnoringCase(name, "create chi file") && !isYes(value))) {
            say(Severity::note, "option \"" + std::string(name) + "\" has no effect");
        }
    }

    void takeFile(std::string_view line) { project_.files.push_back(here(line)); }
    void takeMerged(std::string_view line) { project_.mergedFiles.push_back(here(line)); }

    void takePopup(std::string_view line) {
        constexpr std::string_view header = ".h"; // it says the numbers of the texts
        const bool isHeader =
            line.size() > header.size()
            && equalIgnoringCase(line.substr(line.size() - header.size()), header);
        if (isHeader && !line.starts_with('#')) {
            readIncluded(std::string(line), &ProjectReader::takeMap);
        } else if (!takeInclude(line, &ProjectReader::takeMap)) {
            project_.popupFiles.push_back(here(line));
        }
    }

    void takeWindow(std::string_view line) {
        auto window = readWindowType(line);
        if (!window) {
            say(Severity::warning, "\"" + std::string(line) + "\" is no window");
            return;
        }
        window->line = line_;
        project_.windows.push_back(std::move(*window));
    }

    void takeAlias(std::string_view line) {
        if (takeInclude(line, &ProjectReader::takeAlias) || line.starts_with(';')) {
            return;
        }
        auto [name, page] = split(line);
        page =
            text::trimmed(page.substr(0, std::min(page.find(" ;"), page.find("\t;"))), lineBlanks);
        if (page.empty() || name.empty()) {
            say(Severity::warning, "\"" + std::string(line) + "\" is no alias");
        } else {
            project_.aliases.push_back({std::string(name), here(page)});
        }
    }

    void takeMap(std::string_view line) {
        const auto said = header_.take(line);
        if (said && !said->include.empty()) {
            readIncluded(said->include, &ProjectReader::takeMap);
        } else if (said) {
            project_.numbers.push_back({said->name, said->number, here({})});
        }
    }

    /// False for a line that does not include another file.
    bool takeInclude(std::string_view line, Section section) {
        const auto said = HeaderReader().take(line);
        if (!said || said->include.empty()) {
            return false;
        }
        readIncluded(said->include, section);
        return true;
    }

    struct Included {
        std::string path; ///< from the project's folder
        std::string bytes;
    };

    /// It lies beside the project or beside the file that includes it. Files that include each
    /// other have an end.
    std::optional<Included> findIncluded(const std::string& path) {
        constexpr int deepest = 16;
        constexpr int most = 1000;
        if (depth_ >= deepest || ++included_ >= most || room_ == 0) {
            return {};
        }
        const std::string beside =
            currentFile_.substr(0, currentFile_.find_last_of("/\\") + 1) + path;
        Included found{path, {}};
        auto bytes = include_(path);
        if (!bytes && beside != path) {
            found.path = beside;
            bytes = include_(beside);
        }
        if (!bytes || bytes->size() > room_) {
            room_ = bytes ? 0 : room_;
            return {};
        }
        room_ -= bytes->size();
        found.bytes = std::move(*bytes);
        return found;
    }

    void readIncluded(const std::string& path, Section section) {
        const auto found = findIncluded(path);
        if (!found) {
            say(Severity::warning, "cannot include \"" + path + "\"");
            return;
        }
        const std::string text = text::decodedSource(found->bytes, project_.options.codePage).utf8;
        const std::string file = std::exchange(currentFile_, found->path);
        const int line = std::exchange(line_, 0);
        const HeaderReader header = std::exchange(header_, {});
        ++depth_;
        text::LineReader lines(text);
        for (std::string_view each; lines.next(each);) {
            ++line_;
            if (each = text::trimmed(each, lineBlanks); !each.empty()) {
                (this->*section)(each);
            }
        }
        --depth_;
        header_ = header;
        line_ = line;
        currentFile_ = file;
    }

    const IncludedFile& include_;
    HelpProject project_;
    Section section_ = nullptr;
    HeaderReader header_;
    std::string currentFile_; ///< empty for the project itself
    int line_ = 0;
    int depth_ = 0;
    int included_ = 0;
    std::size_t room_ = mostIncludedBytes;
};

} // namespace

HelpProject readProject(std::string_view bytes, const IncludedFile& include) {
    return ProjectReader(include).read(bytes);
}

} // namespace workshop
