#include "host/query/Sqlite/StatementCache.h"

namespace zanhost {

std::shared_ptr<TPreparedStatement> TStatementCache::Find(std::string_view text) {
  if (text.size() > FGreatestText) return nullptr;
  const auto found = FIndex.find(text);
  if (found == FIndex.end()) return nullptr;
  FEntries.splice(FEntries.begin(), FEntries, found->second);
  return found->second->Statement;
}

void TStatementCache::Add(std::string_view text, std::shared_ptr<TPreparedStatement> statement) {
  if (text.size() > FGreatestText) return;
  FEntries.push_front({std::string(text), std::move(statement)});
  FIndex.emplace(FEntries.front().Text, FEntries.begin());
  if (FEntries.size() <= FCapacity) return;
  FIndex.erase(FEntries.back().Text);
  FEntries.pop_back();
}

}  // namespace zanhost
