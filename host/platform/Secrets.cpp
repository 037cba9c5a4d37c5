#include "host/platform/Secrets.h"

#include <fmt/format.h>
#include <openssl/crypto.h>
#include <openssl/rand.h>
#include <openssl/sha.h>

#include <array>

#include "Frame/Host/Un_aes.h"

namespace zanhost {

namespace {

using TDigest = std::array<unsigned char, SHA256_DIGEST_LENGTH>;

constexpr std::string_view kAlphanumerics = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
// Bytes from here on are drawn again: they would favour the first signs.
constexpr std::size_t kFirstUnfairByte = 256 - 256 % kAlphanumerics.size();

TDigest DigestOf(std::string_view text) {
  TDigest digest;
  SHA256(reinterpret_cast<const unsigned char*>(text.data()), text.size(), digest.data());
  return digest;
}

}  // namespace

std::string HexDigestOf(std::string_view text) {
  std::string hex;
  for (const unsigned char byte : DigestOf(text)) fmt::format_to(std::back_inserter(hex), "{:02x}", byte);
  return hex;
}

// Digests are of one length, so the time tells nothing about the texts.
bool SameSecret(std::string_view a, std::string_view b) {
  const TDigest first = DigestOf(a);
  const TDigest second = DigestOf(b);
  return CRYPTO_memcmp(first.data(), second.data(), first.size()) == 0;
}

std::string RandomAlphanumerics(std::size_t length) {
  std::string text;
  std::array<unsigned char, 64> bytes{};
  while (text.size() < length) {
    if (RAND_priv_bytes(bytes.data(), static_cast<int>(bytes.size())) != 1)
      throw zanrole::ECipherError("The system gives no random numbers to make a secret of.");
    for (const unsigned char byte : bytes)
      if (byte < kFirstUnfairByte && text.size() < length)
        text += kAlphanumerics[byte % kAlphanumerics.size()];
  }
  return text;
}

}  // namespace zanhost
