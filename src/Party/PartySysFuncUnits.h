#pragma once

#include <string>

#include "Party/PartySysFuncBase.h"
#include "Party/PartyUn.h"

// Main posts, departments and companies of people.

namespace zanrole {

class ZAN_EXPORT TSysFunc_GetUserOID final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RoleGetUserOID"; }
  std::string FuncDescription() const override { return "取用户号的ObjID"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "用户OID"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::GetUserOID(value); }
};

class ZAN_EXPORT TSysFunc_GetUserOIDS final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RoleGetUserOIDS"; }
  std::string FuncDescription() const override { return "取用户号集的OID集"; }

 protected:
  const char* Input() const override { return "用户号集"; }
  const char* Output() const override { return "用户OID集"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::GetUserOIDS(value); }
};

class ZAN_EXPORT TSysFunc_DepartmentOID final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RoleDepartmentOID"; }
  std::string FuncDescription() const override { return "取用户部门OID"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "部门OID"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::DepartmentOID(value); }
};

class ZAN_EXPORT TSysFunc_DepartmentCode final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RoleDepartmentCode"; }
  std::string FuncDescription() const override { return "取用户部门号"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "部门号"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::DepartmentCode(value); }
};

class ZAN_EXPORT TSysFunc_DepartmentName final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RoleDepartmentName"; }
  std::string FuncDescription() const override { return "取用户部门名称"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "部门名称"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::DepartmentName(value); }
};

class ZAN_EXPORT TSysFunc_CompanyOID final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RoleCompanyOID"; }
  std::string FuncDescription() const override { return "取用户公司OID"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "公司OID"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::CompanyOID(value); }
};

class ZAN_EXPORT TSysFunc_CompanyCode final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RoleCompanyCode"; }
  std::string FuncDescription() const override { return "取用户公司编码"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "公司号"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::CompanyCode(value); }
};

class ZAN_EXPORT TSysFunc_CompanyName final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RoleCompanyName"; }
  std::string FuncDescription() const override { return "取用户公司名称"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "公司名称"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::CompanyName(value); }
};

}  // namespace zanrole
