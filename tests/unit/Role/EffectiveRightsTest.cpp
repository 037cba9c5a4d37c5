#include "Role/EffectiveRights.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace zantest {
namespace {

using namespace zanrole;

TEST(EffectiveRights, FollowFromTheOwnRightAndThatOfTheRoles) {
  TEffectiveRights rights;
  rights.AddOwn(1, "打印", true);
  rights.AddOwn(2, "打印", true);
  rights.AddOfRoles(2, "打印", false);
  rights.AddOwn(3, "打印", false);
  rights.AddOfRoles(3, "打印", true);
  rights.AddOfRoles(4, "打印", true);
  EXPECT_EQ(rights.Find(1, "打印"), TSetRight::Allowed);
  EXPECT_EQ(rights.Find(2, "打印"), TSetRight::Denied);
  EXPECT_EQ(rights.Find(3, "打印"), TSetRight::Denied);
  EXPECT_EQ(rights.Find(4, "打印"), TSetRight::Allowed);
  EXPECT_EQ(rights.Find(5, "打印"), TSetRight::NotSet);
  EXPECT_EQ(rights.Find(1, "删除"), TSetRight::NotSet);
}

TEST(EffectiveRights, AreKeptApartByWhereTheyComeFrom) {
  TEffectiveRights rights;
  rights.AddOwn(1, "打印", true);
  rights.AddOfRoles(1, "打印", false);
  rights.AddOfRoles(2, "打印", true);
  EXPECT_EQ(rights.FindOwn(1, "打印"), TSetRight::Allowed);
  EXPECT_EQ(rights.FindOfRoles(1, "打印"), TSetRight::Denied);
  EXPECT_EQ(rights.FindOwn(2, "打印"), TSetRight::NotSet);
  EXPECT_EQ(rights.FindOfRoles(2, "打印"), TSetRight::Allowed);
  EXPECT_EQ(rights.FindOwn(3, "打印"), TSetRight::NotSet);
  EXPECT_EQ(rights.FindOfRoles(1, "删除"), TSetRight::NotSet);
}

TEST(EffectiveRights, TheFirstOfDoublesCounts) {
  TEffectiveRights rights;
  rights.AddOwn(1, "打印", true);
  rights.AddOwn(1, "打印", false);
  EXPECT_EQ(rights.Find(1, "打印"), TSetRight::Allowed);
}

TEST(EffectiveRights, ObjectZeroAndTheEmptyOperationAreAPairLikeAnyOther) {
  TEffectiveRights rights;
  EXPECT_EQ(rights.Find(0, ""), TSetRight::NotSet);
  rights.AddOwn(0, "", true);
  EXPECT_EQ(rights.Find(0, ""), TSetRight::Allowed);
  EXPECT_EQ(rights.Find(1, ""), TSetRight::NotSet);
  rights.Clear();
  EXPECT_EQ(rights.Find(0, ""), TSetRight::NotSet);
}

/// Words of every length up to 40, many of which have their ends in common.
std::vector<std::string> MakeWords() {
  std::vector<std::string> words;
  for (std::size_t length = 0; length <= 40; ++length) {
    words.push_back(std::string(length, 'a'));
    if (length > 0) words.push_back(std::string(length - 1, 'a') + "b");
    if (length > 18) words.push_back(std::string(length, 'a').replace(length / 2, 1, "b"));
  }
  return words;
}

TEST(EffectiveRights, AgreeWithAPlainTableOnAnyData) {
  const std::vector<std::string> words = MakeWords();
  std::mt19937 random(7);
  std::uniform_int_distribution<int> anyObject(-50, 300);
  std::uniform_int_distribution<std::size_t> anyWord(0, words.size() - 1);
  struct TPlain {
    TSetRight Own = TSetRight::NotSet;
    TSetRight OfRoles = TSetRight::NotSet;
  };
  std::map<std::pair<int, std::string>, TPlain> plain;
  TEffectiveRights rights;
  for (int i = 0; i < 20000; ++i) {
    if (i % 5000 == 0) rights.Reserve(random() % 10000);
    const int object = anyObject(random);
    const std::string& word = words[anyWord(random)];
    const bool allowed = random() % 3 != 0;
    const bool own = random() % 2 == 0;
    own ? rights.AddOwn(object, word, allowed) : rights.AddOfRoles(object, word, allowed);
    TPlain& pair = plain[{object, word}];
    TSetRight& right = own ? pair.Own : pair.OfRoles;
    if (right == TSetRight::NotSet) right = allowed ? TSetRight::Allowed : TSetRight::Denied;
  }
  for (int object = -60; object < 310; ++object) {
    for (const std::string& word : words) {
      const auto found = plain.find({object, word});
      const TPlain pair = found == plain.end() ? TPlain{} : found->second;
      ASSERT_EQ(rights.FindOwn(object, word), pair.Own) << object << " " << word;
      ASSERT_EQ(rights.FindOfRoles(object, word), pair.OfRoles) << object << " " << word;
      const bool roleDecides = pair.OfRoles == TSetRight::Denied || pair.Own == TSetRight::NotSet;
      ASSERT_EQ(rights.Find(object, word), roleDecides ? pair.OfRoles : pair.Own) << object << " " << word;
    }
  }
}

TEST(WordNumbers, EachWordHasOneNumberAndAnUnknownOneHasNone) {
  TWordNumbers numbers;
  EXPECT_EQ(numbers.Find("打印"), TWordNumbers::NoWord);
  std::vector<std::string> words = MakeWords();
  for (int i = 0; i < 1000; ++i) words.push_back("word " + std::to_string(i));
  std::map<std::uint32_t, std::string> wordOf;
  for (const std::string& word : words) wordOf[numbers.Add(word)] = word;
  EXPECT_EQ(wordOf.size(), words.size());
  for (const auto& [number, word] : wordOf) {
    EXPECT_EQ(numbers.Find(word), number);
    EXPECT_EQ(numbers.Add(word), number);
  }
  EXPECT_EQ(numbers.Find("Word 1"), TWordNumbers::NoWord);
  numbers.Clear();
  EXPECT_EQ(numbers.Find("word 1"), TWordNumbers::NoWord);
}

}  // namespace
}  // namespace zantest
