#include "host/query/Sqlite/StatementCache.h"

namespace zanhost {

std::shared_ptr<TPreparedStatement> TStatementCache::Find(const TStatementShape& shape) {
  if (!MayHold(shape)) return nullptr;
  TEntry* entry = FindEntry(shape.Shape);
  if (entry != nullptr && !entry->Fixed.empty()) entry = FindEntry(KeyOfStatement(shape, *entry));
  return entry != nullptr ? entry->Statement : nullptr;
}

void TStatementCache::Add(const TStatementShape& shape, const TLiteralBinding& binding,
                          std::shared_ptr<TPreparedStatement> statement) {
  if (!binding.MayBeKept || !MayHold(shape)) return;
  if (binding.Fixed.empty()) return AddEntry({shape.Shape, std::move(statement)});
  if (FindEntry(shape.Shape) == nullptr) AddEntry({shape.Shape, nullptr, binding.Fixed, ++FLastNumber});
  AddEntry({std::string(KeyOfStatement(shape, FEntries.front())), std::move(statement)});
}

bool TStatementCache::MayHold(const TStatementShape& shape) const {
  return shape.HasPlainLiterals && shape.Text.size() <= FGreatestText;
}

TStatementCache::TEntry* TStatementCache::FindEntry(std::string_view key) {
  const auto found = FIndex.find(key);
  if (found == FIndex.end()) return nullptr;
  FEntries.splice(FEntries.begin(), FEntries, found->second);
  return &*found->second;
}

void TStatementCache::AddEntry(TEntry entry) {
  FEntries.push_front(std::move(entry));
  FIndex.emplace(FEntries.front().Key, FEntries.begin());
  if (FEntries.size() <= FCapacity) return;
  FIndex.erase(FEntries.back().Key);
  FEntries.pop_back();
}

/// Begins with a zero byte, which no shape holds, and joins literals by it, which none of them holds.
std::string_view TStatementCache::KeyOfStatement(const TStatementShape& shape, const TEntry& entry) {
  FKey.assign(1, '\0').append(reinterpret_cast<const char*>(&entry.Number), sizeof entry.Number);
  for (const std::size_t literal : entry.Fixed) FKey.append(1, '\0').append(shape.Literals[literal].Text);
  return FKey;
}

}  // namespace zanhost
