#pragma once

#include <cstdint>
#include <filesystem>

namespace platform {

/// Marks something as used by a running program. The system lets go when the program ends, however
/// that happens.
class FileLock {
public:
    enum class AfterUse { keep, remove };

    /// Tries to take a file, which is made when it is missing.
    explicit FileLock(const std::filesystem::path& path, AfterUse afterUse = AfterUse::keep);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// False when another one has it, or the file cannot be made.
    bool isHeld() const { return handle_ >= 0; }

    /// Whether it is not held because another one has it.
    bool isTaken() const { return isTaken_; }

private:
    std::filesystem::path removed_; ///< afterwards; empty for none
    std::intptr_t handle_ = -1;
    bool isTaken_ = false;
};

} // namespace platform
