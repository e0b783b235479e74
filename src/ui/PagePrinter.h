#pragma once

#include <string>

#include "ui/PageBrowser.h"

namespace ui {

enum class Paper { a4, letter };

/// Prints pages that are no files of their own into PDF files. Nothing is shown, and no screen is
/// needed.
class PagePrinter {
public:
    /// Why there can be none: the program has no web engine, or the person does not want it. Empty
    /// when there is one.
    static std::string problem();

    /// The PDF file's bytes; empty when the engine failed. Waits for it; what a person does
    /// meanwhile waits, too. Places are those of PageBrowser.
    static std::string print(PageSource& source, const std::string& place, Paper paper);
};

} // namespace ui
