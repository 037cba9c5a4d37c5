#include "host/gateway/PasswordChange.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/read.hpp>
#include <boost/asio/write.hpp>

#include "host/gateway/ChildProcess.h"
#include "host/gateway/Options.h"

namespace zanhost {

namespace {

constexpr std::chrono::seconds kLongest{30};
constexpr std::size_t kLongestRefusal = 4096;
constexpr std::string_view kProgramName = "zanhost: ";

// The child's sentence without the program's name before it.
std::string SentenceOf(std::string complaint) {
  while (complaint.ends_with('\n')) complaint.pop_back();
  if (complaint.starts_with(kProgramName)) complaint.erase(0, kProgramName.size());
  return complaint;
}

}  // namespace

TTask<std::optional<std::string>> ChangePassword(asio::any_io_executor executor, std::string data,
                                                 std::string login, std::string password) {
  const auto child = std::make_shared<TChildProcess>(
      executor, TCommand{OwnProgram(), {"passwd", "--data", std::move(data), "--", std::move(login)}});
  asio::steady_timer limit(executor, kLongest);
  limit.async_wait([child](boost::system::error_code stopped) {
    if (!stopped) child->Kill();
  });
  password += '\n';
  co_await asio::async_write(child->Channel(), asio::buffer(password), kWithError);
  boost::system::error_code gone;
  child->Channel().shutdown(asio::socket_base::shutdown_send, gone);
  std::string refusal;
  co_await asio::async_read(child->Errors(), asio::dynamic_buffer(refusal, kLongestRefusal), kWithError);
  const int status = co_await child->Ended();
  if (status == 0) co_return std::nullopt;
  refusal = SentenceOf(std::move(refusal));
  co_return refusal.empty() ? "The password could not be stored: " + DescribeStatus(status) : refusal;
}

}  // namespace zanhost
