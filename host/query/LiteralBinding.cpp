#include "host/query/LiteralBinding.h"

#include <algorithm>
#include <functional>

#include "host/query/LiteralPlaces.h"

namespace zanhost {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// Which literal of the module's text a token of the adapted statement is; kNone for any other token, also
/// for a literal that a rule put in.
std::size_t LiteralOf(const TStatementShape& shape, const TToken& token) {
  const std::less<> before;
  const auto begins = [&](const char* at, const TToken& literal) { return before(at, literal.Text.data()); };
  const auto behind =
      std::upper_bound(shape.Literals.begin(), shape.Literals.end(), token.Text.data(), begins);
  if (behind == shape.Literals.begin()) return kNone;
  const TToken& literal = *std::prev(behind);
  if (!before(token.Text.data(), literal.Text.data() + literal.Text.size())) return kNone;
  return static_cast<std::size_t>(std::prev(behind) - shape.Literals.begin());
}

}  // namespace

std::int64_t IntegerOf(const TToken& literal) {
  std::int64_t number = 0;
  for (const char digit : literal.Text) number = number * 10 + (digit - '0');
  return number;
}

std::optional<std::string_view> WrittenContent(const TToken& literal) {
  const std::size_t open = literal.Text.find('\'') + 1;
  const std::string_view written = literal.Text.substr(open, literal.Text.size() - open - 1);
  if (written.find('\'') != std::string_view::npos) return std::nullopt;
  return written;
}

TLiteralBinding BindLiterals(const TStatementShape& shape, TTokens& tokens) {
  const TLiteralPlaces places = FindLiteralPlaces(tokens);
  TLiteralBinding binding;
  binding.MayBeKept = shape.HasPlainLiterals && !places.IsList;
  // A parameter without a name could not be told from the place of a literal.
  const bool hasNameless =
      std::any_of(tokens.begin(), tokens.end(), [](const TToken& token) { return token.IsOperator("?"); });
  const bool mayBind = binding.MayBeKept && !hasNameless;
  std::vector<std::size_t> literals;
  std::vector<bool> fixed(shape.Literals.size(), !mayBind);
  std::vector<bool> present(shape.Literals.size());
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    literals.push_back(LiteralOf(shape, tokens[at]));
    if (literals.back() == kNone) continue;
    present[literals.back()] = true;
    if (!places.Bindable[at]) fixed[literals.back()] = true;
  }
  for (std::size_t i = 0; i < fixed.size(); ++i) {
    if (fixed[i] || !present[i]) binding.Fixed.push_back(i);
  }
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    if (literals[at] == kNone || fixed[literals[at]]) continue;
    tokens[at].Kind = TTokenKind::Parameter;
    tokens[at].Text = "?";
    binding.Bound.push_back(literals[at]);
  }
  return binding;
}

}  // namespace zanhost
