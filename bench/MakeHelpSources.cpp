#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "platform/Files.h"

namespace {

namespace fs = std::filesystem;

/// Text as authors write it: few words often, many rarely.
class Prose {
public:
    explicit Prose(std::size_t words) {
        constexpr const char* syllables[] = {"to",   "pic",  "help", "er",   "con",  "tent", "in",
                                             "dex",  "page", "win",  "dow",  "a",    "the",  "set",
                                             "ting", "o",    "pen",  "file", "list", "ed"};
        for (std::size_t i = 0; i < words; ++i) {
            std::string word;
            for (std::size_t part = 0; part <= random_() % 4; ++part) {
                word += syllables[random_() % std::size(syllables)];
            }
            words_.push_back(word);
        }
    }

    std::string sentence() {
        std::string text;
        const std::size_t count = 5 + random_() % 15;
        for (std::size_t i = 0; i < count; ++i) {
            text += i == 0 ? "" : random_() % 12 == 0 ? ", " : " ";
            text += random_() % 30 == 0 ? "<b>" + word() + "</b>" : word();
        }
        text.front() = text.front() == '<' ? '<' : static_cast<char>(text.front() - 'a' + 'A');
        return text + ".";
    }

private:
    const std::string& word() {
        const double share = static_cast<double>(random_()) / static_cast<double>(random_.max());
        const auto last = static_cast<double>(words_.size() - 1);
        return words_[static_cast<std::size_t>(last * std::pow(share, 4))];
    }

    std::mt19937 random_{1};
    std::vector<std::string> words_;
};

std::string entry(const std::string& name, const std::string& page) {
    return "<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" value=\"" + name
           + "\">\r\n<param name=\"Local\" value=\"" + page + "\">\r\n</OBJECT>\r\n";
}

std::string page(Prose& prose, int number, int count, std::size_t size) {
    const std::string name = "Topic " + std::to_string(number);
    const auto link = [](int to) { return "topic" + std::to_string(to) + ".htm"; };
    std::string text = "<!DOCTYPE html>\r\n<html>\r\n<head>\r\n<title>" + name
                       + "</title>\r\n<link rel=\"stylesheet\" href=\"style.css\">\r\n</head>\r\n"
                         "<body>\r\n<h1>"
                       + name + "</h1>\r\n";
    while (text.size() < size) {
        text += "<p>";
        for (int i = 0; i < 4; ++i) {
            text += prose.sentence() + " ";
        }
        text += "</p>\r\n";
    }
    return text + "<p><a href=\"" + link(std::max(1, number - 1)) + "\">Back</a> <a href=\""
           + link(std::min(count, number + 1)) + "\">Next</a></p>\r\n</body>\r\n</html>\r\n";
}

bool write(const fs::path& path, const std::string& bytes) {
    return !platform::writeFile(path, bytes);
}

} // namespace

/// make_help_sources TOPICS PAGE_BYTES FOLDER [PICTURES PICTURE_BYTES]: a workshop project,
/// help.hhp. Pictures do not compress, and each stands in a page.
int main(int argc, char* argv[]) {
    if (argc != 4 && argc != 6) {
        std::fputs("usage: make_help_sources TOPICS PAGE_BYTES FOLDER [PICTURES PICTURE_BYTES]\n",
                   stderr);
        return 2;
    }
    const int topics = std::stoi(argv[1]);
    const std::size_t pageSize = std::stoul(argv[2]);
    const fs::path folder = argv[3];
    const int pictures = argc == 6 ? std::stoi(argv[4]) : 0;
    bool done = !platform::createFolders(folder) && write(folder / "style.css", "h1 { margin: 0 }");
    Prose prose(4000);
    std::mt19937 random(2);
    std::string contents = "<HTML>\r\n<BODY>\r\n<UL>\r\n";
    std::string index = contents;
    std::string files;
    for (int i = 1; i <= topics; ++i) {
        const std::string name = "topic" + std::to_string(i) + ".htm";
        std::string text = page(prose, i, topics, pageSize);
        if (i <= pictures) {
            const std::string picture = "picture" + std::to_string(i) + ".png";
            text.insert(text.find("</h1>"), "<img src=\"" + picture + "\">");
            std::string bytes(std::stoul(argv[5]), '\0');
            std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
            done = write(folder / picture, bytes) && done;
            files += picture + "\r\n";
        }
        done = write(folder / name, text) && done;
        contents += entry("Topic " + std::to_string(i), name);
        index += entry("keyword " + std::to_string(i), name);
        files += name + "\r\n";
    }
    const std::string end = "</UL>\r\n</BODY>\r\n</HTML>\r\n";
    done = write(folder / "help.hhc", contents + end) && write(folder / "help.hhk", index + end)
           && done;
    done = write(folder / "help.hhp", "[OPTIONS]\r\nCompiled file=help.chm\r\nTitle=Sample\r\n"
                                      "Contents file=help.hhc\r\nIndex file=help.hhk\r\n"
                                      "Default topic=topic1.htm\r\nLanguage=0x409 English\r\n\r\n"
                                      "[FILES]\r\nstyle.css\r\n"
                                          + files)
           && done;
    return done ? 0 : 1;
}
