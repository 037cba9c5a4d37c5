#include <algorithm>
#include <thread>

#include "host/cli/Commands.h"
#include "host/cli/CommonOptions.h"
#include "host/gateway/Gateway.h"
#include "host/platform/InstalledData.h"
#include "host/query/DataUrl.h"
#include "host/query/RestrictedDatabase.h"

namespace zanhost {

namespace {

constexpr char kExamples[] = R"(Examples:
  zanhost serve --data sqlite:data
  zanhost serve --data sqlite:data --listen 0.0.0.0:8443 --tls-cert cert.pem --tls-key key.pem
  zanhost serve --data sqlite:data --listen 10.0.0.5:8700 --behind-proxy 10.0.0.1

Off this machine's own addresses it listens only with TLS or behind a proxy that is named. SIGTERM ends every login
cleanly. People log in by themselves, so --user, --builder and --domain have no effect here.)";

struct TServeCommand {
  TSessionOptions Session;
  TServeOptions Serve;
};

void AddListeningOptions(CLI::App& command, TServeOptions& options) {
  command.add_option("--listen", options.Listen, "Address and port; port 0 takes any free one")
      ->type_name("ADDR:PORT")
      ->capture_default_str();
  CLI::Option* const certificate =
      command.add_option("--tls-cert", options.TlsCertificate, "PEM file with the certificate and its chain")
          ->type_name("FILE");
  CLI::Option* const key =
      command.add_option("--tls-key", options.TlsKey, "PEM file with the private key")->type_name("FILE");
  certificate->needs(key);
  key->needs(certificate);
  command
      .add_option("--behind-proxy", options.BehindProxy, "Address of the reverse proxy that may be believed")
      ->type_name("ADDR");
  command.add_option("--web", options.Web, "Folder of the built browser client")->type_name("DIR");
}

void AddSeconds(CLI::App& command, const std::string& name, std::chrono::seconds& value,
                const std::string& description) {
  command
      .add_option_function<unsigned>(
          name, [&value](unsigned seconds) { value = std::chrono::seconds(seconds); }, description)
      ->type_name("SECONDS")
      ->check(CLI::Range(1U, 86400U))
      ->default_str(std::to_string(value.count()));
}

void AddLimits(CLI::App& command, TServeOptions& options) {
  AddSeconds(command, "--idle", options.Idle, "A login without any event for so long ends");
  AddSeconds(command, "--stuck", options.Stuck, "A session that owes an answer for so long is ended");
  AddSeconds(command, "--end-limit", options.EndLimit, "How long a session may take to end");
  command.add_option("--max-sessions", options.MaxSessions, "Logins at the same time")
      ->type_name("N")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  command
      .add_option("--max-connections", options.MaxConnectionsPerAddress, "Open connections of one address")
      ->type_name("N")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  command.add_option("--max-upload", options.MaxUpload, "Size of one uploaded file")
      ->type_name("BYTES")
      ->capture_default_str();
}

void AddAnswering(CLI::App& command, TServeOptions& options) {
  constexpr unsigned mostProcesses = 64;
  options.AnswerProcesses = std::clamp(std::thread::hardware_concurrency(), 1U, mostProcesses);
  command.add_option("--answer-processes", options.AnswerProcesses, "Processes that answer other services")
      ->type_name("N")
      ->check(CLI::Range(1U, mostProcesses))
      ->capture_default_str();
  AddSeconds(command, "--answer-limit", options.AnswerLimit, "How long one answer to a service may take");
  command
      .add_option("--restricted-data", options.RestrictedData,
                  "The data on a server as an account sees it that reads no passwords and writes nothing")
      ->type_name("URL")
      ->envname(kRestrictedDataVariable);
}

int ServeInstalled(const TServeOptions& options) {
  // Said before anything is made or listened to.
  OpenInstalledData(options.Data);
  if (!options.RestrictedData.empty()) OpenRestricted(options.RestrictedData);
  return Serve(options);
}

}  // namespace

void AddServeCommand(CLI::App& program, TRun& run) {
  CLI::App* const command = program.add_subcommand("serve", "Serve the consoles to browsers");
  command->footer(kExamples);
  const auto options = std::make_shared<TServeCommand>();
  AddCommonOptions(*command, options->Session);
  // Taken as everywhere, but without an effect: the footer says so.
  for (const char* const unused : {"--user", "--builder", "--domain"}) command->get_option(unused)->group("");
  AddListeningOptions(*command, options->Serve);
  AddLimits(*command, options->Serve);
  AddAnswering(*command, options->Serve);
  // For the tests of the gateway.
  command->add_option("--worker-program", options->Serve.WorkerProgram)->group("");
  command->callback([options, &run] {
    options->Serve.Data = options->Session.Data;
    options->Serve.Trace = options->Session.Trace;
    run = [options] {
      options->Serve.Folder = FolderOfData(options->Session.Data);
      return ServeInstalled(options->Serve);
    };
  });
}

}  // namespace zanhost
