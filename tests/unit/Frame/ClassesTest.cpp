#include "Frame/Host/Classes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using namespace zanrole;

std::vector<std::string> CommaPieces(std::string_view text) {
  TStringList list;
  list.SetCommaText(text);
  return {list.begin(), list.end()};
}

TEST(StringList, GivesBackExactlyTheTextThatWasSet) {
  for (const char* text : {"", "a", "a\nb", "a\r\nb", "a\r\n", "\r\n", "x\ry\n\r\nz"}) {
    TStringList list;
    list.SetText(text);
    EXPECT_EQ(list.Text(), text);
  }
}

TEST(StringList, ATextThatWasSetIsOneOfLinesLikeAnyOther) {
  TStringList list;
  list.SetText("a\r\nb\nc\r\n");
  const TStringList copy = list;
  EXPECT_EQ(list.Count(), 3);
  EXPECT_EQ(list[1], "b\nc");
  EXPECT_EQ(copy[2], "");
  EXPECT_EQ(copy.Text(), "a\r\nb\nc\r\n");
  list.SetText("a\r\nb");
  list.Add("c");
  EXPECT_EQ(list.Text(), "a\r\nb\r\nc");
  list.SetText("a\r\nb");
  list.Delete(0);
  EXPECT_EQ(list.Text(), "b");
  list.SetText("a=1\r\nb=2");
  list.SetValue("b", "3");
  EXPECT_EQ(list.Text(), "a=1\r\nb=3");
  list.SetText("");
  EXPECT_EQ(list.Count(), 0);
}

TEST(StringList, ItsTextFollowsEveryChange) {
  TStringList list;
  EXPECT_EQ(list.Text(), "");
  list.Add("b");
  EXPECT_EQ(list.Text(), "b");
  list.Insert(0, "a");
  EXPECT_EQ(list.Text(), "a\r\nb");
  list.SetValue("c", "1");
  EXPECT_EQ(list.Text(), "a\r\nb\r\nc=1");
  list.Delete(1);
  EXPECT_EQ(list.Text(), "a\r\nc=1");
  list.SetCommaText("d,e");
  EXPECT_EQ(list.Text(), "d\r\ne");
  list.SetText("f\r\ng");
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(list.Text(), "f\r\ng");
  list.Clear();
  EXPECT_EQ(list.Text(), "");
  list.Add("");
  EXPECT_EQ(list.Text(), "");
  EXPECT_EQ(list.Count(), 1);
}

TEST(StringList, GivesOneTextUntilItChanges) {
  TStringList list;
  list.Add("a");
  list.Add("b");
  const std::string& text = list.Text();
  EXPECT_EQ(list[1], "b");
  EXPECT_EQ(&list.Text(), &text);
  EXPECT_EQ(text, "a\r\nb");
}

TEST(StringList, EachChangeIsSeenByItsRevision) {
  TStringList list;
  unsigned before = list.Revision();
  const auto hasGrown = [&] {
    const unsigned earlier = std::exchange(before, list.Revision());
    return earlier < before;
  };
  list.SetText("a\r\nb");
  EXPECT_TRUE(hasGrown());
  EXPECT_EQ(list[0], "a");
  EXPECT_FALSE(hasGrown());
  list.Insert(0, "c");
  EXPECT_TRUE(hasGrown());
  list.Clear();
  EXPECT_TRUE(hasGrown());
}

TEST(StringList, ACommaTextSplitsAtCommasAndBlanks) {
  EXPECT_THAT(CommaPieces("Own, Auth"), ElementsAre("Own", "Auth"));
  EXPECT_THAT(CommaPieces("所属域 域范围,创建域"), ElementsAre("所属域", "域范围", "创建域"));
  EXPECT_THAT(CommaPieces("\"a, \"\"b\"\"\",c"), ElementsAre("a, \"b\"", "c"));
  EXPECT_THAT(CommaPieces("a,,b,"), ElementsAre("a", "", "b", ""));
  EXPECT_THAT(CommaPieces(""), ElementsAre());
  EXPECT_THAT(CommaPieces("\"\",\"open, to the end"), ElementsAre("", "open, to the end"));
}

TEST(StringList, FindsWithoutRegardToCase) {
  TStringList list;
  list.SetCommaText("own,AUTH");
  EXPECT_EQ(list.IndexOf("Auth"), 1);
  EXPECT_EQ(list.IndexOf("Current"), TStringList::NotFound);
}

TEST(StringList, KeepsNamedValues) {
  TStringList list;
  list.SetValue("UsingIntranet", "false");
  list.SetValue("usingintranet", "a=b");
  EXPECT_EQ(list.Count(), 1);
  EXPECT_EQ(list.Values("UsingIntranet"), "a=b");
  EXPECT_EQ(list.Values("UserToken"), "");
}

TEST(QuotedStr, DoublesQuotesAndNothingElse) {
  EXPECT_EQ(QuotedStr(R"(O'Neil \ "𠮷")"), R"('O''Neil \ "𠮷"')");
}

TEST(StringReplace, FoldsCaseOnRequest) {
  EXPECT_EQ(StringReplace("ISNULL(a) isnull(b)", "IsNull(", "nvl(", true), "nvl(a) nvl(b)");
  EXPECT_EQ(StringReplace("ISNULL(a)", "IsNull(", "nvl("), "ISNULL(a)");
  EXPECT_EQ(StringReplace("aaa", "aa", "b"), "ba");
}

TEST(DateTime, ReadsBackWhatItWrites) {
  EXPECT_EQ(DateTimeToText(TextToDateTime("2024-02-29 23:59:58")), "2024-02-29 23:59:58");
  EXPECT_EQ(DateTimeToText(TextToDateTime("2024-02-29")), "2024-02-29 00:00:00");
  EXPECT_EQ(DateTimeToText(TextToDateTime("2024-02-29T01:02:03.5")), "2024-02-29 01:02:03");
}

TEST(DateTime, RefusesWhatIsNone) {
  for (const char* text : {"", "2023-02-29", "2024-13-01", "2024-01-01 24:00:00", "2024-01-01 x", "20240101"})
    EXPECT_THROW(TextToDateTime(text), EConvertError) << text;
}

TEST(StrToBool, TakesTheWordsInAnyCaseAndNumbers) {
  EXPECT_TRUE(StrToBool("True"));
  EXPECT_TRUE(StrToBool("-1"));
  EXPECT_FALSE(StrToBool("FALSE"));
  EXPECT_FALSE(StrToBool("0"));
  EXPECT_TRUE(StrToBool("0.5"));
  for (const char* text : {"是", "yes", "1x", " 1", "nan", "inf", "1e999"})
    EXPECT_THROW(StrToBool(text), EConvertError) << text;
  EXPECT_THROW(StrToBool(""), EConvertError);
}

TEST(StrToInt, TakesTheWholeTextOrRaises) {
  EXPECT_EQ(StrToInt(" -42 "), -42);
  EXPECT_THROW(StrToInt("42x"), EConvertError);
  EXPECT_THROW(StrToInt("99999999999"), EConvertError);
  EXPECT_EQ(StrToIntDef("", -1), -1);
}

}  // namespace
}  // namespace zantest
