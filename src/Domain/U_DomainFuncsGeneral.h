#pragma once

#include <string>

#include "Domain/U_DomainFuncsBase.h"
#include "Domain/U_DomainFuncsImp.h"

// A field that the caller chooses, over the domains that he chooses.

namespace zanrole {

class ZAN_EXPORT TSysFunc_GetDomains final : public TDomainScopeFunc {
 public:
  std::string FuncName() const override { return "GetDomains"; }
  std::string FuncDescription() const override { return "获取域列表"; }

 protected:
  const char* FieldDescription() const override {
    return "指定要返回的内容，如（ID/Code/Name），只能选择一个";
  }
  std::string Ask(const std::string& field, const std::string& scope, bool includeLower) const override {
    return TDomainFuncImpl::GetDomains(field, scope, includeLower);
  }
};

class ZAN_EXPORT TSysFunc_GetDomainUsers final : public TDomainScopeFunc {
 public:
  std::string FuncName() const override { return "GetDomainUsers"; }
  std::string FuncDescription() const override { return "获取域用户列表"; }

 protected:
  const char* FieldDescription() const override {
    return "指定要返回的内容，如（OID/UserID/UserName），只能选择一个";
  }
  std::string Ask(const std::string& field, const std::string& scope, bool includeLower) const override {
    return TDomainFuncImpl::GetDomainUsers(field, scope, includeLower);
  }
};

class ZAN_EXPORT TSysFunc_GetDomainRoles final : public TDomainScopeFunc {
 public:
  std::string FuncName() const override { return "GetDomainRoles"; }
  std::string FuncDescription() const override { return "获取域角色列表"; }

 protected:
  const char* FieldDescription() const override {
    return "指定要返回的内容，如（OID/UserName），只能选择一个";
  }
  std::string Ask(const std::string& field, const std::string& scope, bool includeLower) const override {
    return TDomainFuncImpl::GetDomainRoles(field, scope, includeLower);
  }
};

class ZAN_EXPORT TSysFunc_GetDomainManagers final : public TDomainScopeFunc {
 public:
  std::string FuncName() const override { return "GetDomainManagers"; }
  std::string FuncDescription() const override { return "获取域管理员列表"; }

 protected:
  const char* FieldDescription() const override {
    return "指定要返回的内容，如（OID/UserID/UserName），只能选择一个";
  }
  std::string Ask(const std::string& field, const std::string& scope, bool includeLower) const override {
    return TDomainFuncImpl::GetDomainManagers(field, scope, includeLower);
  }
};

class ZAN_EXPORT TSysFunc_GetDomainInfo final : public TDomainFunc {
 public:
  std::string FuncName() const override { return "GetDomainInfo"; }
  std::string FuncDescription() const override { return "获取域信息"; }
  bool Execute() override {
    const auto field = Input("返回内容");
    if (!field) return false;
    const auto condition = Input("查询条件");
    if (!condition) return false;
    StoreResult([&] { return TDomainFuncImpl::GetDomainInfo(*field, *condition); });
    return true;
  }

 protected:
  void DeclareInputs(TFuncParamList& inputs) const override {
    Declare(inputs, "返回内容", TFuncDataType::String,
            "指定要返回的字段名，如（ID/Code/Name），只能选择一个");
    Declare(inputs, "查询条件", TFuncDataType::String, "用于搜索具体记录的where表达式");
  }
};

}  // namespace zanrole
