#pragma once

#include <optional>
#include <system_error>

#include "model/FileFailure.h"
#include "model/Project.h"
#include "text/Message.h"

/// Topics from elsewhere. The namespace is not called after the folder because that is a word of
/// the language.
namespace importer {

/// What came of an import. Each is one step that can be taken back.
struct ImportOutcome {
    std::error_code readError;            ///< why the input could not be read; nothing was done
    int topicsAdded = 0;                  ///< at the end of the outline
    bool projectChanged = false;          ///< also without a topic
    std::optional<text::Message> message; ///< what the author has to be told
    model::FileFailures skipped;          ///< forms that gave no topic, as the source names them
    int leftOut = 0;                      ///< topics for which the outline had no room
    bool cut = false;                     ///< the input ends inside of a topic
};

/// "12 topics imported, 2 forms skipped", for a line on the screen.
text::Text summary(const ImportOutcome& outcome);

/// The same with a line for each skipped form, for a window of its own.
text::Text report(const ImportOutcome& outcome);

/// ": a.htm (Permission denied), ...", to go on with; empty for no file.
text::Text named(const model::FileFailures& files);

/// The same at any length, with a line for each.
void appendLines(text::Text& text, const model::FileFailures& files);

/// Whether everything came in that the input holds.
bool isWhole(const ImportOutcome& outcome);

/// Appends a topic unless the outline is full, which is noted.
bool appendTopic(model::Project& project, model::Topic topic, ImportOutcome& outcome);

/// Makes the first topic current where none is.
void ensureCurrent(model::Project& project);

/// "no topics", "1 topic", "2 topics".
text::Text counted(std::size_t count, text::TextView noun);

} // namespace importer
