#include "compile/Judges.h"

#include <algorithm>
#include <cctype>
#include <chm_lib.h>
#include <cstdlib>
#include <gtest/gtest.h>
#include <set>

#include "platform/Files.h"
#include "support/StrictReader.h"
#include "support/TestFiles.h"

namespace test {

namespace fs = std::filesystem;

namespace {

template <int change(int)>
std::string inCase(std::string name) {
    std::transform(name.begin(), name.end(), name.begin(), [](char c) {
        return static_cast<unsigned char>(c) < 0x80 ? static_cast<char>(change(c)) : c;
    });
    return name;
}

/// Contents are large: says which file it is, and no more.
void expectSame(const Files& files, const Files& got, const char* reader) {
    for (const auto& [name, content] : files) {
        const auto found = got.find(name);
        if (found == got.end()) {
            ADD_FAILURE() << reader << " does not show " << name;
        } else if (found->second != content) {
            ADD_FAILURE() << reader << " unpacks " << name << " otherwise: " << found->second.size()
                          << " for " << content.size() << " bytes";
        }
    }
    EXPECT_EQ(files.size(), got.size()) << reader;
}

int note(chmFile*, chmUnitInfo* unit, void* names) {
    static_cast<std::set<std::string>*>(names)->emplace(unit->path);
    return CHM_ENUMERATOR_CONTINUE;
}

std::optional<std::string> retrieved(chmFile* help, const std::string& name) {
    chmUnitInfo unit{};
    if (chm_resolve_object(help, name.c_str(), &unit) != CHM_RESOLVE_SUCCESS) {
        return {};
    }
    std::string bytes(unit.length, '\0');
    const LONGINT64 size =
        chm_retrieve_object(help, &unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                            static_cast<LONGINT64>(bytes.size()));
    return size == static_cast<LONGINT64>(bytes.size()) ? std::optional(bytes) : std::nullopt;
}

void expectChmlibFinds(const Files& files, const fs::path& help) {
    chmFile* const opened = chm_open(help.c_str());
    ASSERT_NE(opened, nullptr);
    std::set<std::string> names;
    chm_enumerate(opened, CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_SPECIAL | CHM_ENUMERATE_FILES, note,
                  &names);
    Files got;
    for (const std::string& name : names) {
        if (auto bytes = retrieved(opened, name)) {
            got.emplace(name, std::move(*bytes));
        }
        for (const std::string& other : {inCase<std::toupper>(name), inCase<std::tolower>(name)}) {
            chmUnitInfo unit{};
            EXPECT_EQ(chm_resolve_object(opened, other.c_str(), &unit), CHM_RESOLVE_SUCCESS)
                << other;
            EXPECT_EQ(unit.path, name);
        }
    }
    chm_close(opened);
    expectSame(files, got, "CHMLib");
}

void expectStrictReaderFinds(const Files& files, const fs::path& help) {
    const std::string bytes = bytesOf(help);
    StrictReader reader(bytes);
    EXPECT_EQ(reader.fault(), 0);
    expectSame(files, reader.files(), "libmspack");
    for (const auto& [name, content] : files) {
        for (const std::string& other : {inCase<std::toupper>(name), inCase<std::tolower>(name)}) {
            EXPECT_EQ(reader.find(other), content.size()) << other;
        }
    }
    EXPECT_EQ(reader.find("/no such file"), std::nullopt);
}

/// Runs a program in a folder, into which it unpacks the help.
void expectProgramFinds(const Files& files, const fs::path& help, const char* program) {
    const TemporaryFolder folder;
    const std::string command = "cd '" + std::string(folder.path()) + "' && LC_ALL=C.UTF-8 "
                                + program + " '" + platform::utf8FromPath(help) + "' >log 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << bytesOf(folder / "log");
    fs::remove(folder / "log");
    Files got;
    for (const auto& each : fs::recursive_directory_iterator(folder.path())) {
        if (each.is_regular_file()) {
            const fs::path name = each.path().lexically_relative(folder.path());
            got.emplace("/" + platform::utf8FromPath(name), bytesOf(each.path()));
        }
    }
    expectSame(files, got, program);
}

} // namespace

void expectReadersFind(const Files& files, const fs::path& help) {
    expectChmlibFinds(files, help);
    expectStrictReaderFinds(files, help);
    expectProgramFinds(files, help, "7z x -y");
    Files filled = files;
    std::erase_if(filled, [](const auto& file) { return file.second.empty(); }); // as it does
    expectProgramFinds(filled, help, "chmls extractall");
}

} // namespace test
