#include "generate/TopicPage.h"

#include "generate/BodyLinks.h"
#include "generate/PageLines.h"
#include "generate/PageNavigation.h"
#include "model/ProtectedBlock.h"
#include "model/Variables.h"

namespace generate {

using model::ProjectOptions;
using model::Topic;
using model::TopicOutline;
using text::appendLine;
using text::Text;
using text::TextView;

namespace {

void appendHead(Text& page, const Topic& topic, const ProjectOptions& options) {
    appendLine(page, documentTypeLine);
    appendLine(page, generatorLine);
    appendLine(page, "<html>");
    appendLine(page, "<head>");
    appendCharset(page, options);
    appendLine(page, "<title>", topic.title, "</title>");
    if (!options.cssFile.empty()) {
        appendLine(page, R"(<link rel="stylesheet" href=")", options.cssFile, R"(">)");
    }
    appendLine(page, "</head>");
    if (options.backgroundImage.empty()) {
        appendLine(page, "<body>");
    } else {
        appendLine(page, R"(<body background=")", options.backgroundImage, R"(">)");
    }
}

/// The object from which the help workshop makes the index; a semicolon at the end gives an empty
/// last entry.
void appendKeywords(Text& page, const Topic& topic) {
    if (topic.keywords.empty()) {
        return;
    }
    appendLine(page);
    appendLine(page, R"(<Object type="application/x-oleobject" )",
               R"(classid="clsid:1e2a7bd0-dab9-11d0-b93a-00c04fc99f9e">)");
    for (const TextView keyword : keywordsOf(topic)) {
        appendLine(page, R"(  <param name="Keyword" value=")", keyword, R"(">)");
    }
    appendLine(page, "</OBJECT>",
               documentTypeLine); // repeated on purpose: part of the object's form
    appendLine(page);
}

void appendBody(Text& page, const Text& body, const text::CodePage& codePage, PageCounts& counts) {
    model::appendProtectedBlock(page, body, codePage);
    appendLine(page);
    if (body.empty() || holdsImage(body)) {
        appendLine(page, "<br clear=all>");
    }
    ++(body.empty() ? counts.incomplete : counts.complete);
    const LinkCounts links = countLinks(body);
    counts.pageLinks += links.pages;
    counts.webLinks += links.web;
}

} // namespace

std::vector<TextView> keywordsOf(const Topic& topic) {
    std::vector<TextView> keywords;
    TextView rest = text::trim(topic.keywords);
    for (bool last = false; !last;) {
        const std::size_t semicolon = rest.find(';');
        last = semicolon == TextView::npos;
        keywords.push_back(text::trim(rest.substr(0, semicolon)));
        rest = last ? TextView() : text::trim(rest.substr(semicolon + 1));
    }
    return keywords;
}

void makeTopicPage(const TopicOutline& outline, const ProjectOptions& options, int position,
                   Text& page, PageCounts& counts) {
    const Topic& topic = outline.at(position);
    page.clear();
    appendHead(page, topic, options);
    appendKeywords(page, topic);
    appendLine(page, "<h1>", topic.title, "</h1>");
    appendLine(page);
    appendBody(page, model::shownBody(topic, options), options.codePage(), counts);

    const ListedTopics listed = appendTopicLists(page, outline, options, position);
    counts.pageLinks += listed.children;
    appendNavigation(page, outline, options, position, listed.next);

    if (position == 1 && !options.additionalText.empty()) {
        appendLine(page, options.additionalText);
    }
    if (options.showCopyright && !options.copyrightText.empty()) {
        appendLine(page, R"(<div class="copyright">)", options.copyrightText, "</div>");
    }
    appendLine(page, "</body>");
    appendLine(page, "</html>");
}

} // namespace generate
