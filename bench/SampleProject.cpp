#include "SampleProject.h"

#include <string>

namespace bench {
namespace {

using text::Text;

Text sampleBody(int number, std::size_t size) {
    Text body;
    body.reserve(size + 200);
    for (int line = 1; body.size() < size; ++line) {
        text::appendLine(body, "<p>Line ", std::to_string(line), " of topic ",
                         std::to_string(number),
                         ", with <b>bold</b> words, commas and a caf\u00E9's worth of text.");
        if (line % 10 == 0) {
            text::appendLine(body, R"(See <a href='..\html\topic1.htm'>the start</a> and )",
                             "<a href='https://example.org/'>the web</a>.");
        }
        if (line % 30 == 0) {
            text::appendLine(body, R"(<img src='..\images\picture.jpg' border=0>)");
        }
    }
    return body;
}

} // namespace

model::TopicOutline sampleOutline(int topics, std::size_t bodySize) {
    model::TopicOutline outline;
    for (int i = 1; i <= topics; ++i) {
        const Text number = std::to_string(i);
        model::Topic topic;
        topic.level = model::levelText(i % 25 == 1 ? 1 : i % 5 == 1 ? 2 : 3);
        topic.title = "Topic " + number;
        topic.fileName = "topic" + number + "x.htm";
        topic.contextId = "IDH_TOPIC_" + number;
        topic.contextNumber = number;
        topic.shortDescription = "what topic " + number + " is about";
        topic.keywords = "topic " + number + "; sample";
        topic.body = sampleBody(i, bodySize);
        outline.append(std::move(topic));
    }
    return outline;
}

model::ProjectOptions sampleOptions() {
    model::ProjectOptions options;
    options.projectName = "Sample";
    options.navigationType = model::NavigationType::graphicButtons;
    options.navigationButtons.fill(true);
    return options;
}

} // namespace bench
