#include "Frame/Commlib.h"

#include "Frame/Session.h"

namespace zanrole {

namespace {

TResourceStrings& Resources() { return TSession::Current().Host().Resources(); }

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
  const TFormatArg* next = args.begin();
  for (std::size_t at = 0; at < format.size(); ++at) {
    if (format[at] != '%') {
      text += format[at];
      continue;
    }
    const char kind = ++at < format.size() ? format[at] : '\0';
    if (kind == '%') {
      text += '%';
      continue;
    }
    if (next == args.end()) throw EConvertError("Format '" + std::string(format) + "' wants more arguments");
    text += ArgText(*next++, kind, format);
  }
  return text;
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
