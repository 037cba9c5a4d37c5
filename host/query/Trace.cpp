#include "host/query/Trace.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <boost/json.hpp>
#include <cerrno>
#include <cstring>

#include "host/query/Redaction.h"

namespace zanhost {

namespace {

boost::json::value ToJson(const zanrole::TZanValue& value) {
  if (std::holds_alternative<std::monostate>(value)) return nullptr;
  if (const auto* number = std::get_if<std::int64_t>(&value)) return *number;
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* truth = std::get_if<bool>(&value)) return *truth;
  return boost::json::value(zanrole::ValueAsString(value));
}

bool MayBePassword(const zanrole::TParam& param) {
  return std::holds_alternative<std::string>(param.Value()) || TouchesPasswords(param.Name());
}

boost::json::object ParamsToJson(const zanrole::TParams& params, bool redacted) {
  boost::json::object object;
  for (const zanrole::TParam& param : params) {
    const bool hidden = redacted && MayBePassword(param);
    object[param.Name()] = hidden ? boost::json::value(kHidden) : ToJson(param.Value());
  }
  return object;
}

}  // namespace

std::string TraceLine(const TTraceEntry& entry) {
  const bool redacted = TouchesPasswords(entry.Text);
  boost::json::object line;
  line["database"] = entry.Database;
  line["text"] = RedactStatement(entry.Text);
  if (!entry.Sent.empty()) line["sent"] = redacted ? RedactStatement(entry.Sent) : std::string(entry.Sent);
  line["params"] = entry.Params != nullptr ? ParamsToJson(*entry.Params, redacted) : boost::json::object();
  line["rows"] = entry.Rows;
  if (entry.RoundTrips > 0) line["trips"] = entry.RoundTrips;
  line["us"] = entry.Time.count();
  if (!entry.Error.empty()) line["error"] = redacted ? entry.ErrorKind : entry.Error;
  return boost::json::serialize(line);
}

TTrace::TTrace(const std::string& file)
    : FFile(open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, S_IRUSR | S_IWUSR)) {
  if (FFile < 0)
    throw zanrole::EZanError(
        fmt::format("The trace file '{}' cannot be opened: {}.", file, std::strerror(errno)));
}

TTrace::~TTrace() { close(FFile); }

void TTrace::Write(const TTraceEntry& entry) noexcept {
  try {
    const std::string line = TraceLine(entry) + "\n";
    [[maybe_unused]] const ssize_t written = write(FFile, line.data(), line.size());
  } catch (const std::exception&) {
    // The line is lost, as the header says.
  }
}

}  // namespace zanhost
