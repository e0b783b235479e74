#include "generate/WorkshopName.h"

#include "generate/GeneratedFile.h"
#include "model/ProjectOptions.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/Path.h"

namespace generate {

namespace fs = std::filesystem;

namespace {

bool isInCodePage(const fs::path& name, const model::Project& project) {
    return project.options().codePage().hasAll(text::displayText(name));
}

} // namespace

fs::path proposedWorkshopName(const model::Project& project) {
    constexpr const char* extension = "hhp";
    const fs::path name = siblingFile(project.projectPath().filename(), extension);
    return isInCodePage(name, project) ? name : siblingFile("help", extension);
}

fs::path workshopFileFor(const fs::path& compiledHelp) {
    return fs::path(compiledHelp).replace_extension(".hhp");
}

std::optional<model::FileFailure> workshopNameFault(const fs::path& workshopFile,
                                                    const model::Project& project) {
    if (!isInCodePage(workshopFile.filename(), project)) {
        return model::FileFailure{
            workshopFile, "has a character in its name that the help workshop does not know"};
    }
    if (auto fault = outputFault(workshopFile, project.projectPath())) {
        return fault;
    }
    for (const char* extension : {"chm", "hhc", "hhk"}) {
        const fs::path sibling = siblingFile(workshopFile, extension);
        if (haveSameName(sibling, workshopFile)
            || platform::isSameFile(sibling, project.projectPath())) {
            return model::FileFailure{sibling,
                                      "is the name of a generated file; choose another output"};
        }
    }
    return {};
}

std::optional<model::FileFailure> compiledNameFault(const fs::path& compiledHelp,
                                                    const fs::path& project) {
    if (auto fault = outputFault(compiledHelp, project)) {
        return fault;
    }
    for (const char* extension : {"hhp", "hhc", "hhk"}) {
        if (haveSameName(compiledHelp, siblingFile(compiledHelp, extension))) {
            return model::FileFailure{compiledHelp,
                                      "is the name of a generated file; choose another output"};
        }
    }
    return {};
}

} // namespace generate
