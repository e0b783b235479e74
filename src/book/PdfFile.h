#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace book {

/// A PDF file as the browser prints it, with its objects in plain text and one table of them. It is
/// read as far as its pages and named places go; what is changed is appended, as the format has it.
class PdfFile {
public:
    /// Nothing for what is not such a file.
    static std::optional<PdfFile> read(std::string bytes);

    /// A named place: the number of its page, from 1, and how to go there.
    struct Place {
        int page = 0;
        std::string target; ///< as it stands in the file: "[5 0 R /XYZ 63 770 0]"
    };
    const std::map<std::string, Place>& places() const { return places_; }

    /// The numbers of the objects that are pages, in their order.
    const std::vector<int>& pages() const { return pages_; }
    int catalog() const { return catalog_; }

    /// What an object holds, without its frame; empty for one that is not there.
    std::string_view object(int number) const;

    int add(std::string contents); ///< a new object; its number
    int reserve();                 ///< the number of an object that is still to be replaced
    void replace(int number, std::string contents);

    void setTitle(std::string title); ///< as an object of text

    /// The file with what was changed.
    std::string take();

private:
    explicit PdfFile(std::string bytes) : bytes_(std::move(bytes)) {}

    bool readTable();
    bool readPages(int number, int depth);
    void readPlaces();

    std::string bytes_;
    std::vector<std::size_t> offsets_; ///< by the objects' numbers; 0 for none
    std::size_t table_ = 0;
    std::string trailer_;
    int catalog_ = 0;
    std::vector<int> pages_;
    std::map<std::string, Place> places_;
    std::map<int, std::string> changed_;
};

/// The value of a dictionary's entry as it stands; empty when there is none.
std::string pdfValue(std::string_view dictionary, std::string_view name);

/// The same dictionary with another value of an entry.
std::string withPdfValue(std::string_view dictionary, std::string_view name,
                         std::string_view value);

/// The number of the object to which a value refers; 0 when it does not.
int pdfReference(std::string_view value);

/// Any text as an object.
std::string pdfText(std::string_view utf8);

} // namespace book
