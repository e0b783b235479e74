#include <cstdint>

#include "Require.h"
#include "help/ChmDirectory.h"
#include "help/DirectoryCheck.h"
#include "help/HelpPage.h"
#include "help/HelpSearch.h"
#include "workshop/Sitemap.h"

/// What a compiled help holds is read as whatever it claims to be.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const workshop::SitemapEntry& entry : workshop::readSitemap(bytes, 1251).entries) {
        require(entry.depth >= 1 && entry.depth <= 30, "the depth has no limit");
        require(!entry.name.empty() || !entry.merge.empty(), "an entry without a name");
    }
    const help::HelpPage page = help::readHelpPage(bytes, 1252);
    require(page.text.find("  ") == std::string::npos, "two blanks in a row");
    require(help::searchable(page.text) == page.text, "a searchable text is not as it should be");
    require(help::HelpQuestion("a \"b c\"").score(page) >= 0, "a score below nothing");
    for (const std::string& path : help::packedPaths(bytes)) {
        require(path.size() < size && path.starts_with('/'), "a path that does not stand there");
    }
    help::directoryFaults(bytes);
    return 0;
}
