#include "web/SitePages.h"

#include <algorithm>

#include "generate/PageNavigation.h"
#include "generate/TopicPage.h"
#include "text/HtmlReader.h"
#include "web/Assets.h"
#include "web/SiteData.h"
#include "web/SiteKeywords.h"

namespace web {

using generate::PageTargets;
using model::Topic;
using text::append;
using text::appendLine;
using text::escapedHtml;
using text::Text;
using text::TextView;

Text SitePages::siteTitle() const {
    const Text name = plainLine(options_.projectName);
    return name.empty() ? labels().help : name;
}

Text SitePages::linkTo(int position, TextView fromPlace, TextView attributes) const {
    const SitePage& page = map_.at(position);
    return page.place.empty()
               ? escapedHtml(page.title)
               : "<a" + Text(attributes) + " href=\"" + relativeAddress(fromPlace, page.place)
                     + "\">" + escapedHtml(page.title) + "</a>";
}

void SitePages::appendHead(Text& page, const Head& head) const {
    const auto to = [&head](TextView place) { return relativeAddress(head.place, place); };
    const Text language = options_.language().tag;
    appendLine(page, "<!DOCTYPE html>");
    append(page, R"(<html lang=")", language, R"(")");
    append(page, text::isRightToLeft(options_.language()) ? R"( dir="rtl")" : "");
    appendLine(page, head.hasColours || isOnlyForLight_ ? R"( class="ts-paper")" : "", ">");
    appendLine(page, "<head>");
    appendLine(page, R"(<meta charset="utf-8">)");
    if (head.isFront) {
        appendLine(page, R"(<base href=")", map_.at(head.position).address, R"(">)");
    }
    const Text site = siteTitle();
    append(page, "<title>", escapedHtml(head.title));
    appendLine(page, head.title == site ? "" : " - " + escapedHtml(site), "</title>");
    appendLine(page, R"(<meta name="viewport" content="width=device-width, initial-scale=1">)");
    appendLine(page, R"(<meta name="generator" content="HTML Topicsmith">)");
    const auto link = [&](const char* relation, int position) {
        if (position > 0) {
            appendLine(page, R"(<link rel=")", relation, R"(" href=")", to(map_.at(position).place),
                       R"(">)");
        }
    };
    if (head.position > 0) {
        const Topic& topic = outline_.at(head.position);
        const Text description = plainLine(topic.shortDescription);
        if (!description.empty()) {
            appendLine(page, R"(<meta name="description" content=")", escapedHtml(description),
                       R"(">)");
        }
        if (const Text keywords = keywordList(topic); !keywords.empty()) {
            appendLine(page, R"(<meta name="keywords" content=")", escapedHtml(keywords), R"(">)");
        }
        const SitePage& own = map_.at(head.position);
        link("canonical", head.position);
        link("prev", own.previous);
        link("next", own.next);
        link("up", own.parent);
    }
    appendLine(page, R"(<link rel="contents" href=")", to(contentsPlace), R"(">)");
    appendLine(page, R"(<link rel="index" href=")", to(keywordsPlace), R"(">)");
    appendLine(page, R"(<link rel="stylesheet" href=")", to(stylePlace), R"(">)");
    appendLine(page, R"(<script src=")", to(scriptPlace), R"(" defer></script>)");
    appendLine(page, "</head>");
}

void SitePages::appendFrame(Text& page, const Head& head) const {
    const auto to = [&head](TextView place) { return relativeAddress(head.place, place); };
    appendLine(page, "<body>");
    appendLine(page, R"(<a class="ts-skip" href="#ts-main">)", labels().toText, "</a>");
    append(page, R"(<header class="ts-head"><a class="ts-home" href=")", to(frontPlace), R"(">)",
           escapedHtml(siteTitle()), "</a>");
    append(page, R"(<nav class="ts-ways" aria-label=")", labels().contents, ", ", labels().index,
           R"("><a href=")", to(contentsPlace), R"(">)", labels().contents, R"(</a> <a href=")",
           to(keywordsPlace), R"(">)", labels().index, "</a></nav>");
    appendLine(page, "</header>");
    appendLine(page, R"(<div class="ts-frame">)");
    appendLine(page, R"(<main id="ts-main" tabindex="-1">)");
}

void SitePages::appendFoot(Text& page, TextView place) {
    appendLine(page, "</main>");
    appendLine(page, "</div>");
    if (options_.showCopyright && !options_.copyrightText.empty()) {
        append(page, R"(<footer class="ts-foot"><div class="copyright">)");
        links_.append(page, options_.copyrightText, PageTargets::allPages, Text(place));
        appendLine(page, "</div></footer>");
    }
    appendLine(page, "</body>");
    appendLine(page, "</html>");
}

/// The topics above this one.
void SitePages::appendWayHere(Text& page, int position) const {
    std::vector<int> above;
    for (int at = map_.at(position).parent; at > 0; at = map_.at(at).parent) {
        above.push_back(at);
    }
    if (above.empty()) {
        return;
    }
    append(page, R"(<nav class="ts-path" aria-label=")", labels().here, R"("><ol>)");
    for (auto at = above.rbegin(); at != above.rend(); ++at) {
        append(page, "<li>", linkTo(*at, map_.at(position).place), "</li>");
    }
    appendLine(page, "</ol></nav>");
}

void SitePages::appendHeading(Text& page, int position) {
    const Text& title = outline_.at(position).title;
    // A title may hold mark-up; one that does not may still hold what only looks like it.
    const bool isHtml = title.find('<') != Text::npos && title.find('>') != Text::npos;
    page += "<h1>";
    if (isHtml) {
        links_.append(page, title, position, map_.at(position).place);
    } else {
        page += escapedHtml(plainLine(title));
    }
    appendLine(page, "</h1>");
}

void SitePages::appendSteps(Text& page, int position) const {
    const SitePage& own = map_.at(position);
    if (own.previous == 0 && own.next == 0) {
        return;
    }
    append(page, R"(<nav class="ts-steps" aria-label=")", labels().previous, ", ", labels().next,
           R"(">)");
    if (own.previous > 0) {
        append(page, linkTo(own.previous, own.place, R"( rel="prev")"));
    }
    if (own.next > 0) {
        append(page, linkTo(own.next, own.place, R"( rel="next")"));
    }
    appendLine(page, "</nav>");
}

void SitePages::makeTopic(Text& page, int position, bool isFront) {
    const Topic& topic = outline_.at(position);
    const Text& place = map_.at(position).place;
    body_.clear();
    appendWayHere(body_, position);
    appendHeading(body_, position);
    links_.takeHasColours();
    links_.append(body_, topic.body, position, place);
    const bool hasColours = links_.takeHasColours();
    Text lists;
    generate::appendTopicLists(lists, outline_, options_, position,
                               generate::ListIntroduction::own);
    if (lists.find("<li>") != Text::npos) {
        append(body_, "\r\n<div class=\"ts-topics\">\r\n");
        links_.append(body_, lists, PageTargets::allPages, place);
        appendLine(body_, "</div>");
    }
    appendLine(body_);
    appendSteps(body_, position);
    if (position == 1 && !options_.additionalText.empty()) {
        links_.append(body_, options_.additionalText, position, place);
        appendLine(body_);
    }
    page.clear();
    const Head head = {place, map_.at(position).title, position, isFront, hasColours};
    appendHead(page, head);
    appendFrame(page, head);
    page += body_;
    appendFoot(page, place);
}

/// Lists within lists; a topic that jumps over levels stands one below the one before it.
void SitePages::appendTree(Text& page, TextView place) const {
    std::vector<int> depths;
    for (int position = 1; position <= outline_.count(); ++position) {
        const int depth = outline_.depth(position);
        if (!depths.empty() && depth > depths.back()) {
            append(page, "\r\n<ul>");
        } else {
            while (depths.size() > 1 && depth < depths.back()) {
                append(page, "</li>\r\n</ul>");
                depths.pop_back();
            }
            append(page, depths.empty() ? "" : "</li>\r\n");
            if (!depths.empty()) {
                depths.pop_back();
            }
        }
        depths.push_back(depth);
        append(page, "<li>", linkTo(position, place));
    }
    for (; !depths.empty(); depths.pop_back()) {
        append(page, "</li>\r\n</ul>");
    }
    appendLine(page);
}

Text SitePages::contentsPage(TextView place) {
    Text page;
    const Text title = place == frontPlace ? siteTitle() : Text(labels().contents);
    const Head head = {place, title};
    appendHead(page, head);
    appendFrame(page, head);
    appendLine(page, "<h1>", labels().contents, "</h1>");
    append(page, R"(<nav class="ts-all" aria-label=")", labels().contents, "\">\r\n<ul>");
    appendTree(page, place);
    appendLine(page, "</nav>");
    appendFoot(page, place);
    return page;
}

Text SitePages::keywordsPage() {
    Text page;
    const Head head = {keywordsPlace, labels().index};
    appendHead(page, head);
    appendFrame(page, head);
    appendLine(page, "<h1>", labels().index, "</h1>");
    const std::vector<Keyword> keywords = sortedKeywords(outline_, map_);
    appendLine(page, keywords.empty() ? "<p>" : "<dl class=\"ts-all\">",
               keywords.empty() ? labels().noKeywords : "", keywords.empty() ? "</p>" : "");
    for (const Keyword& keyword : keywords) {
        append(page, "<dt>", escapedHtml(keyword.text), "</dt>");
        for (const int position : keyword.topics) {
            append(page, "<dd>", linkTo(position, keywordsPlace), "</dd>");
        }
        appendLine(page);
    }
    appendLine(page, keywords.empty() ? "" : "</dl>");
    appendFoot(page, keywordsPlace);
    return page;
}

Text SitePages::projectStyle() {
    Text style = "@layer ts-base, ts-project, ts-frame;\n";
    if (const Text sheet = links_.optionPlace(options_.cssFile); !sheet.empty()) {
        append(style, "@import url(\"", relativeAddress(stylePlace, sheet),
               "\") layer(ts-project);\n");
    }
    if (const Text picture = links_.optionPlace(options_.backgroundImage); !picture.empty()) {
        append(style, "@layer ts-project { main { background-image: url(\"",
               relativeAddress(stylePlace, picture), "\"); } }\n");
    }
    return style;
}

Text SitePages::script() const {
    const text::Labels& words = labels();
    const std::pair<TextView, TextView> all[] = {
        {"contents", words.contents}, {"index", words.index},   {"search", words.search},
        {"results", words.results},   {"filter", words.filter}, {"more", words.more},
        {"none", words.noKeywords},   {"noPage", words.noPage}, {"noSearch", words.noSearch},
    };
    Text script = "\"use strict\";\nconst labels = {";
    for (const auto& [name, label] : all) {
        append(script, name, ":", scriptText(label), ",");
    }
    return script + "};\n" + Text(siteScript);
}

} // namespace web
