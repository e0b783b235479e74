#include "generate/BodyLinks.h"

#include <algorithm>

#include "model/ProjectFolders.h"

namespace generate {

using text::Text;
using text::TextView;

namespace {

constexpr TextView linkStart = "<a href='";
constexpr TextView linkEnd = "</a>";
constexpr TextView imageStart = "<img src='";

/// Walks once over a body, copying what it passes to the output; handlers take over at each tag.
class BodyCopier {
public:
    BodyCopier(Text& out, TextView body) : out_(out), rest_(body) {}

    /// Copies up to the next "<"; false at the end of the body.
    bool copyToTag() {
        copy(std::min(rest_.find('<'), rest_.size()));
        return !rest_.empty();
    }

    TextView rest() const { return rest_; }
    bool at(TextView tag) const { return rest_.substr(0, tag.size()) == tag; }
    void put(TextView text) { out_ += text; }
    void skip(std::size_t length) { rest_.remove_prefix(length); }
    void copy(std::size_t length) {
        put(rest_.substr(0, length));
        skip(length);
    }

private:
    Text& out_;
    TextView rest_;
};

/// "<a href='..\html\setup.htm'" becomes "<a href='#setup'".
void turnIntoAnchorLink(BodyCopier& copier) {
    constexpr TextView extension = ".htm";
    copier.put(linkStart);
    copier.put("#");
    copier.skip(model::pageLinkStart.size());
    const std::size_t quote = copier.rest().find('\'');
    if (quote == TextView::npos) {
        return;
    }
    const TextView page = copier.rest().substr(0, quote);
    const bool isWholePage =
        page.size() >= extension.size()
        && text::equalIgnoringCase(page.substr(page.size() - extension.size()), extension);
    copier.copy(isWholePage ? quote - extension.size() : quote);
    copier.skip(isWholePage ? extension.size() : 0);
}

/// The length of the opening tag of a link; 0 when it has no end. However it is damaged, it goes no
/// further than the next tag: what stands between them is the author's.
std::size_t linkTagLength(TextView rest) {
    constexpr TextView tagEnd = "'>";
    const TextView tag = rest.substr(0, rest.find('<', 1));
    const std::size_t end = tag.find(tagEnd, linkStart.size() - 1);
    return end == TextView::npos ? tag.find('>') + 1 : end + tagEnd.size();
}

/// Takes the tags of links away; each opening tag takes one closing tag with it.
class LinkRemover {
public:
    /// Handles the tag that the copier stands at; false when it is none of a link's.
    bool handle(BodyCopier& copier) {
        if (const std::size_t length = copier.at(linkStart) ? linkTagLength(copier.rest()) : 0) {
            copier.skip(length);
            ++openLinks_;
            return true;
        }
        if (copier.at(linkEnd) && openLinks_ > 0) {
            copier.skip(linkEnd.size());
            --openLinks_;
            return true;
        }
        return false;
    }

private:
    int openLinks_ = 0;
};

} // namespace

LinkCounts countLinks(TextView body) {
    LinkCounts counts;
    for (std::size_t at = body.find('<'); at != TextView::npos; at = body.find('<', at + 1)) {
        if (!text::startsWithIgnoringCase(body.substr(at), linkStart)) {
            continue;
        }
        const bool web = text::startsWithIgnoringCase(body.substr(at + linkStart.size()), "http");
        ++(web ? counts.web : counts.pages);
    }
    return counts;
}

bool holdsImage(TextView body) {
    return body.find(imageStart) != TextView::npos;
}

void appendDocumentationBody(Text& out, TextView body, TextView imageFolder, PageLinks links) {
    BodyCopier copier(out, body);
    LinkRemover remover;
    while (copier.copyToTag()) {
        if (copier.at(model::imageTagStart)) {
            constexpr TextView parentFolder = "..";
            copier.copy(imageStart.size());
            copier.skip(parentFolder.size());
            copier.put(imageFolder);
        } else if (links == PageLinks::toAnchors && copier.at(model::pageLinkStart)) {
            turnIntoAnchorLink(copier);
        } else if (links == PageLinks::toAnchors || !remover.handle(copier)) {
            copier.copy(1);
        }
    }
}

} // namespace generate
