#include "host/query/Odbc/Url.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "Frame/Host/Zandbs.h"
#include "host/query/Redaction.h"
#include "host/query/UrlParts.h"

namespace zanhost {

namespace {

constexpr std::string_view kScheme = "odbc:";
constexpr std::string_view kForm =
    "Write odbc:DSN=NAME;UID=USER;PWD=PASSWORD?data=NAME&system=NAME, or DRIVER=… and SERVER=… in the place "
    "of DSN=…";

[[noreturn]] void Refuse(const std::string& what) {
  throw zanrole::EDatabaseError(fmt::format("The data URL {}. {}.", what, kForm), {});
}

/// One attribute of a connection string. The views point into it.
struct TAttribute {
  std::string_view Name;
  std::string_view Value;  ///< as written, with its braces
  bool HasValue = false;   ///< has a "="
};

/// Position of the brace that closes the one at `open`, npos without one. A doubled one stands for itself.
std::size_t ClosingBrace(std::string_view text, std::size_t open) {
  for (std::size_t at = open + 1; at < text.size(); ++at) {
    if (text[at] != '}') continue;
    if (at + 1 == text.size() || text[at + 1] != '}') return at;
    ++at;
  }
  return std::string_view::npos;
}

/// Position of the first `sign` outside braces, or the end. Braces begin a value, so they follow a "=".
std::size_t FindOutsideBraces(std::string_view text, char sign) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '{' && at > 0 && text[at - 1] == '=') {
      at = ClosingBrace(text, at);
      if (at == std::string_view::npos) return text.size();
    } else if (text[at] == sign) {
      return at;
    }
  }
  return text.size();
}

std::vector<TAttribute> AttributesOf(std::string_view connection) {
  std::vector<TAttribute> attributes;
  while (!connection.empty()) {
    const std::size_t end = FindOutsideBraces(connection, ';');
    TAttribute attribute{connection.substr(0, end), {}};
    connection.remove_prefix(std::min(end + 1, connection.size()));
    attribute.HasValue = attribute.Name.find('=') != std::string_view::npos;
    attribute.Value = CutBehind(attribute.Name, '=');
    if (!attribute.Name.empty() || attribute.HasValue) attributes.push_back(attribute);
  }
  return attributes;
}

std::string WithoutBraces(std::string_view value) {
  if (!value.starts_with('{') || !value.ends_with('}') || value.size() < 2) return std::string(value);
  return zanrole::StringReplace(value.substr(1, value.size() - 2), "}}", "}");
}

std::string InBraces(std::string_view value) { return "{" + zanrole::StringReplace(value, "}", "}}") + "}"; }

/// The value of the first of these attributes that is there.
std::string ValueOf(std::string_view connection, std::initializer_list<std::string_view> names) {
  for (const std::string_view name : names)
    for (const TAttribute& attribute : AttributesOf(connection))
      if (zanrole::SameText(attribute.Name, name)) return WithoutBraces(attribute.Value);
  return {};
}

/// The names of secrets differ by driver.
bool IsSecret(std::string_view name) {
  static constexpr std::array<std::string_view, 5> kParts{"pwd", "pass", "secret", "token", "key"};
  const std::string lower = zanrole::LowerCase(name);
  return std::any_of(kParts.begin(), kParts.end(),
                     [&](std::string_view part) { return lower.find(part) != std::string::npos; });
}

bool IsOption(std::string_view name) {
  return name == "data" || name == "system" || name == "folder" || name == "passwordfile";
}

void TakeOption(TOdbcUrl& url, const std::string& name, const std::string& value) {
  if (name == "data") {
    url.Data = value;
  } else if (name == "system") {
    url.System = value;
  } else if (name == "folder") {
    url.Folder = value;
  } else if (name == "passwordfile") {
    url.Password = PasswordOfFile(value);
    url.Connection += ";PWD=" + InBraces(url.Password);
  } else {
    // The option is not named: it may be the rest of a password that holds a question mark.
    Refuse(
        "has an option that is not known; known are data, system, folder and passwordfile (put a value of "
        "the connection that holds a ? between { and })");
  }
}

/// "?name=value&…" with what is no option hidden: a password that holds a "?" ends there.
std::string ShownOptions(std::string_view options) {
  std::string shown;
  while (!options.empty()) {
    const char sign = options.front();
    options.remove_prefix(1);
    const std::string_view option = options.substr(0, options.find('&'));
    options.remove_prefix(option.size());
    const bool known = IsOption(option.substr(0, option.find('=')));
    shown += sign;
    shown += known ? option : kHidden;
  }
  return shown;
}

std::string Decoded(std::string_view text) {
  std::optional<std::string> decoded = DecodedUrlPart(text);
  if (!decoded) Refuse("has a % that two hexadecimal digits do not follow (a % itself is written %25)");
  return *std::move(decoded);
}

}  // namespace

std::string TOdbcUrl::Server() const {
  const std::string server = ValueOf(Connection, {"SERVER", "SERVERNAME", "DBQ", "DSN"});
  return server.empty() ? "behind ODBC" : server;
}

std::string TOdbcUrl::User() const { return ValueOf(Connection, {"UID", "USER"}); }

bool IsOdbcUrl(const std::string& url) { return url.starts_with(kScheme); }

TOdbcUrl ParseOdbcUrl(const std::string& text) {
  const std::string_view all = std::string_view(text).substr(kScheme.size());
  const std::size_t question = FindOutsideBraces(all, '?');
  TOdbcUrl url;
  url.Connection = all.substr(0, question);
  while (url.Connection.ends_with(';')) url.Connection.pop_back();
  if (ValueOf(url.Connection, {"DSN", "DRIVER", "FILEDSN"}).empty())
    Refuse("names neither a data source (DSN) nor a driver (DRIVER)");
  url.Password = ValueOf(url.Connection, {"PWD", "PASSWORD"});
  std::string_view options = all.substr(std::min(question + 1, all.size()));
  while (!options.empty()) {
    std::string_view option = options;
    options = CutBehind(option, '&');
    const std::string value = Decoded(CutBehind(option, '='));
    TakeOption(url, Decoded(option), value);
  }
  return url;
}

std::string ShownOdbcUrl(const std::string& url) {
  const std::string_view all = std::string_view(url).substr(kScheme.size());
  const std::size_t question = FindOutsideBraces(all, '?');
  std::string shown;
  for (const TAttribute& attribute : AttributesOf(all.substr(0, question))) {
    if (!shown.empty()) shown += ';';
    if (!attribute.HasValue) {
      shown += kHidden;
    } else {
      shown.append(attribute.Name).append("=").append(IsSecret(attribute.Name) ? kHidden : attribute.Value);
    }
  }
  return std::string(kScheme) + shown + ShownOptions(all.substr(question));
}

}  // namespace zanhost
