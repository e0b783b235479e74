#include "text/HtmlReader.h"

#include <gtest/gtest.h>

using namespace text;

namespace {

/// Texts as they stand, tags as "<name>" or "</name>".
Text pieces(TextView html) {
    Text all;
    HtmlReader reader(html);
    while (reader.next()) {
        const Text name = reader.lowerName();
        all +=
            reader.isText() ? Text(reader.text()) : (reader.closes(name) ? "</" : "<") + name + '>';
        all += '|';
    }
    return all;
}

Text attributeOf(TextView tag, TextView name) {
    HtmlReader reader(tag);
    return reader.next() && reader.attribute(name) ? Text(*reader.attribute(name)) : "none";
}

} // namespace

TEST(HtmlReader, TellsTextsFromTags) {
    EXPECT_EQ(pieces("a<B>b</b\n>c"), "a|<b>|b|</b>|c|");
    EXPECT_EQ(pieces("<!DOCTYPE x><br/>1 < 2 <- 3<"), "<!doctype>|<br>|1 |< 2 |<- 3|<|");
    EXPECT_EQ(pieces("a<!-- <b> > -->b<!-- open\nc"), "a|b|\nc|");
    EXPECT_EQ(pieces("<a title='1 > 0'>x<i title=\"open>y<u>"), "<a>|x|<i>|y|<u>|");
    EXPECT_EQ(pieces("<Script>if (a<b) '</b>'</SCRIPT>x"), "<script>|</script>|x|");
    EXPECT_EQ(pieces("<style>open<b>"), "<style>|open|<b>|");
    EXPECT_EQ(pieces(""), "");
}

TEST(HtmlReader, ReadsAttributes) {
    EXPECT_EQ(attributeOf("<a HREF='x y' name = n id=\"d\">", "href"), "x y");
    EXPECT_EQ(attributeOf("<a HREF='x y' name = n id=\"d\">", "name"), "n");
    EXPECT_EQ(attributeOf("<a HREF='x y' name = n id=\"d\">", "id"), "d");
    EXPECT_EQ(attributeOf("<a href=a=b/c.htm>", "href"), "a=b/c.htm");
    EXPECT_EQ(attributeOf("<a title='href=x' nohref>", "href"), "none");
    EXPECT_EQ(attributeOf("<a nohref>", "nohref"), "");
    EXPECT_EQ(attributeOf("<a href='open>", "href"), "'open");
    EXPECT_EQ(attributeOf("text", "href"), "none");
}

TEST(HtmlReader, ResolvesReferences) {
    EXPECT_EQ(resolvedReferences("&eacute;&#937; &lt;&amp;amp; &unknown; & &#xD800; &#0;"),
              "éΩ <&amp; &unknown; & &#xD800; &#0;");
}
