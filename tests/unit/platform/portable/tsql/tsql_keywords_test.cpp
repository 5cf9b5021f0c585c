#include "platform/portable/tsql/tsql_keywords.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(TsqlKeywords, FindsFirstAndLastWordOfALetter) {
    EXPECT_EQ(keyword_of("add"), Keyword::reserved);
    EXPECT_EQ(keyword_of("AUTHORIZATION"), Keyword::reserved);
    EXPECT_EQ(keyword_of("Where"), Keyword::where);
    EXPECT_EQ(keyword_of("writetext"), Keyword::reserved);
}

TEST(TsqlKeywords, TakesSimilarWordsForNames) {
    for (const char* name :
         {"", "_select", "selec", "selectx", "dcTable", "zeit", "#select", "ärger", "pragma"})
        EXPECT_EQ(keyword_of(name), Keyword::none) << name;
}

}  // namespace
}  // namespace prot
