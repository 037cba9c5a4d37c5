#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "Domain/U_DomainFuncs.h"

namespace zantest {

/// One call of a domain function, made as a host makes it: the class out of the table, a description of its
/// own.
class TDomainCall {
 public:
  explicit TDomainCall(std::string_view funcName) {
    std::vector<zanrole::TFuncClass> classes;
    zanrole::AppendDomainFuncClasses(classes);
    for (const zanrole::TFuncClass& row : classes) {
      Func = row.Create();
      if (Func->FuncName() == funcName) break;
      Func.reset();
    }
    if (Func == nullptr) throw std::invalid_argument("no function " + std::string(funcName));
    Info = Func->NewFuncInfo();
    Func->FuncInfo = Info.get();
  }

  /// Fills a declared input; raises std::invalid_argument when the function declares none of that name.
  TDomainCall& With(std::string_view input, std::string_view value) {
    zanrole::TFuncParam* param = Info->InParams.find(input);
    if (param == nullptr) throw std::invalid_argument("no input " + std::string(input));
    param->Value = value;
    return *this;
  }
  bool Execute() { return Func->Execute(); }
  std::string Result() const { return Info->OutParams.find("Result")->Value; }

  std::unique_ptr<zanrole::TBaseFunc> Func;
  std::unique_ptr<zanrole::TFuncInfo> Info;
};

}  // namespace zantest
