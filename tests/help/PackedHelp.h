#pragma once

#include <gtest/gtest.h>
#include <map>

#include "compile/Compiler.h"
#include "compile/Container.h"
#include "help/HelpBook.h"
#include "support/TestFiles.h"

namespace test {

/// Compiles small help files, and packs their parts anew.
class PackedHelp : public testing::Test {
protected:
    using Files = std::map<std::string, std::string>;

    std::unique_ptr<help::HelpBook> compiled(const Files& pages, const std::string& options,
                                             bool isSearchable) {
        std::string project = "[OPTIONS]\nCompiled file=t.chm\n" + options + "[FILES]\n";
        for (const auto& [name, page] : pages) {
            writeBytes(folder / name, page);
            project += name + '\n';
        }
        writeBytes(folder / "t.hhp", project);
        compile::CompileOptions wanted;
        wanted.fullTextSearch = isSearchable;
        EXPECT_TRUE(compile::compileProject(folder / "t.hhp", wanted).isWritten);
        return help::HelpBook::open(folder / "t.chm");
    }

    /// The files of the help that was compiled last.
    Files files() {
        const auto file = help::ChmFile::open(folder / "t.chm");
        Files all;
        for (const std::string& path : file->paths()) {
            all[path] = file->read(path).value();
        }
        return all;
    }

    std::filesystem::path packed(const Files& files) {
        compile::Container container({});
        for (const auto& [name, content] : files) {
            container.add(name, content);
        }
        writeBytes(folder / "packed.chm", container.pack().value());
        return folder / "packed.chm";
    }

    TemporaryFolder folder;
};

} // namespace test
