#include "host/platform/Cipher.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

#include "host/platform/Base64.h"
#include "host/platform/Files.h"
#include "tests/support/TemporaryFolder.h"

using zanhost::TSivCipher;
using zanrole::ECipherError;
namespace fs = std::filesystem;

namespace {

TSivCipher::TKey KeyOf(unsigned char first) {
  TSivCipher::TKey key{};
  for (std::size_t i = 0; i < key.size(); ++i) key[i] = static_cast<unsigned char>(first + i);
  return key;
}

}  // namespace

TEST(Cipher, GivesTheTextBack) {
  TSivCipher cipher(KeyOf(1));
  const std::vector<std::string> texts{"", "a", "admin:秘密 'x' \\ \U0001F511", std::string(5000, 'p')};
  for (const std::string& text : texts) EXPECT_EQ(cipher.Decrypt(cipher.Encrypt(text)), text);
}

TEST(Cipher, KeepsZeroBytes) {
  TSivCipher cipher(KeyOf(1));
  const std::string text("a\0b", 3);
  EXPECT_EQ(cipher.Decrypt(cipher.Encrypt(text)), text);
}

TEST(Cipher, EqualTextsGiveEqualCipherTexts) {
  TSivCipher cipher(KeyOf(1));
  EXPECT_EQ(cipher.Encrypt("admin:x"), cipher.Encrypt("admin:x"));
  EXPECT_NE(cipher.Encrypt("admin:x"), cipher.Encrypt("admin:y"));
}

TEST(Cipher, TextIsPrintableAndBearsTheFormat) {
  TSivCipher cipher(KeyOf(1));
  const std::string text = cipher.Encrypt("admin:x");
  EXPECT_TRUE(text.starts_with("zs1:"));
  EXPECT_EQ(text.find("admin"), std::string::npos);
  EXPECT_EQ(text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=:"),
            std::string::npos);
}

TEST(Cipher, RefusesTheTextOfAnotherKey) {
  TSivCipher mine(KeyOf(1));
  TSivCipher theirs(KeyOf(2));
  EXPECT_THROW(mine.Decrypt(theirs.Encrypt("admin:x")), ECipherError);
  EXPECT_THROW(mine.Decrypt(theirs.Encrypt("")), ECipherError);
}

TEST(Cipher, RefusesEveryTextThatWasChangedByOneBit) {
  TSivCipher cipher(KeyOf(1));
  const std::string text = cipher.Encrypt("u:p");
  const std::string bytes = zanhost::DecodeBase64(text.substr(4));
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    std::string changed = bytes;
    changed[i] = static_cast<char>(changed[i] ^ 1);
    EXPECT_THROW(cipher.Decrypt("zs1:" + zanhost::EncodeBase64(changed)), ECipherError) << i;
  }
}

TEST(Cipher, RefusesForeignTexts) {
  TSivCipher cipher(KeyOf(1));
  for (const char* text :
       {"", "secret", "zs1:", "zs1:AAAA", "zs1:not base64!", "zs2:AAAA", "zs1:AAAAAAAAAAAAAAAAAAAAAA=="})
    EXPECT_THROW(cipher.Decrypt(text), ECipherError) << text;
}

TEST(CipherKey, IsMadeOnFirstUseAndReadableByItsOwnerAlone) {
  const zantest::TTemporaryFolder folder;
  const fs::path file = zanhost::KeyFileOf(folder.Path());
  TSivCipher first(file);
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(zanhost::DecodeBase64(zanhost::ReadFile(file)).size(), TSivCipher::kKeySize);
  TSivCipher second(file);
  EXPECT_EQ(second.Decrypt(first.Encrypt("admin:x")), "admin:x");
}

TEST(CipherKey, DiffersBetweenInstallations) {
  const zantest::TTemporaryFolder one;
  const zantest::TTemporaryFolder other;
  EXPECT_NE(TSivCipher(one / "k").Encrypt("x"), TSivCipher(other / "k").Encrypt("x"));
}

TEST(CipherKey, IsRefusedWhenOthersMayReadIt) {
  const zantest::TTemporaryFolder folder;
  const fs::path file = folder / "k";
  TSivCipher made(file);
  for (const fs::perms open : {fs::perms::group_read, fs::perms::others_read, fs::perms::group_write}) {
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write | open);
    EXPECT_THROW(TSivCipher{file}, ECipherError);
  }
}

TEST(CipherKey, IsRefusedWhenDamaged) {
  const zantest::TTemporaryFolder folder;
  for (const char* text : {"", "AAAA", "no key"}) {
    zanhost::ReplacePrivateFile(folder / "k", text);
    EXPECT_THROW(TSivCipher{folder / "k"}, ECipherError) << text;
  }
}

TEST(CipherKey, FolderThatIsMissingIsSaidPlainly) {
  const zantest::TTemporaryFolder folder;
  EXPECT_THROW(TSivCipher{folder / "missing" / "k"}, ECipherError);
}

TEST(CipherKey, FirstUseByManyAtOnceGivesOneKey) {
  const zantest::TTemporaryFolder folder;
  std::vector<std::string> texts(8);
  std::vector<std::thread> users;
  for (std::string& text : texts)
    users.emplace_back([&text, &folder] { text = TSivCipher(folder / "k").Encrypt("x"); });
  for (std::thread& user : users) user.join();
  EXPECT_EQ(std::set<std::string>(texts.begin(), texts.end()).size(), 1U);
}
