#include "model/FormatLoss.h"

#include <iterator>

#include "model/Helper.h"
#include "model/ProjectFormat.h"
#include "model/Variables.h"

namespace model {

using text::Text;
using text::TextView;

namespace {

constexpr TextView bodyName = "body";

/// In the order of topicFields.
constexpr TextView fieldNames[] = {"level",
                                   "status",
                                   "title",
                                   "file name",
                                   "context string",
                                   "context number",
                                   "short description",
                                   "image",
                                   "keywords"};
static_assert(std::size(fieldNames) == std::size(topicFields));

class LossFinder {
public:
    std::vector<FormatLoss> losses;

    void add(int topic, TextView part, TextView what) { losses.push_back({topic, part, what}); }

    void compare(int topic, TextView part, TextView text, bool isHtml) {
        if (text.find('"') != TextView::npos) {
            add(topic, part, "double quotes");
        }
        if (text::trim(text).size() != text.size()) {
            add(topic, part, "outer blanks");
        }
        const Text bytes = western_.encoded(text, text::Missing::reference).value;
        if (!isHtml && western_.decoded(bytes) != text) {
            add(topic, part, "letters");
        } else if (isHtml && western_.decodedHtml(bytes) != text) {
            add(topic, part, "references"); // some become letters, or the other way round
        }
    }

    // For visitOptions().
    void title(TextView text) { compare(0, nextPart(), text, true); }
    void html(TextView text) { compare(0, nextPart(), text, true); }
    void name(TextView text) { compare(0, nextPart(), text, false); }
    void flag(bool) {}
    void navigation(NavigationType) {}

private:
    /// The texts among the options, in their order.
    TextView nextPart() {
        constexpr TextView names[] = {"project name",  "style sheet",     "background image",
                                      "page template", "additional code", "copyright text"};
        return names[part_++];
    }

    text::CodePage western_;
    std::size_t part_ = 0;
};

} // namespace

std::vector<FormatLoss> lossesInFormatOne(const TopicOutline& outline,
                                          const ProjectOptions& options) {
    LossFinder finder;
    if (options.languageTag != text::defaultLanguage) {
        finder.add(0, "language", options.languageTag);
    }
    ProjectOptions others = options;
    setVariables(others, {});
    if (others.otherKeys != options.otherKeys) {
        finder.add(0, "head", "variables");
    }
    if (!others.otherKeys.empty()) {
        finder.add(0, "head", "unknown lines");
    }
    visitOptions(options, finder);
    int position = 0;
    for (const Topic& topic : outline) {
        ++position;
        for (std::size_t i = 0; i < std::size(topicFields); ++i) {
            const auto field = topicFields[i];
            finder.compare(position, fieldNames[i], topic.*field, isHtmlField(field));
        }
        finder.compare(position, bodyName, topic.body, true);
    }
    return std::move(finder.losses);
}

} // namespace model
