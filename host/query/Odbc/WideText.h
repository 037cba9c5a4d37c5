#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <boost/locale/encoding_utf.hpp>
#include <string>
#include <string_view>

namespace zanhost {

// Texts pass between host and driver in UTF-16, the one encoding that every driver takes without a setting.

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

inline std::u16string ToWide(std::string_view text) {
  return boost::locale::conv::utf_to_utf<char16_t>(text.data(), text.data() + text.size());
}

inline std::string FromWide(std::u16string_view text) {
  return boost::locale::conv::utf_to_utf<char>(text.data(), text.data() + text.size());
}

/// For arguments of calls; drivers do not write to what they only read.
inline SQLWCHAR* WideArgument(const std::u16string& text) {
  return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text.data()));
}

}  // namespace zanhost
