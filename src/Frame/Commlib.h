#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

#include "Frame/Host/Forms.h"

namespace zanrole {

/// What a format takes: `%s` a text, `%d` an integer.
using TFormatArg = std::variant<std::string_view, std::int64_t>;

/// `format` with each `%s` and `%d` replaced by the next argument, and `%%` by one percent sign.
/// Raises EConvertError when an argument is missing or of the other kind.
std::string Format(std::string_view format, std::initializer_list<TFormatArg> args);

/// The door to the host's resource strings. Every caption and message goes through it with its default text
/// as the key; without an entry the key comes back.
class ZAN_EXPORT TZanResEx {
 public:
  static constexpr std::string_view File = "Party.dll";
  static constexpr std::string_view Section = "PartyFunc";
  static constexpr std::string_view GlobalSection = "Global";

  static std::string resByExFunc(std::string_view key, std::string_view section = Section,
                                 std::string_view file = File);
  static std::string resByGlobal(std::string_view key);
  static std::string resBySystem(std::string_view key);
  /// The resource of the format key, filled with the arguments.
  static std::string resFormat(std::string_view formatKey, std::initializer_list<TFormatArg> args);
  /// Asks the host to fetch the resource file, so that later lookups find it.
  static void resDLLDownload(std::string_view section = Section);
  static void resDLLDownload(std::string_view file, std::string_view section);
  static void SetControlFont(TComponent& control);
};

}  // namespace zanrole
