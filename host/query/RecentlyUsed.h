#pragma once

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zanhost {

/// The things used last, each under a text; the one that was not used for longest goes first.
template <typename TThing>
class TRecentlyUsed {
 public:
  explicit TRecentlyUsed(std::size_t capacity) : FCapacity(capacity) {}

  /// Null when there is none. Lives until the next call of Add or Clear.
  TThing* Find(std::string_view key) {
    const auto found = FIndex.find(key);
    if (found == FIndex.end()) return nullptr;
    FEntries.splice(FEntries.begin(), FEntries, found->second);
    return &found->second->Thing;
  }

  /// REQUIRES: nothing stands under this key.
  TThing& Add(std::string key, TThing thing) {
    FEntries.push_front({std::move(key), std::move(thing)});
    FIndex.emplace(FEntries.front().Key, FEntries.begin());
    if (FEntries.size() > FCapacity) {
      FIndex.erase(FEntries.back().Key);
      FEntries.pop_back();
    }
    return FEntries.front().Thing;
  }

  void Clear() {
    FIndex.clear();
    FEntries.clear();
  }

 private:
  struct TEntry {
    std::string Key;
    TThing Thing;
  };

  std::size_t FCapacity;
  std::list<TEntry> FEntries;  ///< the one used last in front
  std::unordered_map<std::string_view, typename std::list<TEntry>::iterator> FIndex;
};

}  // namespace zanhost
