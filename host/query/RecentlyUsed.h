#pragma once

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zanhost {

/// The things used last, each under a text; the one that was not used for longest goes first.
template <typename TThing>
class TRecentlyUsed {
 public:
  explicit TRecentlyUsed(std::size_t capacity) : FCapacity(capacity) {}

  /// Null when there is none. The pointer shares ownership: it outlives a removal.
  std::shared_ptr<TThing> Find(std::string_view key) {
    const auto found = FIndex.find(key);
    if (found == FIndex.end()) return nullptr;
    FEntries.splice(FEntries.begin(), FEntries, found->second);
    return found->second->Thing;
  }

  /// REQUIRES: nothing stands under this key.
  void Add(std::string key, std::shared_ptr<TThing> thing) {
    FEntries.push_front({std::move(key), std::move(thing)});
    FIndex.emplace(FEntries.front().Key, FEntries.begin());
    if (FEntries.size() <= FCapacity) return;
    FIndex.erase(FEntries.back().Key);
    FEntries.pop_back();
  }

  void Clear() {
    FIndex.clear();
    FEntries.clear();
  }

 private:
  struct TEntry {
    std::string Key;
    std::shared_ptr<TThing> Thing;
  };

  std::size_t FCapacity;
  std::list<TEntry> FEntries;  ///< the one used last in front
  std::unordered_map<std::string_view, typename std::list<TEntry>::iterator> FIndex;
};

}  // namespace zanhost
