#include "import/HelpImport.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "import/HelpBodies.h"
#include "import/ImportOutcome.h"
#include "model/FormatLoss.h"
#include "model/Helper.h"
#include "model/PagePath.h"
#include "model/ProjectFormat.h"
#include "platform/Files.h"
#include "text/Path.h"

namespace importer {

using model::Project;
using model::Topic;
using text::Text;
using text::TextView;

namespace {

class HelpImporter {
public:
    HelpImporter(Project& project, const HelpSource& source, const HelpPlan& plan,
                 const HelpImportChoice& choice)
        : project_(project), source_(source), choice_(choice), isNew_(project.outline().empty()),
          files_(source, platform::fullPath(project.projectPath()).parent_path()) {
        first_ = firstPosition();
        chooseTopics(plan);
        for (const Text& text : source.notes) {
            note(text);
            outcome_.isWhole = false;
        }
        for (const Text& text : plan.notes) {
            note(text);
        }
    }

    HelpImportOutcome run() {
        const model::UndoStep step(project_, "Import Help");
        if (isNew_) {
            takeLanguage();
        }
        nameFiles();
        HelpBodies bodies(source_, files_, topics_);
        bodies.make(choice_.leavesOutRepeated && source_.hasNavigation);
        setKeywords(bodies);
        setContexts();
        if (isNew_) {
            takeOptions(bodies);
        }
        insert(bodies);
        tellAll(bodies);
        return std::move(outcome_);
    }

private:
    void note(Text text, int position = 0) {
        outcome_.notes.push_back({std::move(text), position});
    }

    /// Behind all that lies in the topic below which they go.
    int firstPosition() const {
        const model::TopicOutline& outline = project_.outline();
        int position = choice_.under > 0 ? choice_.under + 1 : outline.count() + 1;
        while (position <= outline.count()
               && outline.depth(position) > outline.depth(choice_.under)) {
            ++position;
        }
        return position;
    }

    /// Depths are those of the topics that come in; one that lies in none of them is at the top.
    void chooseTopics(const HelpPlan& plan) {
        const int room = model::TopicOutline::maxTopics - project_.outline().count();
        const int base = choice_.under > 0 ? project_.outline().depth(choice_.under) : 0;
        std::vector<std::pair<int, int>> above; // depths in the plan and in the outline
        std::size_t flattened = 0;
        for (const PlannedTopic& planned : plan.topics) {
            while (!above.empty() && above.back().first >= planned.depth) {
                above.pop_back();
            }
            if (!planned.isWanted) {
                continue;
            }
            if (static_cast<int>(topics_.size()) >= room) {
                ++outcome_.leftOut;
                continue;
            }
            const int depth = (above.empty() ? base : above.back().second) + 1;
            flattened += depth > model::maxDepth ? 1 : 0;
            above.emplace_back(planned.depth, depth);
            Topic topic;
            topic.level = model::levelText(std::min(depth, model::maxDepth));
            topic.status = "N";
            topic.title = htmlFromText(planned.title);
            topic.image = planned.image;
            topics_.push_back({&planned, std::move(topic)});
        }
        if (flattened > 0) {
            note(counted(flattened, "topic") + " below level 9 came in at level 9");
        }
    }

    void takeLanguage() {
        const auto all = text::languages();
        const auto known = std::find_if(all.begin(), all.end(), [this](const text::Language& each) {
            return each.id == source_.language;
        });
        if (known != all.end()) {
            model::ProjectOptions options = project_.options();
            options.languageTag = known->tag;
            project_.setOptions(std::move(options));
        } else if (source_.language != 0) {
            note("The language of the help is not known; the project has kept its own");
        }
    }

    void takeOptions(HelpBodies& bodies) {
        model::ProjectOptions options = project_.options();
        if (options.projectName.empty()) {
            options.projectName = htmlFromText(source_.title);
        }
        if (options.cssFile.empty()) {
            options.cssFile = bodies.styleSheet();
        }
        if (options.backgroundImage.empty()) {
            options.backgroundImage = bodies.background();
        }
        project_.setOptions(std::move(options));
    }

    /// Pages keep their names, as far as these can be told apart in one folder.
    void nameFiles() {
        const text::CodePage codePage = project_.options().codePage();
        std::unordered_set<Text> used;
        for (const Topic& topic : project_.outline()) {
            used.insert(model::pageKey(topic.fileName));
        }
        for (ImportedTopic& each : topics_) {
            const Text& page = each.planned->page;
            Text name = page.substr(page.rfind('/') + 1);
            const bool isUsable = !page.empty() && each.planned->anchor.empty()
                                  && model::pageNameFault(name).empty() && codePage.hasAll(name);
            if (!isUsable) {
                name = model::pageNameFor(each.planned->title, codePage);
            }
            if (!model::pageNameFault(name).empty()) { // a title like "CON"
                name = "Topic.htm";
            }
            each.topic.fileName = freeName(name, used);
        }
    }

    static Text freeName(const Text& name, std::unordered_set<Text>& used) {
        const std::size_t point = std::min(name.rfind('.'), name.size());
        Text free = name;
        for (int i = 2; !used.insert(model::pageKey(free)).second; ++i) {
            free = name.substr(0, point) + ' ' + std::to_string(i) + name.substr(point);
        }
        return free;
    }

    /// Those of the page first, in its order; then those of the index.
    void setKeywords(const HelpBodies& bodies) {
        std::vector<std::unordered_set<Text>> known(topics_.size());
        std::size_t divided = 0;
        const auto add = [&](std::size_t index, Text keyword) {
            if (keyword.find(';') != Text::npos && plainText(keyword).find(';') != Text::npos) {
                std::replace(keyword.begin(), keyword.end(), ';', ',');
                ++divided;
            }
            if (keyword.empty()
                || !known[index].insert(text::lowerCase(plainText(keyword))).second) {
                return;
            }
            Text& keywords = topics_[index].topic.keywords;
            text::append(keywords, keywords.empty() ? "" : "; ", keyword);
        };
        for (std::size_t i = 0; i < topics_.size(); ++i) {
            for (const Text& keyword : bodies.keywords(i)) {
                add(i, keyword);
            }
        }
        for (const SourceKeyword& each : source_.keywords) {
            if (const auto topic = bodies.topicAt(each.page)) {
                add(*topic, htmlFromText(each.keyword));
            }
        }
        if (divided > 0) {
            note(counted(divided, "keyword") + " with semicolons came in with commas");
        }
    }

    void setContexts() {
        std::unordered_set<Text> names;
        std::unordered_set<Text> numbers;
        for (const Topic& topic : project_.outline()) {
            names.insert(text::lowerCase(topic.contextId));
            numbers.insert(topic.contextNumber);
        }
        std::unordered_map<Text, std::size_t> places;
        for (std::size_t i = 0; i < topics_.size(); ++i) {
            if (!topics_[i].planned->page.empty()) {
                places.try_emplace(
                    pathKey(topics_[i].planned->page + '#' + topics_[i].planned->anchor), i);
                places.try_emplace(pathKey(topics_[i].planned->page), i);
            }
        }
        for (const SourceContext& context : source_.contexts) {
            setContext(context, places, names, numbers);
        }
    }

    void setContext(const SourceContext& context,
                    const std::unordered_map<Text, std::size_t>& places,
                    std::unordered_set<Text>& names, std::unordered_set<Text>& numbers) {
        const Text number = std::to_string(context.number);
        const Text shown = context.name.empty() ? "Context " + number : "Context " + context.name;
        const auto path = source_.find(withoutAnchor(context.page));
        auto place =
            path ? places.find(pathKey(*path + '#' + Text(anchorOf(context.page)))) : places.end();
        place = path && place == places.end() ? places.find(pathKey(*path)) : place;
        if (place == places.end()) {
            if (!path) {
                note(shown + " leads to no page and was left out");
            } // otherwise its page was not wanted
            return;
        }
        Topic& topic = topics_[place->second].topic;
        const bool isSecond = !topic.contextNumber.empty();
        if (isSecond || !numbers.insert(number).second) {
            note(shown + " was left out: "
                     + (isSecond
                            ? "a topic has one context, and this one has " + topic.contextNumber
                            : "the number is another topic's"),
                 first_ + static_cast<int>(place->second));
            outcome_.isWhole = false;
            return;
        }
        const text::CodePage codePage = project_.options().codePage();
        const Text base =
            context.name.empty()
                ? model::makeContextId(topics_[place->second].planned->title, codePage)
                : context.name;
        topic.contextId = base;
        for (int i = 2; !names.insert(text::lowerCase(topic.contextId)).second; ++i) {
            topic.contextId = base + '_' + std::to_string(i);
        }
        topic.contextNumber = number;
    }

    void insert(HelpBodies& bodies) {
        for (std::size_t i = 0; i < topics_.size(); ++i) {
            topics_[i].topic.shortDescription = bodies.description(i);
            topics_[i].topic.body = bodies.take(i);
        }
        keepQuotes();
        for (ImportedTopic& each : topics_) {
            project_.insertTopic(first_ + outcome_.topicsAdded, std::move(each.topic));
            ++outcome_.topicsAdded;
        }
        if (outcome_.topicsAdded > 0) {
            project_.markChanged(model::projectChanged);
        }
        ensureCurrent(project_);
    }

    /// The first format of a project file has no double quotes: a new project gets the other one
    /// where it is needed, in any other they are written in another way.
    void keepQuotes() {
        if (model::formatFor(project_.options()) != model::ProjectFormat::one && !isNew_) {
            return;
        }
        model::TopicOutline outline;
        for (const ImportedTopic& each : topics_) {
            outline.append(each.topic);
        }
        if (model::lossesInFormatOne(outline, project_.options()).empty()) {
            return;
        }
        if (isNew_) {
            model::ProjectOptions options = project_.options();
            options.keepsEveryCharacter = true;
            project_.setOptions(std::move(options));
            return;
        }
        for (ImportedTopic& each : topics_) {
            for (Text Topic::*field :
                 {&Topic::body, &Topic::title, &Topic::keywords, &Topic::shortDescription}) {
                each.topic.*field = withoutDoubleQuotes(each.topic.*field);
            }
        }
    }

    void tellAll(const HelpBodies& bodies) {
        for (const BodyNote& each : bodies.notes()) {
            note(each.text, first_ + static_cast<int>(each.topic));
            outcome_.isWhole = outcome_.isWhole && !each.isLoss;
        }
        if (bodies.shortened() > 0) {
            note("Headers, footers and navigation that most pages have were left out of "
                 + counted(bodies.shortened(), "page"));
        }
        for (const SourceNote& each : source_.pageNotes) {
            if (const auto topic = bodies.topicAt(each.page)) {
                note(each.text, first_ + static_cast<int>(*topic));
                outcome_.isWhole = false;
            }
        }
        tellHome();
        outcome_.failures = files_.failures();
        outcome_.filesWritten = files_.written();
        outcome_.isWhole = outcome_.isWhole && outcome_.failures.empty() && outcome_.leftOut == 0;
    }

    void tellHome() {
        const auto home =
            source_.homePage.empty() ? std::nullopt : source_.find(withoutAnchor(source_.homePage));
        for (std::size_t i = 0; home && i < topics_.size(); ++i) {
            if (topics_[i].planned->page == *home) {
                if (i > 0 && isNew_) {
                    note("is the default page of the help; that of ours is the first topic",
                         first_ + static_cast<int>(i));
                }
                return;
            }
        }
    }

    Project& project_;
    const HelpSource& source_;
    const HelpImportChoice& choice_;
    bool isNew_; ///< the project had no topics
    HelpFiles files_;
    std::vector<ImportedTopic> topics_;
    int first_ = 1; ///< the position of the first new topic
    HelpImportOutcome outcome_;
};

} // namespace

HelpImportOutcome importHelp(Project& project, const HelpSource& source, const HelpPlan& plan,
                             const HelpImportChoice& choice) {
    return HelpImporter(project, source, plan, choice).run();
}

Text summary(const HelpImportOutcome& outcome) {
    Text text = counted(static_cast<std::size_t>(outcome.topicsAdded), "topic");
    text.front() = text::upperCase(text.substr(0, 1)).front();
    text::append(text, " and ", counted(outcome.filesWritten, "file"), " imported");
    if (outcome.leftOut > 0) {
        text::append(text, ", ", counted(static_cast<std::size_t>(outcome.leftOut), "topic"),
                     " left out (a project holds ", std::to_string(model::TopicOutline::maxTopics),
                     ")");
    }
    if (!outcome.failures.empty()) {
        text::append(text, ", ", counted(outcome.failures.size(), "file"), " left out");
    }
    return text;
}

Text lineOf(const HelpNote& note, const model::TopicOutline& outline) {
    if (note.position < 1 || note.position > outline.count()) {
        return note.text;
    }
    return "Topic " + std::to_string(note.position) + " (" + outline.at(note.position).title
           + "): " + note.text;
}

Text report(const HelpImportOutcome& outcome, const model::TopicOutline& outline) {
    Text text;
    text::appendLine(text, summary(outcome));
    text::appendLine(text);
    for (const HelpNote& note : outcome.notes) {
        text::appendLine(text, text::oneLine(lineOf(note, outline)));
    }
    appendLines(text, outcome.failures);
    return text;
}

} // namespace importer
