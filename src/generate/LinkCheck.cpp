#include "generate/LinkCheck.h"

#include <algorithm>
#include <map>
#include <set>

#include "generate/GenerationRun.h"
#include "generate/PageAddress.h"
#include "generate/PageLines.h"
#include "generate/PageNavigation.h"
#include "model/PagePath.h"
#include "platform/Files.h"
#include "text/FileFinder.h"
#include "text/HtmlReader.h"
#include "text/Path.h"

namespace generate {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;

namespace {

/// Whether an address, or what it means, leads past the page to a root, a drive or a share.
bool isOfThisComputer(TextView address) {
    const TextView protocol = protocolOf(address);
    return protocol.size() == 1 || text::equalIgnoringCase(protocol, "file")
           || address.starts_with('/') || address.starts_with('\\');
}

class LinkChecker {
public:
    static constexpr int allPages = 0; ///< as a position: stands on every page

    LinkChecker(const model::TopicOutline& outline, const fs::path& folder,
                std::vector<const char*> copied, std::vector<Finding>& findings)
        : outline_(outline), folder_(folder), files_(folder), copied_(std::move(copied)),
          findings_(findings), reached_(static_cast<std::size_t>(outline.count()) + 1) {
        for (int position = 1; position <= outline.count(); ++position) {
            pages_.emplace(placeKey(outline.at(position).fileName), position);
        }
    }

    /// Looks at all addresses in HTML that stands on the page of a topic or on all pages.
    void checkHtml(int position, TextView html) {
        text::HtmlReader reader(html);
        while (reader.next()) {
            for (const char* attribute : {"id", "name"}) {
                const auto anchor = reader.attribute(attribute);
                if (anchor && (reader.opens("a") || TextView(attribute) == "id")) {
                    anchors_.emplace(position, text::lowerCase(plainAddress(*anchor)));
                }
            }
            for (const AddressPlace& place : addressPlaces()) {
                if (!reader.opens(place.tag)) {
                    continue;
                }
                if (const auto address = reader.attribute(place.attribute)) {
                    checkAddress(position, plainAddress(*address), place.kind);
                }
            }
        }
    }

    void checkAddress(int position, const Text& address, FindingKind kind) {
        if (!seen_.insert({position, address}).second) {
            return;
        }
        const TextView protocol = protocolOf(address);
        const bool isWeb = address.starts_with("//");
        if (isWeb || (protocol.size() > 1 && !text::equalIgnoringCase(protocol, "file"))) {
            return;
        }
        if (address.empty()) {
            add(position, kind, "\"\"", "is no address");
            return;
        }
        if (isOfThisComputer(address) || isOfThisComputer(unescapedAddress(address))) {
            add(position, kind, address, "exists on this computer only");
            return;
        }
        if (const int page = pageOf(position, address); page > 0) {
            reach(position, page); // a page name with "#" is a fault of its own
            return;
        }
        const std::size_t end = std::min(address.find_first_of("#?"), address.size());
        const Text path = address.substr(0, end);
        const int page = path.empty() && end < address.size() ? position : pageOf(position, path);
        if (page > 0) {
            reach(position, page);
            noteAnchor(position, page, address);
        } else if (page < 0) {
            if (const char* problem = problemOfFile(position, path)) {
                add(position, kind, address, problem);
            }
        }
    }

    /// To be called when all pages have been looked at.
    void finish() {
        for (const AnchorLink& link : anchorLinks_) {
            if (!hasAnchor(link.page, link.anchor)
                && !hasAnchor(link.page, unescapedAddress(link.anchor))) {
                add(link.position, FindingKind::link, link.address,
                    "leads to a place that its page does not have");
            }
        }
        for (int position = 2; position <= outline_.count(); ++position) {
            if (!reached_[static_cast<std::size_t>(position)]) {
                findings_.push_back(
                    {position, FindingKind::unreached, "no text and no list of topics leads here"});
            }
        }
    }

private:
    struct AnchorLink {
        int position;
        int page;
        Text anchor;
        Text address;
    };

    void add(int position, FindingKind kind, const Text& address, const char* problem) {
        findings_.push_back({position, kind, text::oneLine(address) + ": " + problem});
    }

    /// A file below the page folder by a path as it stands on the page of a topic.
    Text fromPage(int position, TextView path) const {
        return pathFromPage(position > 0 ? outline_.at(position).fileName : Text(), path);
    }

    /// The position of the topic to whose page a path leads; -1 for none.
    int pageOf(int position, const Text& path) const {
        for (const Text& each : {path, unescapedAddress(path)}) {
            if (const auto found = pages_.find(placeKey(fromPage(position, each)));
                found != pages_.end()) {
                return found->second;
            }
        }
        return -1;
    }

    void reach(int from, int page) {
        if (page != from) {
            reached_[static_cast<std::size_t>(page)] = true;
        }
    }

    void noteAnchor(int position, int page, const Text& address) {
        const std::size_t hash = address.find('#');
        const Text anchor = hash == Text::npos ? Text() : text::lowerCase(address.substr(hash + 1));
        if (!anchor.empty() && anchor != "top") {
            anchorLinks_.push_back({position, page, anchor, address});
        }
    }

    /// A place that every page has counts, too.
    bool hasAnchor(int page, const Text& anchor) const {
        return anchors_.contains({page, anchor}) || anchors_.contains({allPages, anchor});
    }

    /// What is wrong with a path to a file; null for nothing. Only what lies in the output folder
    /// is looked for: a project from elsewhere must not choose what is opened, here or, by names
    /// such as "\\\\host\\file", on another machine.
    const char* problemOfFile(int position, const Text& path) {
        constexpr const char* isMissing = "does not exist";
        constexpr const char* isOutside = "lies outside of the project";
        constexpr const char* isNoName = "cannot be the name of a file on Windows"; // but a device
        for (const Text& each : {path, unescapedAddress(path)}) {
            const Text place = plainPlace(fromPage(position, each));
            if (place == ".." || place.starts_with("../")) {
                return isOutside;
            }
            if (path.empty() || place.empty()) {
                continue; // no file, but a folder
            }
            if (!model::pageNameFault(place).empty()) {
                return isNoName;
            }
            const fs::path file = files_.find(place);
            if (platform::leadsOutOf(folder_, file)) {
                return isOutside;
            }
            if (std::error_code ignored; fs::exists(file, ignored)) {
                return isOldPage(file) ? "leads to the page of a topic that is gone" : nullptr;
            }
            if (isCopied(place)) {
                return nullptr;
            }
        }
        return isMissing;
    }

    /// Whether generation puts a picture there.
    bool isCopied(const Text& place) const {
        return std::any_of(copied_.begin(), copied_.end(), [&place](const char* name) {
            return model::pageKey(place)
                   == model::pageKey(Text(model::imageFolderName) + '/' + name);
        });
    }

    /// Whether a file is a page that was generated earlier.
    static bool isOldPage(const fs::path& file) {
        constexpr std::size_t headSize = 200;
        std::string head;
        return !platform::readPart(file, head, 0, headSize)
               && head.find(generatorLine) != std::string::npos;
    }

    const model::TopicOutline& outline_;
    fs::path folder_;
    text::FileFinder files_;
    std::vector<const char*> copied_;
    std::vector<Finding>& findings_;
    std::vector<bool> reached_;
    std::map<Text, int> pages_; ///< positions by page key; the first of those that share it
    std::set<std::pair<int, Text>> seen_;
    std::set<std::pair<int, Text>> anchors_;
    std::vector<AnchorLink> anchorLinks_;
};

} // namespace

void checkLinks(const model::TopicOutline& outline, const model::ProjectOptions& options,
                const fs::path& outputFolder, std::vector<Finding>& findings) {
    LinkChecker checker(outline, outputFolder, copiedPictures(options), findings);
    constexpr int allPages = LinkChecker::allPages;
    if (!options.cssFile.empty()) {
        checker.checkAddress(allPages, options.cssFile, FindingKind::link);
    }
    if (!options.backgroundImage.empty()) {
        checker.checkAddress(allPages, options.backgroundImage, FindingKind::picture);
    }
    if (options.showCopyright) {
        checker.checkHtml(allPages, options.copyrightText);
    }
    for (int position = 1; position <= outline.count(); ++position) {
        Text lists;
        appendTopicLists(lists, outline, options, position);
        checker.checkHtml(position, outline.at(position).body);
        checker.checkHtml(position, lists);
        if (position == 1) {
            checker.checkHtml(position, options.additionalText);
        }
    }
    checker.finish();
}

} // namespace generate
