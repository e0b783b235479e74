#include "platform/Unicode.h"

#include <windows.h>

#include "platform/Files.h"

namespace platform {

namespace {

constexpr wchar_t unknown = 0xFFFD;
constexpr unsigned shiftedJapanese =
    50220; ///< knows no faults: the system refuses to look for them

std::wstring wideFromCodePage(std::string_view bytes, unsigned codePage, DWORD how = 0) {
    const int size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(codePage, how, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, how, bytes.data(), size, wide.data(), length);
    return wide;
}

/// Letter by letter; a byte with which none begins is an unknown one.
std::wstring wideFromDamaged(std::string_view bytes, unsigned codePage) {
    std::wstring wide;
    while (!bytes.empty()) {
        const bool isLead = IsDBCSLeadByteEx(codePage, static_cast<BYTE>(bytes.front())) != FALSE;
        std::size_t length = isLead ? 2 : 1;
        std::wstring letter;
        if (length <= bytes.size()) {
            letter = wideFromCodePage(bytes.substr(0, length), codePage, MB_ERR_INVALID_CHARS);
        }
        if (letter.empty()) {
            letter = unknown;
            length = 1;
        }
        wide += letter;
        bytes.remove_prefix(length);
    }
    return wide;
}

std::string utf8FromWide(const std::wstring& wide) {
    const int size = static_cast<int>(wide.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

} // namespace

std::filesystem::path pathFromUtf8(std::string_view utf8) {
    return wideFromCodePage(utf8, CP_UTF8);
}

std::string utf8FromPath(const std::filesystem::path& path) {
    return utf8FromWide(path.native());
}

std::string utf8FromCodePage(std::string_view bytes, unsigned codePage) {
    constexpr unsigned usual = 1252;
    constexpr unsigned firstReal = 4; // those below stand for settings of this machine
    constexpr unsigned unixJapanese = 51932;
    constexpr unsigned itsOldName = 20932; // under which the system knows it
    if (codePage == unixJapanese) {
        codePage = itsOldName;
    }
    if (codePage < firstReal || IsValidCodePage(codePage) == FALSE) {
        codePage = usual;
    }
    if (codePage == shiftedJapanese) {
        return utf8FromWide(wideFromCodePage(bytes, codePage));
    }
    const std::wstring wide = wideFromCodePage(bytes, codePage, MB_ERR_INVALID_CHARS);
    return utf8FromWide(wide.empty() ? wideFromDamaged(bytes, codePage) : wide);
}

std::optional<std::string> codePageFromUtf8(std::string_view utf8, unsigned codePage) {
    const std::wstring wide = wideFromCodePage(utf8, CP_UTF8);
    const int size = static_cast<int>(wide.size());
    BOOL isMissing = FALSE;
    const bool isUtf8 = codePage == CP_UTF8; // which lacks nothing, and refuses to say so
    const DWORD exactly = isUtf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    BOOL* const missing = isUtf8 ? nullptr : &isMissing;
    const int length =
        WideCharToMultiByte(codePage, exactly, wide.data(), size, nullptr, 0, nullptr, missing);
    std::string bytes(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(codePage, exactly, wide.data(), size, bytes.data(), length, nullptr,
                        missing);
    const bool isEmpty = bytes.empty() && !utf8.empty();
    return isMissing != FALSE || isEmpty ? std::nullopt : std::optional(bytes);
}

} // namespace platform
