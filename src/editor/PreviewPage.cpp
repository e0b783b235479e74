#include "editor/PreviewPage.h"

#include <algorithm>

#include "model/ProjectFolders.h"
#include "model/Variables.h"
#include "text/Address.h"
#include "text/HtmlReader.h"
#include "text/Path.h"

namespace editor {

using text::append;
using text::appendLine;

namespace {

constexpr TextView upwards = "..";

/// A path of the options, which counts from the page folder.
Text absolute(TextView path, TextView projectFolder) {
    Text made;
    if (path.starts_with(upwards)) {
        append(made, projectFolder, path.substr(upwards.size()));
    } else {
        made = path;
    }
    return made;
}

/// Whether a tag begins what an author thinks of as one piece of text.
bool beginsBlock(const text::HtmlReader& reader) {
    constexpr TextView names[] = {"p",  "li", "td", "th", "h1", "h2",  "h3",
                                  "h4", "h5", "h6", "dd", "dt", "pre", "div"};
    return !reader.isText() && !reader.closes()
           && std::find(std::begin(names), std::end(names), reader.lowerName()) != std::end(names);
}

} // namespace

Text withAbsolutePictures(TextView body, TextView projectFolder) {
    constexpr TextView tag = "<img src='";
    Text made;
    made.reserve(body.size() + projectFolder.size());
    std::size_t done = 0;
    for (std::size_t found = 0;
         (found = body.find(model::imageTagStart, done)) != TextView::npos;) {
        append(made, body.substr(done, found - done), tag, projectFolder);
        done = found + tag.size() + upwards.size();
    }
    made += body.substr(done);
    return made;
}

Text previewPage(TextView title, TextView body, const model::ProjectOptions& options,
                 TextView projectFolder) {
    Text page;
    appendLine(page, "<html>");
    appendLine(page, "<head>");
    appendLine(page, "<title>", title, "</title>");
    if (!options.cssFile.empty()) {
        appendLine(page, "<link rel=\"stylesheet\" href=\"",
                   absolute(options.cssFile, projectFolder), "\">");
    }
    appendLine(page, "</head>");
    if (options.backgroundImage.empty()) {
        appendLine(page, "<body>");
    } else {
        appendLine(page, "<body background=\"", absolute(options.backgroundImage, projectFolder),
                   "\">");
    }
    appendLine(page, "<h1>", title, "</h1>");
    const Text shown = model::withVariables(body, model::shownVariables(options));
    appendLine(page, withAbsolutePictures(shown, projectFolder));
    appendLine(page, "</body>");
    appendLine(page, "</html>");
    return page;
}

Text livePage(TextView title, TextView body, const model::ProjectOptions& options,
              const std::filesystem::path& folder) {
    constexpr TextView head = "<head>\r\n";
    const Text address = text::fileAddress(text::displayText(folder));
    Text page = previewPage(title, body, options, address);
    Text base;
    appendLine(base, "<base href=\"", address, "/", model::pageFolderName, "/\">");
    page.insert(page.find(head) + head.size(), base);
    return page;
}

Text withCaret(TextView body, std::size_t caret) {
    text::HtmlReader reader(body);
    std::size_t block = TextView::npos;
    while (reader.next() && reader.offset() <= caret) {
        if (beginsBlock(reader)) {
            block = reader.offset();
        }
    }
    const std::size_t end = block == TextView::npos
                                ? block
                                : text::TagEnds(body).of(std::max<std::size_t>(block, 1) - 1);
    Text marked(body);
    if (end != TextView::npos) {
        Text mark;
        append(mark, "<a id='", caretId, "' name='", caretId, "'></a>");
        marked.insert(end + 1, mark);
    }
    return marked;
}

} // namespace editor
