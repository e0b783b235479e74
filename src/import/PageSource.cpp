#include "import/PageSource.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "editor/PastedHtml.h"
#include "editor/PictureFile.h"
#include "import/ForeignPage.h"
#include "import/HelpFiles.h"
#include "import/Markdown.h"
#include "import/PageHeadings.h"
#include "platform/Files.h"
#include "text/Address.h"
#include "text/FileFinder.h"
#include "text/ForeignText.h"
#include "text/HtmlReader.h"
#include "text/Path.h"

namespace importer {

namespace fs = std::filesystem;
using text::HtmlReader;
using text::Text;
using text::TextView;

namespace {

constexpr std::uint64_t mostBytes = std::uint64_t(64) << 20; // of all pages, and of all pictures
// What is cleaned takes many times its size in memory.
constexpr std::size_t largestMarkdown = std::size_t(2) << 20U;
constexpr std::size_t largestMarkUp = std::size_t(4) << 20U; // beside pictures in it
constexpr std::size_t mostNotes = 200;

/// Whether a word processor saved a page: that describes how every letter looks, and nobody would
/// want to go on writing in it.
bool isOfWordProcessor(TextView html) {
    constexpr TextView makers[] = {"libreoffice", "openoffice", "staroffice", "word",
                                   "abiword",     "wordpad",    "wps office"};
    HtmlReader reader(html);
    while (reader.next()) {
        if (reader.opens("meta")
            && text::equalIgnoringCase(reader.attribute("name").value_or(""), "generator")) {
            const Text maker = text::lowerAscii(reader.attribute("content").value_or(""));
            return std::any_of(std::begin(makers), std::end(makers),
                               [&maker](TextView each) { return maker.find(each) != Text::npos; });
        }
        if (reader.opens("html") && reader.attribute("xmlns:w")) {
            return true;
        }
        if (reader.opens("body")) {
            break;
        }
    }
    return html.find("mso-") != TextView::npos || html.find("class=Mso") != TextView::npos;
}

/// The length of a page without the pictures in its text.
std::size_t markUpSize(TextView html) {
    std::size_t size = html.size();
    for (std::size_t at = 0; (at = html.find("data:image/", at)) != TextView::npos;) {
        const std::size_t end = std::min(html.find_first_of("\"'> ", at), html.size());
        size -= end - at;
        at = end;
    }
    return size;
}

struct Page {
    Text path;                            ///< by which it is found; with the ending of a page
    Text name;                            ///< the file's
    Text title = {};                      ///< as text
    Text html = {};                       ///< as it was saved, then as an author would write it
    bool isCleaned = true;                ///< or stays as it is
    std::unordered_set<Text> places = {}; ///< that links lead to
};

class PageSource : public HelpSource {
public:
    PageSource(const std::vector<fs::path>& files, unsigned letters)
        : folder_(files.front().parent_path()), finder_(folder_) {
        codePage = letters;
        hasNavigation = false;
        missing = "which does not come with the pages";
        for (const fs::path& file : files) {
            readPage(file);
        }
        for (const Page& page : read_) {
            takeLinks(page);
        }
        for (Page& page : read_) {
            if (page.isCleaned) {
                clean(page);
            }
            contents.push_back({1, page.title.empty() ? stemOf(page.name) : page.title, page.path});
            parts.push_back(contents.back());
            if (page.isCleaned) {
                addParts(page);
            }
            pages.push_back(page.path);
        }
        title = read_.size() == 1 ? contents.front().title
                                  : Text(platform::utf8FromPath(folder_.filename()));
    }

    bool isEmpty() const { return read_.empty(); }

    std::optional<Text> find(TextView path) const override {
        const Text relative = text::plainPath(path);
        if (relative.empty()) {
            return {};
        }
        const Text key = pathKey(relative);
        if (const Page* page = pageAt(key)) {
            return page->path;
        }
        const auto [known, isNew] = pictures_.try_emplace(key);
        if (isNew) {
            known->second = findPicture(relative);
        }
        return known->second;
    }

    std::optional<std::string> read(const Text& path) const override {
        if (const auto page = paths_.find(pathKey(path)); page != paths_.end()) {
            return read_[page->second].html;
        }
        if (const auto picture = unpacked_.find(path); picture != unpacked_.end()) {
            return picture->second;
        }
        std::string bytes;
        const fs::path file = folder_ / platform::pathFromUtf8(path);
        return platform::readFile(file, bytes, largestFile) ? std::nullopt : std::optional(bytes);
    }

    std::uint64_t sizeOf(const Text& path) const override {
        if (const auto page = paths_.find(pathKey(path)); page != paths_.end()) {
            return read_[page->second].html.size();
        }
        if (const auto picture = unpacked_.find(path); picture != unpacked_.end()) {
            return picture->second.size();
        }
        std::error_code error;
        const std::uint64_t size = fs::file_size(folder_ / platform::pathFromUtf8(path), error);
        return error ? 0 : size;
    }

    // ---- What a page names, while it is cleaned ----

    Text picture(const Page& page, TextView address) {
        if (text::startsWithIgnoringCase(address, "data:")) {
            return unpack(page, address);
        }
        const auto found = target(page.path, address);
        if (!found || text::isPageName(*found)) {
            tell(page, "names the picture " + Text(address) + ", which "
                           + (leadsElsewhere(address) ? "lies elsewhere" : "is not there"));
            return {};
        }
        if (const TextView fault = fileNameFault(found->substr(found->rfind('/') + 1));
            !fault.empty()) {
            tell(page, "names the picture " + Text(address) + ", which stays out: " + Text(fault));
            return {};
        }
        return Text(address);
    }

    Text link(const Page& page, TextView address) {
        if (address.starts_with('#')) {
            return Text(address);
        }
        const auto found = target(page.path, address);
        if (!found || !text::isPageName(*found)) {
            tell(page, "leads to " + Text(address) + ", " + Text(missing));
            return {};
        }
        return Text(address);
    }

private:
    static Text stemOf(TextView name) {
        return Text(name.substr(0, std::min(name.rfind('.'), name.size())));
    }

    /// Sites that are made of Markdown know a page without its ending, and from their root, which
    /// is a folder above these pages.
    const Page* pageAt(const Text& key) const {
        for (const TextView ending : {"", ".md", ".markdown", ".htm", ".html"}) {
            if (const auto page = paths_.find(key + Text(ending)); page != paths_.end()) {
                return &read_[page->second];
            }
        }
        Text folder = pathKey('/' + platform::utf8FromPath(folder_));
        std::replace(folder.begin(), folder.end(), '\\', '/');
        for (std::size_t slash = 0; (slash = key.find('/', slash)) != Text::npos; ++slash) {
            if (folder.ends_with('/' + key.substr(0, slash))) {
                return pageAt(key.substr(slash + 1));
            }
        }
        return nullptr;
    }

    void tell(const Page& page, Text text) {
        const bool isKnown =
            std::any_of(pageNotes.begin(), pageNotes.end(), [&](const SourceNote& note) {
                return note.page == page.path && note.text == text;
            });
        if (!isKnown && pageNotes.size() < mostNotes) {
            pageNotes.push_back({page.path, std::move(text)});
        }
    }

    /// The path of a file as pages beside it would write it; empty for one on another drive.
    Text relativePath(const fs::path& file) const {
        Text path = platform::utf8FromPath(file.lexically_relative(folder_));
        std::replace(path.begin(), path.end(), '\\', '/');
        return path;
    }

    void readPage(const fs::path& file) {
        const Text own = relativePath(file);
        std::string bytes;
        const std::error_code error =
            platform::readFile(file, bytes, isMarkdownName(own) ? largestMarkdown : largestFile);
        const bool isTooMuch = bytes.size() > mostBytes - bytesRead_;
        Text text = error || isTooMuch    ? Text()
                    : isMarkdownName(own) ? text::decodedSource(bytes, codePage).utf8
                                          : text::decodedForeignPage(bytes, codePage);
        const bool isText = text.find('\0') == Text::npos;
        if (error || own.empty() || isTooMuch || !isText) {
            notes.push_back(text::oneLine(platform::utf8FromPath(file.filename())) + ": "
                            + (error         ? error.message()
                               : own.empty() ? "lies on another drive than the others"
                               : isTooMuch   ? "all pages together are too large"
                                             : "is no text"));
            return;
        }
        if (paths_.contains(pathKey(own))) {
            return; // twice the same
        }
        bytesRead_ += bytes.size();
        Page page{own, own.substr(own.rfind('/') + 1)};
        if (isMarkdownName(own)) {
            MarkdownPage made = readMarkdown(text);
            page.title = std::move(made.title);
            page.html = std::move(made.html);
            for (int i = 1; i == 1 || paths_.contains(pathKey(page.path)); ++i) {
                page.path = stemOf(own) + (i > 1 ? ' ' + std::to_string(i) : Text()) + ".htm";
            }
        } else {
            page.html = std::move(text);
            page.title = titleOfPage(page.html);
            page.title = page.title.empty() ? firstHeading(page.html) : page.title;
            page.isCleaned = isOfWordProcessor(page.html);
            if (page.isCleaned && markUpSize(page.html) > largestMarkUp) {
                page.isCleaned = false;
                tell(page, "is too long to be freed of the word processor's looks");
            }
        }
        paths_[pathKey(own)] = read_.size();
        paths_[pathKey(page.path)] = read_.size();
        read_.push_back(std::move(page));
    }

    /// Only what is a picture, whatever its name says: a page must not bring in other files of this
    /// machine.
    std::optional<Text> findPicture(const Text& relative) const {
        const fs::path file = finder_.findNative(platform::pathFromUtf8(relative));
        std::string bytes;
        if (!editor::hasPictureName(file) || platform::readFile(file, bytes, largestFile)
            || editor::pictureEnding(bytes).empty()) {
            return {};
        }
        const Text path = relativePath(file);
        return path.empty() ? std::nullopt : std::optional(path);
    }

    /// A picture that stands in the text of a page becomes a file beside it.
    Text unpack(const Page& page, TextView address) {
        std::string bytes = editor::bytesOfDataAddress(address);
        const Text ending = editor::pictureEnding(bytes);
        if (ending.empty() || bytes.size() > mostBytes - bytesUnpacked_) {
            tell(page, "holds a picture that is damaged, too large or of an unknown kind");
            return {};
        }
        bytesUnpacked_ += bytes.size();
        const Text name =
            stemOf(page.name) + ' ' + std::to_string(unpacked_.size() + 1) + '.' + ending;
        const Text path = page.path.substr(0, page.path.rfind('/') + 1) + name;
        unpacked_[path] = std::move(bytes);
        pictures_[pathKey(path)] = path;
        return text::escapedAddress(name);
    }

    /// Places that links of any page lead to have to stay.
    void takeLinks(const Page& page) {
        HtmlReader reader(page.html);
        while (reader.next()) {
            const Text address =
                reader.opens("a")
                    ? text::resolvedReferences(reader.attribute("href").value_or(TextView()))
                    : Text();
            const Text place(anchorOf(address));
            if (place.empty() || leadsElsewhere(address)) {
                continue;
            }
            const auto path =
                address.starts_with('#') ? std::optional(page.path) : target(page.path, address);
            const auto other = path ? paths_.find(pathKey(*path)) : paths_.end();
            if (other != paths_.end()) {
                read_[other->second].places.insert(place);
                read_[other->second].places.insert(text::unescaped(place));
            }
        }
    }

    void clean(Page& page);
    void addParts(const Page& page);

    fs::path folder_;
    mutable text::FileFinder finder_; ///< remembers the folders that it has listed
    std::vector<Page> read_;
    std::unordered_map<Text, std::size_t> paths_;                    ///< of pages, by their keys
    mutable std::unordered_map<Text, std::optional<Text>> pictures_; ///< by the key of the path
    std::unordered_map<Text, std::string> unpacked_;                 ///< by path
    std::uint64_t bytesRead_ = 0;
    std::uint64_t bytesUnpacked_ = 0;
};

class PageTargets : public editor::PasteTargets {
public:
    PageTargets(PageSource& source, const Page& page) : source_(source), page_(page) {}

    Text picture(TextView address) override { return source_.picture(page_, address); }
    Text page(TextView address) override { return source_.link(page_, address); }
    bool keepsPlace(TextView name) override {
        return isMadePlace(name) || page_.places.contains(Text(name));
    }

private:
    PageSource& source_;
    const Page& page_;
};

void PageSource::clean(Page& page) {
    PageTargets targets(*this, page);
    page.html = "<meta charset=utf-8>\r\n<body>"
                + editor::pageMarkUp(withMadePlaces(page.html), targets) + "</body>";
}

/// What is a topic of its own when its page is cut at headings.
void PageSource::addParts(const Page& page) {
    std::vector<int> open; // levels of headings, each in the one before
    for (const PageHeading& heading : madeHeadings(page.html)) {
        if (heading.text.empty() || heading.text == contents.back().title) {
            continue;
        }
        while (!open.empty() && open.back() >= heading.level) {
            open.pop_back();
        }
        open.push_back(heading.level);
        parts.push_back(
            {static_cast<int>(open.size()) + 1, heading.text, page.path + '#' + heading.place});
    }
}

} // namespace

std::unique_ptr<HelpSource> openPages(const std::vector<fs::path>& files, unsigned codePage,
                                      Text& problem) {
    if (files.empty()) {
        problem = "there are no pages";
        return nullptr;
    }
    auto source = std::make_unique<PageSource>(files, codePage);
    if (source->isEmpty()) {
        problem = source->notes.empty() ? "there are no pages" : source->notes.front();
        return nullptr;
    }
    return source;
}

bool isPageFile(const fs::path& file) {
    const Text name = platform::utf8FromPath(file.filename());
    return isMarkdownName(name) || text::isPageName(name);
}

} // namespace importer
