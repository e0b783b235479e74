#include "app/HelpCompilation.h"

#include <exception>
#include <new>
#include <system_error>
#include <utility>

#include "platform/Files.h"

namespace app {

HelpCompilation::HelpCompilation(const std::filesystem::path& workshopFile,
                                 const compile::CompileOptions& options) {
    try {
        thread_ = std::jthread([this, workshopFile, options](const std::stop_token& stop) {
            run(workshopFile, options, stop);
            done_ = true;
        });
    } catch (const std::system_error&) {
        fail(platform::utf8FromPath(workshopFile), "the system has no thread left to compile it");
        done_ = true;
    }
}

HelpCompilation::~HelpCompilation() = default;

void HelpCompilation::run(const std::filesystem::path& workshopFile,
                          const compile::CompileOptions& options,
                          const std::stop_token& stop) noexcept {
    std::string file;
    try {
        file = platform::utf8FromPath(workshopFile);
        work(workshopFile, options, stop);
    } catch (const std::bad_alloc&) {
        fail(std::move(file), "there is not enough memory to compile it");
    } catch (const std::exception& exception) { // the standard library's file calls
        fail(std::move(file), exception.what());
    } catch (...) {
        fail(std::move(file), "cannot be compiled");
    }
}

/// Has no other way to say when even the message finds no memory.
void HelpCompilation::fail(std::string file, const char* why) noexcept {
    try {
        outcome_.messages.push_back({std::move(file), 0, workshop::Severity::error, why});
    } catch (...) {
        return; // the outcome still says that nothing was written
    }
}

void HelpCompilation::work(const std::filesystem::path& workshopFile,
                           compile::CompileOptions options, const std::stop_token& stop) {
    options.stop = stop;
    options.progress = [this](std::uint64_t done, std::uint64_t total) {
        constexpr std::uint64_t whole = 100;
        percent_ = static_cast<int>(total == 0 ? whole : done * whole / total);
    };
    outcome_ = compile::compileProject(workshopFile, options);
}

} // namespace app
