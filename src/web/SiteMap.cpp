#include "web/SiteMap.h"

#include <algorithm>

#include "model/PagePath.h"
#include "text/Address.h"
#include "text/HtmlReader.h"

namespace web {

using text::Text;
using text::TextView;

namespace {

/// Puts text behind text, with one blank for each run of them.
class LineCollector {
public:
    void append(TextView text) {
        while (!text.empty()) {
            const std::size_t blanksEnd =
                std::min(text.find_first_not_of(text::whiteSpace), text.size());
            if (blanksEnd > 0 && gap_ == '\0') {
                gap_ = ' ';
            }
            text.remove_prefix(blanksEnd);
            const std::size_t end = endOfLine(text);
            if (gap_ != '\0' && end > 0 && !lines_.empty()) {
                lines_ += gap_;
            }
            gap_ = end > 0 ? '\0' : gap_;
            lines_ += text.substr(0, end);
            text.remove_prefix(end);
        }
    }
    void breakLine() { gap_ = '\n'; }

    Text take() { return std::move(lines_); }

private:
    /// Where something stands that does not stay as it is; one blank between others does.
    static std::size_t endOfLine(TextView text) {
        std::size_t end = 0;
        while (end < text.size()
               && (!text::isWhiteSpace(text[end])
                   || (text[end] == ' ' && end > 0 && end + 1 < text.size()
                       && !text::isWhiteSpace(text[end + 1])))) {
            ++end;
        }
        return end;
    }

    Text lines_;
    char gap_ = '\0'; ///< to be put before what follows
};

} // namespace

Text plainText(TextView html) {
    LineCollector lines;
    text::HtmlReader reader(html);
    while (reader.next()) {
        if (reader.isText()) {
            const bool isPlain = reader.text().find('&') == TextView::npos;
            lines.append(isPlain ? Text(reader.text()) : text::resolvedReferences(reader.text()));
        } else if (!text::isInlineTag(reader.lowerName())) {
            lines.breakLine();
        }
    }
    return lines.take();
}

Text plainLine(TextView html) {
    Text line = plainText(html);
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line;
}

Text relativeAddress(TextView fromPlace, TextView toPlace) {
    std::size_t common = 0;
    for (std::size_t i = 0; i < std::min(fromPlace.size(), toPlace.size()); ++i) {
        if (fromPlace[i] != toPlace[i]) {
            break;
        }
        common = fromPlace[i] == '/' ? i + 1 : common;
    }
    Text address;
    const TextView ownFolders = fromPlace.substr(common);
    for (auto up = std::count(ownFolders.begin(), ownFolders.end(), '/'); up > 0; --up) {
        address += "../";
    }
    return address + text::escapedAddress(toPlace.substr(common));
}

SiteMap::SiteMap(const model::TopicOutline& outline) {
    pages_.resize(static_cast<std::size_t>(outline.count()) + 1);
    for (int position = 1; position <= outline.count(); ++position) {
        const model::Topic& topic = outline.at(position);
        SitePage& page = pages_[static_cast<std::size_t>(position)];
        page.title = plainLine(topic.title);
        if (page.title.empty()) {
            page.title = topic.fileName.empty() ? "(no title)" : topic.fileName;
        }
        if (model::pageNameFault(topic.fileName).empty()) {
            page.place = text::plainPath(Text(model::pageFolderName) + '/' + topic.fileName);
            page.address = text::escapedAddress(page.place);
        }
    }
    linkNeighbours(outline);
}

void SiteMap::linkNeighbours(const model::TopicOutline& outline) {
    std::vector<int> above; // topics with pages, each deeper than the one before
    int previous = 0;
    for (int position = 1; position <= outline.count(); ++position) {
        if (!hasPage(position)) {
            continue;
        }
        SitePage& page = pages_[static_cast<std::size_t>(position)];
        while (!above.empty() && outline.depth(above.back()) >= outline.depth(position)) {
            above.pop_back();
        }
        page.parent = above.empty() ? 0 : above.back();
        above.push_back(position);
        page.previous = previous;
        pages_[static_cast<std::size_t>(previous)].next = previous > 0 ? position : 0;
        first_ = first_ == 0 ? position : first_;
        previous = position;
    }
}

} // namespace web
