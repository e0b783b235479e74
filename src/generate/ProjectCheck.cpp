#include "generate/ProjectCheck.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "generate/LinkCheck.h"
#include "generate/WorkshopProject.h"
#include "model/PagePath.h"
#include "model/Variables.h"
#include "text/Address.h"
#include "text/CharacterReferences.h"
#include "text/CodePage.h"
#include "text/Unicode.h"

namespace generate {

using model::Topic;
using model::TopicOutline;
using text::Text;
using text::TextView;

namespace {

/// The help workshop cuts longer lines.
constexpr std::size_t longestWorkshopLine = 1023;

class FieldChecker {
public:
    FieldChecker(const TopicOutline& outline, const text::Language& language,
                 std::vector<Finding>& findings)
        : outline_(outline), language_(language), findings_(findings) {}

    void checkTopic(int position) {
        position_ = position;
        const Topic& topic = outline_.at(position);
        if (text::trim(text::oneLine(topic.body)).empty()) {
            add(FindingKind::empty, "the topic has no text");
        }
        if (text::trim(text::oneLine(topic.title)).empty()) {
            add(FindingKind::title, "the topic has no title");
        }
        checkFileName(topic.fileName);
        checkContext(topic);
        checkCharacters("in the title", topic.title, true);
        checkCharacters("in the file name", topic.fileName, true);
        checkCharacters("in the context string", topic.contextId, true);
        checkCharacters("in the keywords", topic.keywords, true);
        checkCharacters("in the short description", topic.shortDescription, false);
        checkCharacters("in the text", topic.body, false);
    }

    void checkVariables(const model::ProjectOptions& options) {
        const auto variables = model::variablesOf(options);
        for (int position = 1; position <= outline_.count(); ++position) {
            position_ = position;
            for (const auto& use : model::variableUses(outline_.at(position).body, variables)) {
                if (use.variable == nullptr) {
                    add(FindingKind::variable, "{{" + Text(use.name) + "}}: is not defined");
                }
            }
        }
    }

    void checkOptions(const model::ProjectOptions& options) {
        position_ = 0;
        checkCharacters("in the project name", options.projectName, false);
        checkCharacters("in the copyright text", options.copyrightText, false);
        checkCharacters("in the additional code", options.additionalText, false);
    }

    void checkWorkshopLines() {
        position_ = 0;
        const Text workshop =
            workshopProject(outline_, language_, {"help.chm", "help.hhc", "help.hhk"});
        for (std::size_t start = 0; start < workshop.size();) {
            const std::size_t end = workshop.find(text::lineBreak, start);
            if (const std::size_t length =
                    codePage_.encodedSize(TextView(workshop).substr(start, end - start));
                length > longestWorkshopLine) {
                const TextView shown = text::wholeCharacters(TextView(workshop).substr(start), 60);
                add(FindingKind::workshopLine,
                    "a line of " + std::to_string(length) + " characters: " + Text(shown) + "...");
            }
            start = end + text::lineBreak.size();
        }
    }

private:
    void add(FindingKind kind, const Text& text) {
        findings_.push_back({position_, kind, text::oneLine(text)});
    }

    void checkFileName(const Text& fileName) {
        const auto fault = [&](const Text& problem) {
            add(FindingKind::fileName, fileName + ": " + problem);
        };
        if (const TextView problem = model::pageNameFault(fileName); !problem.empty()) {
            fault(Text(problem));
            return;
        }
        const TextView name = TextView(fileName).substr(fileName.find_last_of("/\\") + 1);
        if (text::trim(name.substr(0, name.rfind('.'))).empty()) {
            fault("there is nothing before the ending");
        } else if (name.starts_with(' ')) {
            fault("the blank in front is lost when the project is saved");
        }
        const Text lower = text::lowerCase(fileName);
        if (!lower.ends_with(".htm") && !lower.ends_with(".html")) {
            fault("the help workshop wants the ending .htm or .html");
        }
        if (lower.substr(0, lower.rfind('.')).find(".h") != Text::npos) {
            fault("the help workshop takes what follows .h for the ending");
        }
        if (fileName.find('#') != Text::npos) {
            fault("what follows # is taken for a place in the page");
        }
        if (fileName.find_first_of("*?\"<>|") != Text::npos) {
            fault("Windows allows no * ? \" < > | in file names");
        }
        if (text::unescaped(fileName) != fileName) {
            fault("in a link, % and two digits stand for another character");
        }
        const auto [first, isNew] = pages_.emplace(model::pageKey(fileName), position_);
        if (!isNew) {
            fault("topic " + std::to_string(first->second) + " has the same page");
        }
    }

    void checkContext(const Topic& topic) {
        const Text& id = topic.contextId;
        const Text& number = topic.contextNumber;
        if (id.empty() && number.empty()) {
            return;
        }
        if (id.empty() || number.empty()) {
            add(FindingKind::context, id.empty() ? number + ": a number without a context string"
                                                 : id + ": a context string without a number");
            return;
        }
        if (!isIdentifier(id)) {
            add(FindingKind::context, id + ": not a name of letters, digits and underscores");
        }
        unsigned value = 0;
        const char* end = number.data() + number.size();
        const auto [rest, error] = std::from_chars(number.data(), end, value);
        if (error != std::errc() || rest != end) {
            add(FindingKind::context, number + ": not a whole number below 4294967296");
        } else {
            noteContext(numbers_, std::to_string(value));
        }
        noteContext(ids_, id);
    }

    /// Letters beyond ASCII are those of the code page; others are a fault of their own.
    static bool isIdentifier(TextView id) {
        const auto isLetter = [](char c) {
            return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || (c & 0x80) != 0;
        };
        return isLetter(id.front()) && std::all_of(id.begin(), id.end(), [&isLetter](char c) {
                   return isLetter(c) || (c >= '0' && c <= '9');
               });
    }

    void noteContext(std::map<Text, int>& known, const Text& value) {
        const auto [first, isNew] = known.emplace(text::lowerCase(value), position_);
        if (!isNew) {
            add(FindingKind::context,
                value + ": topic " + std::to_string(first->second) + " has it, too");
        }
    }

    /// `bare`: the text goes into files in which references mean nothing.
    void checkCharacters(const char* where, TextView text, bool bare) {
        const auto note = [&](const Text& problem) {
            add(FindingKind::character, Text(where) + ": " + problem);
        };
        if (holdsControl(text)) {
            note("a character that " + codePageName() + " does not define");
        }
        if (codePage_ == text::CodePage() && looksLikeUtf8(text)) {
            note("what looks like UTF-8 that was taken for Windows-1252");
        }
        while (bare && !text.empty()) {
            const auto reference = text::characterReferenceAt(text, 0);
            TextView rest = text;
            const char32_t own = text::takeUtf8(rest);
            const bool isKnown =
                reference.length > 0 && reference.character != text::unknownCharacter;
            const std::size_t length = isKnown ? reference.length : text.size() - rest.size();
            if (!codePage_.has(isKnown ? reference.character : own)) {
                note("a character that is not in " + codePageName() + ", "
                     + Text(text.substr(0, length)));
                return;
            }
            text.remove_prefix(length);
        }
    }

    Text codePageName() const {
        constexpr unsigned firstOfTwoBytes = 932; // these are known by their numbers
        constexpr unsigned lastOfTwoBytes = 950;
        const unsigned number = codePage_.number();
        const bool hasTwoBytes = number >= firstOfTwoBytes && number <= lastOfTwoBytes;
        return (hasTwoBytes ? "code page " : "Windows-") + std::to_string(number);
    }

    /// C1 has no letters; five of its characters stand for the gaps of the code page.
    static bool holdsControl(TextView text) {
        while (!text.empty()) {
            const char32_t character = text::takeUtf8(text);
            if (character >= 0x80 && character < 0xA0) {
                return true;
            }
        }
        return false;
    }

    /// Whether every character beyond ASCII is, in the western code page, part of a sequence of
    /// UTF-8. Capitals with an accent in front of typographic signs are such sequences, too, and do
    /// not count.
    static bool looksLikeUtf8(TextView text) {
        constexpr TextView signs = "\x85\x91\x92\x93\x94\x95\x96\x97\x99";
        constexpr TextView moreSigns = "\xA0\xAB\xAE\xB0\xBB"; // small letters behind C3
        const auto counts = [&](TextView pair) {
            const bool isUsual = pair[0] == '\xC2' || pair[0] == '\xC3';
            return signs.find(pair[1]) == TextView::npos
                   && (isUsual || moreSigns.find(pair[1]) == TextView::npos);
        };
        if (text::isAscii(text)) {
            return false;
        }
        const text::Bytes bytes = text::CodePage().encoded(text, text::Missing::reference);
        bool found = false;
        for (TextView rest = bytes.value; !rest.empty();) {
            const TextView before = rest;
            const char32_t character = text::takeUtf8(rest);
            const std::size_t length = before.size() - rest.size();
            if (character == text::replacementCharacter && length == 1) {
                return false;
            }
            found = found || length > 2 || (length == 2 && counts(before));
        }
        return found;
    }

    const TopicOutline& outline_;
    const text::Language& language_;
    std::vector<Finding>& findings_;
    int position_ = 0;
    std::map<Text, int> pages_;
    std::map<Text, int> ids_;
    std::map<Text, int> numbers_;
    text::CodePage codePage_{language_.codePage};
};

} // namespace

const char* nameOf(FindingKind kind) {
    constexpr const char* names[] = {"link",      "picture", "unreached", "empty",
                                     "title",     "context", "file name", "workshop line",
                                     "character", "variable"};
    return names[static_cast<std::size_t>(kind)];
}

std::vector<Finding> checkProject(const TopicOutline& outline, const model::ProjectOptions& options,
                                  const std::filesystem::path& outputFolder) {
    std::vector<Finding> findings;
    if (outline.empty()) {
        return findings;
    }
    FieldChecker fields(outline, options.language(), findings);
    fields.checkOptions(options);
    fields.checkWorkshopLines();
    for (int position = 1; position <= outline.count(); ++position) {
        fields.checkTopic(position);
    }
    fields.checkVariables(options);
    checkLinks(outline, options, outputFolder, findings);
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& a, const Finding& b) { return a.position < b.position; });
    return findings;
}

} // namespace generate
