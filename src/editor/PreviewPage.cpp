#include "editor/PreviewPage.h"

#include "model/ProjectFolders.h"

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
    appendLine(page, withAbsolutePictures(body, projectFolder));
    appendLine(page, "</body>");
    appendLine(page, "</html>");
    return page;
}

} // namespace editor
