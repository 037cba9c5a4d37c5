#include "host/platform/Resources.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "tests/host/SourceTexts.h"
#include "tests/support/SourceTree.h"

using zanhost::TResources;
using zantest::LiteralsOf;
using zantest::SourceTree;

namespace {

// Words of the sample company and of statements are data of the tables, not texts of the program.
const std::vector<std::string> kDataFiles = {"Sample"};

std::vector<zantest::TSourceText> TextsOfTheProgram() {
  auto texts = zantest::ChineseTextsBelow(SourceTree() / "src", kDataFiles);
  for (auto& text : zantest::ChineseTextsBelow(SourceTree() / "host", kDataFiles))
    texts.push_back(std::move(text));
  return texts;
}

std::string PlaceholdersOf(const std::string& text) {
  static const std::regex placeholder("%[sd%]");
  std::string found;
  for (std::sregex_iterator at(text.begin(), text.end(), placeholder), end; at != end; ++at)
    found += at->str();
  return found;
}

std::string English(const std::string& key) {
  static TResources resources;
  resources.SetLanguage("en");
  return resources.resD(key, "Party.dll", "PartyFunc");
}

}  // namespace

TEST(Resources, EveryChineseTextOfTheProgramHasItsEnglish) {
  const auto texts = TextsOfTheProgram();
  EXPECT_GT(texts.size(), 20U);
  for (const auto& text : texts)
    EXPECT_NE(English(text.Text), text.Text) << text.Place << ": add this text to host/platform/po/en.po";
}

TEST(Resources, EnglishHoldsNoChineseAndTheSamePlaceholders) {
  for (const auto& text : TextsOfTheProgram()) {
    const std::string english = English(text.Text);
    EXPECT_FALSE(english != text.Text && zantest::IsChinese(english)) << text.Place << ": " << english;
    EXPECT_EQ(PlaceholdersOf(english), PlaceholdersOf(text.Text)) << text.Place << ": " << english;
  }
}

TEST(Resources, ChineseIsTheKeyItself) {
  TResources resources;
  EXPECT_EQ(resources.Language(), "zh");
  EXPECT_EQ(resources.resS("系统提示"), "系统提示");
}

TEST(Resources, LanguageIsSwitchedForwardsAndBack) {
  TResources resources;
  resources.SetLanguage("en");
  EXPECT_EQ(resources.resS("系统提示"), "System message");
  EXPECT_EQ(resources.res("系统提示", "Global"), "System message");
  EXPECT_EQ(resources.resD("系统提示", "Party.dll", "PartyFunc"), "System message");
  resources.SetLanguage("zh");
  EXPECT_EQ(resources.resS("系统提示"), "系统提示");
}

TEST(Resources, LookupWithoutAnEntryGivesTheKey) {
  TResources resources;
  resources.SetLanguage("en");
  EXPECT_EQ(resources.resS("没有这个文本的翻译"), "没有这个文本的翻译");
  EXPECT_EQ(resources.resD("no such text %s", "", ""), "no such text %s");
  EXPECT_EQ(resources.resS(""), "");
}

TEST(Resources, UnknownLanguageIsRefusedAndChangesNothing) {
  TResources resources;
  EXPECT_THROW(resources.SetLanguage("de"), zanrole::EZanError);
  EXPECT_EQ(resources.Language(), "zh");
}

// The extractor itself: what it overlooks would never be missed above.
TEST(SourceTexts, FindsLiteralsAndJoinsTheirPieces) {
  const auto texts = LiteralsOf(
      "// \"no\"\n/* \"no\" */ f(\"一\"\n  \"二\\r\\n\\\"\", 'x', '\"', R\"(三\\n)\");\ng(\"四\");", "f");
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_EQ(texts[0].Text, "一二\r\n\"");
  EXPECT_EQ(texts[0].Place, "f:2");
  EXPECT_EQ(texts[1].Text, "三\\n");
  EXPECT_EQ(texts[2].Text, "四");
}

TEST(SourceTexts, TellsStatementsFromTexts) {
  EXPECT_TRUE(zantest::IsStatement("Select Objectid Where oprate='执行'"));
  EXPECT_FALSE(zantest::IsStatement("请选择域"));
  EXPECT_TRUE(zantest::IsChinese("！"));
  EXPECT_FALSE(zantest::IsChinese("naïve — “x”"));
}
