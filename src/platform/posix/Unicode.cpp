#include "platform/Unicode.h"

#include <array>
#include <cerrno>
#include <iconv.h>

namespace platform {

namespace {

constexpr std::string_view unknown = "\xEF\xBF\xBD"; // U+FFFD

class Converter {
public:
    Converter(unsigned to, unsigned from)
        : handle_(iconv_open(nameOf(to).c_str(), nameOf(from).c_str())) {}
    ~Converter() {
        if (isOpen()) {
            iconv_close(handle_);
        }
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    static std::string nameOf(unsigned codePage) {
        constexpr unsigned isoPage = 28590;
        switch (codePage) {
        case utf8CodePage:
            return "UTF-8";
        case 20866:
            return "KOI8-R";
        case 50220:
            return "ISO-2022-JP";
        case 51932:
            return "EUC-JP-MS"; // as Windows knows it
        default:
            // Windows counts the parts of that standard so.
            return codePage > isoPage && codePage < isoPage + 17
                       ? "ISO-8859-" + std::to_string(codePage - isoPage)
                       : "CP" + std::to_string(codePage);
        }
    }

    bool isOpen() const {
        return handle_ != reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr)
    }

    /// What cannot be converted becomes the replacement; without one, nothing comes out.
    std::optional<std::string> convert(std::string bytes, std::string_view replacement = {}) {
        std::string converted;
        converted.reserve(bytes.size() + bytes.size() / 8);
        char* from = bytes.data();
        std::size_t left = bytes.size();
        while (left > 0) {
            const int error = step(&from, &left, converted);
            if (error != 0 && error != E2BIG && left > 0) {
                if (replacement.empty()) {
                    return {};
                }
                converted += replacement;
                ++from;
                --left;
                iconv(handle_, nullptr, nullptr, nullptr, nullptr);
            }
        }
        step(nullptr, nullptr, converted);
        return converted;
    }

private:
    /// Converts some more, or gives out what is kept back: a letter that a mark could follow waits
    /// for it in some code pages. Returns the error, 0 for none.
    int step(char** from, std::size_t* left, std::string& converted) {
        std::array<char, 4096> buffer{};
        char* to = buffer.data();
        std::size_t room = buffer.size();
        const bool failed = iconv(handle_, from, left, &to, &room) == static_cast<std::size_t>(-1);
        const int error = failed ? errno : 0;
        converted.append(buffer.data(), buffer.size() - room);
        return error;
    }

    iconv_t handle_;
};

} // namespace

std::string utf8FromCodePage(std::string_view bytes, unsigned codePage) {
    constexpr unsigned usual = 1252;
    Converter converter(utf8CodePage, codePage);
    if (!converter.isOpen() && codePage != usual) {
        return utf8FromCodePage(bytes, usual);
    }
    return converter.isOpen() ? converter.convert(std::string(bytes), unknown).value_or("")
                              : std::string();
}

std::optional<std::string> codePageFromUtf8(std::string_view utf8, unsigned codePage) {
    Converter converter(codePage, utf8CodePage);
    return converter.isOpen() ? converter.convert(std::string(utf8)) : std::nullopt;
}

} // namespace platform
