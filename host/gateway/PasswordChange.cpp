#include "host/gateway/PasswordChange.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/write.hpp>
#include <sstream>

#include "host/gateway/ChildProcess.h"
#include "host/gateway/Options.h"

namespace zanhost {

namespace {

constexpr std::chrono::seconds kLongest{30};
constexpr std::size_t kLongestRefusal = 4096;
constexpr std::string_view kProgramName = "zanhost: ";

// What the child said, without the program's name before each line.
std::string SentencesOf(const std::string& complaint) {
  std::string sentences;
  std::istringstream lines(complaint);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(kProgramName)) line.erase(0, kProgramName.size());
    if (!line.empty()) sentences += (sentences.empty() ? "" : "\n") + line;
  }
  return sentences;
}

TCommand CommandFor(const TPasswordChange& change) {
  TCommand command{OwnProgram(), {"passwd"}, change.Data};
  if (!change.Trace.empty())
    command.Arguments.insert(command.Arguments.end(), {"--trace", change.Trace.string()});
  // A login that begins with a dash is no option.
  command.Arguments.insert(command.Arguments.end(), {"--", change.Login});
  return command;
}

}  // namespace

TTask<std::optional<std::string>> ChangePassword(asio::any_io_executor executor, TPasswordChange change) {
  const auto child = std::make_shared<TChildProcess>(executor, CommandFor(change));
  asio::steady_timer limit(executor, kLongest);
  limit.async_wait([child](boost::system::error_code stopped) {
    if (!stopped) child->Kill();
  });
  change.Password += '\n';
  co_await asio::async_write(child->Channel(), asio::buffer(change.Password), kWithError);
  boost::system::error_code gone;
  child->Channel().shutdown(asio::socket_base::shutdown_send, gone);
  std::string refusal;
  co_await asio::async_read(child->Errors(), asio::dynamic_buffer(refusal, kLongestRefusal), kWithError);
  const int status = co_await child->Ended();
  if (status == 0) co_return std::nullopt;
  refusal = SentencesOf(refusal);
  co_return refusal.empty() ? "The password could not be stored: " + DescribeStatus(status) : refusal;
}

}  // namespace zanhost
