#include "host/gateway/Sessions.h"

#include <fmt/format.h>
#include <openssl/rand.h>

#include <array>
#include <stdexcept>
#include <utility>

#include "host/platform/Secrets.h"

namespace zanhost {

namespace {

constexpr std::size_t kSecretBytes = 32;
constexpr std::size_t kIdBytes = 4;
constexpr auto kWatchInterval = std::chrono::milliseconds(500);
constexpr auto kEndInterval = std::chrono::milliseconds(20);

template <std::size_t Size>
std::string RandomHex() {
  std::array<unsigned char, Size> bytes{};
  if (RAND_bytes(bytes.data(), static_cast<int>(bytes.size())) != 1)
    throw std::runtime_error("no random bytes for a session");
  std::string text;
  for (const unsigned char byte : bytes) text += fmt::format("{:02x}", byte);
  return text;
}

}  // namespace

TSessions::TSessions(asio::any_io_executor executor, TSessionSettings settings, std::size_t limit,
                     std::filesystem::path files, TLog& log)
    : FExecutor(std::move(executor)),
      FSettings(std::move(settings)),
      FLimit(limit),
      FFiles(std::move(files)),
      FLog(log) {}

std::optional<std::string> TSessions::Open(TOperator who) {
  ForgetGone();
  if (FHasEnded || FSessions.size() >= FLimit) return std::nullopt;
  std::string secret = RandomHex<kSecretBytes>();
  std::string id = fmt::format("{}-{}", ++FOpened, RandomHex<kIdBytes>());
  std::filesystem::path files = FFiles / id;
  FSessions.emplace(HexDigestOf(secret),
                    std::make_shared<TLoginSession>(FExecutor, FSettings, FLog, std::move(id), std::move(who),
                                                    std::move(files)));
  return secret;
}

std::shared_ptr<TLoginSession> TSessions::Find(std::string_view secret) const {
  if (secret.empty()) return nullptr;
  const auto found = FSessions.find(HexDigestOf(secret));
  return found == FSessions.end() || found->second->HasEnded() ? nullptr : found->second;
}

void TSessions::ForgetGone() {
  std::erase_if(FSessions, [](const auto& entry) { return entry.second->IsGone(); });
}

TTask<> TSessions::Watch() {
  asio::steady_timer timer(FExecutor);
  for (;;) {
    for (const auto& [key, session] : FSessions) session->Tick();
    ForgetGone();
    timer.expires_after(kWatchInterval);
    co_await timer.async_wait(kWithError);
  }
}

TTask<> TSessions::EndAll(std::string_view reason) {
  // A login that is being checked now would otherwise be waited for until somebody logs it off.
  FHasEnded = true;
  for (const auto& [key, session] : FSessions) session->End(reason);
  asio::steady_timer timer(FExecutor);
  for (ForgetGone(); !FSessions.empty(); ForgetGone()) {
    timer.expires_after(kEndInterval);
    co_await timer.async_wait(kWithError);
  }
}

}  // namespace zanhost
