#pragma once

#include <array>

#include "text/Language.h"

namespace model {

/// Which links a page gets; the values are the places in ProjectOptions::navigationButtons.
enum NavigationSwitch {
    linkToNext,
    linkToPrevious,
    linksToChildren,
    linkToNextParent,
    linkToPreviousParent,
    linkToFirst,
    navigationSwitchCount
};

/// How the links to the first, previous and next topic look; the values are those of the project
/// file, which may hold any other number: it gives text links, and stays until the author chooses.
enum class NavigationType : int { textLinks = 0, graphicButtons = 1 };

/// What shapes the generated pages and documentation. Saved with the project; the values here are
/// those of a new one.
struct ProjectOptions {
    text::Text projectName;
    text::Text cssFile;         ///< as linked from a page in the `html` folder; empty for none
    text::Text backgroundImage; ///< likewise
    text::Text templateFile;    ///< page template for new bodies; empty for none
    text::Text additionalText;  ///< HTML for the first topic only
    bool showCopyright = false;
    text::Text copyrightText;
    std::array<bool, navigationSwitchCount> navigationButtons = {true,  false, true,
                                                                 false, false, true};
    NavigationType navigationType = NavigationType::textLinks;
    bool indentedContents = true; ///< this and the following shape the documentation
    bool numbering = true;
    bool documentationLinks = true;
    bool underlineLinks = false;

    // These need a project file of format 2 where they are not as here (see ProjectFormat.h).
    text::Text languageTag = text::defaultLanguage; ///< see text::Language; may be unknown
    bool keepsEveryCharacter = false;               ///< double quotes and outer blanks, too
    text::Text otherKeys; ///< lines of the file's head that a later version will understand

    const text::Language& language() const { return text::languageOf(languageTag); }

    /// In which pages, contents, index and the workshop's project are written, and whose letters
    /// file names and context strings can have.
    text::CodePage codePage() const { return text::CodePage(language().codePage); }

    bool operator==(const ProjectOptions&) const = default;
};

/// Calls the visitor for every option in the order of the project file: `title` for the project's
/// name, whose outer blanks count, `html` for the other texts in which references stand for
/// letters, `name` for those that name files, `flag` for switches, and `navigation`. `Options` is a
/// ProjectOptions, constant or not.
template <typename Options, typename Visitor>
void visitOptions(Options& options, Visitor& visitor) {
    visitor.title(options.projectName);
    visitor.name(options.cssFile);
    visitor.name(options.backgroundImage);
    visitor.name(options.templateFile);
    visitor.html(options.additionalText);
    visitor.flag(options.showCopyright);
    visitor.html(options.copyrightText);
    for (auto& button : options.navigationButtons) {
        visitor.flag(button);
    }
    visitor.navigation(options.navigationType);
    visitor.flag(options.indentedContents);
    visitor.flag(options.numbering);
    visitor.flag(options.documentationLinks);
    visitor.flag(options.underlineLinks);
}

} // namespace model
