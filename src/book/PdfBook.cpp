#include "book/PdfBook.h"

#include <algorithm>
#include <charconv>

#include "book/PrintPage.h"

namespace book {

using text::Text;

namespace {

std::string reference(int number) {
    return std::to_string(number) + " 0 R";
}

std::string stream(const std::string& contents) {
    return "<</Length " + std::to_string(contents.size()) + ">>\nstream\n" + contents
           + "\nendstream";
}

/// Writes numbers at the foot of the pages.
class PageNumbers {
public:
    explicit PageNumbers(PdfFile& file)
        : file_(file), font_(file.add("<</Type /Font /Subtype /Type1 /BaseFont /Helvetica "
                                      "/Encoding /WinAnsiEncoding>>")),
          keep_(file.add(stream("q"))) {}

    void write(int page, int number) {
        std::string dictionary(file_.object(page));
        const std::string contents = pdfValue(dictionary, "Contents");
        if (contents.empty()) {
            return;
        }
        const int foot = file_.add(stream(footOf(dictionary, number)));
        const bool isList = contents.front() == '[';
        const std::string all = isList ? contents.substr(1, contents.size() - 2) : contents;
        dictionary = withPdfValue(dictionary, "Contents",
                                  "[" + reference(keep_) + " " + all + " " + reference(foot) + "]");
        file_.replace(page, withPdfValue(dictionary, "Resources", resources(dictionary)));
    }

private:
    /// In the middle of the lower margin. What the page did to its coordinates is taken back.
    static std::string footOf(const std::string& page, int number) {
        constexpr double size = 9;
        constexpr double digitWidth = 0.556 * size;
        constexpr double usualWidth = 595;
        const std::string digits = std::to_string(number);
        const std::string box = pdfValue(page, "MediaBox");
        std::vector<double> sides;
        const char* const end = box.data() + box.size();
        for (const char* at = box.data(); at < end; ++at) {
            double side = 0;
            if (const auto read = std::from_chars(at, end, side); read.ec == std::errc()) {
                sides.push_back(side);
                at = read.ptr;
            }
        }
        const double width = sides.size() == 4 ? sides[2] - sides[0] : usualWidth;
        const double left = (width - digitWidth * static_cast<double>(digits.size())) / 2;
        return "Q q BT /TopicsmithFoot 9 Tf 0.35 g " + std::to_string(static_cast<int>(left))
               + " 26 Td (" + digits + ") Tj ET Q";
    }

    /// With our font.
    std::string resources(const std::string& page) const {
        std::string all = dictionaryOf(pdfValue(page, "Resources"));
        const std::string fonts = dictionaryOf(pdfValue(all, "Font"));
        return withPdfValue(all, "Font", withPdfValue(fonts, "TopicsmithFoot", reference(font_)));
    }

    std::string dictionaryOf(const std::string& value) const {
        const int number = pdfReference(value);
        const std::string dictionary = number > 0 ? std::string(file_.object(number)) : value;
        return dictionary.starts_with("<<") ? dictionary : "<<>>";
    }

    PdfFile& file_;
    int font_;
    int keep_; ///< before a page's contents
};

/// The outline as bookmarks.
class Bookmarks {
public:
    Bookmarks(PdfFile& file, const model::Project& project) : file_(file), project_(project) {}

    /// The number of their root.
    int write() {
        const int count = project_.outline().count();
        marks_.resize(static_cast<std::size_t>(count) + 1);
        std::vector<int> open = {0}; // the way down to the last topic
        marks_[0].number = file_.reserve();
        for (int position = 1; position <= count; ++position) {
            marks_[index(position)].number = file_.reserve();
            while (open.size() > 1
                   && project_.outline().depth(open.back()) >= project_.outline().depth(position)) {
                open.pop_back();
            }
            link(open.back(), position);
            open.push_back(position);
        }
        for (int position = 1; position <= count; ++position) {
            writeMark(position);
        }
        const Mark& root = marks_[0];
        file_.replace(root.number, "<</Type /Outlines /First " + to(root.first) + " /Last "
                                       + to(root.last) + " /Count " + std::to_string(root.count)
                                       + ">>");
        return root.number;
    }

private:
    /// A topic's; others by their topics, 0 for none.
    struct Mark {
        int number = 0;
        int parent = 0;
        int previous = 0;
        int next = 0;
        int first = 0;
        int last = 0;
        int count = 0;
    };

    static std::size_t index(int position) { return static_cast<std::size_t>(position); }
    std::string to(int position) const { return reference(marks_[index(position)].number); }

    void link(int parent, int position) {
        Mark& mark = marks_[index(position)];
        Mark& above = marks_[index(parent)];
        mark.parent = parent;
        mark.previous = above.last;
        if (above.last > 0) {
            marks_[index(above.last)].next = position;
        } else {
            above.first = position;
        }
        above.last = position;
        ++above.count;
    }

    /// What is below it is not shown at first.
    void writeMark(int position) {
        const Mark& mark = marks_[index(position)];
        std::string contents = "<</Title "
                               + pdfText(BookTexts::plainTitle(project_.outline().at(position)))
                               + " /Parent " + to(mark.parent);
        const auto add = [&](const char* name, int other) {
            contents += other > 0 ? std::string(" /") + name + " " + to(other) : "";
        };
        add("Prev", mark.previous);
        add("Next", mark.next);
        add("First", mark.first);
        add("Last", mark.last);
        if (mark.count > 0) {
            contents += " /Count -" + std::to_string(mark.count);
        }
        const auto place = file_.places().find(PrintPage::place(position));
        if (place != file_.places().end()) {
            contents += " /Dest " + place->second.target;
        }
        file_.replace(mark.number, contents + ">>");
    }

    PdfFile& file_;
    const model::Project& project_;
    std::vector<Mark> marks_; ///< by position; the first is the root
};

} // namespace

std::optional<std::vector<int>> topicPages(const PdfFile& file, const model::Project& project) {
    std::vector<int> pages;
    for (int position = 1; position <= project.outline().count(); ++position) {
        const auto place = file.places().find(PrintPage::place(position));
        if (place == file.places().end()) {
            return {};
        }
        pages.push_back(place->second.page);
    }
    return pages;
}

std::string finishedPdf(PdfFile file, const model::Project& project, const Text& title) {
    PageNumbers numbers(file);
    int number = 0;
    for (const int page : file.pages()) {
        numbers.write(page, ++number);
    }
    const std::string bookmarks = reference(Bookmarks(file, project).write());
    std::string catalog(file.object(file.catalog()));
    catalog = withPdfValue(catalog, "Outlines", bookmarks);
    catalog = withPdfValue(catalog, "PageMode", "/UseOutlines");
    catalog = withPdfValue(catalog, "Lang", pdfText(project.options().language().tag));
    catalog = withPdfValue(catalog, "ViewerPreferences", "<</DisplayDocTitle true>>");
    file.replace(file.catalog(), catalog);
    file.setTitle(pdfText(title));
    return file.take();
}

} // namespace book
