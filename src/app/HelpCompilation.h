#pragma once

#include <atomic>
#include <filesystem>
#include <thread>

#include "compile/Compiler.h"

namespace app {

/// The compilation of a workshop's project on a thread of its own.
class HelpCompilation {
public:
    /// Begins at once, or is done at once where that fails. The options' own progress and stop are
    /// not used.
    HelpCompilation(const std::filesystem::path& workshopFile,
                    const compile::CompileOptions& options);

    /// Cancels what is not done yet, and waits for its end.
    ~HelpCompilation();
    HelpCompilation(const HelpCompilation&) = delete;
    HelpCompilation& operator=(const HelpCompilation&) = delete;

    void cancel() { thread_.request_stop(); }

    bool isCancelled() const { return thread_.get_stop_token().stop_requested(); }

    int percent() const { return percent_; }
    bool isDone() const { return done_; }

    /// What came of it. Ask isDone() first.
    const compile::CompileOutcome& outcome() const { return outcome_; }

private:
    void run(const std::filesystem::path& workshopFile, const compile::CompileOptions& options,
             const std::stop_token& stop) noexcept;
    void work(const std::filesystem::path& workshopFile, compile::CompileOptions options,
              const std::stop_token& stop);
    void fail(std::string file, const char* why) noexcept;

    compile::CompileOutcome outcome_; ///< the thread's until it is done
    std::atomic<int> percent_ = 0;
    std::atomic<bool> done_ = false;
    std::jthread thread_; ///< the last member: it ends first
};

} // namespace app
