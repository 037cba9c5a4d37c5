#pragma once

#include <chrono>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Export.h"

namespace zanrole {

/// A point in time without a zone, as the databases store it; resolution one millisecond.
using TDateTime = std::chrono::local_time<std::chrono::milliseconds>;

/// Root of every fault that host and module raise towards each other. `what()` is UTF-8 text for a person.
class ZAN_EXPORT EZanError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~EZanError() override;
};

/// A text that is not of the type it was read as ("abc" as an integer).
class ZAN_EXPORT EConvertError : public EZanError {
 public:
  using EZanError::EZanError;
  ~EConvertError() override;
};

/// A precondition of the logic does not hold. The message is a resource text and the source path.
class ZAN_EXPORT EAssertionFailed : public EZanError {
 public:
  using EZanError::EZanError;
  ~EAssertionFailed() override;
};

/// A list of UTF-8 lines: statement texts, operation words, name=value settings.
class ZAN_EXPORT TStringList {
 public:
  static constexpr int NotFound = -1;

  int Count() const { return static_cast<int>(Lines().size()); }
  /// REQUIRES: 0 <= index < Count(). The reference lives until the list changes.
  const std::string& operator[](int index) const { return Lines()[static_cast<std::size_t>(index)]; }
  auto begin() const { return Lines().begin(); }
  auto end() const { return Lines().end(); }

  void Clear();
  void Add(std::string line);
  /// REQUIRES: 0 <= index <= Count().
  void Insert(int index, std::string line);
  /// REQUIRES: 0 <= index < Count().
  void Delete(int index);

  /// The lines joined by "\r\n", with no break after the last. The reference lives until the list changes.
  const std::string& Text() const;
  /// Replaces the lines, split at "\r\n" alone, so that Text gives back exactly this text: a lone "\n" may
  /// stand inside a value of a statement. An empty text gives no line. The text is not split before a line is
  /// asked for: most statements are taken and given back whole.
  void SetText(std::string text);
  /// Replaces the lines by the pieces of a comma text: pieces end at commas or blanks, a piece in double
  /// quotes may hold both (a doubled quote stands for one).
  void SetCommaText(std::string_view text);

  /// First line equal to `line` without regard to the case of ASCII letters; NotFound when there is none.
  int IndexOf(std::string_view line) const;
  /// Value of the first line `name=value`, the name compared without regard to case; empty when absent.
  std::string Values(std::string_view name) const;
  /// Sets or adds the line `name=value`.
  void SetValue(std::string_view name, std::string_view value);

  /// Grows with every change: lets an owner notice that the lines are not those it saw last.
  unsigned Revision() const { return FRevision; }

 private:
  const std::vector<std::string>& Lines() const;
  /// The lines of a list that is about to change.
  std::vector<std::string>& ChangingLines();

  // The list as lines and as one text. The one that is empty is made from the other when it is asked for.
  mutable std::vector<std::string> FLines;
  mutable std::string FWhole;
  unsigned FRevision = 0;
};

/// Equality without regard to the case of ASCII letters.
ZAN_EXPORT bool SameText(std::string_view a, std::string_view b);
/// ASCII letters in lower case, everything else as it stands.
ZAN_EXPORT std::string LowerCase(std::string_view text);
/// Without leading and trailing blanks and control characters (all bytes up to U+0020).
ZAN_EXPORT std::string Trim(std::string_view text);
/// The text between single quotes, quotes inside doubled.
ZAN_EXPORT std::string QuotedStr(std::string_view text);
/// Every occurrence of `from` replaced by `to`; `ignoreCase` folds ASCII letters.
ZAN_EXPORT std::string StringReplace(std::string_view text, std::string_view from, std::string_view to,
                                     bool ignoreCase = false);
/// "yyyy-mm-dd hh:nn:ss"; milliseconds are left out.
ZAN_EXPORT std::string DateTimeToText(TDateTime time);
/// Reads "yyyy-mm-dd", optionally followed by a blank or T and "hh:nn:ss" with optional fraction.
/// Raises EConvertError for anything else.
ZAN_EXPORT TDateTime TextToDateTime(std::string_view text);
/// The whole text as a decimal integer. Raises EConvertError when it is none or does not fit.
ZAN_EXPORT int StrToInt(std::string_view text);
/// Like StrToInt, but gives `fallback` where that raises.
ZAN_EXPORT int StrToIntDef(std::string_view text, int fallback) noexcept;
/// "true" or "-1" or any other non-zero number is true, "false" or "0" false, in any case of letters.
/// Raises EConvertError for any other text.
ZAN_EXPORT bool StrToBool(std::string_view text);
/// "True" or "False": the words that StrToBool reads back.
ZAN_EXPORT std::string BoolToStr(bool value);

}  // namespace zanrole
