#include <cstdint>

#include "Require.h"
#include "workshop/HelpProject.h"
#include "workshop/PageFacts.h"
#include "workshop/Sitemap.h"

/// A workshop's project and what it consists of may be written by anybody; each includes itself.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const workshop::HelpProject project = workshop::readProject(
        bytes, [bytes](const std::string&) { return std::optional(std::string(bytes)); });
    for (const workshop::Alias& alias : project.aliases) {
        require(!alias.name.empty() && !alias.page.text.empty(), "an alias of nothing");
    }
    const workshop::Sitemap sitemap = workshop::readSitemap(bytes);
    const workshop::Sitemap again = workshop::readSitemap(workshop::formatSitemap(sitemap));
    require(again.entries.size() == sitemap.entries.size(), "entries are lost when written");
    for (std::size_t i = 0; i < sitemap.entries.size(); ++i) {
        require(again.entries[i].targets.size() == sitemap.entries[i].targets.size(),
                "targets are lost when written");
    }
    const workshop::PageFacts facts = workshop::readPage(bytes);
    for (const workshop::PageText& address : facts.addresses) {
        require(!address.text.empty() && address.line > 0, "an address of nothing");
    }
    return 0;
}
