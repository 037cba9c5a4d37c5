#pragma once

#include <string>

#include "Domain/U_DomainFuncsBase.h"
#include "Domain/U_DomainFuncsImp.h"

// May the operator act on a domain?

namespace zanrole {

class ZAN_EXPORT TSysFunc_CheckDomainAuthById final : public TDomainAuthFunc {
 public:
  std::string FuncName() const override { return "CheckDomainAuthById"; }
  std::string FuncDescription() const override { return "检查指定ID的域对于当前用户是否有权访问"; }

 protected:
  const char* DeclaredInput() const override { return "域ID"; }
  TFuncDataType InputType() const override { return TFuncDataType::Integer; }
  bool IsUsable(const std::string& value) const override { return StrToIntDef(value, -1) >= 0; }
  bool Check(const std::string& value) const override {
    return TDomainFuncImpl::CheckDomainAuthById(StrToInt(value));
  }
};

class ZAN_EXPORT TSysFunc_CheckDomainAuthByCode final : public TDomainAuthFunc {
 public:
  std::string FuncName() const override { return "CheckDomainAuthByCode"; }
  std::string FuncDescription() const override { return "检查指定代码的域对于当前用户是否有权访问"; }

 protected:
  const char* DeclaredInput() const override { return "域代码"; }
  bool Check(const std::string& value) const override {
    return TDomainFuncImpl::CheckDomainAuthByCode(value);
  }
};

/// Declares one input and reads another: only a caller that passes the latter gets an answer. Required as it
/// stands.
class ZAN_EXPORT TSysFunc_CheckDomainAuthByNodeCode final : public TDomainAuthFunc {
 public:
  std::string FuncName() const override { return "CheckDomainAuthByNodeCode"; }
  std::string FuncDescription() const override { return "检查指定节点代码的域对于当前用户是否有权访问"; }

 protected:
  const char* DeclaredInput() const override { return "域节点代码"; }
  const char* ReadInput() const override { return "域代码"; }
  bool Check(const std::string& value) const override {
    return TDomainFuncImpl::CheckDomainAuthByNodeCode(value);
  }
};

class ZAN_EXPORT TSysFunc_CheckDomainAuthByName final : public TDomainAuthFunc {
 public:
  std::string FuncName() const override { return "CheckDomainAuthByName"; }
  std::string FuncDescription() const override { return "检查指定名称的域对于当前用户是否有权访问"; }

 protected:
  const char* DeclaredInput() const override { return "域名称"; }
  bool Check(const std::string& value) const override {
    return TDomainFuncImpl::CheckDomainAuthByName(value);
  }
};

}  // namespace zanrole
