#include "host/platform/Cipher.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <algorithm>
#include <limits>
#include <memory>

#include "host/platform/Base64.h"
#include "host/platform/Files.h"

namespace zanhost {

namespace {

using zanrole::ECipherError;

constexpr std::string_view kFormatMark = "zs1:";
constexpr std::size_t kTagSize = 16;
// The library leaves an empty text without a tag, so a byte goes before each text.
constexpr char kFirstByte = 'T';

constexpr char kForeign[] = "The text was not enciphered by this installation.";

using TCipherPtr = std::unique_ptr<EVP_CIPHER, decltype(&EVP_CIPHER_free)>;
using TContextPtr = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;

const unsigned char* Bytes(std::string_view text) {
  return reinterpret_cast<const unsigned char*>(text.data());
}
unsigned char* Bytes(std::string& text) { return reinterpret_cast<unsigned char*>(text.data()); }

void Require(bool done) {
  if (!done) throw ECipherError("The cipher AES-256-SIV does not work here: check the installed OpenSSL.");
}

int Length(std::string_view text) {
  Require(text.size() < static_cast<std::size_t>(std::numeric_limits<int>::max()));
  return static_cast<int>(text.size());
}

enum class TDirection { Decrypt = 0, Encrypt = 1 };

// A context that has taken the key and, as associated data, the mark of the format.
class TSivContext {
 public:
  TSivContext(const TSivCipher::TKey& key, TDirection direction)
      : FCipher(EVP_CIPHER_fetch(nullptr, "AES-256-SIV", nullptr), &EVP_CIPHER_free),
        FContext(EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free) {
    Require(FCipher && FContext &&
            EVP_CipherInit_ex2(FContext.get(), FCipher.get(), key.data(), nullptr,
                               static_cast<int>(direction), nullptr) == 1);
  }

  void TakeFormatMark() {
    int length = 0;
    Require(EVP_CipherUpdate(FContext.get(), nullptr, &length, Bytes(kFormatMark), Length(kFormatMark)) == 1);
  }
  void SetTag(std::string tag) {
    Require(EVP_CIPHER_CTX_ctrl(FContext.get(), EVP_CTRL_AEAD_SET_TAG, static_cast<int>(kTagSize),
                                tag.data()) == 1);
  }
  std::string Tag() {
    std::string tag(kTagSize, '\0');
    Require(EVP_CIPHER_CTX_ctrl(FContext.get(), EVP_CTRL_AEAD_GET_TAG, static_cast<int>(kTagSize),
                                tag.data()) == 1);
    return tag;
  }
  // False when the text does not belong to the tag.
  bool Run(std::string_view in, std::string& out) {
    out.assign(in.size(), '\0');
    int length = 0;
    int rest = 0;
    return EVP_CipherUpdate(FContext.get(), Bytes(out), &length, Bytes(in), Length(in)) == 1 &&
           EVP_CipherFinal_ex(FContext.get(), Bytes(out) + length, &rest) == 1;
  }

 private:
  TCipherPtr FCipher;
  TContextPtr FContext;
};

std::string DecodeForeign(std::string_view text) {
  try {
    return DecodeBase64(text);
  } catch (const zanrole::EConvertError&) {
    throw ECipherError(kForeign);
  }
}

std::string RandomKeyText() {
  std::string key(TSivCipher::kKeySize, '\0');
  Require(RAND_priv_bytes(Bytes(key), Length(key)) == 1);
  std::string text = EncodeBase64(key) + "\n";
  OPENSSL_cleanse(key.data(), key.size());
  return text;
}

std::string ReadKeyText(const std::filesystem::path& keyFile) {
  if (!std::filesystem::exists(keyFile)) CreatePrivateFile(keyFile, RandomKeyText());
  if (IsOpenToOthers(keyFile))
    throw ECipherError("The key file " + keyFile.string() +
                       " is open to other accounts. Give it to its owner alone: chmod 600 " +
                       keyFile.string());
  return ReadFile(keyFile);
}

TSivCipher::TKey ReadKey(const std::filesystem::path& keyFile) {
  std::string bytes;
  try {
    bytes = DecodeBase64(ReadKeyText(keyFile));
  } catch (const std::filesystem::filesystem_error& fault) {
    throw ECipherError("The key file " + keyFile.string() + " " + fault.code().message() + ".");
  } catch (const zanrole::EConvertError&) {
    bytes.clear();
  }
  if (bytes.size() != TSivCipher::kKeySize)
    throw ECipherError("The key file " + keyFile.string() +
                       " is damaged. Put the installation's own key file back: passwords need it.");
  TSivCipher::TKey key;
  std::copy(bytes.begin(), bytes.end(), key.begin());
  OPENSSL_cleanse(bytes.data(), bytes.size());
  return key;
}

}  // namespace

TSivCipher::TSivCipher(const std::filesystem::path& keyFile) : TSivCipher(ReadKey(keyFile)) {}

TSivCipher::~TSivCipher() { OPENSSL_cleanse(FKey.data(), FKey.size()); }

std::string TSivCipher::Encrypt(std::string_view plain) {
  TSivContext context(FKey, TDirection::Encrypt);
  context.TakeFormatMark();
  std::string enciphered;
  Require(context.Run(kFirstByte + std::string(plain), enciphered));
  return std::string(kFormatMark) + EncodeBase64(context.Tag() + enciphered);
}

std::string TSivCipher::Decrypt(std::string_view cipher) {
  if (!cipher.starts_with(kFormatMark)) throw ECipherError(kForeign);
  const std::string bytes = DecodeForeign(cipher.substr(kFormatMark.size()));
  if (bytes.size() <= kTagSize) throw ECipherError(kForeign);
  TSivContext context(FKey, TDirection::Decrypt);
  context.SetTag(bytes.substr(0, kTagSize));
  context.TakeFormatMark();
  std::string plain;
  if (!context.Run(std::string_view(bytes).substr(kTagSize), plain)) throw ECipherError(kForeign);
  return plain.substr(1);
}

std::filesystem::path KeyFileOf(const std::filesystem::path& folder) { return folder / "zanrole.key"; }

}  // namespace zanhost
