#pragma once

#include <QSyntaxHighlighter>

namespace ui {

/// Colours the mark-up in a text softly, for light and dark palettes.
class HtmlColours : public QSyntaxHighlighter {
public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString& line) override;
};

} // namespace ui
