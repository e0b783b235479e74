#include "import/VbForm.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <set>

#include "import/VbProjectFile.h"
#include "model/Helper.h"
#include "text/TextLines.h"

namespace importer {

using text::Text;
using text::TextView;

namespace {

/// What follows the "=" of a property, looked for behind its name; nothing without one. Positions
/// count from the start of the line as it stands.
std::optional<TextView> valueOf(TextView line, TextView property) {
    const std::size_t equals = line.find('=', property.size() - 1);
    return equals == TextView::npos ? std::nullopt : std::optional(line.substr(equals + 1));
}

/// The rest of a line behind so many characters; empty when it is shorter.
TextView behind(TextView line, std::size_t characters) {
    return text::trim(line.substr(std::min(characters, line.size())));
}

/// A menu's caption without the mark of its access key.
Text withoutAccessKey(TextView caption) {
    Text text(caption);
    if (const std::size_t mark = text.find('&'); mark != Text::npos) {
        text.erase(mark, 1);
    }
    return text;
}

/// Reads the part of a form that describes its window: blocks of properties within each other.
class DesignerReader {
public:
    explicit DesignerReader(VbForm& form) : form_(form) {}

    /// False behind the line that ends the form.
    bool takeLine(TextView line) {
        const TextView trimmed = text::trim(line);
        const auto startsWith = [trimmed](TextView word) {
            return text::startsWithIgnoringCase(trimmed, word);
        };
        if (startsWith("begin")) {
            beginBlock(line, trimmed);
        } else if (startsWith("end")) {
            return endBlock();
        } else if (depth_ == 1) {
            takeFormProperty(line, trimmed);
        } else if (inMenu_ && startsWith(captionKey)) {
            takeMenuCaption(line);
        }
        return true;
    }

private:
    static constexpr TextView captionKey = "caption";
    static constexpr TextView helpContextKey = "helpcontextid";
    static constexpr TextView listStart = "<ul>\r\n";
    static constexpr TextView listEnd = "</ul>\r\n";

    void beginBlock(TextView line, TextView trimmed) {
        constexpr TextView formStart = "begin vb.form";
        constexpr TextView mdiFormStart = "begin vb.mdiform";
        constexpr TextView menuStart = "begin vb.menu";
        depth_ = std::min(depth_ + 1, deepest);
        if (text::startsWithIgnoringCase(trimmed, formStart)) {
            form_.name = behind(line, formStart.size());
        } else if (text::startsWithIgnoringCase(trimmed, mdiFormStart)) {
            form_.name = behind(line, mdiFormStart.size());
        } else if (text::startsWithIgnoringCase(trimmed, menuStart)) {
            beginMenu();
        }
    }

    /// Each menu is a list of its own, but one that follows another goes on with its list.
    void beginMenu() {
        Text& html = form_.menuHtml;
        if (html.empty()) {
            text::append(html, "<p>The following menus are available:</p>", text::lineBreak,
                         text::lineBreak);
        }
        if (html.ends_with(listEnd)) {
            html.resize(html.size() - listEnd.size());
        } else {
            html += listStart;
        }
        if (!inMenu_) {
            inMenu_ = true;
            menuStartDepth_ = depth_;
        }
    }

    bool endBlock() {
        depth_ = std::max(depth_ - 1, -deepest - 1);
        if (depth_ == 0) {
            return false;
        }
        if (inMenu_) {
            form_.menuHtml += listEnd;
            inMenu_ = depth_ >= menuStartDepth_;
        }
        return true;
    }

    void takeFormProperty(TextView line, TextView trimmed) {
        if (text::startsWithIgnoringCase(trimmed, captionKey)) {
            if (const auto value = valueOf(line, captionKey)) {
                form_.caption = unquoted(*value);
            }
        } else if (text::startsWithIgnoringCase(trimmed, helpContextKey)) {
            if (const auto value = valueOf(line, helpContextKey)) {
                form_.helpContextId = text::trim(*value);
            }
        }
    }

    void takeMenuCaption(TextView line) {
        const auto value = valueOf(line, captionKey);
        if (!value) {
            return;
        }
        const TextView caption = unquoted(*value);
        constexpr TextView separator = "-";
        if (caption != separator) {
            text::appendLine(form_.menuHtml, "<li>", withoutAccessKey(caption));
        }
    }

    static constexpr int deepest = std::numeric_limits<std::int16_t>::max();

    VbForm& form_;
    int depth_ = 0;
    bool inMenu_ = false;
    int menuStartDepth_ = 0;
};

/// Collects the names of forms that code shows.
class CallReader {
public:
    /// The lines must outlive the reader.
    explicit CallReader(Text& calledForms) : calledForms_(calledForms) {}

    void takeLine(TextView line) {
        const std::size_t call = line.find(showCall);
        if (call == TextView::npos || isCommented(line, call) || isLongerName(line, call)) {
            return;
        }
        const std::size_t blank = line.find_last_of(' ', call);
        const std::size_t start = blank == TextView::npos ? 0 : blank + 1;
        const TextView name = line.substr(start, call - start);
        if (name != "Me" && !isKnown(name)) {
            add(name);
        }
    }

private:
    static constexpr TextView showCall = ".Show";

    static bool isCommented(TextView line, std::size_t call) {
        if (line.starts_with("Rem ")) {
            return true;
        }
        const std::size_t apostrophe = line.find('\'');
        return (apostrophe != TextView::npos ? apostrophe : line.find(" Rem ")) < call;
    }

    /// Another member, such as ".ShowColor".
    static bool isLongerName(TextView line, std::size_t call) {
        const TextView next = line.substr(call + showCall.size(), 1);
        return !next.empty() && model::isAllLetters(next);
    }

    /// Whether ";" and the name stand in the list. So a name counts as known, too, when it is the
    /// beginning of one that is. The names are kept in order to find that out without a walk
    /// through a long list. Only a name with a ";" of its own, which no form has, needs the walk;
    /// in a file that is full of them the later ones are passed over.
    bool isKnown(TextView name) {
        if (name.find(';') != TextView::npos) {
            walked_ += calledForms_.size();
            constexpr std::size_t longestWalk = 100'000'000;
            return walked_ > longestWalk || calledForms_.find(';' + Text(name)) != Text::npos;
        }
        const auto next = names_.lower_bound(name);
        return next != names_.end() && next->starts_with(name);
    }

    void add(TextView name) {
        text::append(calledForms_, ";", name);
        for (std::size_t semicolon = 0; (semicolon = name.find(';')) != TextView::npos;) {
            names_.insert(name.substr(0, semicolon));
            name.remove_prefix(semicolon + 1);
        }
        names_.insert(name);
    }

    Text& calledForms_;
    std::set<TextView> names_;
    std::size_t walked_ = 0; ///< characters
};

} // namespace

VbForm readVbForm(TextView file) {
    VbForm form;
    text::LineReader lines(file);
    TextView line;
    DesignerReader designer(form);
    while (lines.next(line) && designer.takeLine(line)) {
    }
    CallReader calls(form.calledForms);
    while (lines.next(line)) {
        calls.takeLine(line);
    }
    return form;
}

} // namespace importer
