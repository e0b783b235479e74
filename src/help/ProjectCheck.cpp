#include "help/ProjectCheck.h"

#include <unordered_map>

#include "platform/Files.h"
#include "text/Address.h"
#include "text/FileFinder.h"
#include "text/ForeignText.h"
#include "workshop/Encoding.h"
#include "workshop/HelpProject.h"
#include "workshop/Sitemap.h"

namespace help {

namespace {

constexpr std::size_t largestSource = std::size_t(64) << 20; // as large as what is unpacked

class Comparison {
public:
    Comparison(HelpBook& book, const std::filesystem::path& project)
        : book_(book), finder_(project.parent_path()) {}

    std::vector<std::string> run(const std::string& bytes) {
        const auto include = [this](const std::string& path) { return source(path); };
        project_ = workshop::readProject(bytes, include);
        compare("title", project_.options.title.text, book_.title());
        comparePage("home page", project_.options.defaultTopic.text, book_.homePage());
        compareContents();
        compareContexts();
        compareFiles();
        return std::move(differences_);
    }

private:
    /// The bytes of a file that the project names.
    std::optional<std::string> source(const std::string& path) {
        std::string bytes;
        const auto found = finder_.findNative(platform::pathFromUtf8(text::plainPath(path)));
        return platform::readFile(found, bytes, largestSource) ? std::nullopt
                                                               : std::optional(bytes);
    }

    /// Where a file lies in the help; empty when it cannot be told.
    std::string packedPath(const std::string& path) const {
        const std::string plain = text::plainPath(path);
        if (project_.options.flat) {
            return '/' + plain.substr(plain.rfind('/') + 1);
        }
        return plain.starts_with("../") ? std::string() : '/' + plain;
    }

    void compare(const std::string& what, const std::string& wanted, const std::string& got) {
        if (!wanted.empty() && wanted != got) {
            differences_.push_back(what + " is \"" + got + "\" and not \"" + wanted + '"');
        }
    }
    void comparePage(const std::string& what, const std::string& wanted, const std::string& got) {
        const std::string path = wanted.empty() ? std::string() : packedPath(wanted);
        if (packedKey(path) != packedKey(got)) {
            compare(what, path, got);
        }
    }

    void compareContents();
    void compareContexts();
    void compareFiles();

    HelpBook& book_;
    text::FileFinder finder_;
    workshop::HelpProject project_;
    std::vector<std::string> differences_;
};

void Comparison::compareContents() {
    const std::string& file = project_.options.contentsFile.text;
    const auto bytes = file.empty() ? std::nullopt : source(file);
    if (!bytes) {
        return;
    }
    const unsigned codePage = project_.options.codePage;
    auto entries =
        workshop::readSitemap(text::decodedSource(*bytes, codePage).utf8, codePage).entries;
    std::erase_if(entries, [](const auto& entry) { return entry.name.empty(); });
    const std::vector<ContentsEntry>& packed = book_.contents();
    if (entries.size() != packed.size()) {
        differences_.push_back("contents: " + std::to_string(packed.size()) + " entries and not "
                               + std::to_string(entries.size()));
        return;
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string where = "contents: entry " + std::to_string(i + 1);
        compare(where, entries[i].name, packed[i].target.title);
        compare(where + ", level", std::to_string(entries[i].depth),
                std::to_string(packed[i].depth));
    }
}

void Comparison::compareContexts() {
    std::unordered_map<std::string, std::string> pages; // by names of contexts
    for (const workshop::Alias& alias : project_.aliases) {
        pages.emplace(alias.name, alias.page.text);
    }
    for (const workshop::ContextNumber& number : project_.numbers) {
        if (const auto page = pages.find(number.name); page != pages.end()) {
            comparePage("context " + std::to_string(number.number), page->second,
                        book_.pageOfContext(number.number));
        }
    }
}

void Comparison::compareFiles() {
    for (const workshop::Line& file : project_.files) {
        const std::string path = packedPath(file.text);
        const auto wanted = path.empty() ? std::nullopt : source(file.text);
        if (!wanted) {
            continue; // what the compiler did not find either
        }
        const auto got = book_.file().read(path);
        if (!got) {
            differences_.push_back(path + " is missing");
        } else if (*got != *wanted) {
            differences_.push_back(path + " is not as on the disk");
        }
    }
}

} // namespace

std::vector<std::string> differences(HelpBook& book, const std::filesystem::path& project) {
    std::string bytes;
    if (const std::error_code error = platform::readFile(project, bytes, largestSource)) {
        return {platform::utf8FromPath(project) + ": " + error.message()};
    }
    return Comparison(book, platform::fullPath(project)).run(bytes);
}

} // namespace help
