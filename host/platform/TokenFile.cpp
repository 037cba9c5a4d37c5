#include "host/platform/TokenFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <boost/json.hpp>
#include <cerrno>
#include <system_error>

#include "host/platform/Files.h"
#include "host/platform/UtcTime.h"

namespace zanhost {

namespace fs = std::filesystem;
namespace json = boost::json;

namespace {

constexpr ::mode_t kOwnerOnly = 0600;

// Held by who changes the tokens. The file stays: who removed it would lock another than those who wait.
class TTokenLock {
 public:
  explicit TTokenLock(const fs::path& folder) {
    const fs::path file = folder / "tokens.lock";
    FHandle = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kOwnerOnly);
    if (FHandle < 0) Raise(file, errno);
    int failure = 0;
    do {
      failure = ::flock(FHandle, LOCK_EX) == 0 ? 0 : errno;
    } while (failure == EINTR);
    if (failure == 0) return;
    ::close(FHandle);
    Raise(file, failure);
  }
  ~TTokenLock() { ::close(FHandle); }
  TTokenLock(const TTokenLock&) = delete;
  TTokenLock& operator=(const TTokenLock&) = delete;

 private:
  [[noreturn]] static void Raise(const fs::path& file, int failure) {
    throw zanrole::EZanError(fmt::format("The tokens cannot be changed: {}: {}", file.string(),
                                         std::generic_category().message(failure)));
  }

  int FHandle = -1;
};

// What is wrong with the file or its text; told with the name of the file.
class EBadTokens : public zanrole::EZanError {
 public:
  using EZanError::EZanError;
};

template <typename TValue>
TValue MemberOf(const json::object& object, const char* name) {
  const json::value* const member = object.if_contains(name);
  if (member == nullptr) throw EBadTokens(fmt::format("a token has no \"{}\"", name));
  auto value = json::try_value_to<TValue>(*member);
  if (!value) throw EBadTokens(fmt::format("the \"{}\" of a token is of a wrong type", name));
  return std::move(*value);
}

std::chrono::system_clock::time_point TimeOf(const json::object& object, const char* name) {
  const auto time = ParseUtcText(MemberOf<std::string>(object, name));
  if (!time) throw EBadTokens(fmt::format("the \"{}\" of a token is no time", name));
  return *time;
}

std::vector<std::string> NamesOf(const json::object& object, const char* name) {
  auto names = MemberOf<std::vector<std::string>>(object, name);
  // An empty login would be nobody, as whom all is allowed.
  if (std::find(names.begin(), names.end(), std::string()) != names.end())
    throw EBadTokens(fmt::format("the \"{}\" of a token have an empty name", name));
  return names;
}

TBearerToken TokenOf(const json::object& object) {
  TBearerToken token;
  token.Id = MemberOf<std::string>(object, "id");
  token.Name = MemberOf<std::string>(object, "name");
  token.SecretHash = MemberOf<std::string>(object, "hash");
  token.Created = TimeOf(object, "created");
  token.Expires = TimeOf(object, "expires");
  token.Scope = {NamesOf(object, "functions"), NamesOf(object, "questions"), NamesOf(object, "logins")};
  token.PerSecond = MemberOf<unsigned>(object, "perSecond");
  if (token.PerSecond == 0) throw EBadTokens("the \"perSecond\" of a token is 0");
  // What is not understood could restrict the token further.
  if (object.size() != DescribeToken(token).size() + 1)
    throw EBadTokens("a token has members that this version does not know");
  return token;
}

json::object ObjectOf(const TBearerToken& token) {
  json::object object = DescribeToken(token);
  object["hash"] = token.SecretHash;
  return object;
}

const json::array& ListIn(const json::value& document) {
  const json::object* const object = document.if_object();
  const json::value* const list = object != nullptr ? object->if_contains("tokens") : nullptr;
  if (list == nullptr || !list->is_array()) throw EBadTokens("it has no list \"tokens\"");
  return list->get_array();
}

std::vector<TBearerToken> ParseTokens(const std::string& text) {
  json::error_code failure;
  const json::value document = json::parse(text, failure);
  if (failure) throw EBadTokens("it is no JSON: " + failure.message());
  std::vector<TBearerToken> tokens;
  for (const json::value& token : ListIn(document)) {
    if (!token.is_object()) throw EBadTokens("a token is no object");
    tokens.push_back(TokenOf(token.get_object()));
  }
  return tokens;
}

// One token a line, for people who look into the file.
std::string TextOf(const std::vector<TBearerToken>& tokens) {
  std::string text = "{\"tokens\":[";
  const char* separator = "\n";
  for (const TBearerToken& token : tokens) {
    text += separator + json::serialize(ObjectOf(token));
    separator = ",\n";
  }
  return text + "\n]}\n";
}

std::vector<TBearerToken> ReadIfThere(const fs::path& file) {
  try {
    const std::string text = ReadFile(file);
    if (IsOpenToOthers(file))
      throw EBadTokens("it is open to other accounts. Give it to its owner alone: chmod 600 " +
                       file.string());
    return ParseTokens(text);
  } catch (const std::system_error& fault) {
    if (fault.code() == std::errc::no_such_file_or_directory) return {};
    throw EBadTokens(fault.code().message());
  }
}

// What could not be read again, such as a name that is no UTF-8, is not written.
void WriteTokens(const fs::path& folder, const std::vector<TBearerToken>& tokens) {
  const std::string text = TextOf(tokens);
  try {
    ParseTokens(text);
    ReplacePrivateFile(TokenFileOf(folder), text);
  } catch (const EBadTokens& fault) {
    throw zanrole::EZanError(fmt::format("The tokens cannot be stored: {}", fault.what()));
  } catch (const std::system_error& fault) {
    throw zanrole::EZanError(fmt::format("The tokens cannot be stored in {}: {}",
                                         TokenFileOf(folder).string(), fault.code().message()));
  }
}

}  // namespace

fs::path TokenFileOf(const fs::path& folder) { return folder / "tokens.json"; }

std::vector<TBearerToken> ReadTokens(const fs::path& folder) {
  const fs::path file = TokenFileOf(folder);
  try {
    return ReadIfThere(file);
  } catch (const EBadTokens& fault) {
    throw zanrole::EZanError(fmt::format("The tokens in {} cannot be read: {}", file.string(), fault.what()));
  }
}

void ChangeTokens(const fs::path& folder, const std::function<void(std::vector<TBearerToken>&)>& change) {
  const TTokenLock lock(folder);
  std::vector<TBearerToken> tokens = ReadTokens(folder);
  change(tokens);
  WriteTokens(folder, tokens);
}

json::object DescribeToken(const TBearerToken& token) {
  const auto list = [](const std::vector<std::string>& names) {
    return json::array(names.begin(), names.end());
  };
  return {{"id", token.Id},
          {"name", token.Name},
          {"created", UtcText(token.Created)},
          {"expires", UtcText(token.Expires)},
          {"functions", list(token.Scope.Functions)},
          {"questions", list(token.Scope.Questions)},
          {"logins", list(token.Scope.Logins)},
          {"perSecond", token.PerSecond}};
}

}  // namespace zanhost
