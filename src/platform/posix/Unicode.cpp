#include "platform/Unicode.h"

#include <array>
#include <cerrno>
#include <clocale>
#include <cwctype>
#include <iconv.h>

namespace platform {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD"; // U+FFFD

class Converter {
public:
    explicit Converter(unsigned codePage)
        : handle_(iconv_open("UTF-8", nameOf(codePage).c_str())) {}
    ~Converter() {
        if (isOpen()) {
            iconv_close(handle_);
        }
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    static std::string nameOf(unsigned codePage) {
        switch (codePage) {
        case utf8CodePage:
            return "UTF-8";
        case 20866:
            return "KOI8-R";
        case 51932:
            return "EUC-JP";
        default:
            return "CP" + std::to_string(codePage);
        }
    }

    bool isOpen() const {
        return handle_ != reinterpret_cast<iconv_t>(-1); // NOLINT(performance-no-int-to-ptr)
    }

    std::string convert(std::string bytes) {
        std::string utf8;
        utf8.reserve(bytes.size() + bytes.size() / 8);
        std::array<char, 4096> buffer{};
        char* from = bytes.data();
        std::size_t left = bytes.size();
        while (left > 0) {
            char* to = buffer.data();
            std::size_t room = buffer.size();
            const std::size_t result = iconv(handle_, &from, &left, &to, &room);
            utf8.append(buffer.data(), buffer.size() - room);
            if (result == static_cast<std::size_t>(-1) && errno != E2BIG && left > 0) {
                utf8 += replacement;
                ++from;
                --left;
                iconv(handle_, nullptr, nullptr, nullptr, nullptr);
            }
        }
        return utf8;
    }

private:
    iconv_t handle_;
};

} // namespace

std::string utf8FromCodePage(std::string_view bytes, unsigned codePage) {
    constexpr unsigned usual = 1252;
    Converter converter(codePage);
    if (!converter.isOpen() && codePage != usual) {
        return utf8FromCodePage(bytes, usual);
    }
    return converter.isOpen() ? converter.convert(std::string(bytes)) : std::string();
}

char32_t lowerCase(char32_t character) {
    // Never freed: it is needed as long as the program runs.
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return unicode == nullptr
               ? character
               : static_cast<char32_t>(towlower_l(static_cast<std::wint_t>(character), unicode));
}

} // namespace platform
