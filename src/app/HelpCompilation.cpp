#include "app/HelpCompilation.h"

#include <exception>

#include "platform/Files.h"

namespace app {

HelpCompilation::HelpCompilation(std::filesystem::path workshopFile,
                                 compile::CompileOptions options)
    : thread_([this, file = std::move(workshopFile),
               given = std::move(options)](const std::stop_token& stop) {
          run(file, given, stop);
          done_ = true;
      }) {}

HelpCompilation::~HelpCompilation() = default;

void HelpCompilation::run(const std::filesystem::path& workshopFile,
                          compile::CompileOptions options, const std::stop_token& stop) {
    options.stop = stop;
    options.progress = [this](std::uint64_t done, std::uint64_t total) {
        constexpr std::uint64_t whole = 100;
        percent_ = static_cast<int>(total == 0 ? whole : done * whole / total);
    };
    try {
        outcome_ = compile::compileProject(workshopFile, options);
    } catch (const std::exception& exception) { // memory, or the standard library's file calls
        outcome_.messages.push_back(
            {platform::utf8FromPath(workshopFile), 0, workshop::Severity::error, exception.what()});
    }
}

} // namespace app
