#include "host/gateway/Gateway.h"

#include <fmt/format.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/signal_set.hpp>
#include <csignal>
#include <exception>
#include <iostream>
#include <utility>

#include "host/gateway/Api.h"
#include "host/gateway/ListenRules.h"
#include "host/gateway/Listener.h"
#include "host/gateway/Login.h"
#include "host/gateway/ServiceApi.h"
#include "host/gateway/Sessions.h"
#include "host/gateway/StaticFiles.h"
#include "host/gateway/TemporaryFolder.h"
#include "host/platform/Log.h"
#include "host/platform/Process.h"

namespace zanhost {

using asio::ip::tcp;

namespace {

// After the last worker: time for the last lines to reach the pages.
constexpr std::chrono::milliseconds kFarewell{200};

TConnectionRules ConnectionRules(const TServeOptions& options) {
  return {ReadTlsFiles(options), ProxyAddress(options)};
}

TSessionSettings SessionSettings(const TServeOptions& options) {
  const bool isOwn = options.WorkerProgram.empty();
  return {.WorkerProgram = isOwn ? OwnProgram() : options.WorkerProgram,
          .Data = options.Data,
          .Trace = options.Trace,
          .Idle = options.Idle,
          .Stuck = options.Stuck,
          .EndLimit = options.EndLimit};
}

TAnswerSettings AnswerSettings(const TServeOptions& options) {
  return {.Program = OwnProgram(),
          .Data = options.Data,
          .RestrictedData = options.RestrictedData,
          .Trace = options.Trace,
          .Processes = options.AnswerProcesses,
          .Limit = options.AnswerLimit,
          .EndLimit = options.EndLimit};
}

std::string DescribeListenFault(const TServeOptions& options, const boost::system::error_code& fault) {
  if (fault == asio::error::address_in_use)
    return fmt::format(
        "Cannot listen on {}: another program uses this port. Stop that program, or choose another port with "
        "--listen ADDR:PORT.",
        options.Listen);
  return fmt::format("Cannot listen on {}: {}.", options.Listen, fault.message());
}

class TGateway {
 public:
  explicit TGateway(const TServeOptions& options);
  void Run();

 private:
  std::unique_ptr<TListener> Listen();
  bool IsEndedByHangup() const;
  TTask<> EndAtSignal();
  TTask<> RenewCertificateAtSignal();
  void LogLine(std::string_view outcome) { FLog.Write({{}, {}, "serve", std::string(outcome), {}}); }

  const TServeOptions& FOptions;
  // Before all that waits in it, so that it ends after them.
  asio::io_context FContext{1};
  TConnectionRules FRules;
  tcp::endpoint FWanted;
  TLog FLog;
  TTemporaryFolder FFiles;
  TLoginDesk FLogin;
  TSessions FSessions;
  TAnswerPool FAnswers;
  TServiceApi FServices;
  TStaticFiles FStaticFiles;
  TApi FApi;
  std::unique_ptr<TListener> FListener;
};

TGateway::TGateway(const TServeOptions& options)
    : FOptions(options),
      FRules(ConnectionRules(options)),
      FWanted(ListenEndpoint(options)),
      FLog(options.Folder),
      FLogin(FContext.get_executor(), options, FLog),
      FSessions(FContext.get_executor(), SessionSettings(options), options.MaxSessions, FFiles.Path(), FLog),
      FAnswers(FContext.get_executor(), AnswerSettings(options), FLog),
      FServices(options.Folder, FAnswers, FLog),
      FStaticFiles(ClientFolder(options.Web)),
      FApi(FLogin, FSessions, FServices, FStaticFiles, options.MaxUpload),
      FListener(Listen()) {}

std::unique_ptr<TListener> TGateway::Listen() {
  try {
    return std::make_unique<TListener>(FContext.get_executor(), FWanted, FRules, FApi,
                                       FOptions.MaxConnectionsPerAddress);
  } catch (const boost::system::system_error& fault) {
    throw EBadOption(DescribeListenFault(FOptions, fault.code()));
  }
}

void TGateway::Run() {
  // A session takes three descriptors here, and the usual limit is 1024.
  RaiseDescriptorLimit();
  // Who read what is printed here may go.
  std::signal(SIGPIPE, SIG_IGN);
  const tcp::endpoint endpoint = FListener->Endpoint();
  const std::string host = endpoint.address().is_v6() ? "[" + endpoint.address().to_string() + "]"
                                                      : endpoint.address().to_string();
  const std::string address = fmt::format("{}://{}:{}", FRules.Tls ? "https" : "http", host, endpoint.port());
  Spawn(FContext.get_executor(), "signals", EndAtSignal());
  if (FRules.Tls) Spawn(FContext.get_executor(), "certificate", RenewCertificateAtSignal());
  Spawn(FContext.get_executor(), "sessions", FSessions.Watch());
  Spawn(FContext.get_executor(), "answers", FAnswers.Watch());
  Spawn(FContext.get_executor(), "listener", FListener->Run());
  // Told by the loop, behind the tasks above: by then a signal finds them waiting.
  asio::post(FContext, [this, address] {
    LogLine("listens on " + address);
    std::cout << "zanhost listens on " << address << std::endl;
  });
  FContext.run();
  LogLine("stopped");
}

// The terminal is gone. Not when a certificate is to be read again, and not for who asked to go on (nohup).
bool TGateway::IsEndedByHangup() const {
  struct sigaction hangup {};
  ::sigaction(SIGHUP, nullptr, &hangup);
  return !FRules.Tls && hangup.sa_handler != SIG_IGN;
}

// A second signal does not wait for workers: they are killed as the gateway ends.
TTask<> TGateway::EndAtSignal() {
  asio::signal_set signals(FContext, SIGTERM, SIGINT);
  if (IsEndedByHangup()) signals.add(SIGHUP);
  co_await signals.async_wait(kWithError);
  signals.async_wait([this](boost::system::error_code, int) { FContext.stop(); });
  FListener->Stop();
  co_await FSessions.EndAll("stopped");
  co_await FAnswers.EndAll();
  asio::steady_timer farewell(FContext, kFarewell);
  co_await farewell.async_wait(kWithError);
  FContext.stop();
}

TTask<> TGateway::RenewCertificateAtSignal() {
  asio::signal_set signals(FContext, SIGHUP);
  for (;;) {
    co_await signals.async_wait(kWithError);
    try {
      FRules.Tls = ReadTlsFiles(FOptions);
      LogLine("certificate read again");
    } catch (const EBadOption& fault) {
      LogLine(fault.what());
    }
  }
}

}  // namespace

int Serve(const TServeOptions& options) {
  try {
    TGateway(options).Run();
    return 0;
  } catch (const std::exception& fault) {
    std::cerr << "zanhost serve: " << OutcomeOf(fault) << '\n';
    return 1;
  }
}

}  // namespace zanhost
