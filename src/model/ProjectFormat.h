#pragma once

#include <optional>

#include "model/ProjectOptions.h"
#include "model/TopicOutline.h"
#include "text/CodePage.h"
#include "text/Message.h"

/// What stands in a project file (`.tsp`), described in docs/file-formats.md.
namespace model {

enum class ProjectFormat {
    unknown, ///< no project file
    one = 1, ///< in the western code page, without double quotes and outer blanks
    two = 2  ///< in UTF-8, with a language; keeps every character
};

inline constexpr text::TextView projectFileHeader = "HTML Topicsmith Format 1"; ///< its first field
inline constexpr text::TextView formatTwoHeader = "HTML Topicsmith Format 2";   ///< its first line
inline constexpr text::TextView topicMarker = "++"; ///< before each topic

/// A topic's fields in the order of the file; the body follows them.
inline constexpr text::Text Topic::*topicFields[] = {&Topic::level,
                                                     &Topic::status,
                                                     &Topic::title,
                                                     &Topic::fileName,
                                                     &Topic::contextId,
                                                     &Topic::contextNumber,
                                                     &Topic::shortDescription,
                                                     &Topic::image,
                                                     &Topic::keywords};

/// How reading a project file ended. What was read until then is kept.
enum class LoadStop {
    none,          ///< at its end
    unknownFormat, ///< not a project file; nothing was read
    endInOptions,  ///< cut before the first topic
    corrupted,     ///< something else where a topic should begin, or in the head of format 2
    unexpectedEnd, ///< cut inside a topic, which is left out
    endInBody,     ///< cut inside the quotes of a body, which is kept as far as it goes
    topicLimit     ///< more topics than a project can hold
};

/// What the author is told. There is no message for none, endInOptions and endInBody: the window
/// shows what there is.
std::optional<text::Message> messageFor(LoadStop stop);

/// The words for endInOptions and endInBody, to go on after "the file"; empty for all others.
text::TextView whereCut(LoadStop stop);

struct ParsedProject {
    TopicOutline outline;
    ProjectOptions options;
    LoadStop stop = LoadStop::none;
    int stopLine = 0; ///< the line of the file, from 1, in which reading stopped; 0 for none
};

/// What a file is, of which the beginning is enough.
ProjectFormat formatOf(text::TextView file);

/// Reads both formats.
ParsedProject parseProject(text::Bytes file);

/// The one that a project with such options is saved in: the first unless it lacks something.
ProjectFormat formatFor(const ProjectOptions& options);

text::Bytes formatProject(const TopicOutline& outline, const ProjectOptions& options);

/// In format 2 whatever the options say. Read again it is the same project, options and all.
text::Bytes formatWhole(const TopicOutline& outline, const ProjectOptions& options);

/// Whether references in the field are letters again when format 1 is read.
bool isHtmlField(text::Text Topic::*field);

/// What a topic's field says that stands so in a project file of format 1.
text::Text topicText(text::Text Topic::*field, text::TextView bytes);

} // namespace model
