#include "host/platform/Log.h"

#include <fmt/format.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include "Frame/Host/Zandbs.h"

namespace zanhost {

namespace {

// A line reaches the file whole as long as it fits into the file's buffer of 4096 bytes, escapes included.
constexpr std::size_t kLongestName = 200;
constexpr std::size_t kLongestOutcome = 1000;

bool IsInsideCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

std::string_view Shortened(std::string_view text, std::size_t longest) {
  if (text.size() <= longest) return text;
  std::size_t end = longest;
  while (end > 0 && IsInsideCharacter(text[end])) --end;
  return text.substr(0, end);
}

// A field in quotes; whatever it holds, it neither ends its line nor closes its quotes.
std::string Quoted(std::string_view text, std::size_t longest = kLongestName) {
  std::string quoted = "\"";
  for (const char c : Shortened(text, longest)) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += static_cast<unsigned char>(c) < ' ' || c == '\x7f' ? ' ' : c;
  }
  return quoted + '"';
}

}  // namespace

TLog::TLog(const std::filesystem::path& folder) {
  const std::filesystem::path file = folder / "log" / "zanhost.log";
  try {
    // Opened for appending: the system puts each write behind the last, whoever wrote that.
    auto sink = std::make_shared<spdlog::sinks::basic_file_sink_mt>(file.string());
    FLogger = std::make_shared<spdlog::logger>("zanhost", std::move(sink));
  } catch (const spdlog::spdlog_ex& fault) {
    throw zanrole::EZanError("The log cannot be written: " + std::string(fault.what()));
  }
  FLogger->set_pattern("%Y-%m-%dT%H:%M:%S.%e%z %v");
  FLogger->flush_on(spdlog::level::info);
  // What the log is about goes on without it.
  FLogger->set_error_handler([](const std::string& reason) {
    fmt::print(stderr, "zanhost: A line of the log could not be written: {}\n", reason);
  });
}

TLog::~TLog() = default;

void TLog::Write(const TOperation& operation) {
  FLogger->info("session={} operator={} operation={} outcome={} ms={}", Quoted(operation.Session),
                Quoted(operation.Operator), Quoted(operation.Name),
                Quoted(operation.Outcome, kLongestOutcome), operation.Took.count());
}

std::string OutcomeOf(const std::exception& fault) {
  const auto* statementFault = dynamic_cast<const zanrole::EDatabaseError*>(&fault);
  return statementFault != nullptr ? statementFault->Message() : fault.what();
}

}  // namespace zanhost
