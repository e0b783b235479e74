#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace platform {

/// The arguments of this program, without its name, in UTF-8 (elsewhere than on Windows any bytes).
/// Those of main() are needed only where the system does not tell better.
std::vector<std::string> programArguments(int argc, char* argv[]);

/// Lets bytes pass through the standard streams as they are, taken for UTF-8 by a console.
void useStreamsForUtf8();

/// By which the system knows this program; never 0.
std::uint64_t processNumber();

/// Whether a program of this machine has that number.
bool isRunning(std::uint64_t process);

/// From now on the signals that ask a program to end (terminate, hang up, interrupt) do not end it
/// but make this descriptor readable; -1 on a system that has none. A second one ends it.
int catchEndSignals();

/// Ends the program as the signal that came would have done.
void endBySignal();

/// Whether what goes to the stream for messages is seen by somebody at a terminal.
bool isAtTerminal();

/// A file of this program's own in the system's folder for such, removed at the end.
class TemporaryFile {
public:
    TemporaryFile();
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Empty when the file could not be made, or is removed.
    const std::filesystem::path& path() const { return path_; }

    /// Removes it from its folder; it can still be read.
    void remove();

    std::uint64_t size() const;

    /// What stands at a place; shorter at the end, empty behind it.
    std::string read(std::uint64_t offset, std::size_t size) const;

private:
    std::intptr_t handle_ = -1; ///< not inherited by other programs
    std::filesystem::path path_;
};

/// Runs a program on a file and waits for its end. What it writes to its standard output goes into
/// an existing file, which is emptied first; it has no input and its messages are dropped. True
/// when it ended by itself and well.
bool runOnFile(const std::filesystem::path& program, const std::filesystem::path& file,
               const std::filesystem::path& output);

/// What a program may take that reads what nobody vouches for.
struct Limits {
    unsigned seconds = 0;      ///< from now on
    std::uint64_t written = 0; ///< bytes in one file
    std::uint64_t memory = 0;  ///< bytes in all
};

/// Ends this program when it takes more, and lets it leave no image of its memory behind. It is
/// the memory's own business whether that ends it, or is just not to be had.
void limitThisProgram(const Limits& limits);

/// Lets this program read one file from now on, and write into what is open already: it opens
/// nothing else, starts no program and asks no network, as far as the system can hinder it.
void confineThisProgram(const std::filesystem::path& file);

} // namespace platform
