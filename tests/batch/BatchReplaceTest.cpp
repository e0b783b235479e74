#include "batch/BatchFixture.h"

using namespace batch;

namespace {

class BatchReplace : public test::Batch {
protected:
    std::string path = save("p.tsp", test::outlineOf({test::topic(1, "Caf\u00E9", "a.htm", "<p>x"),
                                                      test::topic(1, "B", "b.htm",
                                                                  "<p>caf\u00E9\r\n<a "
                                                                  "href='A.htm#x'>")}));
    std::string before = test::bytesOf(path);

    model::Topic topic(int position) {
        return test::parsed(test::bytesOf(path)).outline.at(position);
    }
};

} // namespace

TEST_F(BatchReplace, ReplacesAndListsThePlaces) {
    const std::string places = "1\ttitle\t1\tCaf\u00E9\n2\tbody\t1\t<p>caf\u00E9\n";
    EXPECT_EQ(run({"replace", path, "CAF\u00C9", "bar", "--dry-run"}), exitDone);
    EXPECT_EQ(output, places);
    EXPECT_EQ(test::bytesOf(path), before);
    EXPECT_EQ(run({"replace", path, "(caf).", "$1\u00E8", "--expression"}), exitDone);
    EXPECT_EQ(output, places);
    EXPECT_EQ(topic(1).title + topic(1).status, "Caf\u00E8C");
    EXPECT_EQ(topic(2).body, "<p>caf\u00E8\r\n<a href='A.htm#x'>");
    EXPECT_EQ(run({"replace", path, "p", "P", "--match-case", "--visible", "--in=body,title"}),
              exitFailed);
    EXPECT_EQ(output + errors, "") << "nothing to be seen";
    EXPECT_EQ(run({"replace", path, "c", "k", "--whole-words"}), exitFailed);
    for (const Arguments& wrong : {Arguments{"replace", path, "", "x"},
                                   {"replace", path, "(", "x", "--expression"},
                                   {"replace", path, "x", "$1", "--expression"},
                                   {"replace", path, "x", "y", "--in=bodies"}}) {
        EXPECT_EQ(run(wrong), exitUsage) << errors;
    }
}

TEST_F(BatchReplace, RenamesAPageWithItsLinks) {
    const std::string links = "2\tbody\t2\tA.htm#x\tn\u00E9.htm#x\n";
    EXPECT_EQ(run({"rename", path, "A.HTM", "n\u00E9.htm", "--dry-run"}), exitDone);
    EXPECT_EQ(output, links);
    EXPECT_EQ(test::bytesOf(path), before);
    EXPECT_EQ(run({"rename", path, "A.HTM", "n\u00E9.htm"}), exitDone);
    EXPECT_EQ(output, links);
    EXPECT_EQ(topic(1).fileName + topic(1).status, "n\u00E9.htmC");
    EXPECT_EQ(topic(2).body + topic(2).status, "<p>caf\u00E9\r\n<a href='n\u00E9.htm#x'>C");
    before = test::bytesOf(path);
    for (const char* wrong : {"B.htm", "../x.htm", ""}) {
        EXPECT_EQ(run({"rename", path, "n\u00E9.htm", wrong}), exitFailed);
    }
    EXPECT_EQ(run({"rename", path, "a.htm", "x.htm"}), exitFailed);
    EXPECT_NE(errors.find("no topic has the page a.htm"), std::string::npos);
    EXPECT_EQ(test::bytesOf(path), before);
}
