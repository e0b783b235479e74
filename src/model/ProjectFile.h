#pragma once

#include <system_error>

#include "model/Project.h"
#include "model/ProjectFormat.h"

/// Loading and saving project files; what stands in them is the matter of ProjectFormat.h.
namespace model {

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
