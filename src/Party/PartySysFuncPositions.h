#pragma once

#include <string>

#include "Party/PartySysFuncBase.h"
#include "Party/PartyUn.h"

// Positions of people, people on positions, and managers.

namespace zanrole {

class ZAN_EXPORT TSysFunc_PositionEntityOID final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RolePositionEntityOID"; }
  std::string FuncDescription() const override { return "取用户岗位成员OID"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "岗位成员OID"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::PositionEntityOID(value); }
};

class ZAN_EXPORT TSysFunc_PositionEntityCode final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RolePositionEntityCode"; }
  std::string FuncDescription() const override { return "取用户岗位成员号"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "岗位成员号"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::PositionEntityCode(value); }
};

class ZAN_EXPORT TSysFunc_PositionEntityName final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RolePositionEntityName"; }
  std::string FuncDescription() const override { return "取用户岗位成员名称"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "岗位成员名称"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::PositionEntityName(value); }
};

class ZAN_EXPORT TSysFunc_PositionCode final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RolePositionCode"; }
  std::string FuncDescription() const override { return "取用户岗位号"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "岗位号"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::PositionCode(value); }
};

class ZAN_EXPORT TSysFunc_PositionName final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RolePositionName"; }
  std::string FuncDescription() const override { return "取用户岗位名称"; }

 protected:
  const char* Input() const override { return "用户号"; }
  const char* Output() const override { return "岗位名称"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::PositionName(value); }
};

class ZAN_EXPORT TSysFunc_PositionUserOIDs final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RolePositionUserOIDs"; }
  std::string FuncDescription() const override { return "取岗位的用户集OID"; }

 protected:
  const char* Input() const override { return "岗位号"; }
  const char* Output() const override { return "用户集OID"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::PositionUserOIDs(value); }
};

class ZAN_EXPORT TSysFunc_PositionUsercodes final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RolePositionUserCodes"; }
  std::string FuncDescription() const override { return "取岗位的用户集号"; }

 protected:
  const char* Input() const override { return "岗位号"; }
  const char* Output() const override { return "用户集号"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::PositionUsercodes(value); }
};

class ZAN_EXPORT TSysFunc_PositionUserNames final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RolePositionUserNames"; }
  std::string FuncDescription() const override { return "取岗位的用户集名称"; }

 protected:
  const char* Input() const override { return "岗位号"; }
  const char* Output() const override { return "用户集名称"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::PositionUserNames(value); }
};

class ZAN_EXPORT TSysFunc_GetManagerCode final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RoleGetManagerCode"; }
  std::string FuncDescription() const override { return "得到公司/部门 负责人Code"; }

 protected:
  const char* Input() const override { return "ParentCode"; }
  const char* Output() const override { return "Result"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::GetManagerCode(value); }
};

class ZAN_EXPORT TSysFunc_GetManagerName final : public TPartyValueFunc {
 public:
  std::string FuncName() const override { return "RoleGetManagerName"; }
  std::string FuncDescription() const override { return "得到公司/部门 负责人名称"; }

 protected:
  const char* Input() const override { return "ParentCode"; }
  const char* Output() const override { return "Result"; }
  std::string Ask(const std::string& value) const override { return TPartyFuncs::GetManagerName(value); }
};

}  // namespace zanrole
