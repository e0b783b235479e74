#include "app/HelpReader.h"

#include "app/FileKind.h"
#include "ui/Prompter.h"

namespace app {

HelpReader::HelpReader(ui::Settings& settings, const std::filesystem::path& programFolder)
    : window_(settings), programHelp_(window_, settings, programFolder) {}

bool HelpReader::takes(const std::filesystem::path& file) {
    return hasExtension(file, ".chm");
}

bool HelpReader::open(const std::filesystem::path& file) {
    if (!window_.openBook(file)) {
        ui::Prompter::current().tell(nullptr, help::unreadableMessage(file));
        return false;
    }
    window_.show();
    return true;
}

} // namespace app
