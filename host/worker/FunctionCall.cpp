#include "host/worker/FunctionCall.h"

#include <fmt/format.h>

namespace zanhost {

using zanrole::TFuncInfo;
using zanrole::TFuncParam;
using zanrole::TFuncParamList;
using zanrole::TFuncType;

namespace {

const TFunction& FindOrRaise(THostFuncManager& manager, std::string_view name, TFuncType type,
                             const char* family) {
  const TFunction* const function = manager.Find(name, type);
  if (function == nullptr) throw zanrole::EZanError(fmt::format("There is no {} function {}", family, name));
  return *function;
}

/// Gives the names that the list did not declare.
std::vector<std::string> Fill(TFuncParamList& list, const TNamedValues& values) {
  std::vector<std::string> undeclared;
  for (const auto& [name, value] : values) {
    if (TFuncParam* const declared = list.find(name)) {
      declared->Value = value;
      continue;
    }
    TFuncParam extra;
    extra.Name = name;
    extra.Value = value;
    list.Add(std::move(extra));
    undeclared.push_back(name);
  }
  return undeclared;
}

}  // namespace

TCallOutcome CallFunction(THostFuncManager& manager, std::string_view name, const TNamedValues& inputs) {
  const TFunction& function = FindOrRaise(manager, name, TFuncType::System, "system");
  TFuncInfo info = *function.Info;
  TCallOutcome outcome;
  outcome.Undeclared = Fill(info.InParams, inputs);
  outcome.Result = THostFuncManager::Execute(function, info, /*style*/ 0);
  outcome.Out.reserve(static_cast<std::size_t>(info.OutParams.Count()));
  for (TFuncParam& out : info.OutParams) outcome.Out.emplace_back(std::move(out.Name), std::move(out.Value));
  return outcome;
}

void RunMenuFunction(THostFuncManager& manager, std::string_view name, int style,
                     const TNamedValues& inputs) {
  const TFunction& function = FindOrRaise(manager, name, TFuncType::Menu, "menu");
  TFuncInfo info = *function.Info;
  Fill(info.InParams, inputs);
  THostFuncManager::Execute(function, info, style);
}

}  // namespace zanhost
