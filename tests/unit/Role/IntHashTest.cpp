#include "Role/IntHash.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace zantest {
namespace {

using testing::ElementsAre;
using namespace zanrole;

using TPairs = std::vector<std::pair<int, std::string>>;

TPairs Pairs(TIntHash<std::string>& hash) {
  TPairs pairs;
  hash.Foreach([](TPairs& to, int key, const std::string& value) { to.emplace_back(key, value); }, pairs);
  return pairs;
}

TEST(IntHash, ASizeBelowOneMeans5471Buckets) {
  EXPECT_EQ(TIntHash<int>(0).HashOf(5471 + 3), 3u);
  EXPECT_EQ(TIntHash<int>(-7).HashOf(5470), 5470u);
  EXPECT_EQ(TIntHash<int>(10).HashOf(13), 3u);
}

TEST(IntHash, TheHashIsTheAbsoluteValueOfTheKeyWithinTheSize) {
  const TIntHash<int> hash(10);
  EXPECT_EQ(hash.HashOf(-13), 3u);
  EXPECT_EQ(hash.HashOf(0), 0u);
  EXPECT_EQ(hash.HashOf(std::numeric_limits<int>::min()), 8u);
}

TEST(IntHash, ValueOfGivesTheValueOfTheKeyOrNothing) {
  TIntHash<std::string> hash(10);
  hash.Add(3, "three");
  hash.Add(13, "thirteen");
  hash.Add(-3, "minus three");
  EXPECT_EQ(*hash.ValueOf(3), "three");
  EXPECT_EQ(*hash.ValueOf(13), "thirteen");
  EXPECT_EQ(*hash.ValueOf(-3), "minus three");
  EXPECT_EQ(hash.ValueOf(23), nullptr);
}

TEST(IntHash, ALaterValueHidesAnEarlierOneOfTheSameKey) {
  TIntHash<std::string> hash(10);
  hash.Add(3, "older");
  hash.Add(3, "later");
  EXPECT_EQ(*hash.ValueOf(3), "later");
  EXPECT_THAT(Pairs(hash), ElementsAre(std::pair(3, "later"), std::pair(3, "older")));
}

TEST(IntHash, ForeachGoesBucketAfterBucketAndInOrderOfTheChain) {
  TIntHash<std::string> hash(10);
  hash.Add(5, "a");
  hash.Add(11, "b");
  hash.Add(1, "c");
  EXPECT_THAT(Pairs(hash), ElementsAre(std::pair(1, "c"), std::pair(11, "b"), std::pair(5, "a")));
}

TEST(IntHash, AValueMayBeChangedInItsPlace) {
  TIntHash<int> hash(0);
  hash.Add(3, 1);
  *hash.ValueOf(3) = 2;
  EXPECT_EQ(*hash.ValueOf(3), 2);
}

TEST(IntHash, ClearTellsOfEachElementAndFreesIt) {
  TIntHash<std::string> hash(10);
  TPairs deleted;
  hash.FOnDelete = [&](int key, std::string& value) { deleted.emplace_back(key, value); };
  hash.Add(3, "a");
  hash.Add(13, "b");
  hash.Clear();
  EXPECT_THAT(deleted, ElementsAre(std::pair(13, "b"), std::pair(3, "a")));
  EXPECT_EQ(hash.ValueOf(3), nullptr);
  hash.Clear();
  EXPECT_EQ(deleted.size(), 2u);
}

TEST(IntHash, ItsEndClearsIt) {
  int deleted = 0;
  {
    TIntHash<int> hash(1);
    hash.FOnDelete = [&](int, int&) { ++deleted; };
    // One chain, so long that freeing it node within node would exhaust the stack.
    for (int i = 0; i < 300000; ++i) hash.Add(i, i);
  }
  EXPECT_EQ(deleted, 300000);
}

}  // namespace
}  // namespace zantest
