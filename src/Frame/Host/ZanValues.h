#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Frame/Host/Classes.h"

namespace zanrole {

/// A value of a column or parameter. `std::monostate` is null; texts are UTF-8.
using TZanValue = std::variant<std::monostate, std::int64_t, double, bool, std::string, TDateTime>;

/// Conversions that fields and parameters share. A null reads as 0, false, empty text or the epoch.
/// Each raises EConvertError for a value that is not of the type, or does not fit it.
ZAN_EXPORT std::string ValueAsString(const TZanValue& value);
ZAN_EXPORT int ValueAsInteger(const TZanValue& value);
ZAN_EXPORT bool ValueAsBoolean(const TZanValue& value);
ZAN_EXPORT TDateTime ValueAsDateTime(const TZanValue& value);

/// The values of a result in the order of their adding. They are held compactly, the texts one behind the
/// other, so that a result of many rows costs little more than its bytes.
class ZAN_EXPORT TZanCells {
 public:
  TZanCells() = default;
  TZanCells(std::initializer_list<TZanValue> values);
  void Reserve(std::size_t count) { FCells.reserve(count); }

  void AddNull() { FCells.push_back({}); }
  void AddInteger(std::int64_t number) { FCells.push_back({TKind::Integer, 0, number}); }
  void AddReal(double number);
  void AddText(std::string_view text);
  void Add(const TZanValue& value);

  std::size_t Size() const { return FCells.size(); }
  /// Of all texts together, also of those that were changed or removed.
  std::size_t TextBytes() const { return FTexts.size(); }

  // REQUIRES of all below: the places exist. Conversions as those of values.

  bool IsNull(std::size_t place) const { return FCells[place].Kind == TKind::Null; }
  TZanValue At(std::size_t place) const;
  std::string AsString(std::size_t place) const;
  int AsInteger(std::size_t place) const;
  bool AsBoolean(std::size_t place) const;
  TDateTime AsDateTime(std::size_t place) const;

  void Set(std::size_t place, const TZanValue& value);
  /// Removes `count` values from `first` on.
  void Erase(std::size_t first, std::size_t count);

 private:
  enum class TKind : std::uint32_t { Null, Integer, Real, Boolean, Text, Time };

  struct TCell {
    TKind Kind = TKind::Null;
    std::uint32_t Length = 0;  ///< of a text
    std::int64_t Bits = 0;  ///< the number, the bits of a real, milliseconds, the place of a text in FTexts
  };

  TCell CellOf(const TZanValue& value);
  TCell CellOfText(std::string_view text);
  /// Calls `visit` with the value in the type of its alternative; a text is a view.
  template <typename TVisit>
  auto Visit(const TCell& cell, const TVisit& visit) const;

  std::vector<TCell> FCells;
  /// Of all cells, and what removed and changed ones left.
  std::string FTexts;
};

}  // namespace zanrole
