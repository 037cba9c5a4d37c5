#include "tests/conformance/faults/Person.h"

#include "host/worker/FunctionCall.h"
#include "host/worker/HostSession.h"
#include "tests/support/LinkedModule.h"
#include "tests/support/TemporaryFolder.h"

namespace zantest {

namespace json = boost::json;
using namespace zanhost;

namespace {

constexpr std::string_view kBox = "TMessage";
constexpr int kCurrentDomain = 2;

std::optional<json::object> RunCommand(THostFuncManager& functions, const TEvent& event) {
  if (event.Do == TDo::Menu) {
    RunMenuFunction(functions, event.Function, event.Style, event.Inputs);
    return std::nullopt;
  }
  const TCallOutcome outcome = CallFunction(functions, event.Function, event.Inputs);
  json::object out;
  for (const auto& [name, value] : outcome.Out) out[name] = value;
  return json::object{{"out", out}};
}

void RunSession(TDatabase& database, TLineChannel& channel) {
  const TTemporaryFolder folder;
  const TSettings settings(folder.Path(), "zanhost.ini");
  const TModule module = LinkedModule();
  TResources resources;
  TSessionLoop loop(channel, resources);
  THostSessionImpl host({database, resources, settings, module, loop, loop},
                        {1, "sa", "超级", /*IsSuperUser*/ true, /*IsBuilder*/ false});
  const TModuleSession session(module, host);
  module.Entries()->SetCurrentDomainID(kCurrentDomain);
  loop.OnCommand = [&](const TEvent& event) { return RunCommand(host.FuncManager(), event); };
  loop.Attach();
  loop.Run();
}

}  // namespace

TPerson::TPerson(TFaultyDatabase& database)
    : FScreen([&database](TLineChannel& channel) { RunSession(database, channel); }) {}

void TPerson::Menu(std::string_view function) {
  FScreen.Menu(function);
  Look();
}

void TPerson::Act(std::string_view window, const std::string& action) {
  FPressed.insert(std::string(window) + "." + action);
  FScreen.Act(window, action);
  Look();
}

void TPerson::Select(std::string_view window, const std::string& name, std::string_view text) {
  FScreen.Select(window, name, text);
  Look();
}

void TPerson::Activate(std::string_view window, const std::string& name, std::string_view text) {
  FScreen.Activate(window, name, text);
  Look();
}

void TPerson::Set(std::string_view window, const std::string& name, std::string_view text) {
  FScreen.Set(window, name, text);
  Look();
}

void TPerson::ExpandAll(std::string_view window, const std::string& tree) {
  FScreen.ExpandAll(window, tree);
  Look();
}

void TPerson::Answer(const std::string& button) {
  FScreen.Answer(button);
  Look();
}

std::string TPerson::Call(std::string_view function, const json::object& inputs) {
  const json::object answer = FScreen.Call(function, inputs);
  if (const json::value* const error = answer.if_contains("error")) {
    FFaults.emplace_back(error->as_string());
    throw TSawFault{};
  }
  return json::serialize(answer.at("out"));
}

/// Notes which actions there are, and takes the boxes away that tell of faults.
void TPerson::Look() {
  for (const auto& [number, window] : FScreen.Client().Windows()) {
    const std::string name(window.Properties.at("class").as_string());
    if (name == kBox) continue;
    for (const auto& [part, known] : window.Parts)
      if (known.Properties.at("kind") == "action") FOffered.insert(name + "." + part);
  }
  const std::size_t before = FFaults.size();
  while (FScreen.IsOpen(kBox) && FScreen.WindowProperty(kBox, "kind") == "error")
    FFaults.push_back(FScreen.Answer("Ok"));
  if (FFaults.size() > before) throw TSawFault{};
}

}  // namespace zantest
