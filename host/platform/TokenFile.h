#pragma once

#include <boost/json/object.hpp>
#include <filesystem>
#include <functional>
#include <vector>

#include "host/platform/Tokens.h"

namespace zanhost {

/// FOLDER/tokens.json.
std::filesystem::path TokenFileOf(const std::filesystem::path& folder);

/// The tokens of an installation in the order in which they were made; none when there is no file. Raises
/// EZanError, with a sentence for a person, when the file cannot be read, is not what ChangeTokens writes, or
/// is open to others than its owner: who can write it lets himself in.
std::vector<TBearerToken> ReadTokens(const std::filesystem::path& folder);

/// Reads the tokens, lets `change` change them, and replaces the file with what it made of them. Others who
/// change them wait meanwhile; others who read see the old tokens or the new ones. When `change` raises,
/// nothing is written. Raises EZanError as ReadTokens, and when the tokens cannot be stored.
void ChangeTokens(const std::filesystem::path& folder,
                  const std::function<void(std::vector<TBearerToken>&)>& change);

/// {"id","name","created","expires","functions":[…],"questions":[…],"logins":[…],"perSecond":100}, without
/// the hash; times in UTC as "2027-01-31T08:00:00Z".
boost::json::object DescribeToken(const TBearerToken& token);

}  // namespace zanhost
