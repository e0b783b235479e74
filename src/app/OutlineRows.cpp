#include "app/OutlineRows.h"

#include <algorithm>
#include <array>

namespace app {

using model::Topic;
using text::Text;

namespace {

struct TopicColumn {
    const char* caption;
    int width; // twips
    Text Topic::*field;
};

constexpr TopicColumn topicColumns[] = {
    {"Level", 1350, &Topic::level},
    {"Chg", 600, &Topic::status},
    {"Topic Title", 2850, &Topic::title},
    {"Topic Filename", 2250, &Topic::fileName},
    {"HelpCont ID", 1950, &Topic::contextId},
    {"HelpCont #", 1200, &Topic::contextNumber},
    {"Short Description", 2400, &Topic::shortDescription},
    {"Image", 1050, &Topic::image},
    {"Keywords", 2400, &Topic::keywords},
};

struct StatusMeaning {
    const char* letter;
    const char* meaning;
};

constexpr StatusMeaning statusMeanings[] = {
    {"C", "C: changed since help was last generated"},
    {"N", "N: new since help was last generated"},
    {"E", "E: empty, the topic has no text yet"},
    {"S", "S: text taken back from its page"},
    {"M", "M: moved since help was last generated"},
};

const TopicColumn& topicColumn(int column) {
    return topicColumns[static_cast<std::size_t>(column)];
}

Text allMeanings() {
    Text text = "What has happened to the topic:";
    for (const StatusMeaning& status : statusMeanings) {
        text::append(text, "\n", status.meaning);
    }
    return text;
}

} // namespace

std::vector<ui::Column> OutlineRows::columns() {
    std::vector<ui::Column> columns;
    for (const TopicColumn& column : topicColumns) {
        columns.push_back({column.caption, column.width,
                           column.field == &Topic::status ? allMeanings() : Text()});
    }
    return columns;
}

Text OutlineRows::cell(int row, int column) const {
    return project_.outline().at(row).*topicColumn(column).field;
}

Text OutlineRows::toolTip(int row, int column) const {
    const auto field = topicColumn(column).field;
    const Text& text = project_.outline().at(row).*field;
    if (field != &Topic::status) {
        return text;
    }
    const Text problems = signs_.problems(row);
    const auto* known =
        std::find_if(std::begin(statusMeanings), std::end(statusMeanings),
                     [&text](const StatusMeaning& status) { return text == status.letter; });
    Text tip = known == std::end(statusMeanings) ? Text() : known->meaning;
    text::append(tip, tip.empty() || problems.empty() ? "" : "\n", problems);
    return tip;
}

OutlineRows::Field OutlineRows::field(int column) {
    return topicColumn(column).field;
}

std::vector<int> OutlineRows::editableColumns() {
    return {2, 3, 4, 5, 6, 7, 8}; // all but the level and what the program notes
}

std::vector<int> OutlineRows::fillColumns() {
    return {titleColumn, 6, 8};
}

text::TextView OutlineRows::undoName(int column) {
    constexpr text::TextView names[] = {"",
                                        "",
                                        "Edit Topic Title",
                                        "Edit Topic Filename",
                                        "Edit HelpCont ID",
                                        "Edit HelpCont #",
                                        "Edit Short Description",
                                        "Edit Image",
                                        "Edit Keywords"};
    return names[static_cast<std::size_t>(column)];
}

/// As in the fields below the list.
bool OutlineRows::accepts(int column, const Text& text) const {
    const Field field = topicColumn(column).field;
    if (field == &Topic::contextNumber) {
        return text.find_first_not_of("0123456789.") == Text::npos;
    }
    return (field != &Topic::fileName && field != &Topic::contextId)
           || project_.options().codePage().hasAll(text);
}

std::vector<Text> OutlineRows::choices(int column) const {
    return topicColumn(column).field == &Topic::image
               ? std::vector<Text>{"Auto", "New", "Leaf", "New Leaf"}
               : std::vector<Text>();
}

int OutlineRows::possibleShift(int row, int levels) const {
    const model::TopicOutline& outline = project_.outline();
    const int depth = outline.depth(row);
    const int below = row > 1 ? std::min(outline.depth(row - 1) + 1, model::maxDepth) : depth;
    return std::clamp(depth + levels, 1, std::max(depth, below)) - depth;
}

std::optional<bool> OutlineRows::folded(int row) const {
    return folds_.hasBelow(row) ? std::optional(folds_.isFolded(row)) : std::nullopt;
}

bool OutlineRows::hasSign(int row, int column) const {
    return topicColumn(column).field == &Topic::status && !signs_.problems(row).empty();
}

int OutlineRows::indent(int row, int column) const {
    const bool isTitle = topicColumn(column).field == &Topic::title;
    return isTitle ? ui::indentOfLevel(project_.outline().depth(row)) : -1;
}

} // namespace app
