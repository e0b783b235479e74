#include "book/BookTexts.h"

#include <algorithm>
#include <iterator>

#include "book/StrictStyle.h"
#include "book/WebAddress.h"
#include "generate/PageAddress.h"
#include "generate/PageAnchors.h"
#include "generate/PageNavigation.h"
#include "model/PagePath.h"
#include "model/Variables.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/ForeignText.h"
#include "text/HtmlReader.h"

namespace book {

namespace fs = std::filesystem;
using generate::AddressTarget;
using model::Project;
using model::Topic;
using text::Text;
using text::TextView;
using Kind = AddressTarget::Kind;

namespace {

constexpr const char* isNoPartOfBook = "is no part of the book; its link was left out";

Text lowerName(TextView name) {
    return generate::anchorKey(generate::plainAddress(name));
}

} // namespace

std::vector<Text> noteLines(const Notes& notes, const Project& project) {
    std::vector<Text> lines;
    for (const Note& note : notes) {
        const Text title = note.position > 0
                               ? BookTexts::plainTitle(project.outline().at(note.position)) + ": "
                               : Text();
        lines.push_back(title + note.what);
    }
    return lines;
}

BookTexts::BookTexts(const model::Project& project, BookPictures& pictures, Notes& notes)
    : project_(project), pictures_(pictures), shape_(pictures.shape()), notes_(notes),
      addresses_(project.outline()) {
    for (int position = 1; position <= project.outline().count(); ++position) {
        collectAnchors(position);
    }
}

/// What the author wrote is kept apart, so that no tag of one piece reaches into the next.
std::vector<Text> BookTexts::pieces(int position) const {
    const model::ProjectOptions& options = project_.options();
    std::vector<Text> pieces = {model::shownBody(project_.outline().at(position), options)};
    const bool isOnPages = shape_ == BookShape::pages;
    if (isOnPages) {
        generate::appendTopicLists(pieces.emplace_back(), project_.outline(), options, position,
                                   generate::ListIntroduction::own);
    }
    if (position == 1) {
        pieces.push_back(options.additionalText);
    }
    if (isOnPages && options.showCopyright && !options.copyrightText.empty()) {
        pieces.push_back(R"(<div class="copyright">)" + options.copyrightText + "</div>");
    }
    return pieces;
}

void BookTexts::collectAnchors(int position) {
    std::size_t count = 0;
    for (const Text& piece : pieces(position)) {
        text::HtmlReader reader(piece);
        while (reader.next()) {
            for (const Text& name : generate::anchorsOf(reader)) {
                const auto [place, isNew] =
                    anchors_.try_emplace({position, generate::anchorKey(name)});
                if (isNew) {
                    place->second = "t" + std::to_string(position) + "-" + std::to_string(++count);
                }
            }
        }
    }
}

Text BookTexts::plainTitle(const Topic& topic) {
    Text title = plainWords(topic.title);
    if (title.empty()) {
        title = plainWords(topic.fileName);
    }
    return title.empty() ? "-" : title;
}

Text BookTexts::heading(int position) {
    const Topic& topic = project_.outline().at(position);
    position_ = 0; // the title has no places of its own
    const Text words = strictWords(topic.title, *this);
    return plainWords(topic.title).empty() ? escapedText(plainTitle(topic)) : words;
}

Text BookTexts::contents(int position) {
    position_ = position;
    Text contents;
    for (const Text& piece : pieces(position)) {
        contents += strictBlocks(piece, *this);
        contents += '\n';
    }
    return contents;
}

Text BookTexts::optionText(const Text& html) {
    position_ = generate::PageTargets::allPages;
    return strictBlocks(html, *this);
}

Text BookTexts::styleSheet() {
    constexpr std::uint64_t largest = std::uint64_t(4) << 20U;
    const Text& name = project_.options().cssFile;
    position_ = generate::PageTargets::allPages;
    const Text plain = generate::plainAddress(name);
    const AddressTarget target = addresses_.targetOf(position_, plain);
    if (name.empty() || target.kind != Kind::file) {
        return {};
    }
    const auto places = addresses_.filePlaces(position_, target.path);
    const fs::path file = pictures_.find(places);
    text::Bytes bytes;
    if (file.empty() || platform::readFile(file, bytes.value, largest)) {
        note(name, "is no style sheet in the project's folder");
        return {};
    }
    const Text css = text::decodedSource(bytes.value, project_.options().codePage().number()).utf8;
    const Text& place = places.front();
    return strictStyleSheet(css, [&](const Text& address) -> std::optional<Text> {
        const char* problem = nullptr;
        const Text beside[] = {generate::placeBeside(place, address)};
        const BookPicture* picture = beside->empty() ? nullptr : pictures_.want(beside, problem);
        return picture != nullptr ? std::optional("images/" + picture->name) : std::nullopt;
    });
}

Text BookTexts::address(int position) const {
    const Text name = "t" + std::to_string(position);
    return shape_ == BookShape::pages ? name + ".xhtml" : "#" + name;
}

std::optional<Text> BookTexts::link(TextView given) {
    if (shape_ == BookShape::onePage && !project_.options().documentationLinks) {
        return {}; // as in the documentation
    }
    const Text address = generate::plainAddress(given);
    const AddressTarget target = addresses_.targetOf(position_, address);
    if (target.kind == Kind::page && (target.page > 0 || position_ > 0)) {
        return linkToPage(target, address);
    }
    if (target.kind == Kind::elsewhere) {
        if (auto web = webAddress(address)) {
            return web;
        }
    }
    if (target.kind != Kind::none) {
        note(address, isNoPartOfBook);
    }
    return {};
}

Text BookTexts::linkToPage(const AddressTarget& target, const Text& address) {
    const int page = target.page > 0 ? target.page : position_;
    const auto names = generate::anchorKeysIn(target.rest);
    const Text& name = names.front();
    for (const Text& each : names) {
        if (const auto anchor = anchors_.find({page, each}); anchor != anchors_.end()) {
            const bool isNear = shape_ == BookShape::onePage || page == position_;
            return (isNear ? Text() : this->address(page)) + "#" + anchor->second;
        }
    }
    if (!name.empty() && name != "top") {
        note(address, "leads to a place that its page does not have; it leads to the page");
    }
    return this->address(page);
}

std::optional<Text> BookTexts::picture(TextView given) {
    const Text address = generate::plainAddress(given);
    const AddressTarget target = addresses_.targetOf(position_, address);
    const char* problem = "is no picture in the project's folder";
    if (target.kind == Kind::file) {
        const auto places = addresses_.filePlaces(position_, target.path);
        if (const BookPicture* found = pictures_.want(places, problem)) {
            return "images/" + found->name;
        }
    }
    note(address, problem);
    return {};
}

Text BookTexts::id(TextView name) {
    const auto anchor = anchors_.find({position_, lowerName(name)});
    const bool isFirst = anchor != anchors_.end() && written_.insert(anchor->second).second;
    return isFirst ? anchor->second : Text();
}

bool BookTexts::isRightToLeft() const {
    return text::isRightToLeft(project_.options().language());
}

void BookTexts::note(const Text& address, TextView problem) {
    Text what = text::oneLine(address) + ": " + Text(problem);
    if (noted_.insert({position_, what}).second) {
        notes_.push_back({position_, std::move(what)});
    }
}

} // namespace book
