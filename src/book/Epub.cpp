#include "book/Epub.h"

#include <array>
#include <chrono>
#include <cstdio>

#include "book/ZipFile.h"
#include "generate/GeneratedFile.h"
#include "platform/Files.h"
#include "text/Path.h"

namespace book {

namespace fs = std::filesystem;
using model::Project;
using text::append;
using text::Text;
using text::TextView;

namespace {

constexpr TextView xmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

constexpr TextView ownStyle = R"(body {margin:0.5em}
h1 {font-size:1.5em;line-height:1.2;margin:0 0 0.8em 0}
img {max-width:100%}
pre {white-space:pre-wrap}
table {border-collapse:collapse}
td, th {padding:0.2em 0.5em;vertical-align:top;text-align:start}
.topicsmith-ruled td, .topicsmith-ruled th {border:1px solid}
.copyright {font-size:smaller;margin-top:1.5em}
)";

/// A number of the book that stays when its text changes, so that a reader puts a new edition in
/// the place of the old one: in the form of a UUID, of what names the book.
Text identifier(const Project& project) {
    constexpr std::uint64_t prime = 0x100000001B3;
    constexpr std::array<std::uint64_t, 2> starts = {0xCBF29CE484222325, 0x84222325CBF29CE4};
    constexpr TextView digits = "0123456789abcdef";
    const Text name = project.options().projectName + '\n' + project.options().languageTag + '\n'
                      + project.outline().at(1).fileName;
    Text hex;
    for (std::uint64_t hash : starts) {
        for (const char byte : name) {
            hash = (hash ^ static_cast<unsigned char>(byte)) * prime;
        }
        for (int shift = 60; shift >= 0; shift -= 4) {
            hex += digits[(hash >> static_cast<unsigned>(shift)) & 15U];
        }
    }
    hex[12] = '8'; // made in a way of its own
    hex[16] = 'a';
    for (const std::size_t gap : {20U, 16U, 12U, 8U}) {
        hex.insert(gap, "-");
    }
    return "urn:uuid:" + hex;
}

/// As books say it: "2026-01-31T12:00:00Z".
Text writtenTime(std::int64_t seconds) {
    using namespace std::chrono;
    const sys_seconds time{std::chrono::seconds(seconds)};
    const year_month_day date(floor<days>(time));
    const hh_mm_ss clock(time - floor<days>(time));
    std::array<char, 64> written{};
    const int size = std::snprintf(
        written.data(), written.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
        static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
        static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
        static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
    return Text(written.data(), static_cast<std::size_t>(size));
}

class Epub {
public:
    Epub(const Project& project, const fs::path& programFolder, std::int64_t time)
        : project_(project), pictures_(project.projectPath(), programFolder, BookShape::pages),
          texts_(project, pictures_, outcome_.notes), language_(project.options().language()),
          time_(time) {
        title_ = plainWords(project.options().projectName);
        if (title_.empty()) {
            title_ = text::displayText(project.projectPath().stem());
        }
        title_ = title_.empty() ? BookTexts::plainTitle(project.outline().at(1)) : title_;
    }

    std::string make() {
        zip_.add("mimetype", "application/epub+zip", true);
        zip_.add("META-INF/container.xml", container());
        zip_.add("book/style.css", ownStyle);
        addStyleSheet();
        for (int position = 1; position <= project_.outline().count(); ++position) {
            addPage(position);
        }
        addPictures();
        addItem("nav", "nav.xhtml", "application/xhtml+xml", R"( properties="nav")");
        addItem("style", "style.css", "text/css");
        zip_.add("book/nav.xhtml", navigation());
        zip_.add("book/book.opf", package());
        return zip_.take();
    }

    BookOutcome outcome_;

private:
    static Text container() {
        return Text(xmlHead)
               + "<container version=\"1.0\" "
                 "xmlns=\"urn:oasis:names:tc:opendocument:xmlns:container\">\n"
                 "<rootfiles><rootfile full-path=\"book/book.opf\" "
                 "media-type=\"application/oebps-package+xml\"/></rootfiles>\n"
                 "</container>\n";
    }

    void addStyleSheet() {
        if (const Text css = texts_.styleSheet(); !css.empty()) {
            hasStyleSheet_ = true;
            zip_.add("book/author.css", css);
            addItem("author", "author.css", "text/css");
        }
    }

    Text pageHead(TextView title) const {
        Text page(xmlHead);
        append(page,
               "<!DOCTYPE html>\n<html xmlns=\"http://www.w3.org/1999/xhtml\" "
               "xmlns:epub=\"http://www.idpf.org/2007/ops\" lang=\"",
               language_.tag, "\" xml:lang=\"", language_.tag, "\"",
               text::isRightToLeft(language_) ? " dir=\"rtl\"" : "", ">\n<head>\n<title>",
               escapedText(title),
               "</title>\n<link rel=\"stylesheet\" type=\"text/css\" href=\"style.css\"/>\n");
        if (hasStyleSheet_) {
            page += "<link rel=\"stylesheet\" type=\"text/css\" href=\"author.css\"/>\n";
        }
        return page + "</head>\n<body>\n";
    }

    void addPage(int position) {
        Text page = pageHead(BookTexts::plainTitle(project_.outline().at(position)));
        append(page, "<h1>", texts_.heading(position), "</h1>\n", texts_.contents(position),
               "</body>\n</html>\n");
        const Text name = texts_.address(position);
        zip_.add("book/" + name, page);
        const Text id = "t" + std::to_string(position);
        addItem(id, name, "application/xhtml+xml");
        append(spine_, "<itemref idref=\"", id, "\"/>\n");
    }

    void addPictures() {
        for (const BookPicture& picture : pictures_.all()) {
            std::string bytes;
            if (picture.converted.empty()) {
                if (const std::error_code error = platform::readFile(picture.file, bytes)) {
                    generate::noteFailure(outcome_.failures, picture.file, error);
                    continue;
                }
            }
            zip_.add("book/images/" + picture.name, bytes.empty() ? picture.converted : bytes);
            addItem("image-" + picture.name, "images/" + picture.name, picture.mediaType);
        }
    }

    void addItem(TextView id, TextView address, TextView type, TextView more = {}) {
        append(manifest_, "<item id=\"", id, "\" href=\"", address, "\" media-type=\"", type, "\"",
               more, "/>\n");
    }

    /// The outline as lists in each other, however its levels jump.
    Text navigation() {
        Text page = pageHead(title_);
        append(page, "<nav epub:type=\"toc\" id=\"toc\">\n<h1>", escapedText(title_), "</h1>\n");
        std::vector<int> depths; // of the lists that are open
        for (int position = 1; position <= project_.outline().count(); ++position) {
            const int depth = project_.outline().depth(position);
            if (depths.empty() || depth > depths.back()) {
                page += "<ol>\n";
                depths.push_back(depth);
            } else {
                page += "</li>\n";
                while (depths.size() > 1 && depths[depths.size() - 2] >= depth) {
                    page += "</ol></li>\n";
                    depths.pop_back();
                }
                depths.back() = depth;
            }
            append(page, "<li><a href=\"", texts_.address(position), "\">",
                   escapedText(BookTexts::plainTitle(project_.outline().at(position))), "</a>");
        }
        for (; !depths.empty(); depths.pop_back()) {
            page += "</li></ol>\n";
        }
        return page + "</nav>\n</body>\n</html>\n";
    }

    Text package() const {
        Text page(xmlHead);
        append(page,
               "<package xmlns=\"http://www.idpf.org/2007/opf\" version=\"3.0\" "
               "unique-identifier=\"id\" xml:lang=\"",
               language_.tag, "\">\n<metadata xmlns:dc=\"http://purl.org/dc/elements/1.1/\">\n",
               "<dc:identifier id=\"id\">", identifier(project_), "</dc:identifier>\n<dc:title>",
               escapedText(title_), "</dc:title>\n<dc:language>", language_.tag,
               "</dc:language>\n<meta property=\"dcterms:modified\">", writtenTime(time_),
               "</meta>\n</metadata>\n<manifest>\n", manifest_, "</manifest>\n<spine",
               text::isRightToLeft(language_) ? " page-progression-direction=\"rtl\"" : "", ">\n",
               spine_, "</spine>\n</package>\n");
        return page;
    }

    const Project& project_;
    BookPictures pictures_;
    BookTexts texts_;
    const text::Language& language_;
    std::int64_t time_;
    Text title_;
    bool hasStyleSheet_ = false;
    ZipFile zip_;
    Text manifest_;
    Text spine_;
};

} // namespace

BookOutcome writeEpub(const Project& project, const fs::path& file, const fs::path& programFolder,
                      std::optional<std::int64_t> time) {
    constexpr std::int64_t anyTime = 946'684'800; // 2000: a clock would make each book another one
    Epub epub(project, programFolder, time.value_or(anyTime));
    const std::string bytes = epub.make();
    BookOutcome& outcome = epub.outcome_;
    if (auto fault = generate::outputFault(file, project.projectPath())) {
        outcome.failures.push_back(std::move(*fault));
    } else if (bytes.empty()) {
        generate::noteFailure(outcome.failures, file,
                              std::make_error_code(std::errc::file_too_large));
    } else if (outcome.failures.empty()) {
        generate::noteFailure(outcome.failures, file, platform::replaceFile(file, bytes));
    }
    return std::move(outcome);
}

} // namespace book
