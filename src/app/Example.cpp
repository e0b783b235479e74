#include "app/Example.h"

#include "model/PagePath.h"
#include "text/CodePage.h"

namespace app {

namespace {

struct ExampleTopic {
    int depth;
    const char* title;
    const char* contextId;
    const char* contextNumber;
    const char* keywords;
    const char* shortDescription;
    const char* body;
};

constexpr ExampleTopic topics[] = {
    {1, "Welcome to the Bakery", "IDH_WELCOME", "100", "welcome;bakery", "What this help is about",
     "<p>This is the help of a program that does not exist: the till of a small bakery. Change it "
     "as you like, and generate help of it to see what becomes of it.</p>\r\n"
     "<p>Begin with <a href='..\\html\\The First Sale.htm'>the first sale</a>.</p>"},
    {1, "Selling", "IDH_SELLING", "200", "selling", "What happens at the till",
     "<p>A sale begins when something is put into the basket, and ends with the receipt.</p>"},
    {2, "The First Sale", "IDH_FIRST_SALE", "210", "sale;basket", "Step by step",
     "<ol>\r\n<li>Press the key of a loaf.</li>\r\n<li>Press <b>Total</b>.</li>\r\n"
     "<li>Enter what the customer gives you.</li>\r\n</ol>"},
    {2, "Prices", "IDH_PRICES", "220", "prices;bread", "What things cost",
     "<table border=1 cellpadding=4>\r\n<tr><th>Bread</th><th>Price</th></tr>\r\n"
     "<tr><td>Rye</td><td>3.40</td></tr>\r\n<tr><td>Wheat</td><td>2.90</td></tr>\r\n</table>"},
    {3, "Discounts", "IDH_DISCOUNTS", "221", "prices, lower;discounts", "For yesterday's bread",
     "<p>What was baked yesterday costs half. See also "
     "<a href='..\\html\\Prices.htm'>Prices</a>.</p>"},
    {1, "When Something Goes Wrong", "IDH_TROUBLE", "900", "trouble", "Before you call us",
     "<p>Switch the till off and on again. Nothing that was sold is lost.</p>"},
};

} // namespace

model::TopicOutline exampleOutline() {
    model::TopicOutline outline;
    for (const ExampleTopic& each : topics) {
        model::Topic topic;
        topic.level = model::levelText(each.depth);
        topic.status = "N";
        topic.title = each.title;
        topic.fileName = model::pageNameFor(each.title, text::CodePage());
        topic.contextId = each.contextId;
        topic.contextNumber = each.contextNumber;
        topic.keywords = each.keywords;
        topic.shortDescription = each.shortDescription;
        topic.body = each.body;
        outline.append(std::move(topic));
    }
    return outline;
}

} // namespace app
