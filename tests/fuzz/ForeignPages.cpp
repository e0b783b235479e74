#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <unistd.h>
#include <vector>

#include "Require.h"
#include "SoundTopics.h"
#include "import/HelpImport.h"
#include "import/Markdown.h"
#include "import/PageSource.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/HtmlReader.h"

namespace fs = std::filesystem;
using text::Text;
using text::TextView;

namespace {

/// The run's own folder: pages lie in "in", the project in "out".
class Folder {
public:
    Folder() : path(fs::temp_directory_path() / ("topicsmith-fuzz-" + std::to_string(getpid()))) {
        clear();
    }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    void clear() const {
        fs::remove_all(path);
        fs::create_directories(path / "in");
        fs::create_directories(path / "out");
    }

    const fs::path path;
};

/// Markdown, a page of a word processor and a picture in turn, with "\1" between.
std::vector<fs::path> written(std::string_view bytes, const fs::path& folder) {
    constexpr int mostFiles = 6;
    std::vector<fs::path> pages;
    std::size_t at = 0;
    for (int i = 0; i < mostFiles && at <= bytes.size(); ++i) {
        const std::size_t end = std::min(bytes.find('\1', at), bytes.size());
        const std::string part(bytes.substr(at, end - at));
        const fs::path file = folder
                              / (std::to_string(i)
                                 + (i % 3 == 0   ? ".md"
                                    : i % 3 == 1 ? ".htm"
                                                 : ".gif"));
        const char* before = i % 3 == 0   ? ""
                             : i % 3 == 1 ? "<meta name=generator content=LibreOffice>"
                                          : "GIF89a";
        require(!platform::writeFile(file, before + part), "the disk is full");
        if (i % 3 < 2) {
            pages.push_back(file);
        }
        at = end + 1;
    }
    return pages;
}

/// What an author would write: known tags that are closed in order, and nothing that runs.
void checkBody(TextView body, bool isWhole) {
    const std::set<TextView> known = {
        "a",  "b",   "blockquote", "br",    "caption", "code", "dd",  "dl", "dt", "h1", "h2",
        "h3", "h4",  "h5",         "h6",    "hr",      "i",    "img", "li", "ol", "p",  "pre",
        "s",  "sub", "sup",        "table", "td",      "th",   "tr",  "u",  "ul"};
    require(body.find('"') == TextView::npos, "a double quote");
    std::vector<Text> open;
    text::HtmlReader reader(body);
    while (reader.next()) {
        if (reader.isText()) {
            continue;
        }
        const Text name = reader.lowerName();
        require(known.contains(name), "a tag that nobody would write");
        const Text address = text::lowerAscii(reader.attribute("href").value_or(""));
        require(!address.starts_with("javascript:"), "a script");
        if (name == "br" || name == "hr" || name == "img" || !isWhole) {
            continue;
        }
        if (!reader.closes()) {
            open.push_back(name);
            continue;
        }
        require(!open.empty() && open.back() == name, "tags cross");
        open.pop_back();
    }
    require(open.empty(), "a tag is not closed");
}

void checkTopics(const model::Project& project, bool isWhole) {
    requireSoundTopics(project.outline());
    for (const model::Topic& topic : project.outline()) {
        require(text::isUtf8(topic.title) && text::isUtf8(topic.body), "no UTF-8");
        checkBody(topic.body, isWhole);
    }
}

} // namespace

/// Pages in Markdown and of word processors make sound topics, and write pictures at most.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    static const Folder folder;
    const std::vector<fs::path> pages = written(bytes, folder.path / "in");
    Text problem;
    const auto source = importer::openPages(pages, 1252, problem);
    for (const bool cuts : {false, true}) {
        if (!source) {
            break;
        }
        model::Project project;
        project.setProjectPath(folder.path / "out/project.tsp");
        importHelp(project, *source, importer::planImport(*source, cuts), {});
        checkTopics(project, !cuts);
    }
    bool hasPictures = false;
    for (const auto& entry : fs::directory_iterator(folder.path / "out")) {
        require(entry.path().filename() == "images", "a file outside the folder of pictures");
        hasPictures = true;
    }
    const auto inside = fs::directory_iterator(folder.path / "in");
    require(std::distance(begin(inside), end(inside)) <= 6, "a file beside the pages");
    const auto around = fs::directory_iterator(folder.path);
    require(std::distance(begin(around), end(around)) == 2, "a file outside the project");
    if (hasPictures || pages.size() > 1) {
        folder.clear();
    }
    return 0;
}
