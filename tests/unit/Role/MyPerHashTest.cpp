#include "Role/MyPerHash.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace zantest {
namespace {

using namespace zanrole;

TRightDef RightOf(int objectID, std::string oprate, std::string right = "允许") {
  return {objectID, std::move(oprate), false, std::move(right)};
}

/// What FindData answers, found the plain way: through the bucket of the pair, in the order of adding.
const TRightDef* Walk(const TMyPerHash& hash, int objectID, std::string_view oprate) {
  for (const void* element : hash.Bucket(TMyHash::BucketOf(TMyPerHash::CalcHashPro(objectID, oprate)))) {
    const auto* right = static_cast<const TRightDef*>(element);
    if (right->Oprate == oprate && right->ObjectID == objectID) return right;
  }
  return nullptr;
}

TEST(MyPerHash, TheHashIsTheObjectWithin256PlusTheSumOfTheUnitsOfTheOperation) {
  EXPECT_EQ(TMyPerHash::CalcHashPro(0, ""), 0);
  EXPECT_EQ(TMyPerHash::CalcHashPro(1, "A"), 1 + 0x41);
  EXPECT_EQ(TMyPerHash::CalcHashPro(256 + 1, "A"), 1 + 0x41);
  EXPECT_EQ(TMyPerHash::CalcHashPro(5, "é"), 5 + 0xE9);
  // 执 is U+6267, 行 is U+884C.
  EXPECT_EQ(TMyPerHash::CalcHashPro(5, "执行"), (5 + 0x6267 + 0x884C) % 4096);
}

TEST(MyPerHash, ACharacterBeyondTheFirstPlaneCountsAsItsTwoUnits) {
  EXPECT_EQ(TMyPerHash::CalcHashPro(0, "😀"), (0xD83D + 0xDE00) % 4096);
}

TEST(MyPerHash, TheRemainderOfANegativeObjectKeepsItsSign) {
  EXPECT_EQ(TMyPerHash::CalcHashPro(-1, ""), -1);
  EXPECT_EQ(TMyPerHash::CalcHashPro(-257, ""), -1);
  EXPECT_EQ(TMyPerHash::CalcHashPro(-1, "A"), 0x40);
}

TEST(MyPerHash, HashesAnElementByItsTwoFields) {
  const TRightDef right = RightOf(100, "打印");
  EXPECT_EQ(TMyPerHash::PerHashPro(&right), TMyPerHash::CalcHashPro(100, "打印"));
}

TEST(MyPerHash, ObjectsThatDifferByAMultipleOf256FallIntoOneBucketAndAreToldApart) {
  TMyPerHash hash;
  const TRightDef& one = hash.Add(RightOf(3, "执行", "允许"));
  const TRightDef& other = hash.Add(RightOf(3 + 5 * 256, "执行", "禁止"));
  EXPECT_EQ(TMyPerHash::PerHashPro(&one), TMyPerHash::PerHashPro(&other));
  EXPECT_EQ(hash.FindData(3, "执行"), &one);
  EXPECT_EQ(hash.FindData(3 + 5 * 256, "执行"), &other);
  EXPECT_EQ(hash.FindData(3 + 256, "执行"), nullptr);
}

TEST(MyPerHash, ASecondAddOfAPairDoesNotReplaceTheOlderIsFound) {
  TMyPerHash hash;
  const TRightDef& older = hash.Add(RightOf(3, "执行", "允许"));
  hash.Add(RightOf(3, "执行", "禁止"));
  EXPECT_EQ(hash.FindData(3, "执行"), &older);
}

TEST(MyPerHash, OperationsCompareExactly) {
  TMyPerHash hash;
  hash.Add(RightOf(3, "Print"));
  EXPECT_NE(hash.FindData(3, "Print"), nullptr);
  EXPECT_EQ(hash.FindData(3, "print"), nullptr);
  EXPECT_EQ(hash.FindData(3, "Print "), nullptr);
  EXPECT_EQ(hash.FindData(3, ""), nullptr);
}

TEST(MyPerHash, AnEmptyTableFindsNothing) {
  const TMyPerHash hash;
  EXPECT_EQ(hash.FindData(0, ""), nullptr);
}

TEST(MyPerHash, ClearEmptiesTheBucketsAndTheIndex) {
  TMyPerHash hash;
  const TRightDef* right = &hash.Add(RightOf(3, "执行"));
  EXPECT_TRUE(hash.Find(right));
  hash.Clear();
  EXPECT_FALSE(hash.Find(right));
  EXPECT_EQ(hash.FindData(3, "执行"), nullptr);
  hash.Add(RightOf(3, "执行", "禁止"));
  EXPECT_EQ(hash.FindData(3, "执行")->ExcRight, "禁止");
}

TEST(MyPerHash, ElementsKeepTheirPlaceAsMoreAreAdded) {
  TMyPerHash hash;
  const TRightDef* first = &hash.Add(RightOf(1, "执行"));
  for (int object = 2; object < 5000; ++object) hash.Add(RightOf(object, "执行"));
  EXPECT_EQ(hash.FindData(1, "执行"), first);
  EXPECT_EQ(first->ObjectID, 1);
}

/// FindData has an index of its own; the buckets tell what it must answer.
TEST(MyPerHash, TheIndexAnswersAsTheWalkThroughTheBucketsOnAnyData) {
  const std::vector<std::string> words{"",         "执行",      "打印",
                                       "列表预览", "Excel导出", "print",
                                       "Print",    "打印 ",     "a very long word, longer than any"};
  for (const unsigned seed : {1u, 2u, 3u, 4u, 5u}) {
    std::mt19937 random(seed);
    // Few objects give many doubles, many objects long buckets.
    std::uniform_int_distribution<int> anyObject(-40, seed * 1000 - 1000 + 40);
    std::uniform_int_distribution<std::size_t> anyWord(0, words.size() - 1);
    TMyPerHash hash;
    for (int i = 0; i < 3000; ++i) {
      hash.Add(RightOf(anyObject(random), words[anyWord(random)], std::to_string(i)));
      const int object = anyObject(random);
      const std::string& word = words[anyWord(random)];
      ASSERT_EQ(hash.FindData(object, word), Walk(hash, object, word)) << seed << ": " << object << word;
    }
    for (int object = -45; object < 5050; ++object)
      for (const std::string& word : words)
        ASSERT_EQ(hash.FindData(object, word), Walk(hash, object, word)) << seed << ": " << object << word;
  }
}

}  // namespace
}  // namespace zantest
