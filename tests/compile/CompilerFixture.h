#pragma once

#include <algorithm>
#include <gtest/gtest.h>

#include "compile/Compiler.h"
#include "help/HelpBook.h"
#include "platform/Files.h"
#include "support/TestFiles.h"
#include "text/CodePage.h"

namespace test {

namespace fs = std::filesystem;
using namespace compile;

using Lines = std::vector<std::string>;

/// Compiles small projects in a folder of the test's own.
class CompilerTest : public testing::Test {
protected:
    void write(const fs::path& name, std::string_view bytes) {
        fs::create_directories((folder / name).parent_path());
        test::writeBytes(folder / name, bytes);
    }

    CompileOutcome compile(const fs::path& name, const CompileOptions& options = {}) {
        return compileProject(folder / name, options);
    }

    /// As a compiler prints them, without the folder.
    Lines messagesOf(const CompileOutcome& outcome) {
        const std::string root = platform::utf8FromPath(folder.path() / "");
        const char* severities[] = {"note", "warning", "error"};
        Lines lines;
        for (const workshop::Message& message : outcome.messages) {
            std::string line = message.file + ':' + std::to_string(message.line) + ": "
                               + severities[static_cast<int>(message.severity)] + ": "
                               + message.text;
            if (line.starts_with(root)) {
                line.erase(0, root.size());
            }
            lines.push_back(line);
        }
        return lines;
    }

    test::TemporaryFolder folder;
};

inline Lines pathsOf(const fs::path& help) {
    const auto file = help::ChmFile::open(help);
    Lines paths;
    for (const std::string& path : file == nullptr ? Lines() : file->paths()) {
        if (!path.starts_with("/#") && !path.starts_with("/$")) {
            paths.push_back(path);
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

inline Lines indexOf(help::HelpBook& book) {
    Lines lines;
    for (const help::IndexEntry& entry : book.index()) {
        std::string line = entry.keyword + ':';
        for (const help::HelpTarget& target : entry.targets) {
            line += ' ' + target.page;
        }
        lines.push_back(line);
    }
    return lines;
}

inline std::string entry(const std::string& name, const std::string& page) {
    return "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"" + name
           + "\"><param name=\"Local\" value=\"" + page + "\"></OBJECT>\n";
}

#ifndef _WIN32

/// What a program prints.
inline std::string printed(const std::string& command, const fs::path& scratch) {
    const std::string line = command + " > '" + platform::utf8FromPath(scratch) + "' 2>/dev/null";
    EXPECT_EQ(std::system(line.c_str()), 0) << command; // NOLINT(concurrency-mt-unsafe)
    return test::bytesOf(scratch);
}

inline std::string quoted(const fs::path& path) {
    return " '" + platform::utf8FromPath(path) + "' ";
}

/// The values of all parameters of a name in a sitemap.
inline Lines valuesOf(const std::string& sitemap, const std::string& parameter) {
    const std::string mark = "name=\"" + parameter + "\" value=\"";
    Lines values;
    for (std::size_t at = 0; (at = sitemap.find(mark, at)) != std::string::npos;) {
        at += mark.size();
        values.push_back(sitemap.substr(at, sitemap.find('"', at) - at));
    }
    return values;
}

#endif

} // namespace test
