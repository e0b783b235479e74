#include "book/PrintPage.h"

#include <algorithm>

#include "generate/OutlineNumbers.h"
#include "platform/Files.h"
#include "text/Labels.h"

namespace book {

using model::ProjectOptions;
using model::Topic;
using text::append;
using text::Text;
using text::TextView;

namespace {

/// Before the author's, which may say otherwise.
constexpr TextView style = R"(
body {margin:0;font-family:sans-serif;font-size:10.5pt;line-height:1.4;orphans:2;widows:2}
h1 {font-size:22pt;line-height:1.2;margin:0 0 14pt 0}
h2 {font-size:16pt;margin:0 0 8pt 0}
h3 {font-size:13pt;margin:16pt 0 6pt 0}
img {max-width:100%}
pre {white-space:pre-wrap}
table {border-collapse:collapse}
td, th {padding:2pt 5pt;vertical-align:top;text-align:start}
)";

/// Behind the author's: what the paper wants. The engine knows no break-after: a heading has room
/// below it that stays on its page, and that the text uses as well.
constexpr TextView ownStyle = R"(
h1, h2, h3, h4, h5, h6 {break-inside:avoid}
h1::after, h2::after, h3::after, h4::after, h5::after, h6::after
  {content:"";display:block;height:4em;margin-bottom:-4em}
img, tr, .topicsmith-row {break-inside:avoid}
.topicsmith-chapter {break-before:page}
.topicsmith-topic {clear:both}
.topicsmith-ruled td, .topicsmith-ruled th {border:1px solid #888}
.topicsmith-row {display:flex;align-items:baseline;margin:2pt 0}
.topicsmith-row a {color:inherit;text-decoration:none}
.topicsmith-row.topicsmith-first {font-weight:bold;margin-top:7pt}
.topicsmith-dots {flex:1;min-width:12pt;margin:0 4pt;border-bottom:1pt dotted #888}
.topicsmith-page {width:3em;text-align:end;flex:none;font-weight:normal}
.topicsmith-number {padding-inline-end:0.8em}
.topicsmith-copyright {margin-top:18pt}
)";

/// That of the documentation, and in other languages than English just the name.
Text titleOf(const ProjectOptions& options) {
    const bool isEnglish = text::hasEnglishLabels(options.language().tag);
    const Text name = plainWords(options.projectName);
    return isEnglish || name.empty() ? plainWords(options.projectName + " Documentation") : name;
}

} // namespace

PrintPage::PrintPage(const model::Project& project, const std::filesystem::path& programFolder)
    : project_(project), pictures_(project.projectPath(), programFolder, BookShape::onePage),
      texts_(project, pictures_, notes_), title_(titleOf(project.options())),
      style_(texts_.styleSheet()) {
    if (project.options().showCopyright) {
        copyright_ = texts_.optionText(project.options().copyrightText);
    }
    topics_ = topics();
}

Text PrintPage::html(const std::vector<int>& pageNumbers) const {
    const text::Language& language = project_.options().language();
    Text page;
    append(page, "<!DOCTYPE html>\n<html lang=\"", language.tag, "\"",
           text::isRightToLeft(language) ? " dir=\"rtl\"" : "",
           ">\n<head>\n<meta charset=\"utf-8\">\n<title>", escapedText(title_), "</title>\n<style>",
           style, style_, ownStyle, "</style>\n</head>\n<body>\n<h1>", escapedText(title_),
           "</h1>\n", contents(pageNumbers), "<div class=\"topicsmith-copyright\">", copyright_,
           "</div>\n", topics_, "</body>\n</html>\n");
    return page;
}

Text PrintPage::contents(const std::vector<int>& pageNumbers) const {
    const ProjectOptions& options = project_.options();
    generate::OutlineNumbers numbers;
    Text contents = "<nav>\n";
    for (int position = 1; position <= project_.outline().count(); ++position) {
        const Topic& topic = project_.outline().at(position);
        const int depth = model::levelDepth(topic.level);
        const Text number = numbers.next(depth);
        append(contents, "<div class=\"topicsmith-row", depth <= 1 ? " topicsmith-first" : "",
               "\"");
        if (options.indentedContents && depth > 1) {
            append(contents, " style=\"margin-inline-start:", std::to_string((depth - 1) * 14),
                   "pt\"");
        }
        append(contents, "><a href=\"#", place(position), "\">");
        if (options.numbering) {
            append(contents, "<span class=\"topicsmith-number\">", number, "</span>");
        }
        append(contents, escapedText(BookTexts::plainTitle(topic)),
               "</a><span class=\"topicsmith-dots\"></span><span class=\"topicsmith-page\">");
        const auto index = static_cast<std::size_t>(position - 1);
        if (index < pageNumbers.size() && pageNumbers[index] > 0) {
            contents += std::to_string(pageNumbers[index]);
        }
        contents += "</span></div>\n";
    }
    return contents + "</nav>\n";
}

Text PrintPage::topics() {
    const ProjectOptions& options = project_.options();
    generate::OutlineNumbers numbers;
    Text topics;
    for (int position = 1; position <= project_.outline().count(); ++position) {
        const int depth = project_.outline().depth(position);
        const Text number = numbers.next(depth);
        const TextView tag = depth <= 1 ? "h2" : "h3";
        append(topics, "<div class=\"topicsmith-topic", depth <= 1 ? " topicsmith-chapter" : "",
               "\">\n<", tag, " id=\"", place(position), "\">");
        if (options.numbering) {
            append(topics, "<span class=\"topicsmith-number\">", number, "</span>");
        }
        append(topics, options.underlineLinks ? "<u>" : "", texts_.heading(position),
               options.underlineLinks ? "</u>" : "", "</", tag, ">\n", texts_.contents(position),
               "</div>\n");
    }
    return topics;
}

std::optional<std::string> PrintPage::picture(const Text& address) const {
    constexpr TextView folder = "images/";
    const TextView name = TextView(address).substr(std::min(folder.size(), address.size()));
    const auto& all = pictures_.all();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [name](const BookPicture& p) { return p.name == name; });
    std::string bytes;
    if (found == all.end() || !address.starts_with(folder)
        || platform::readFile(found->file, bytes)) {
        return {};
    }
    return bytes;
}

} // namespace book
