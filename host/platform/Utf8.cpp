#include "host/platform/Utf8.h"

#include <boost/locale/utf.hpp>

namespace zanhost {

namespace {

using TUtf8 = boost::locale::utf::utf_traits<char>;
using boost::locale::utf::is_valid_codepoint;

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// The first byte that is no part of UTF-8; the end when there is none.
const char* FirstInvalid(const char* at, const char* end) {
  while (at != end) {
    const char* const character = at;
    if (!is_valid_codepoint(TUtf8::decode(at, end))) return character;
  }
  return end;
}

}  // namespace

bool IsPlainText(std::string_view text) {
  for (const char* at = text.data(); at != text.data() + text.size();) {
    const boost::locale::utf::code_point point = TUtf8::decode(at, text.data() + text.size());
    if (!is_valid_codepoint(point) || point < ' ' || point == '\x7f') return false;
  }
  return true;
}

std::string ValidUtf8(std::string text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  const char* invalid = FirstInvalid(at, end);
  if (invalid == end) return text;
  std::string valid;
  for (; invalid != end; invalid = FirstInvalid(at, end)) {
    valid.append(at, invalid).append(kReplacement);
    at = invalid + 1;
  }
  return valid.append(at, end);
}

}  // namespace zanhost
