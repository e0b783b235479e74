#pragma once

#include <cstdint>
#include <filesystem>

namespace platform {

/// Marks something as used by a running program. The system lets go when the program ends, however
/// that happens.
class FileLock {
public:
    /// Tries to take a file, which is made when it is missing and stays.
    explicit FileLock(const std::filesystem::path& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// False when another one has it, or the file cannot be made.
    bool isHeld() const { return handle_ >= 0; }

private:
    std::intptr_t handle_ = -1;
};

} // namespace platform
