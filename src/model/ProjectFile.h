#pragma once

#include <optional>
#include <system_error>

#include "model/Project.h"
#include "text/Message.h"

/// The project file (`.tsp`), described in docs/file-formats.md.
namespace model {

inline constexpr text::TextView projectFileHeader = "HTML Topicsmith Format 1"; ///< its first field
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
    corrupted,     ///< something else where a topic should begin
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

ParsedProject parseProject(text::Bytes file);

text::Bytes formatProject(const TopicOutline& outline, const ProjectOptions& options);

/// What a topic's field says that stands so in a project file.
text::Text topicText(text::Text Topic::*field, text::TextView bytes);

/// Reads the bytes of a project file. Of a file of another kind, however large, only the first are
/// read.
std::error_code readProjectFile(const std::filesystem::path& path, text::Bytes& file);

/// How loading went. After a read error the project is as it was.
struct LoadOutcome {
    std::error_code readError;
    LoadStop stop = LoadStop::none;
    int stopLine = 0; ///< see ParsedProject
};

/// Puts the file's contents, as far as they can be read, in place of the project's. The project
/// belongs to the file from then on and counts as unchanged.
LoadOutcome loadProject(Project& project, const std::filesystem::path& path);

/// Why a save left the file alone: it would do away with what nobody has seen here.
enum class SaveRefusal {
    changedMeanwhile = 1, ///< somebody else has written the file since it was read or saved
    partlyRead,           ///< the file holds more than could be read
    beingWritten          ///< another program has its ProjectLock; for callers of saveProject()
};
std::error_code make_error_code(SaveRefusal refusal);

enum class Overwrite { whatWasRead, anything };

/// Writes the project to a file, as a whole or not at all. The project belongs to that file and
/// counts as unchanged only when the writing succeeded. Gives a SaveRefusal where the project's own
/// file is not the one that was read, unless anything may be overwritten; a file that was partly
/// read is kept then, see backupFile(). To be called under a ProjectLock.
///
/// Where the folder takes no new files (platform::FileError::folderIsClosed) the file can be
/// written where it lies: `copy`, if it is not empty, is where its old contents are kept before.
std::error_code saveProject(Project& project, const std::filesystem::path& path,
                            Overwrite overwrite = Overwrite::whatWasRead,
                            const std::filesystem::path& copy = {});

/// The name under which a partly read file will be kept: "manual.bak.tsp" beside "manual.tsp", or
/// one with a number that no file has.
std::filesystem::path backupFile(const std::filesystem::path& project);

/// Said instead of opening a file that is not there.
text::Message fileNotFoundMessage(const std::filesystem::path& path);

} // namespace model

template <>
struct std::is_error_code_enum<model::SaveRefusal> : std::true_type {};
