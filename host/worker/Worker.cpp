#include "host/worker/Worker.h"

#include <unistd.h>

#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <csignal>
#include <optional>

#include "host/platform/Log.h"
#include "host/worker/ConsoleSession.h"
#include "host/worker/EndWithGateway.h"
#include "host/worker/MainForm.h"
#include "host/worker/WatchedChannel.h"

namespace zanhost {

namespace json = boost::json;

namespace {

/// Longest line that a session takes, in bytes.
constexpr std::size_t kLongestLine = std::size_t{1024} * 1024;

/// A channel over standard input and output.
struct TStandardChannel {
  TStandardChannel() {
    // A reader that has gone is found out at the next reading, not by a signal in the middle of an operation.
    std::signal(SIGPIPE, SIG_IGN);
  }
  TWatchedChannel Lines{STDIN_FILENO, STDOUT_FILENO, kLongestLine};
};

/// A session with its main window.
struct TBrowserSession {
  TConsoleSession Session;
  TMainForm Main;

  TBrowserSession(const TSessionOptions& options, TLineChannel& channel)
      : Session(options, channel), Main(Session.Loop(), Session.Host(), Session.Module()) {
    Session.Loop().HasGateway = true;
    Session.Loop().OnCommand = [this](const TEvent& event) { return Run(event); };
    Main.Show();
  }

  std::optional<json::object> Run(const TEvent& event) {
    if (event.Do != TDo::Language)
      throw EProtocolError("A browser opens consoles from its menu, and calls no functions");
    Session.ChooseLanguage(event);
    return std::nullopt;
  }
};

json::object CallAnswer(const TCallOutcome& outcome) {
  json::object out;
  for (const auto& [name, value] : outcome.Out) out[name] = value;
  return {{"result", outcome.Result}, {"out", std::move(out)}};
}

std::optional<json::object> RunForScript(TConsoleSession& session, const TEvent& event) {
  THostFuncManager& functions = session.Host().FuncManager();
  if (event.Do == TDo::Language) {
    session.ChooseLanguage(event);
    return std::nullopt;
  }
  const auto family = event.Do == TDo::Menu ? zanrole::TFuncType::Menu : zanrole::TFuncType::System;
  if (functions.Find(event.Function, family) == nullptr)
    throw EProtocolError("There is no such function: " + event.Function);
  if (event.Do == TDo::Call) return CallAnswer(CallFunction(functions, event.Function, event.Inputs));
  RunMenuFunction(functions, event.Function, event.Style, event.Inputs);
  return std::nullopt;
}

}  // namespace

int RunWorker(const TSessionOptions& options) {
  EndWithGateway();
  TStandardChannel channel;
  return RunWorker(options, channel.Lines);
}

int RunWorker(const TSessionOptions& options, TLineChannel& channel) {
  std::optional<TBrowserSession> session;
  try {
    session.emplace(options, channel);
  } catch (const std::exception& fault) {
    channel.Write(json::serialize(json::object{{"failed", OutcomeOf(fault)}}));
    return 1;
  }
  channel.Write(R"({"ready":true})");
  session->Session.Loop().Run();
  return 0;
}

int RunScript(const TSessionOptions& options) {
  TStandardChannel channel;
  return RunScript(options, channel.Lines);
}

int RunScript(const TSessionOptions& options, TLineChannel& channel) {
  TConsoleSession session(options, channel);
  session.Loop().OnCommand = [&](const TEvent& event) { return RunForScript(session, event); };
  session.Loop().Attach();
  session.Loop().Run();
  return 0;
}

}  // namespace zanhost
