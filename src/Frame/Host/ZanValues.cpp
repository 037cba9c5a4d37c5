#include "Frame/Host/ZanValues.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace zanrole {

namespace {

template <typename... Visitors>
struct TOverload : Visitors... {
  using Visitors::operator()...;
};
template <typename... Visitors>
TOverload(Visitors...) -> TOverload<Visitors...>;

std::string DoubleToText(double number) {
  char text[32];
  const auto [end, error] = std::to_chars(text, text + sizeof text, number);
  return {text, end};
}

[[noreturn]] void RaiseNoInteger(const std::string& text) {
  throw EConvertError("'" + text + "' is not a valid integer");
}

int NarrowToInteger(std::int64_t value) {
  if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
    RaiseNoInteger(std::to_string(value));
  return static_cast<int>(value);
}

/// The fraction is cut off.
int NarrowToInteger(double value) {
  const double whole = std::trunc(value);
  const bool fits = whole >= std::numeric_limits<int>::min() && whole <= std::numeric_limits<int>::max();
  if (!fits) RaiseNoInteger(DoubleToText(value));
  return static_cast<int>(whole);
}

// The conversions, for each type of a value.

constexpr TOverload kAsString{
    [](std::monostate) { return std::string(); },
    [](std::int64_t number) { return std::to_string(number); },
    [](double number) { return DoubleToText(number); },
    [](bool truth) { return BoolToStr(truth); },
    [](std::string_view text) { return std::string(text); },
    [](TDateTime time) { return DateTimeToText(time); },
};

constexpr TOverload kAsInteger{
    [](std::monostate) { return 0; },
    [](std::int64_t number) { return NarrowToInteger(number); },
    [](double number) { return NarrowToInteger(number); },
    [](bool truth) { return truth ? 1 : 0; },
    [](std::string_view text) { return text.empty() ? 0 : StrToInt(text); },
    [](TDateTime time) -> int { RaiseNoInteger(DateTimeToText(time)); },
};

constexpr TOverload kAsBoolean{
    [](std::monostate) { return false; },
    [](std::int64_t number) { return number != 0; },
    [](double number) { return number != 0; },
    [](bool truth) { return truth; },
    [](std::string_view text) { return !text.empty() && StrToBool(text); },
    [](TDateTime) { return true; },
};

constexpr TOverload kAsDateTime{
    [](std::monostate) { return TDateTime(); },
    [](TDateTime time) { return time; },
    [](const auto& other) { return TextToDateTime(kAsString(other)); },
};

}  // namespace

std::string ValueAsString(const TZanValue& value) { return std::visit(kAsString, value); }
int ValueAsInteger(const TZanValue& value) { return std::visit(kAsInteger, value); }
bool ValueAsBoolean(const TZanValue& value) { return std::visit(kAsBoolean, value); }
TDateTime ValueAsDateTime(const TZanValue& value) { return std::visit(kAsDateTime, value); }

template <typename TVisit>
auto TZanCells::Visit(const TCell& cell, const TVisit& visit) const {
  switch (cell.Kind) {
    case TKind::Integer:
      return visit(cell.Bits);
    case TKind::Real:
      return visit(std::bit_cast<double>(cell.Bits));
    case TKind::Boolean:
      return visit(cell.Bits != 0);
    case TKind::Text:
      return visit(std::string_view(FTexts).substr(static_cast<std::size_t>(cell.Bits), cell.Length));
    case TKind::Time:
      return visit(TDateTime(std::chrono::milliseconds(cell.Bits)));
    case TKind::Null:
      break;
  }
  return visit(std::monostate{});
}

TZanCells::TZanCells(std::initializer_list<TZanValue> values) {
  Reserve(values.size());
  for (const TZanValue& value : values) Add(value);
}

void TZanCells::AddReal(double number) {
  FCells.push_back({TKind::Real, 0, std::bit_cast<std::int64_t>(number)});
}

inline TZanCells::TCell TZanCells::CellOfText(std::string_view text) {
  const TCell cell{TKind::Text, static_cast<std::uint32_t>(text.size()),
                   static_cast<std::int64_t>(FTexts.size())};
  FTexts.append(text);
  return cell;
}

void TZanCells::AddText(std::string_view text) { FCells.push_back(CellOfText(text)); }

void TZanCells::Add(const TZanValue& value) { FCells.push_back(CellOf(value)); }

TZanValue TZanCells::At(std::size_t place) const {
  return Visit(FCells[place], TOverload{[](std::string_view text) { return TZanValue(std::string(text)); },
                                        [](const auto& other) { return TZanValue(other); }});
}

std::string TZanCells::AsString(std::size_t place) const { return Visit(FCells[place], kAsString); }
int TZanCells::AsInteger(std::size_t place) const { return Visit(FCells[place], kAsInteger); }
bool TZanCells::AsBoolean(std::size_t place) const { return Visit(FCells[place], kAsBoolean); }
TDateTime TZanCells::AsDateTime(std::size_t place) const { return Visit(FCells[place], kAsDateTime); }

void TZanCells::Set(std::size_t place, const TZanValue& value) { FCells[place] = CellOf(value); }

void TZanCells::Erase(std::size_t first, std::size_t count) {
  const auto begin = FCells.begin() + static_cast<std::ptrdiff_t>(first);
  FCells.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
}

TZanCells::TCell TZanCells::CellOf(const TZanValue& value) {
  return std::visit(TOverload{[](std::monostate) { return TCell(); },
                              [](std::int64_t number) {
                                return TCell{TKind::Integer, 0, number};
                              },
                              [](double number) {
                                return TCell{TKind::Real, 0, std::bit_cast<std::int64_t>(number)};
                              },
                              [](bool truth) {
                                return TCell{TKind::Boolean, 0, truth ? 1 : 0};
                              },
                              [this](const std::string& text) { return CellOfText(text); },
                              [](TDateTime time) {
                                return TCell{TKind::Time, 0, time.time_since_epoch().count()};
                              }},
                    value);
}

}  // namespace zanrole
