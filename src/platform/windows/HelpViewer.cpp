#include "platform/HelpViewer.h"

#include <string>
#include <windows.h>

#include "platform/Files.h"
#include "platform/Unicode.h"

namespace platform {

namespace {

constexpr UINT displayIndex = 2;
constexpr UINT displayContext = 15;

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

/// Null without the viewer. It stays loaded: its windows need it.
HtmlHelpFunction htmlHelp() {
    static const HMODULE library =
        LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr) {
        return nullptr;
    }
    const FARPROC function = GetProcAddress(library, "HtmlHelpA");
    return reinterpret_cast<HtmlHelpFunction>(reinterpret_cast<void*>(function));
}

/// In the system's code page, which may be UTF-8; empty when it has not all of the characters.
std::string narrow(const std::filesystem::path& path) {
    return codePageFromUtf8(utf8FromPath(path), GetACP()).value_or("");
}

/// The file's name as old programs know it, where its volume keeps such names.
std::wstring shortName(const std::filesystem::path& path) {
    std::wstring name(MAX_PATH, L'\0');
    const DWORD length = GetShortPathNameW(path.c_str(), name.data(), MAX_PATH);
    name.resize(length < name.size() ? length : 0);
    return name;
}

/// The viewer shows no pages of a help on another machine.
bool isElsewhere(const std::filesystem::path& path) {
    return path.native().starts_with(LR"(\\)")
           || GetDriveTypeW((path.native().substr(0, 2) + L'\\').c_str()) == DRIVE_REMOTE;
}

bool show(const std::filesystem::path& helpFile, UINT command, DWORD_PTR data) {
    const HtmlHelpFunction function = htmlHelp();
    if (function == nullptr || isElsewhere(helpFile)) {
        return false;
    }
    std::string name = narrow(helpFile);
    if (name.empty()) {
        name = narrow(shortName(helpFile));
    }
    return !name.empty() && function(nullptr, name.c_str(), command, data) != nullptr;
}

} // namespace

bool viewHelpPage(const std::filesystem::path& helpFile, unsigned context) {
    return show(helpFile, displayContext, context);
}

bool viewHelpIndex(const std::filesystem::path& helpFile) {
    return show(helpFile, displayIndex, 0);
}

} // namespace platform
