#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace ui {

/// The person's settings by section and key, kept between runs: in the registry on Windows, in a
/// file of the person's elsewhere. Values are UTF-8.
class Settings {
public:
    /// The program's settings. Where a file `topicsmith.ini` lies beside the program, they are kept
    /// in it: people carry the program with them. Needs an `Application`.
    Settings();
    /// Those in a file of its own, for tests.
    explicit Settings(const std::filesystem::path& file);
    ~Settings();
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;

    std::string get(const std::string& section, const std::string& key,
                    const std::string& fallback = {}) const;
    /// A failure to write is not told: the program works without its settings.
    void set(const std::string& section, const std::string& key, const std::string& value);

    /// The fallback for what is missing or is no number.
    int number(const std::string& section, const std::string& key, int fallback) const;
    void setNumber(const std::string& section, const std::string& key, int value);

    std::filesystem::path path(const std::string& section, const std::string& key) const;
    void setPath(const std::string& section, const std::string& key,
                 const std::filesystem::path& value);

    /// Where further files of the person's are kept; made if it is missing.
    std::filesystem::path folder() const;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace ui
