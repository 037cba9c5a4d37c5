#include "Frame/Host/Classes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <utility>

namespace zanrole {

namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsBlank(char c) { return static_cast<unsigned char>(c) <= ' '; }

[[noreturn]] void RaiseConvert(std::string_view text, const char* type) {
  throw EConvertError("'" + std::string(text) + "' is not a valid " + type);
}

/// Reads `count` digits at `at` and moves past them; -1 when there are fewer.
int TakeDigits(std::string_view text, std::size_t& at, std::size_t count) {
  int value = 0;
  if (at + count > text.size()) return -1;
  for (const std::size_t end = at + count; at < end; ++at) {
    if (text[at] < '0' || text[at] > '9') return -1;
    value = value * 10 + (text[at] - '0');
  }
  return value;
}

bool TakeChar(std::string_view text, std::size_t& at, char wanted) {
  if (at >= text.size() || text[at] != wanted) return false;
  ++at;
  return true;
}

void SkipBlanks(std::string_view text, std::size_t& at) {
  while (at < text.size() && IsBlank(text[at])) ++at;
}

/// A piece of a comma text up to a comma or blank.
std::string TakePlainPiece(std::string_view text, std::size_t& at) {
  const std::size_t first = at;
  while (at < text.size() && text[at] != ',' && !IsBlank(text[at])) ++at;
  return std::string(text.substr(first, at - first));
}

/// A piece of a comma text behind its opening quote; moves past the closing one. Without that it reaches to
/// the end.
std::string TakeQuotedPiece(std::string_view text, std::size_t& at) {
  std::string piece;
  for (; at < text.size(); ++at) {
    const bool isDoubled = text.substr(at, 2) == "\"\"";
    if (text[at] == '"' && !isDoubled) break;
    if (isDoubled) ++at;
    piece += text[at];
  }
  TakeChar(text, at, '"');
  return piece;
}

/// Reads "hh:nn:ss" with an optional fraction; false when the text is something else.
bool TakeTime(std::string_view text, std::size_t& at, std::chrono::milliseconds& time) {
  const int hour = TakeDigits(text, at, 2);
  if (hour < 0 || hour > 23 || !TakeChar(text, at, ':')) return false;
  const int minute = TakeDigits(text, at, 2);
  if (minute < 0 || minute > 59 || !TakeChar(text, at, ':')) return false;
  const int second = TakeDigits(text, at, 2);
  if (second < 0 || second > 59) return false;
  int millis = 0;
  if (TakeChar(text, at, '.')) {
    for (int scale = 100; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at, scale /= 10)
      millis += (text[at] - '0') * scale;
  }
  time = std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second) +
         std::chrono::milliseconds(millis);
  return true;
}

}  // namespace

const std::vector<std::string>& TStringList::Lines() const {
  if (!FLines.empty() || FWhole.empty()) return FLines;
  std::string_view text = FWhole;
  for (std::size_t end = text.find("\r\n"); end != std::string_view::npos; end = text.find("\r\n")) {
    FLines.emplace_back(text.substr(0, end));
    text.remove_prefix(end + 2);
  }
  FLines.emplace_back(text);
  return FLines;
}

std::vector<std::string>& TStringList::ChangingLines() {
  Lines();
  FWhole.clear();
  ++FRevision;
  return FLines;
}

void TStringList::Clear() {
  FLines.clear();
  FWhole.clear();
  ++FRevision;
}

void TStringList::Add(std::string line) { ChangingLines().push_back(std::move(line)); }

void TStringList::Insert(int index, std::string line) {
  std::vector<std::string>& lines = ChangingLines();
  lines.insert(lines.begin() + index, std::move(line));
}

void TStringList::Delete(int index) {
  std::vector<std::string>& lines = ChangingLines();
  lines.erase(lines.begin() + index);
}

const std::string& TStringList::Text() const {
  if (!FWhole.empty()) return FWhole;
  std::size_t size = 2 * FLines.size();
  for (const std::string& line : FLines) size += line.size();
  FWhole.reserve(size);
  for (std::size_t i = 0; i < FLines.size(); ++i) {
    if (i > 0) FWhole += "\r\n";
    FWhole += FLines[i];
  }
  return FWhole;
}

void TStringList::SetText(std::string text) {
  Clear();
  FWhole = std::move(text);
}

void TStringList::SetCommaText(std::string_view text) {
  Clear();
  std::size_t at = 0;
  SkipBlanks(text, at);
  while (at < text.size()) {
    FLines.push_back(TakeChar(text, at, '"') ? TakeQuotedPiece(text, at) : TakePlainPiece(text, at));
    SkipBlanks(text, at);
    if (!TakeChar(text, at, ',')) continue;
    SkipBlanks(text, at);
    if (at == text.size()) FLines.emplace_back();
  }
}

int TStringList::IndexOf(std::string_view line) const {
  const auto found = std::find_if(begin(), end(), [&](const std::string& l) { return SameText(l, line); });
  return found == end() ? NotFound : static_cast<int>(found - begin());
}

std::string TStringList::Values(std::string_view name) const {
  for (const std::string& line : Lines()) {
    const std::size_t sign = line.find('=');
    if (sign != std::string::npos && SameText(std::string_view(line).substr(0, sign), name))
      return line.substr(sign + 1);
  }
  return {};
}

void TStringList::SetValue(std::string_view name, std::string_view value) {
  std::string entry = std::string(name) + "=" + std::string(value);
  std::vector<std::string>& lines = ChangingLines();
  for (std::string& line : lines) {
    const std::size_t sign = line.find('=');
    if (sign != std::string::npos && SameText(std::string_view(line).substr(0, sign), name)) {
      line = std::move(entry);
      return;
    }
  }
  lines.push_back(std::move(entry));
}

bool SameText(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
  return lower;
}

std::string Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return std::string(text);
}

std::string QuotedStr(std::string_view text) {
  std::string quoted;
  quoted.reserve(text.size() + 2);
  quoted += '\'';
  for (std::size_t quote = text.find('\''); quote != std::string_view::npos; quote = text.find('\'')) {
    quoted.append(text, 0, quote + 1).append(1, '\'');
    text.remove_prefix(quote + 1);
  }
  return quoted.append(text).append(1, '\'');
}

std::string StringReplace(std::string_view text, std::string_view from, std::string_view to,
                          bool ignoreCase) {
  std::string result;
  while (text.size() >= from.size() && !from.empty()) {
    const auto equal = [&](char a, char b) { return ignoreCase ? Lower(a) == Lower(b) : a == b; };
    const auto found = std::search(text.begin(), text.end(), from.begin(), from.end(), equal);
    if (found == text.end()) break;
    const auto before = static_cast<std::size_t>(found - text.begin());
    result.append(text.substr(0, before)).append(to);
    text.remove_prefix(before + from.size());
  }
  return result.append(text);
}

std::string DateTimeToText(TDateTime time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss clock{std::chrono::floor<std::chrono::seconds>(time - day)};
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text.data();
}

TDateTime TextToDateTime(std::string_view text) {
  std::size_t at = 0;
  const int year = TakeDigits(text, at, 4);
  const bool firstDash = TakeChar(text, at, '-');
  const int month = TakeDigits(text, at, 2);
  const bool secondDash = TakeChar(text, at, '-');
  const int day = TakeDigits(text, at, 2);
  if (year < 0 || !firstDash || month < 0 || !secondDash || day < 0) RaiseConvert(text, "date and time");
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  std::chrono::milliseconds time{0};
  const bool hasTime = TakeChar(text, at, ' ') || TakeChar(text, at, 'T');
  if (!date.ok() || (hasTime && !TakeTime(text, at, time)) || at != text.size())
    RaiseConvert(text, "date and time");
  return TDateTime(std::chrono::local_days(date).time_since_epoch() + time);
}

int StrToInt(std::string_view text) {
  const std::string trimmed = Trim(text);
  int value = 0;
  const char* const end = trimmed.data() + trimmed.size();
  const auto [stop, error] = std::from_chars(trimmed.data(), end, value);
  if (error != std::errc() || stop != end) RaiseConvert(text, "integer");
  return value;
}

int StrToIntDef(std::string_view text, int fallback) noexcept {
  try {
    return StrToInt(text);
  } catch (const EConvertError&) {
    return fallback;
  }
}

bool StrToBool(std::string_view text) {
  if (SameText(text, "true")) return true;
  if (SameText(text, "false")) return false;
  double number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isNumber = error == std::errc() && stop == text.data() + text.size() && std::isfinite(number);
  if (!isNumber) RaiseConvert(text, "Boolean");
  return number != 0;
}

std::string BoolToStr(bool value) { return value ? "True" : "False"; }

}  // namespace zanrole
