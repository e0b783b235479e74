#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace book {

/// A zip archive that is put together in memory. It holds no time, so the same files give the same
/// bytes.
class ZipFile {
public:
    /// Names are of ASCII, with "/" between folders. What is `stored` is not compressed.
    void add(std::string_view name, std::string_view contents, bool stored = false);

    /// The archive's bytes; empty when it has more files, or is larger, than such an archive can
    /// be.
    std::string take();

private:
    std::string bytes_;
    std::string directory_;
    std::uint64_t count_ = 0;
    bool isTooLarge_ = false;
};

} // namespace book
