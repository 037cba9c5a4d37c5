#pragma once

#include <array>
#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Classes.h"
#include "host/platform/FileStamp.h"

namespace zanhost {

/// The questions about rights that a token may be given.
inline constexpr std::array<std::string_view, 4> kTokenQuestions{"menus", "denied", "rights", "holders"};

/// "*" in a list of a token: all that there are.
inline constexpr std::string_view kAnyName = "*";

/// What a token may ask. Names compare exactly; an empty list allows nothing.
struct TTokenScope {
  /// System functions by name. kAnyName is every function that pastes no text of the caller into a statement.
  std::vector<std::string> Functions;
  /// Of kTokenQuestions, or kAnyName.
  std::vector<std::string> Questions;
  /// Logins that may be asked about, or kAnyName.
  std::vector<std::string> Logins;

  /// `pastes`: the function pastes text of the caller into a statement, so it has to be named itself.
  bool AllowsFunction(std::string_view name, bool pastes) const;
  bool AllowsQuestion(std::string_view name) const;
  bool AllowsLogin(std::string_view login) const;
  bool AllowsAllLogins() const;
  /// The login of a token that may ask about this one alone: its caller need not name it.
  std::optional<std::string> OnlyLogin() const;
};

/// A bearer token without its secret. Times are whole seconds.
struct TBearerToken {
  /// 12 letters and digits; no secret.
  std::string Id;
  /// What people call it.
  std::string Name;
  /// HexDigestOf the whole text of the token. That is enough: 256 random bits cannot be guessed, so no slow
  /// hash is needed as for passwords.
  std::string SecretHash;
  std::chrono::system_clock::time_point Created;
  /// The first moment at which it is no longer valid.
  std::chrono::system_clock::time_point Expires;
  TTokenScope Scope;
  /// Requests in one second.
  unsigned PerSecond = 0;

  bool IsExpired(std::chrono::system_clock::time_point now) const { return now >= Expires; }
};

enum class TTokenVerdict {
  Valid,
  /// No token at all, an ID that nobody has, a wrong secret, or a token that was revoked: nobody learns
  /// which.
  Unknown,
  /// The secret is right, but its time is over.
  Expired
};

/// The tokens of the installation cannot be read, so no token lets anybody in.
class ETokensUnreadable : public zanrole::EZanError {
 public:
  ETokensUnreadable(const std::string& reason, bool isNews) : EZanError(reason), FIsNews(isNews) {}
  /// False when the last check raised the same: callers who try again and again shall not fill the log.
  bool IsNews() const { return FIsNews; }

 private:
  bool FIsNews;
};

/// The tokens of an installation as a server looks at them for each request. It notices on its own when they
/// change: what was revoked or added a moment ago counts. One thread at a time.
class TTokenBook {
 public:
  /// `folder`: of the installation. Nothing is read yet.
  explicit TTokenBook(std::filesystem::path folder) : FFolder(std::move(folder)) {}

  /// `text`: what the caller presents. Fills `found` unless the verdict is Unknown. Takes as long for an
  /// unknown ID as for a wrong secret. Raises ETokensUnreadable for as long as the tokens cannot be read; an
  /// installation without tokens is no fault.
  TTokenVerdict Check(std::string_view text, std::chrono::system_clock::time_point now, TBearerToken& found);

 private:
  void Refresh();
  void ReadAgain(const std::optional<TFileStamp>& stamp);

  std::filesystem::path FFolder;
  /// False when the stamp does not tell whether the tokens are those of the file.
  bool FIsCurrent = false;
  /// Of the file that was read; nothing when there was none.
  std::optional<TFileStamp> FStamp;
  std::map<std::string, TBearerToken, std::less<>> FTokens;
  /// What the last check raised; empty when it raised nothing.
  std::string FFault;
};

}  // namespace zanhost
