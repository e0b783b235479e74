#include "model/Rereading.h"

#include <utility>

namespace model {

using text::Text;

namespace {

class Rereader {
public:
    explicit Rereader(const text::Language& language) : wanted_(language.codePage) {}

    Text reread(text::TextView text) const {
        Text result;
        std::string bytes; // of the file, between letters that were no bytes there
        while (!text.empty()) {
            const text::TextView before = text;
            const bool wasByte = western_.has(text::takeUtf8(text));
            const text::TextView letter = before.substr(0, before.size() - text.size());
            if (wasByte) {
                western_.appendEncoded(bytes, letter, text::Missing::questionMark);
                continue;
            }
            result += wanted_.decodedHtml(std::exchange(bytes, {}));
            result += letter;
        }
        return result + wanted_.decodedHtml(bytes);
    }

    // For visitOptions().
    void title(Text& text) const { text = reread(text); }
    void html(Text& text) const { text = reread(text); }
    void name(Text& text) const { text = reread(text); }
    void flag(bool&) const {}
    void navigation(NavigationType&) const {}

private:
    text::CodePage western_;
    text::CodePage wanted_;
};

} // namespace

void rereadIn(Project& project, const text::Language& language) {
    const UndoStep step(project, "Read in Another Language");
    const Rereader reader(language);
    ProjectOptions options = project.options();
    options.languageTag = language.tag;
    visitOptions(options, reader);
    project.setOptions(std::move(options));
    for (int position = 1; position <= project.outline().count(); ++position) {
        for (Text Topic::*field : {&Topic::title, &Topic::fileName, &Topic::contextId,
                                   &Topic::shortDescription, &Topic::keywords, &Topic::body}) {
            const Text& before = project.outline().at(position).*field;
            if (Text after = reader.reread(before); after != before) {
                project.setField(position, field, std::move(after));
            }
        }
    }
    project.markChanged(projectChanged);
}

} // namespace model
