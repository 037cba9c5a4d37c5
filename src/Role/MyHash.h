#pragma once

#include <array>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "Frame/Host/Export.h"

namespace zanrole {

/// A hash table of pointers. It never owns what they point to, and never looks for doubles.
class ZAN_EXPORT TMyHash {
 public:
  static constexpr int BucketCount = 4096;

  TMyHash() = default;
  TMyHash(const TMyHash&) = delete;
  TMyHash& operator=(const TMyHash&) = delete;

  /// Makes every bucket empty.
  virtual void Init();
  /// Forgets all elements.
  virtual void Clear();
  virtual ~TMyHash();

  void Add(void* element);
  /// Is this very pointer in the table?
  bool Find(const void* element) const;
  /// The elements of one bucket in the order in which they were added. It lives until the next change.
  /// REQUIRES: 0 <= number < BucketCount.
  std::span<void* const> Bucket(int number) const;

  /// The last step of every hash: the low 12 bits of a number, with its sign.
  static constexpr int Reduce(int hash) { return hash % BucketCount; }
  /// Place of a reduced hash among the buckets.
  static constexpr int BucketOf(int hash) { return hash < 0 ? hash + BucketCount : hash; }

 protected:
  /// Hash of an element, reduced. Unset, the pointer's own value is hashed.
  std::function<int(const void* element)> FHashPro;

 private:
  /// A single element lies in the bucket itself; from the second on all lie in the list.
  struct TBucket {
    int Count = 0;
    void* Single = nullptr;
    std::unique_ptr<std::vector<void*>> List;
  };

  static int SelfHashPro(const void* element);
  int BucketOfElement(const void* element) const;

  std::array<TBucket, BucketCount> FDatas;
};

}  // namespace zanrole
