#include "host/platform/Base64.h"

#include <openssl/evp.h>

#include <algorithm>
#include <limits>

#include "Frame/Host/Classes.h"

namespace zanhost {

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view kBlanks = " \t\r\n";

// The library counts in int.
constexpr std::size_t kLongestInput = static_cast<std::size_t>(std::numeric_limits<int>::max()) / 2;

const unsigned char* Bytes(std::string_view text) {
  return reinterpret_cast<const unsigned char*>(text.data());
}
unsigned char* Bytes(std::string& text) { return reinterpret_cast<unsigned char*>(text.data()); }

std::string WithoutBlanks(std::string_view text) {
  std::string dense;
  dense.reserve(text.size());
  std::copy_if(text.begin(), text.end(), std::back_inserter(dense),
               [](char c) { return kBlanks.find(c) == std::string_view::npos; });
  return dense;
}

// The library's decoder takes padding anywhere and tolerates what follows it, so the form is checked first.
std::size_t PaddingOf(std::string_view dense) {
  const std::size_t end = dense.find_first_not_of(kAlphabet);
  const std::size_t padding = end == std::string_view::npos ? 0 : dense.size() - end;
  const bool onlyPadding = padding == 0 || dense.substr(end) == std::string(padding, '=');
  if (dense.size() % 4 != 0 || padding > 2 || !onlyPadding)
    throw zanrole::EConvertError("The text is no base64.");
  return padding;
}

}  // namespace

std::string EncodeBase64(std::string_view bytes) {
  if (bytes.size() > kLongestInput) throw zanrole::EConvertError("The text is too long for base64.");
  // The library closes its text with a zero byte.
  std::string text(4 * ((bytes.size() + 2) / 3) + 1, '\0');
  const int length = EVP_EncodeBlock(Bytes(text), Bytes(bytes), static_cast<int>(bytes.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::string DecodeBase64(std::string_view text) {
  if (text.size() > kLongestInput) throw zanrole::EConvertError("The text is too long for base64.");
  const std::string dense = WithoutBlanks(text);
  const std::size_t padding = PaddingOf(dense);
  std::string bytes(dense.size() / 4 * 3, '\0');
  const int length = EVP_DecodeBlock(Bytes(bytes), Bytes(dense), static_cast<int>(dense.size()));
  if (length < 0) throw zanrole::EConvertError("The text is no base64.");
  bytes.resize(static_cast<std::size_t>(length) - padding);
  return bytes;
}

}  // namespace zanhost
