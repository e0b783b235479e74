#pragma once

#include <filesystem>
#include <map>
#include <string>

/// Readers of compiled help that are not ours.
namespace test {

/// Contents by their names in the help, as in "/html/a.htm".
using Files = std::map<std::string, std::string>;

/// Fails the test where a reader lists, finds or unpacks other files than `files` in a help.
void expectReadersFind(const Files& files, const std::filesystem::path& help);

} // namespace test
