#pragma once

#include "model/Project.h"

/// What a generation run repairs before it writes: values that the help workshop would reject, and
/// pages that would overwrite each other.
namespace generate {

/// Which headers the report has already; they stand above the first message of their kind.
struct ReportHeaders {
    bool context = false;
    bool duplicates = false; ///< shared by file names and context values
};

/// A call of the help needs both context values: a topic with only one loses it, and a context
/// string that reads as a number gets a prefix.
void repairContexts(model::Project& project, text::Text& report, ReportHeaders& headers);

/// Renames later topics until no two pages have the same file name. Topics without a file name
/// have no page and are left alone.
void renameDuplicateFiles(model::Project& project, text::Text& report, ReportHeaders& headers);

/// Reports context values that two topics share. Nothing is changed: only the author knows which
/// topic the application means.
void reportDuplicateContexts(const model::TopicOutline& outline, text::Text& report,
                             ReportHeaders& headers);

/// Whether a text begins with a number above zero: an optional sign, digits and an optional
/// fraction.
bool readsAsPositiveNumber(text::TextView text);

/// The next name to try for a page whose name is taken: "intro.htm", "intro 1.htm", "intro 2.htm".
text::Text renamedDuplicate(text::TextView fileName);

} // namespace generate
