#include "generate/Documentation.h"

#include <algorithm>
#include <string>

#include "generate/BodyLinks.h"
#include "generate/GeneratedFile.h"
#include "generate/OutlineNumbers.h"
#include "generate/PageLines.h"
#include "model/Variables.h"
#include "text/Path.h"

namespace generate {

using model::ProjectOptions;
using model::Topic;
using model::TopicOutline;
using text::append;
using text::appendLine;
using text::Text;
using text::TextView;

namespace {

constexpr TextView numberGap = " &nbsp;&nbsp;";

/// The file name without its extension of four characters.
TextView anchorName(const Topic& topic) {
    TextView name = topic.fileName;
    for (int left = 4; left > 0 && !name.empty(); name.remove_suffix(1)) {
        left -= text::continuesCharacter(name.back()) ? 0 : 1;
    }
    return name;
}

class Documentation {
public:
    Documentation(const TopicOutline& outline, const ProjectOptions& options, TextView imageFolder)
        : outline_(outline), options_(options), imageFolder_(imageFolder) {
        std::size_t bodies = 0;
        for (const Topic& topic : outline) {
            bodies += topic.body.size();
        }
        constexpr std::size_t perTopic = 1000; // headings, and what rewriting adds
        bytes_.value.reserve(bodies + perTopic * static_cast<std::size_t>(outline.count()));
    }

    text::Bytes make() && {
        appendHead();
        appendContents();
        if (options_.showCopyright) {
            appendLine(page_);
            appendLine(page_, "<p>", options_.copyrightText, "</p>");
        }
        OutlineNumbers numbers;
        for (int position = 1; position <= outline_.count(); ++position) {
            appendTopic(position, numbers);
            encode();
        }
        appendLine(page_, "</body>");
        appendLine(page_, "</html>");
        encode();
        return std::move(bytes_);
    }

private:
    /// What is done, so that it need not be kept twice.
    void encode() {
        codePage_.appendEncoded(bytes_.value, page_, text::Missing::reference);
        page_.clear();
    }

    void appendHead() {
        appendLine(page_, documentTypeLine);
        appendLine(page_, generatorLine);
        appendLine(page_, "<html>");
        appendLine(page_, "<head>");
        appendCharset(page_, options_);
        appendLine(page_, "<title>", options_.projectName, " Documentation</title>");
        appendLine(page_, "</head>");
        appendLine(page_, "<body>");
        appendLine(page_, "<h1>", options_.projectName, " Documentation</h1>");
    }

    void appendContents() {
        const bool flat = std::all_of(outline_.begin(), outline_.end(),
                                      [](const Topic& topic) { return topic.level == "1"; });
        OutlineNumbers numbers;
        for (const Topic& topic : outline_) {
            appendContentsLine(topic, numbers, flat);
        }
    }

    void appendContentsLine(const Topic& topic, OutlineNumbers& numbers, bool flat) {
        const int depth = model::levelDepth(topic.level);
        const bool chapter = depth == 1;
        const Text number = numbers.next(depth);
        if (chapter && !flat) {
            appendLine(page_, "<p>");
        }
        append(page_, chapter ? "<b>" : "");
        for (int level = 1; options_.indentedContents && level < depth; ++level) {
            append(page_, "&nbsp;&nbsp;&nbsp;");
        }
        if (options_.documentationLinks) {
            append(page_, "<A href='#", anchorName(topic), "'>");
        }
        appendNumber(number);
        append(page_, topic.title, options_.documentationLinks ? "</a>" : "");
        appendLine(page_, chapter ? "</b><br>" : "<br>");
    }

    void appendTopic(int position, OutlineNumbers& numbers) {
        const Topic& topic = outline_.at(position);
        appendLine(page_);
        if (options_.documentationLinks) {
            appendLine(page_, "<a name='", anchorName(topic), "'></a>");
        }
        appendHeading(topic, numbers);
        const Text body = model::shownBody(topic, options_);
        appendDocumentationBody(page_, body, imageFolder_,
                                options_.documentationLinks ? PageLinks::toAnchors
                                                            : PageLinks::removed);
        appendLine(page_);
        if (holdsImage(body)) {
            appendLine(page_, "<br clear=all>");
        }
        if (position == 1 && !options_.additionalText.empty()) {
            appendAdditionalText();
        }
    }

    void appendHeading(const Topic& topic, OutlineNumbers& numbers) {
        const int depth = model::levelDepth(topic.level);
        const std::string heading = "h" + std::to_string(std::min(depth + 1, 3)) + ">";
        const Text number = numbers.next(depth);
        append(page_, "<", heading);
        appendNumber(number);
        append(page_, options_.underlineLinks ? "<u>" : "", topic.title,
               options_.underlineLinks ? "</u>" : "");
        appendLine(page_, "</", heading);
    }

    void appendNumber(const Text& number) {
        if (options_.numbering) {
            append(page_, number, numberGap);
        }
    }

    void appendAdditionalText() {
        constexpr TextView paragraph = "<p>";
        const Text& code = options_.additionalText;
        appendLine(page_);
        if (text::startsWithIgnoringCase(code, paragraph)) {
            appendLine(page_, code);
        } else {
            appendLine(page_, paragraph, code, "</p>");
        }
    }

    const TopicOutline& outline_;
    const ProjectOptions& options_;
    TextView imageFolder_;
    text::CodePage codePage_ = options_.codePage();
    Text page_; ///< what is not encoded yet
    text::Bytes bytes_;
};

} // namespace

text::Bytes documentationPage(const TopicOutline& outline, const ProjectOptions& options,
                              TextView imageFolder) {
    return Documentation(outline, options, imageFolder).make();
}

model::FileFailures generateDocumentation(const model::Project& project,
                                          const std::filesystem::path& file,
                                          const std::filesystem::path& imageFolder) {
    model::FileFailures failures;
    GeneratedFiles(project.projectPath(), failures)
        .write(file, documentationPage(project.outline(), project.options(),
                                       text::attributeText(imageFolder)));
    return failures;
}

text::Message documentationComplete() {
    return {"HTML Documentation Generation is Complete", "Documentation", text::MessageIcon::none};
}

} // namespace generate
