#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace zanrole {

/// A hash table keyed by integer. Doubles are not looked for: a later value hides an earlier one of the same
/// key.
template <typename TValue>
class TIntHash {
 public:
  static constexpr int DefaultSize = 5471;

  /// `size` is the number of buckets; below 1 it is DefaultSize.
  explicit TIntHash(int size)
      : FSize(size < 1 ? DefaultSize : size), Buckets(static_cast<std::size_t>(FSize)) {}
  ~TIntHash() { Clear(); }
  TIntHash(const TIntHash&) = delete;
  TIntHash& operator=(const TIntHash&) = delete;

  /// Called for each element just before Clear removes it. It must not raise.
  std::function<void(int key, TValue& value)> FOnDelete;

  void Add(int key, TValue value) {
    TLink& head = Buckets[HashOf(key)];
    head = std::make_unique<TNode>(std::move(head), key, std::move(value));
  }
  /// The latest value of the key; null when there is none. It lives until Clear.
  TValue* ValueOf(int key) {
    TLink& link = Find(key);
    return link ? &link->Value : nullptr;
  }
  /// Calls `callback(data, key, value)` for every element, bucket after bucket, the latest of each first.
  template <typename TCallback, typename TData>
  void Foreach(const TCallback& callback, TData& data) {
    for (TLink& head : Buckets)
      for (TNode* node = head.get(); node != nullptr; node = node->Next.get())
        callback(data, node->Key, node->Value);
  }
  void Clear() {
    for (TLink& head : Buckets) {
      while (head) {
        if (FOnDelete) FOnDelete(head->Key, head->Value);
        head = std::move(head->Next);
      }
    }
  }
  /// Number of the key's bucket: its distance from 0 within the number of buckets.
  std::size_t HashOf(int key) const {
    const auto distance = key < 0 ? 0u - static_cast<unsigned>(key) : static_cast<unsigned>(key);
    return distance % static_cast<unsigned>(FSize);
  }

 private:
  struct TNode;
  using TLink = std::unique_ptr<TNode>;
  struct TNode {
    TNode(TLink next, int key, TValue value) : Next(std::move(next)), Key(key), Value(std::move(value)) {}
    TLink Next;
    int Key;
    TValue Value;
  };

  /// The link that holds the first node of the key, or the empty one at the end of its chain.
  TLink& Find(int key) {
    TLink* link = &Buckets[HashOf(key)];
    while (*link && (*link)->Key != key) link = &(*link)->Next;
    return *link;
  }

  int FSize;
  std::vector<TLink> Buckets;
};

}  // namespace zanrole
