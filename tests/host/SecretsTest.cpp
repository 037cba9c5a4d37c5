#include "host/platform/Secrets.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>

using namespace zanhost;

TEST(Secrets, DigestIsThatOfTheStandard) {
  EXPECT_EQ(HexDigestOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(HexDigestOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(Secrets, SameOnlyWhenEverySignIs) {
  EXPECT_TRUE(SameSecret("", ""));
  EXPECT_TRUE(SameSecret("密", "密"));
  EXPECT_FALSE(SameSecret("a", "A"));
  EXPECT_FALSE(SameSecret("a", "a "));
  EXPECT_FALSE(SameSecret(std::string_view("a\0b", 3), "a"));
}

TEST(Secrets, RandomTextsHaveTheirLengthAndNeverRepeat) {
  for (const std::size_t length : {0U, 1U, 43U, 64U, 65U, 200U})
    EXPECT_EQ(RandomAlphanumerics(length).size(), length);
  std::set<std::string> texts;
  for (int i = 0; i < 1000; ++i) texts.insert(RandomAlphanumerics(12));
  EXPECT_EQ(texts.size(), 1000U);
}

TEST(Secrets, EachOfThe62SignsIsAsLikelyAsAnyOther) {
  constexpr std::size_t kDrawn = 620000;
  std::array<int, 256> counts{};
  for (const char c : RandomAlphanumerics(kDrawn)) ++counts[static_cast<unsigned char>(c)];
  int signs = 0;
  for (const int count : counts) {
    if (count == 0) continue;
    ++signs;
    // 10,000 are expected, with a standard deviation of 100. Without fairness some would be 12,100.
    EXPECT_NEAR(count, 10000, 800);
  }
  EXPECT_EQ(signs, 62);
}
