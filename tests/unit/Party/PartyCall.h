#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Party/PartySysFunc.h"

namespace zantest {

/// A role function as an expression calls it: found by its name in the table of classes, with a description
/// of its own.
struct TPartyCall {
  explicit TPartyCall(std::string_view name) {
    std::vector<zanrole::TFuncClass> classes;
    zanrole::AppendPartyFuncClasses(classes);
    for (const zanrole::TFuncClass& funcClass : classes) {
      auto func = funcClass.Create();
      if (func->FuncName() != name) continue;
      Func = std::move(func);
      Info = Func->NewFuncInfo();
      Func->FuncInfo = Info.get();
      return;
    }
    throw zanrole::EZanError("no such function");
  }

  bool Execute() { return Func->Execute(); }
  /// The one output.
  std::string Answer() const { return Info->OutParams.begin()->Value; }

  std::unique_ptr<zanrole::TBaseFunc> Func;
  std::unique_ptr<zanrole::TFuncInfo> Info;
};

/// What the function answers when its inputs, in their order, have these values.
inline std::string AskParty(std::string_view name, std::initializer_list<std::string> inputs) {
  TPartyCall call(name);
  auto param = call.Info->InParams.begin();
  for (const std::string& value : inputs) (param++)->Value = value;
  call.Execute();
  return call.Answer();
}

}  // namespace zantest
