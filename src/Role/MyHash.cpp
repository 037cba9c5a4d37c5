#include "Role/MyHash.h"

#include <algorithm>
#include <cstdint>

namespace zanrole {

TMyHash::~TMyHash() = default;

void TMyHash::Init() {
  for (TBucket& bucket : FDatas) {
    bucket.Count = 0;
    bucket.Single = nullptr;
    bucket.List.reset();
  }
}

void TMyHash::Clear() { TMyHash::Init(); }

int TMyHash::SelfHashPro(const void* element) {
  return Reduce(static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(element)));
}

int TMyHash::BucketOfElement(const void* element) const {
  return BucketOf(FHashPro ? FHashPro(element) : SelfHashPro(element));
}

void TMyHash::Add(void* element) {
  TBucket& bucket = FDatas[static_cast<std::size_t>(BucketOfElement(element))];
  ++bucket.Count;
  if (bucket.Count == 1) {
    bucket.Single = element;
    return;
  }
  if (!bucket.List) bucket.List = std::make_unique<std::vector<void*>>(1, bucket.Single);
  bucket.List->push_back(element);
}

bool TMyHash::Find(const void* element) const {
  const std::span<void* const> bucket = Bucket(BucketOfElement(element));
  return std::find(bucket.begin(), bucket.end(), element) != bucket.end();
}

std::span<void* const> TMyHash::Bucket(int number) const {
  const TBucket& bucket = FDatas[static_cast<std::size_t>(number)];
  if (bucket.List) return *bucket.List;
  return {&bucket.Single, static_cast<std::size_t>(bucket.Count)};
}

}  // namespace zanrole
