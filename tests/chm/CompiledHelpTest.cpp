#include <chm_lib.h>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <regex>

#include "generate/GenerationRun.h"
#include "support/TestFiles.h"

using namespace model;
namespace fs = std::filesystem;
using test::topic;

namespace {

/// Generates a project's help into a folder, compiles it with a real compiler and reads back what
/// that made of it.
class CompiledHelp {
public:
    CompiledHelp(Project& project, const fs::path& folder) : folder_(folder) {
        const auto report = generate::generateHelp(
            project, {folder / "help.hhp",
                      TOPICSMITH_PROGRAM_FOLDER,
                      [&] { return saveProject(project, folder / "saved.tsp"); },
                      {}});
        EXPECT_TRUE(report.failures.empty());
        compile();
        readBack();
    }

    const std::map<std::string, std::string>& files() const { return files_; }
    std::string generated(const std::string& name) const { return test::bytesOf(folder_ / name); }

private:
    /// The compiler does not find the pages of aliases behind a backslash, so it is given a copy of
    /// the project with forward slashes there.
    void compile() {
        std::string workshop = test::bytesOf(folder_ / "help.hhp");
        const std::size_t aliases = workshop.find("[ALIAS]");
        const std::size_t map = workshop.find("[MAP]");
        if (aliases != std::string::npos) {
            std::replace(workshop.begin() + static_cast<std::ptrdiff_t>(aliases),
                         workshop.begin() + static_cast<std::ptrdiff_t>(map), '\\', '/');
        }
        test::writeBytes(folder_ / "compile.hhp", workshop);
        const std::string command =
            "cd '" + folder_.string() + "' && " TOPICSMITH_CHMCMD " compile.hhp > compile.log 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << test::bytesOf(folder_ / "compile.log");
    }

    void readBack() {
        const fs::path compiled = folder_ / "help.chm";
        ASSERT_TRUE(fs::exists(compiled)) << test::bytesOf(folder_ / "compile.log");
        ASSERT_GT(fs::file_size(compiled), 0U) << test::bytesOf(folder_ / "compile.log");
        chmFile* handle = chm_open(compiled.c_str());
        ASSERT_NE(handle, nullptr);
        chm_enumerate(handle, CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, &CompiledHelp::take,
                      &files_);
        chm_close(handle);
    }

    static int take(chmFile* handle, chmUnitInfo* unit, void* context) {
        std::string bytes(unit->length, '\0');
        const auto length =
            chm_retrieve_object(handle, unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                                static_cast<LONGINT64>(bytes.size()));
        EXPECT_EQ(static_cast<std::size_t>(length), bytes.size()) << unit->path;
        static_cast<std::map<std::string, std::string>*>(context)->emplace(unit->path, bytes);
        return CHM_ENUMERATOR_CONTINUE;
    }

    fs::path folder_;
    std::map<std::string, std::string> files_;
};

/// The contents tree of a compiled help, one line an entry: the depth of its list and its page.
std::vector<std::string> contentsTree(const std::string& contents) {
    static const std::regex item(R"(<(/?)ul>|<param name="Local" value="([^"]*)\")",
                                 std::regex::icase);
    std::vector<std::string> tree;
    int depth = 0;
    for (std::sregex_iterator i(contents.begin(), contents.end(), item), end; i != end; ++i) {
        if ((*i)[2].matched) {
            tree.push_back(std::to_string(depth) + " " + (*i)[2].str());
        } else {
            depth += (*i)[1].length() == 0 ? 1 : -1;
        }
    }
    EXPECT_EQ(depth, 0) << "lists are not balanced";
    return tree;
}

std::vector<std::string> outlineTree(const TopicOutline& outline) {
    std::vector<std::string> tree;
    for (const Topic& each : outline) {
        tree.push_back(std::to_string(levelDepth(each.level)) + " html/" + each.fileName);
    }
    return tree;
}

void expectEverythingArrived(const CompiledHelp& help, const TopicOutline& outline) {
    for (const Topic& each : outline) {
        const auto page = help.files().find("/html/" + each.fileName);
        ASSERT_NE(page, help.files().end()) << each.fileName;
        EXPECT_EQ(page->second, help.generated("html/" + each.fileName));
    }
    const auto contents = help.files().find("/help.hhc");
    ASSERT_NE(contents, help.files().end());
    EXPECT_EQ(contentsTree(contents->second), outlineTree(outline));
}

/// Every address in a page's links.
std::vector<std::string> linksOf(const std::string& page) {
    static const std::regex link(R"(<a href=["']([^"']*)["'])", std::regex::icase);
    std::vector<std::string> links;
    for (std::sregex_iterator i(page.begin(), page.end(), link), end; i != end; ++i) {
        links.push_back((*i)[1]);
    }
    return links;
}

} // namespace

TEST(CompiledHelp, PagesAndContentsArriveUnchanged) {
    Text body = "first line\r\nsecond line \x80\xA0\xE9\xFF\r\n";
    for (int i = 0; i < 3000; ++i) {
        body += "line " + std::to_string(i) + "\r\n";
    }
    TopicOutline outline =
        test::outlineOf({topic(1, "Start", "start.htm", body), topic(2, "Below", "below.htm"),
                         topic(3, "Deep", "deep.htm", ""), topic(1, "A Caf\xE9", "a b.htm"),
                         topic(2, "Last", "last.htm")});
    outline.at(2).contextId = "IDH_BELOW";
    outline.at(2).contextNumber = "10";
    outline.at(5).contextId = "IDH_LAST";
    outline.at(5).contextNumber = "20";
    outline.at(1).keywords = "one; two";
    Project project;
    project.replace(outline, {}, "p.tsp");
    const test::TemporaryFolder folder;
    const CompiledHelp help(project, folder.path());
    expectEverythingArrived(help, outline);
}

TEST(CompiledHelp, TheManualIsWholeAndItsLinksLeadSomewhere) {
    const fs::path manual = fs::path(TOPICSMITH_SOURCE_FOLDER) / "help/topicsmith.tsp";
    Project project;
    const LoadOutcome outcome = loadProject(project, manual);
    ASSERT_FALSE(outcome.readError);
    ASSERT_EQ(outcome.stop, LoadStop::none);
    EXPECT_EQ(formatProject(project.outline(), project.options()), test::bytesOf(manual))
        << "not as the program itself saves it";

    const test::TemporaryFolder folder;
    fs::copy(manual.parent_path() / "topicsmith.css", folder.path());
    fs::copy(manual.parent_path() / "images", folder / "images");
    const CompiledHelp help(project, folder.path());
    expectEverythingArrived(help, project.outline());
    for (const char* file : {"/topicsmith.css", "/images/Image.jpg", "/images/Home Button.jpg",
                             "/images/main-window.png"}) {
        EXPECT_TRUE(help.files().contains(file)) << file;
    }
    int links = 0;
    for (const Topic& each : project.outline()) {
        EXPECT_FALSE(each.body.empty()) << each.title;
        for (std::string link : linksOf(help.generated("html/" + each.fileName))) {
            if (link.starts_with("http")) {
                continue;
            }
            std::replace(link.begin(), link.end(), '\\', '/');
            const fs::path target = (fs::path("/html") / link).lexically_normal();
            EXPECT_TRUE(help.files().contains(target.string())) << each.fileName << ": " << link;
            ++links;
        }
    }
    EXPECT_GT(links, project.outline().count()) << "the manual is read by its links";
}
