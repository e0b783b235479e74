#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace test {

/// A program that runs beside the test, without input and unheard. Ended at once, if it still runs,
/// when this goes.
class Child {
public:
    /// Fails the test when it cannot be started. No argument may hold a quote.
    Child(const std::filesystem::path& program, const std::vector<std::string>& arguments);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    bool hasEnded();

private:
    std::intptr_t process_ = -1; ///< -1 when it has ended
};

} // namespace test
