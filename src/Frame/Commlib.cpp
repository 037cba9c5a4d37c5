#include "Frame/Commlib.h"

#include <algorithm>

#include "Frame/Session.h"

namespace zanrole {

namespace {

TResourceStrings& Resources() { return TSession::Current().Host().Resources(); }

/// Most arguments are shorter.
constexpr std::size_t kRoomOfArg = 16;

std::string ArgText(const TFormatArg& arg, char kind, std::string_view format) {
  if (kind == 's' && std::holds_alternative<std::string_view>(arg))
    return std::string(std::get<std::string_view>(arg));
  if (kind == 'd' && std::holds_alternative<std::int64_t>(arg))
    return std::to_string(std::get<std::int64_t>(arg));
  throw EConvertError("Format '" + std::string(format) + "' does not fit its arguments");
}

}  // namespace

std::string Format(std::string_view format, std::initializer_list<TFormatArg> args) {
  std::string text;
  text.reserve(format.size() + kRoomOfArg * args.size());
  const TFormatArg* next = args.begin();
  std::string_view rest = format;
  for (std::size_t sign = rest.find('%'); sign != std::string_view::npos; sign = rest.find('%')) {
    text.append(rest, 0, sign);
    const char kind = sign + 1 < rest.size() ? rest[sign + 1] : '\0';
    rest.remove_prefix(std::min(sign + 2, rest.size()));
    if (kind == '%') {
      text += '%';
      continue;
    }
    if (next == args.end()) throw EConvertError("Format '" + std::string(format) + "' wants more arguments");
    text += ArgText(*next++, kind, format);
  }
  return text.append(rest);
}

std::string TZanResEx::resByExFunc(std::string_view key, std::string_view section, std::string_view file) {
  return Resources().resD(key, file, section);
}

std::string TZanResEx::resByGlobal(std::string_view key) { return Resources().res(key, GlobalSection); }

std::string TZanResEx::resBySystem(std::string_view key) { return Resources().resS(key); }

std::string TZanResEx::resFormat(std::string_view formatKey, std::initializer_list<TFormatArg> args) {
  return Format(resByExFunc(formatKey), args);
}

void TZanResEx::resDLLDownload(std::string_view section) { resDLLDownload(File, section); }

void TZanResEx::resDLLDownload(std::string_view file, std::string_view section) {
  Resources().resDLLDownload(file, section);
}

void TZanResEx::SetControlFont(TComponent& control) { Resources().res_SetControlFont(control); }

}  // namespace zanrole
