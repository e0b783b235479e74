#include "book/PdfFile.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "text/Unicode.h"

namespace book {

namespace {

constexpr std::string_view blanks(" \t\r\n\f\0", 6);
constexpr std::string_view delimiters = "()<>[]{}/%";

std::size_t skipBlanks(std::string_view text, std::size_t at) {
    return std::min(text.find_first_not_of(blanks, at), text.size());
}

/// The end of a text in brackets, which may hold others.
std::size_t textEnd(std::string_view text, std::size_t at) {
    int depth = 0;
    for (; at < text.size(); ++at) {
        if (text[at] == '\\') {
            ++at;
        } else if (text[at] == '(') {
            ++depth;
        } else if (text[at] == ')' && --depth == 0) {
            return at + 1;
        }
    }
    return text.size();
}

/// The end of the word, name, text or sign that begins here.
std::size_t tokenEnd(std::string_view text, std::size_t at) {
    const std::string_view rest = text.substr(at);
    if (rest.starts_with("<<") || rest.starts_with(">>")) {
        return at + 2;
    }
    if (rest.front() == '(') {
        return textEnd(text, at);
    }
    if (rest.front() == '<') {
        return std::min(text.find('>', at), text.size() - 1) + 1;
    }
    const bool isWord =
        rest.front() == '/' || delimiters.find(rest.front()) == std::string_view::npos;
    std::size_t end = at + 1;
    while (isWord && end < text.size() && blanks.find(text[end]) == std::string_view::npos
           && delimiters.find(text[end]) == std::string_view::npos) {
        ++end;
    }
    return end;
}

/// The end of a whole value: of a dictionary or a list with all that it holds, of a reference with
/// its three words.
std::size_t valueEnd(std::string_view text, std::size_t at) {
    int depth = 0;
    std::size_t end = at;
    do {
        at = skipBlanks(text, end);
        if (at == text.size()) {
            return at;
        }
        end = tokenEnd(text, at);
        const std::string_view token = text.substr(at, end - at);
        depth += token == "<<" || token == "[" ? 1 : token == ">>" || token == "]" ? -1 : 0;
    } while (depth > 0);
    std::size_t reference = skipBlanks(text, end);
    for (const bool isLast : {false, true}) {
        const std::size_t wordEnd = reference < text.size() ? tokenEnd(text, reference) : reference;
        const std::string_view word = text.substr(reference, wordEnd - reference);
        if (isLast && word == "R") {
            return wordEnd;
        }
        if (isLast || word.empty() || word[0] < '0' || word[0] > '9') {
            break;
        }
        reference = skipBlanks(text, wordEnd);
    }
    return end;
}

/// Calls with the name, and with the beginning and the end of the value, of each entry.
template <typename Visitor>
void forEntries(std::string_view dictionary, Visitor visitor) {
    std::size_t at = skipBlanks(dictionary, 0);
    if (!dictionary.substr(at).starts_with("<<")) {
        return;
    }
    at = skipBlanks(dictionary, at + 2);
    while (at < dictionary.size() && dictionary[at] == '/') {
        const std::size_t nameEnd = tokenEnd(dictionary, at);
        const std::size_t value = skipBlanks(dictionary, nameEnd);
        const std::size_t end = valueEnd(dictionary, value);
        visitor(dictionary.substr(at + 1, nameEnd - at - 1), value, end);
        at = skipBlanks(dictionary, end);
    }
}

/// The whole number that the text begins with; -1 for none.
int numberAt(std::string_view text) {
    int number = -1;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

} // namespace

std::string pdfValue(std::string_view dictionary, std::string_view name) {
    std::string found;
    forEntries(dictionary, [&](std::string_view entry, std::size_t begin, std::size_t end) {
        if (entry == name) {
            found = dictionary.substr(begin, end - begin);
        }
    });
    return found;
}

std::string withPdfValue(std::string_view dictionary, std::string_view name,
                         std::string_view value) {
    std::string changed(dictionary);
    bool isThere = false;
    forEntries(dictionary, [&](std::string_view entry, std::size_t begin, std::size_t end) {
        if (entry == name && !isThere) {
            isThere = true;
            changed.replace(begin, end - begin, value);
        }
    });
    if (const std::size_t start = changed.find("<<"); !isThere && start != std::string::npos) {
        changed.insert(start + 2, "/" + std::string(name) + " " + std::string(value) + "\n");
    }
    return changed;
}

int pdfReference(std::string_view value) {
    return value.ends_with("R") ? std::max(numberAt(value), 0) : 0;
}

std::string pdfText(std::string_view utf8) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string hex = "<FEFF";
    const auto append = [&](char32_t unit) {
        for (const unsigned shift : {12U, 8U, 4U, 0U}) {
            hex += digits[(unit >> shift) & 15U];
        }
    };
    while (!utf8.empty()) {
        constexpr char32_t plane = 0x10000;
        const char32_t character = text::takeUtf8(utf8);
        if (character < plane) {
            append(character);
        } else {
            append(0xD800 + ((character - plane) >> 10U));
            append(0xDC00 + ((character - plane) & 0x3FFU));
        }
    }
    return hex + ">";
}

std::optional<PdfFile> PdfFile::read(std::string bytes) {
    PdfFile file(std::move(bytes));
    if (!file.bytes_.starts_with("%PDF-") || !file.readTable()) {
        return {};
    }
    file.catalog_ = pdfReference(pdfValue(file.trailer_, "Root"));
    const int root = pdfReference(pdfValue(file.object(file.catalog_), "Pages"));
    if (!file.readPages(root, 0) || file.pages_.empty()) {
        return {};
    }
    file.readPlaces();
    return file;
}

bool PdfFile::readTable() {
    constexpr std::string_view mark = "startxref";
    constexpr std::size_t rowSize = 20;
    const std::string_view bytes = bytes_;
    const std::size_t end = bytes.rfind(mark);
    if (end == std::string_view::npos) {
        return false;
    }
    const int place = numberAt(bytes.substr(skipBlanks(bytes, end + mark.size())));
    table_ = place > 0 ? static_cast<std::size_t>(place) : bytes.size();
    if (table_ >= bytes.size() || !bytes.substr(table_).starts_with("xref")) {
        return false;
    }
    // One section from the object 0 on.
    std::size_t at = skipBlanks(bytes, table_ + 4);
    const int first = numberAt(bytes.substr(at));
    at = skipBlanks(bytes, tokenEnd(bytes, at));
    const int count = at < bytes.size() ? numberAt(bytes.substr(at)) : 0;
    at = at < bytes.size() ? skipBlanks(bytes, tokenEnd(bytes, at)) : at;
    if (first != 0 || count <= 0
        || (bytes.size() - at) / rowSize < static_cast<std::size_t>(count)) {
        return false;
    }
    for (int i = 0; i < count; ++i, at += rowSize) {
        const std::string_view row = bytes.substr(at, rowSize);
        std::size_t offset = 0;
        std::from_chars(row.data(), row.data() + 10, offset);
        offsets_.push_back(row[17] == 'n' && offset < bytes.size() ? offset : 0);
    }
    const std::size_t trailer = bytes.find("<<", at);
    if (trailer == std::string_view::npos || trailer > end) {
        return false;
    }
    trailer_ = bytes.substr(trailer, valueEnd(bytes.substr(0, end), trailer) - trailer);
    return true;
}

std::string_view PdfFile::object(int number) const {
    if (const auto changed = changed_.find(number); changed != changed_.end()) {
        return changed->second;
    }
    const auto index = static_cast<std::size_t>(number);
    if (number <= 0 || index >= offsets_.size() || offsets_[index] == 0) {
        return {};
    }
    const std::string_view bytes = bytes_;
    const std::size_t head = bytes.find("obj", offsets_[index]);
    if (head == std::string_view::npos) {
        return {};
    }
    const std::size_t start = skipBlanks(bytes, head + 3);
    return start < bytes.size() ? bytes.substr(start, valueEnd(bytes, start) - start)
                                : std::string_view();
}

/// False for what is no tree.
bool PdfFile::readPages(int number, int depth) {
    constexpr int deepest = 50;
    const std::string_view node = object(number);
    if (node.empty() || depth > deepest || pages_.size() > offsets_.size()) {
        return false;
    }
    if (pdfValue(node, "Type") == "/Page") {
        pages_.push_back(number);
        return true;
    }
    const std::string kids = pdfValue(node, "Kids");
    std::size_t at = kids.empty() ? 0 : skipBlanks(kids, 1);
    while (at < kids.size() && kids[at] != ']') {
        const std::size_t end = valueEnd(kids, at);
        if (!readPages(pdfReference(std::string_view(kids).substr(at, end - at)), depth + 1)) {
            return false;
        }
        at = skipBlanks(kids, end);
    }
    return true;
}

void PdfFile::readPlaces() {
    std::map<int, int> numbers;
    for (const int page : pages_) {
        numbers.emplace(page, static_cast<int>(numbers.size()) + 1);
    }
    const std::string_view places = object(pdfReference(pdfValue(object(catalog_), "Dests")));
    forEntries(places, [&](std::string_view name, std::size_t begin, std::size_t end) {
        const std::string_view target = places.substr(begin, end - begin);
        const std::string_view inside = target.substr(std::min<std::size_t>(1, target.size()));
        const auto page = numbers.find(numberAt(inside.substr(skipBlanks(inside, 0))));
        if (target.starts_with('[') && page != numbers.end()) {
            places_.try_emplace(std::string(name), Place{page->second, std::string(target)});
        }
    });
}

int PdfFile::add(std::string contents) {
    const int number = reserve();
    replace(number, std::move(contents));
    return number;
}

int PdfFile::reserve() {
    offsets_.push_back(0);
    return static_cast<int>(offsets_.size()) - 1;
}

void PdfFile::replace(int number, std::string contents) {
    changed_[number] = std::move(contents);
}

/// The times of printing are taken out: the same project gives the same file.
void PdfFile::setTitle(std::string title) {
    const int old = pdfReference(pdfValue(trailer_, "Info"));
    if (const std::string_view info = object(old); !info.empty() && changed_.count(old) == 0) {
        const auto start = static_cast<std::size_t>(info.data() - bytes_.data());
        bool isInText = false;
        for (std::size_t at = start; at < start + info.size(); ++at) {
            isInText = std::string_view(bytes_).substr(at).starts_with("(D:")
                       || (isInText && bytes_[at] != ')');
            if (isInText && bytes_[at] >= '0' && bytes_[at] <= '9') {
                bytes_[at] = '0';
            }
        }
    }
    const int info = add("<</Title " + std::move(title) + ">>");
    trailer_ = withPdfValue(trailer_, "Info", std::to_string(info) + " 0 R");
}

std::string PdfFile::take() {
    std::map<int, std::size_t> places;
    bytes_ += '\n';
    for (const auto& [number, contents] : changed_) {
        places[number] = bytes_.size();
        bytes_ += std::to_string(number) + " 0 obj\n" + contents + "\nendobj\n";
    }
    const std::size_t table = bytes_.size();
    bytes_ += "xref\n";
    for (const auto& [number, place] : places) {
        const std::string offset = std::to_string(place);
        bytes_ += std::to_string(number) + " 1\n"
                  + std::string(10 - std::min<std::size_t>(offset.size(), 10), '0') + offset
                  + " 00000 n \n";
    }
    trailer_ = withPdfValue(trailer_, "Size", std::to_string(offsets_.size()));
    trailer_ = withPdfValue(trailer_, "Prev", std::to_string(table_));
    bytes_ += "trailer\n" + trailer_ + "\nstartxref\n" + std::to_string(table) + "\n%%EOF\n";
    return std::exchange(bytes_, {});
}

} // namespace book
