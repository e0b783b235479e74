#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace test {

/// Reads a compiled help file in memory with libmspack, which insists on more than other readers.
class StrictReader {
public:
    /// `bytes` have to stay.
    explicit StrictReader(std::string_view bytes);
    ~StrictReader();
    StrictReader(const StrictReader&) = delete;
    StrictReader& operator=(const StrictReader&) = delete;

    /// The library's number of the fault; 0 when the directory could be read.
    int fault() const;

    /// All packed files that a person would see, or internal ones whose names begin with "/#" or
    /// "/$", by their names; those that cannot be unpacked are missing.
    std::map<std::string, std::string> files();

    /// The size of a file that the directory's index leads to; nothing where it does not.
    std::optional<std::size_t> find(const std::string& name);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace test
