#include "host/platform/Utf8.h"

#include <gtest/gtest.h>

namespace {

using zanhost::IsPlainText;
using zanhost::ValidUtf8;

TEST(Utf8, TextsAreLeftAsTheyAre) {
  EXPECT_EQ(ValidUtf8(""), "");
  EXPECT_EQ(ValidUtf8("a\n 部门 \xF0\x9F\x98\x80"), "a\n 部门 \xF0\x9F\x98\x80");
}

TEST(Utf8, EachByteThatIsNoPartOfATextIsReplaced) {
  EXPECT_EQ(ValidUtf8("a\xFF"
                      "b"),
            "a\xEF\xBF\xBD"
            "b");
  // Cut within a character, as columns that count bytes do.
  EXPECT_EQ(ValidUtf8("部\xE9\x97"), "部\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(ValidUtf8("\xC0\xAF"), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, PlainTextHasNoControlCharacters) {
  EXPECT_TRUE(IsPlainText("部门 a'b"));
  EXPECT_FALSE(IsPlainText("a\nb"));
  EXPECT_FALSE(IsPlainText(std::string_view("a\0b", 3)));
  EXPECT_FALSE(IsPlainText("\xE9\x97"));
}

}  // namespace
