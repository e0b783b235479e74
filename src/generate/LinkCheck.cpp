#include "generate/LinkCheck.h"

#include <algorithm>
#include <set>

#include "generate/GenerationRun.h"
#include "generate/PageAddress.h"
#include "generate/PageAnchors.h"
#include "generate/PageLines.h"
#include "generate/PageNavigation.h"
#include "generate/PageTargets.h"
#include "model/PagePath.h"
#include "model/Variables.h"
#include "platform/Files.h"
#include "text/FileFinder.h"
#include "text/HtmlReader.h"

namespace generate {

namespace fs = std::filesystem;
using text::Text;
using text::TextView;

namespace {

class LinkChecker {
public:
    LinkChecker(const model::TopicOutline& outline, const fs::path& folder,
                std::vector<const char*> copied, std::vector<Finding>& findings)
        : outline_(outline), targets_(outline), folder_(folder), files_(folder),
          copied_(std::move(copied)), findings_(findings),
          reached_(static_cast<std::size_t>(outline.count()) + 1) {}

    enum class Origin { author, outline };

    /// Looks at all addresses in HTML that stands on the page of a topic or on all pages. What is
    /// made of the outline leads to the pages as they will be named.
    void checkHtml(int position, TextView html, Origin origin = Origin::author) {
        text::HtmlReader reader(html);
        while (reader.next()) {
            for (const Text& anchor : anchorsOf(reader)) {
                anchors_.emplace(position, anchorKey(anchor));
            }
            for (const AddressPlace& place : addressPlaces()) {
                if (!reader.opens(place.tag)) {
                    continue;
                }
                if (const auto address = reader.attribute(place.attribute)) {
                    checkAddress(position, plainAddress(*address), place.kind, origin);
                }
            }
        }
    }

    void checkAddress(int position, const Text& address, FindingKind kind,
                      Origin origin = Origin::author) {
        if (!seen_.insert({position, address}).second) {
            return;
        }
        const AddressTarget target = targets_.targetOf(position, address);
        switch (target.kind) {
        case AddressTarget::Kind::none:
            add(position, kind, "\"\"", "is no address");
            return;
        case AddressTarget::Kind::ownComputer:
            add(position, kind, address, "exists on this computer only");
            return;
        case AddressTarget::Kind::page:
            if (target.page > 0) { // a page name with "#" is a fault of its own
                reach(position, target.page);
                noteAnchor(position, target, address);
                if (origin == Origin::author) {
                    checkSharing(position, target.page, address, kind);
                }
            }
            return;
        case AddressTarget::Kind::file:
            if (const char* problem = problemOfFile(position, target.path)) {
                add(position, kind, address, problem);
            }
            return;
        case AddressTarget::Kind::elsewhere:
            return;
        }
    }

    /// To be called when all pages have been looked at.
    void finish() {
        for (const AnchorLink& link : anchorLinks_) {
            if (std::none_of(link.anchors.begin(), link.anchors.end(),
                             [&](const Text& anchor) { return hasAnchor(link.page, anchor); })) {
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
        std::array<Text, 2> anchors; ///< what may be meant
        Text address;
    };

    void add(int position, FindingKind kind, const Text& address, const Text& problem) {
        findings_.push_back({position, kind, text::oneLine(address) + ": " + problem});
    }

    void reach(int from, int page) {
        if (page != from) {
            reached_[static_cast<std::size_t>(page)] = true;
        }
    }

    /// Of topics with one page all but the first get another name when help is generated.
    void checkSharing(int position, int page, const Text& address, FindingKind kind) {
        const int sharer = targets_.sharerOf(page);
        if (sharer > 0 && page != position) {
            add(position, kind, address,
                "leads to topic " + std::to_string(page) + ", though topic "
                    + std::to_string(sharer) + " has the same page");
        }
    }

    void noteAnchor(int position, const AddressTarget& target, const Text& address) {
        const auto anchors = anchorKeysIn(target.rest);
        if (!anchors.front().empty() && anchors.front() != "top") {
            anchorLinks_.push_back({position, target.page, anchors, address});
        }
    }

    /// A place that every page has counts, too.
    bool hasAnchor(int page, const Text& anchor) const {
        return anchors_.contains({page, anchor})
               || anchors_.contains({PageTargets::allPages, anchor});
    }

    /// What is wrong with a path to a file; null for nothing. Only what lies in the output folder
    /// is looked for: a project from elsewhere must not choose what is opened, here or, by names
    /// such as "\\\\host\\file", on another machine.
    const char* problemOfFile(int position, TextView path) {
        constexpr const char* isMissing = "does not exist";
        constexpr const char* isOutside = "lies outside of the project";
        constexpr const char* isNoName = "cannot be the name of a file on Windows"; // but a device
        for (const Text& place : targets_.filePlaces(position, path)) {
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
    PageTargets targets_;
    fs::path folder_;
    text::FileFinder files_;
    std::vector<const char*> copied_;
    std::vector<Finding>& findings_;
    std::vector<bool> reached_;
    std::set<std::pair<int, Text>> seen_;
    std::set<std::pair<int, Text>> anchors_;
    std::vector<AnchorLink> anchorLinks_;
};

} // namespace

void checkLinks(const model::TopicOutline& outline, const model::ProjectOptions& options,
                const fs::path& outputFolder, std::vector<Finding>& findings) {
    LinkChecker checker(outline, outputFolder, copiedPictures(options), findings);
    constexpr int allPages = PageTargets::allPages;
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
        checker.checkHtml(position, model::shownBody(outline.at(position), options));
        if (position == 1) {
            checker.checkHtml(position, options.additionalText);
        }
        Text lists;
        appendTopicLists(lists, outline, options, position);
        checker.checkHtml(position, lists, LinkChecker::Origin::outline);
    }
    checker.finish();
}

} // namespace generate
