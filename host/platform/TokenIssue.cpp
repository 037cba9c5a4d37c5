#include "host/platform/TokenIssue.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

#include "host/platform/Secrets.h"
#include "host/platform/TokenFile.h"
#include "host/platform/TokenText.h"

namespace zanhost {

namespace {

using TTime = std::chrono::system_clock::time_point;

void Require(bool isMet, const std::string& sentence) {
  if (!isMet) throw zanrole::EZanError(sentence);
}

void RequireGoodName(const std::string& name) {
  Require(!name.empty(), "A token needs a name.");
  Require(name.size() <= kLongestTokenName,
          fmt::format("The name of a token has at most {} bytes.", kLongestTokenName));
}

void RequireGoodExpiry(TTime expires, TTime now) {
  Require(expires > now, "A token cannot expire in the past.");
  Require(expires <= now + kLongestTokenLife,
          fmt::format("A token expires within {} years.", kLongestTokenLife.count()));
}

void RequireQuestion(const std::string& name) {
  const bool exists = name == kAnyName || std::ranges::find(kTokenQuestions, name) != kTokenQuestions.end();
  Require(exists, fmt::format("There is no question '{}'; there are {} and * for all of them.", name,
                              fmt::join(kTokenQuestions, ", ")));
}

void RequireGoodScope(const TTokenScope& scope) {
  Require(!scope.Functions.empty() || !scope.Questions.empty(),
          "A token needs functions or questions that it may ask.");
  Require(!scope.Logins.empty(), "A token needs logins that it may ask about; * is all of them.");
  for (const std::vector<std::string>* const names : {&scope.Functions, &scope.Questions, &scope.Logins})
    Require(std::ranges::find(*names, "") == names->end(),
            "No function, question or login has an empty name.");
  for (const std::string& question : scope.Questions) RequireQuestion(question);
}

const TBearerToken* FindInForce(const std::vector<TBearerToken>& tokens, std::string_view name, TTime now) {
  const auto found = std::ranges::find_if(
      tokens, [&](const TBearerToken& token) { return token.Name == name && !token.IsExpired(now); });
  return found != tokens.end() ? &*found : nullptr;
}

const TBearerToken* FindById(const std::vector<TBearerToken>& tokens, std::string_view id) {
  const auto found = std::ranges::find(tokens, id, &TBearerToken::Id);
  return found != tokens.end() ? &*found : nullptr;
}

TNewToken MakeToken(const TTokenRequest& request, TTime now) {
  TNewToken made;
  made.Text = NewTokenText();
  made.Token.Id = TokenIdOf(made.Text);
  made.Token.Name = request.Name;
  made.Token.SecretHash = HexDigestOf(made.Text);
  made.Token.Created = std::chrono::floor<std::chrono::seconds>(now);
  made.Token.Expires = std::chrono::floor<std::chrono::seconds>(request.Expires);
  made.Token.Scope = request.Scope;
  made.Token.PerSecond = request.PerSecond;
  return made;
}

}  // namespace

TNewToken AddToken(const std::filesystem::path& folder, const TTokenRequest& request, TTime now) {
  RequireGoodName(request.Name);
  RequireGoodExpiry(request.Expires, now);
  RequireGoodScope(request.Scope);
  TNewToken made = MakeToken(request, now);
  ChangeTokens(folder, [&](std::vector<TBearerToken>& tokens) {
    Require(FindInForce(tokens, request.Name, now) == nullptr,
            fmt::format("A token in force has the name '{}' already.", request.Name));
    tokens.push_back(made.Token);
  });
  return made;
}

TBearerToken FindToken(const std::filesystem::path& folder, std::string_view wanted, TTime now) {
  const std::vector<TBearerToken> tokens = ReadTokens(folder);
  const std::string_view idOfText = TokenIdOf(wanted);
  const TBearerToken* token = FindById(tokens, idOfText.empty() ? wanted : idOfText);
  if (token == nullptr) token = FindInForce(tokens, wanted, now);
  if (token == nullptr)
    throw zanrole::EZanError(
        fmt::format("There is no token with the ID '{}' and none in force with that name.", wanted));
  return *token;
}

void RevokeToken(const std::filesystem::path& folder, std::string_view id) {
  ChangeTokens(folder, [id](std::vector<TBearerToken>& tokens) {
    std::erase_if(tokens, [id](const TBearerToken& token) { return token.Id == id; });
  });
}

}  // namespace zanhost
