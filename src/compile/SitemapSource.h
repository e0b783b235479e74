#pragma once

#include <string>
#include <vector>

#include "compile/SourceFiles.h"
#include "compile/SystemTables.h"
#include "compile/TextEncoder.h"
#include "workshop/HelpProject.h"
#include "workshop/Sitemap.h"

namespace compile {

/// Contents or index of a project, with the files that they lead to.
struct SitemapSource {
    std::string name;  ///< under which it is packed; empty when the help has none
    std::string shown; ///< as messages name it
    std::string bytes; ///< as it is in its file
    workshop::Sitemap map;
    std::vector<std::vector<std::size_t>> files; ///< of each target of each entry; `none` elsewhere
    bool isAsItShouldBe = false;                 ///< it can be packed as it stands
};

/// Reads the sitemap that a project names at a place; without a name, and where it cannot be had,
/// an empty one.
SitemapSource readSitemapFile(const workshop::Line& option, const Place& place, unsigned codePage,
                              SourceFiles& files, Messages& messages);

/// Names the files that a sitemap leads to, which then go into the help. Packed under other names
/// than it gives, they are given those.
void resolveTargets(SitemapSource& source, SourceFiles& files, Messages& messages);

/// Takes back that a sitemap leads to files that were left out, and says so. To be called when all
/// is read.
void dropMissing(SitemapSource& source, const SourceFiles& files, Messages& messages);

/// Says when entries lead out of the help, which the tables of a binary form have no room for.
void sayElsewhere(const SitemapSource& source, Messages& messages);

/// Contents made from the titles and headings of all pages, down to a level of headings.
SitemapSource contentsOfHeadings(const SourceFiles& files, unsigned levels);

/// How the contents want to be shown, in the code page.
ContentsStyle contentsStyle(const SitemapSource& contents, const TextEncoder& encoder);

/// The packed address of a target that is a file of the help.
std::string packedAddress(const SourceFiles& files, std::size_t file, const std::string& page);

} // namespace compile
