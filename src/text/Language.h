#pragma once

#include <span>

#include "text/CodePage.h"

/// The languages in which help can be written.
namespace text {

/// A language as a region writes it, with what Windows and the help workshop know about it.
struct Language {
    const char* tag;     ///< such as "en-US"; what a project's file says
    const char* name;    ///< in English, such as "English (United States)"
    unsigned id;         ///< an LCID
    unsigned codePage;   ///< of pages, contents and the workshop's project
    const char* charset; ///< the code page's usual name in pages
};

/// What a project is written in that does not say.
inline constexpr const char* defaultLanguage = "en-US";

/// All of them, in the order of their names.
std::span<const Language> languages();

/// The one with a tag, whose letter case does not count; null for one that is not known.
const Language* findLanguage(TextView tag);

/// The same, with the default one for a tag that is not known.
const Language& languageOf(TextView tag);

/// Whether it is written from right to left.
bool isRightToLeft(const Language& language);

} // namespace text
