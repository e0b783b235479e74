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
    const auto* known =
        std::find_if(std::begin(statusMeanings), std::end(statusMeanings),
                     [&text](const StatusMeaning& status) { return text == status.letter; });
    return known == std::end(statusMeanings) ? Text() : known->meaning;
}

int OutlineRows::indent(int row, int column) const {
    const bool isTitle = topicColumn(column).field == &Topic::title;
    return isTitle ? ui::indentOfLevel(project_.outline().depth(row)) : -1;
}

} // namespace app
