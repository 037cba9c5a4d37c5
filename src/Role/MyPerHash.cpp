#include "Role/MyPerHash.h"

#include <cstdint>

namespace zanrole {

namespace {

/// Units of a character by the first byte of its UTF-8 form: how many bytes follow, and the bits it holds.
struct TLeadByte {
  int Following;
  std::uint32_t Bits;
};

TLeadByte ReadLeadByte(unsigned char byte) {
  if (byte >= 0xF0) return {3, byte & 0x07u};
  if (byte >= 0xE0) return {2, byte & 0x0Fu};
  if (byte >= 0xC0) return {1, byte & 0x1Fu};
  return {0, byte};
}

/// Sum of the UTF-16 units of a UTF-8 text; a character beyond the first plane has two.
std::uint32_t SumOfUnits(std::string_view text) {
  std::uint32_t sum = 0;
  for (std::size_t at = 0; at < text.size();) {
    auto [following, character] = ReadLeadByte(static_cast<unsigned char>(text[at++]));
    for (; following > 0 && at < text.size(); --following)
      character = character << 6 | (static_cast<unsigned char>(text[at++]) & 0x3Fu);
    const bool isPair = character > 0xFFFF;
    const std::uint32_t beyond = character - 0x10000;
    sum += isPair ? (0xD800 + (beyond >> 10)) + (0xDC00 + (beyond & 0x3FF)) : character;
  }
  return sum;
}

}  // namespace

TMyPerHash::TMyPerHash() { FHashPro = PerHashPro; }

TMyPerHash::~TMyPerHash() = default;

void TMyPerHash::Clear() {
  FIndex.Clear();
  TMyHash::Clear();
  FElements.clear();
}

TRightDef& TMyPerHash::Add(TRightDef right) {
  TRightDef& element = FElements.emplace_back(std::move(right));
  TMyHash::Add(&element);
  FIndex.Add(element);
  return element;
}

int TMyPerHash::CalcHashPro(int objectID, std::string_view oprate) {
  return Reduce(static_cast<std::int32_t>(static_cast<std::uint32_t>(objectID % 256) + SumOfUnits(oprate)));
}

int TMyPerHash::PerHashPro(const void* element) {
  const auto* right = static_cast<const TRightDef*>(element);
  return CalcHashPro(right->ObjectID, right->Oprate);
}

}  // namespace zanrole
