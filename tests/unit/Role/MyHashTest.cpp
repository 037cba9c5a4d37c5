#include "Role/MyHash.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zantest {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace zanrole;

/// Puts each element into the bucket that it names.
class TNumberedHash : public TMyHash {
 public:
  TNumberedHash() {
    FHashPro = [](const void* element) { return *static_cast<const int*>(element); };
  }
};

std::vector<const void*> Elements(const TMyHash& hash, int bucket) {
  const auto elements = hash.Bucket(bucket);
  return {elements.begin(), elements.end()};
}

TEST(MyHash, ReducesToTheLowTwelveBitsAndKeepsTheSign) {
  EXPECT_EQ(TMyHash::Reduce(5), 5);
  EXPECT_EQ(TMyHash::Reduce(4095), 4095);
  EXPECT_EQ(TMyHash::Reduce(4096), 0);
  EXPECT_EQ(TMyHash::Reduce(3 * 4096 + 7), 7);
  EXPECT_EQ(TMyHash::Reduce(-5), -5);
  EXPECT_EQ(TMyHash::Reduce(-4096), 0);
  EXPECT_EQ(TMyHash::Reduce(-4097), -1);
}

TEST(MyHash, ANegativeHashHasAPlaceAmongTheBucketsToo) {
  EXPECT_EQ(TMyHash::BucketOf(-1), 4095);
  EXPECT_EQ(TMyHash::BucketOf(-4095), 1);
  EXPECT_EQ(TMyHash::BucketOf(0), 0);
  TNumberedHash hash;
  int element = -1;
  hash.Add(&element);
  EXPECT_THAT(Elements(hash, 4095), ElementsAre(&element));
}

TEST(MyHash, ABucketHoldsItsElementsInTheOrderOfAdding) {
  TNumberedHash hash;
  int first = 7;
  int second = 7;
  int third = 7;
  hash.Add(&second);
  EXPECT_THAT(Elements(hash, 7), ElementsAre(&second));
  hash.Add(&first);
  hash.Add(&third);
  EXPECT_THAT(Elements(hash, 7), ElementsAre(&second, &first, &third));
  EXPECT_THAT(Elements(hash, 8), IsEmpty());
}

TEST(MyHash, AddDoesNotLookForDoubles) {
  TNumberedHash hash;
  int element = 7;
  hash.Add(&element);
  hash.Add(&element);
  EXPECT_THAT(Elements(hash, 7), ElementsAre(&element, &element));
}

TEST(MyHash, FindComparesPointers) {
  TNumberedHash hash;
  int element = 7;
  int equal = 7;
  hash.Add(&element);
  EXPECT_TRUE(hash.Find(&element));
  EXPECT_FALSE(hash.Find(&equal));
}

TEST(MyHash, WithoutAMethodThePointerItselfIsHashed) {
  TMyHash hash;
  const std::vector<int> elements(10000);
  for (const int& element : elements) hash.Add(const_cast<int*>(&element));
  for (const int& element : elements) ASSERT_TRUE(hash.Find(&element));
  const int other = 0;
  EXPECT_FALSE(hash.Find(&other));
}

TEST(MyHash, ClearForgetsAllElementsAndLeavesThemAsTheyAre) {
  TNumberedHash hash;
  int element = 7;
  int other = 7;
  hash.Add(&element);
  hash.Add(&other);
  hash.Clear();
  EXPECT_FALSE(hash.Find(&element));
  EXPECT_THAT(Elements(hash, 7), IsEmpty());
  hash.Add(&other);
  EXPECT_THAT(Elements(hash, 7), ElementsAre(&other));
  EXPECT_EQ(element, 7);
}

}  // namespace
}  // namespace zantest
