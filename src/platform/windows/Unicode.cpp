#include "platform/Unicode.h"

#include <windows.h>

#include "platform/Files.h"

namespace platform {

namespace {

std::wstring wideFromCodePage(std::string_view bytes, unsigned codePage) {
    const int size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), size, wide.data(), length);
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
    return utf8FromWide(wideFromCodePage(
        bytes, codePage >= firstReal && IsValidCodePage(codePage) != FALSE ? codePage : usual));
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
