#include "compile/SitemapSource.h"

#include "platform/Files.h"
#include "text/Address.h"
#include "text/ForeignText.h"

namespace compile {

std::string packedAddress(const SourceFiles& files, std::size_t file, const std::string& page) {
    const std::size_t sharp = page.find('#');
    return files[file].name + (sharp == std::string::npos ? std::string() : page.substr(sharp));
}

SitemapSource readSitemapFile(const workshop::Line& option, const Place& place, unsigned codePage,
                              SourceFiles& files, Messages& messages) {
    SitemapSource source;
    const std::size_t file =
        option.text.empty() ? SourceFiles::none : files.reserve(option.text, place);
    if (file == SourceFiles::none) {
        return source;
    }
    source.name = files[file].name;
    source.shown = files.shown(files[file].relative);
    if (const auto error = platform::readFile(files[file].path, source.bytes)) {
        messages.warn({source.shown}, "cannot be read: " + error.message());
    }
    files.noteRead(files[file].path);
    const auto text = text::decodedSource(source.bytes, codePage);
    source.map =
        workshop::readSitemap(text.utf8, text.isUnicode ? workshop::plainReferences : codePage);
    source.isAsItShouldBe = source.map.isStrict && !text.isUnicode;
    if (source.map.isCut) {
        messages.warn({source.shown}, "has too many entries; those at the end are left out");
    }
    return source;
}

void resolveTargets(SitemapSource& source, SourceFiles& files, Messages& messages) {
    for (workshop::SitemapEntry& entry : source.map.entries) {
        auto& found = source.files.emplace_back();
        for (workshop::SitemapTarget& target : entry.targets) {
            const Place place{source.shown, target.line};
            const Address address = splitAddress(target.page);
            std::size_t file = SourceFiles::none;
            if (!address.isElsewhere && address.path.empty()) {
                messages.warn(place, "\"" + target.page + "\" names no page");
            } else if (!address.isElsewhere) {
                file = files.fromProject(address.path, place);
            }
            found.push_back(file);
            if (file == SourceFiles::none) {
                continue;
            }
            if (!address.fragment.empty()) {
                files.wantAnchor(file, address.fragment, place);
            }
            std::string packed = packedAddress(files, file, target.page);
            source.isAsItShouldBe =
                source.isAsItShouldBe && caseKey(text::plainPath(target.page)) == caseKey(packed);
            target.page = std::move(packed);
        }
    }
}

void dropMissing(SitemapSource& source, const SourceFiles& files, Messages& messages) {
    for (std::size_t i = 0; i < source.files.size(); ++i) {
        for (std::size_t t = 0; t < source.files[i].size(); ++t) {
            std::size_t& file = source.files[i][t];
            if (files.isLeftOut(file)) {
                messages.warn({source.shown, source.map.entries[i].targets[t].line},
                              "leads to " + files[file].relative + ", which is left out");
                file = SourceFiles::none;
            }
        }
    }
}

void sayElsewhere(const SitemapSource& source, Messages& messages) {
    int count = 0;
    int line = 0;
    for (const workshop::SitemapEntry& entry : source.map.entries) {
        for (const workshop::SitemapTarget& target : entry.targets) {
            if (splitAddress(target.page).isElsewhere) {
                line = count++ == 0 ? target.line : line;
            }
        }
    }
    if (count > 0) {
        messages.note(
            {source.shown, line},
            std::to_string(count)
                + " targets from here on lie outside the help; readers of its binary form "
                  "do not find them");
    }
}

SitemapSource contentsOfHeadings(const SourceFiles& files, unsigned levels) {
    SitemapSource contents;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const SourceFile& file = files[i];
        const auto add = [&](unsigned depth, const std::string& name, const std::string& page) {
            contents.map.entries.push_back({static_cast<int>(depth), name, {{name, page}}});
            contents.files.push_back({i});
        };
        if (!file.isPage || !file.isPacked) {
            continue;
        }
        const std::string& title = file.facts.title.text;
        add(1, title.empty() ? file.name : title, file.name);
        for (const workshop::Heading& heading : file.facts.headings) {
            if (heading.level > 1 && heading.level <= levels && !heading.text.empty()) {
                add(heading.level, heading.text,
                    heading.anchor.empty() ? file.name : file.name + '#' + heading.anchor);
            }
        }
    }
    return contents;
}

ContentsStyle contentsStyle(const SitemapSource& contents, const TextEncoder& encoder) {
    ContentsStyle style;
    for (const auto& [name, value] : contents.map.properties) {
        const auto is = [&name = name](const char* known) {
            return text::equalIgnoringCase(name, known);
        };
        const std::string bytes = encoder.text(value, {contents.shown}, "a property");
        if (is("imagelist")) {
            style.imageList = bytes;
        } else if (is("font")) {
            style.font = bytes;
        } else if (is("framename")) {
            style.frame = bytes;
        } else if (is("windowname")) {
            style.window = bytes;
        } else if (is("imagetype")) {
            style.folders = text::equalIgnoringCase(value, "folder");
        } else if (is("background")) {
            style.background = workshop::readNumber(value);
        } else if (is("foreground")) {
            style.foreground = workshop::readNumber(value);
        } else if (is("window styles")) {
            style.styles = workshop::readNumber(value);
        } else if (is("exwindow styles")) {
            style.extendedStyles = workshop::readNumber(value);
        }
    }
    return style;
}

} // namespace compile
