#include "ui/HtmlHelp.h"

#include <windows.h>

namespace ui {

namespace {

constexpr UINT displayIndex = 2;
constexpr UINT displayContext = 15;

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

/// Null without the viewer. It stays loaded: its windows need it.
HtmlHelpFunction htmlHelp() {
    static const HMODULE library = LoadLibraryA("hhctrl.ocx");
    if (library == nullptr) {
        return nullptr;
    }
    const FARPROC function = GetProcAddress(library, "HtmlHelpA");
    return reinterpret_cast<HtmlHelpFunction>(reinterpret_cast<void*>(function));
}

bool show(const std::filesystem::path& helpFile, UINT command, DWORD_PTR data) {
    const HtmlHelpFunction function = htmlHelp();
    return function != nullptr
           && function(nullptr, helpFile.string().c_str(), command, data) != nullptr;
}

} // namespace

bool showHelpContext(const std::filesystem::path& helpFile, unsigned context) {
    return show(helpFile, displayContext, context);
}

bool showHelpIndex(const std::filesystem::path& helpFile) {
    return show(helpFile, displayIndex, 0);
}

} // namespace ui
