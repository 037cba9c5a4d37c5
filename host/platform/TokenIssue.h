#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "host/platform/Tokens.h"

namespace zanhost {

/// Bytes of UTF-8 that the name of a token may have.
inline constexpr std::size_t kLongestTokenName = 100;

inline constexpr std::chrono::years kLongestTokenLife{5};

/// What somebody wants of a new token. The names of functions and logins are not looked up.
struct TTokenRequest {
  std::string Name;
  std::chrono::system_clock::time_point Expires;
  TTokenScope Scope;
  unsigned PerSecond = 100;
};

struct TNewToken {
  TBearerToken Token;
  /// What its holder presents. It is kept nowhere.
  std::string Text;
};

/// Makes a token and keeps it with its hash. Raises EZanError, with a sentence for a person, for a request
/// that is not granted: a name that is empty, too long, or borne by a token in force; an expiry that is not
/// after `now` or later than kLongestTokenLife; a scope without functions and questions, without logins, with
/// a question that there is not, or with an empty name.
TNewToken AddToken(const std::filesystem::path& folder, const TTokenRequest& request,
                   std::chrono::system_clock::time_point now);

/// The token that a person means: by its ID, by its name when it is in force, or by its whole text. Raises
/// EZanError when there is none.
TBearerToken FindToken(const std::filesystem::path& folder, std::string_view wanted,
                       std::chrono::system_clock::time_point now);

/// Forgets the token with this ID; it lets nobody in from then on. No fault when there is none.
void RevokeToken(const std::filesystem::path& folder, std::string_view id);

}  // namespace zanhost
