#pragma once

#include "text/Text.h"

namespace text {

/// What stands around the pages that readers see, in a language; without a full stop.
struct Labels {
    const char* language; ///< the beginning of a tag, such as "pt-BR" or "de"
    const char* contents;
    const char* index; ///< of keywords
    const char* search;
    const char* results;
    const char* filter;
    const char* more;       ///< to show further results
    const char* toText;     ///< past what stands around the text
    const char* previous;   ///< topic
    const char* next;       ///< topic
    const char* noKeywords; ///< none at all, or none that was looked for
    const char* noPage;     ///< for what stands at "%1"
    const char* noSearch;   ///< it cannot be loaded
    const char* here;       ///< before the topics above
    const char* help;       ///< the title of a help that has none
};

/// Those for a tag of languages(); the default language's for others.
const Labels& labelsOf(TextView languageTag);

/// Whether English sentences fit between them.
bool hasEnglishLabels(TextView languageTag);

} // namespace text
