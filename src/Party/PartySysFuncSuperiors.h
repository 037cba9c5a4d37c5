#pragma once

#include <string>

#include "Party/PartySysFuncBase.h"
#include "Party/PartyUn.h"

// Superiors and underlings over a position map.

namespace zanrole {

class ZAN_EXPORT TSysFunc_SuperiorEx final : public TPartyMapFunc {
 public:
  std::string FuncName() const override { return "RoleSuperiorEx"; }
  std::string FuncDescription() const override { return "上级用户号(可选岗位关系图)"; }

 protected:
  const char* Output() const override { return "上级用户"; }
  std::string Ask(const std::string& user, const std::string& mapName) const override {
    return TPartyFuncs::SuperiorEx(user, mapName);
  }
};

class ZAN_EXPORT TSysFunc_UnderlingEx final : public TPartyMapFunc {
 public:
  std::string FuncName() const override { return "RoleUnderlingEx"; }
  std::string FuncDescription() const override { return "下级用户集(可选岗位关系图)"; }

 protected:
  const char* Output() const override { return "下级用户"; }
  std::string Ask(const std::string& user, const std::string& mapName) const override {
    return TPartyFuncs::UnderlingEx(user, mapName);
  }
};

class ZAN_EXPORT TSysFunc_SuperiorAllEx final : public TPartyMapFunc {
 public:
  std::string FuncName() const override { return "RoleSuperiorAllEx"; }
  std::string FuncDescription() const override { return "各层上级用户号(可选岗位关系图)"; }

 protected:
  const char* Output() const override { return "上级用户"; }
  std::string Ask(const std::string& user, const std::string& mapName) const override {
    return TPartyFuncs::SuperiorAllEx(user, mapName);
  }
};

class ZAN_EXPORT TSysFunc_UnderlingAllEx final : public TPartyMapFunc {
 public:
  std::string FuncName() const override { return "RoleUnderlingAllEx"; }
  std::string FuncDescription() const override { return "各层下级用户集(可选岗位关系图)"; }

 protected:
  const char* Output() const override { return "下级用户"; }
  std::string Ask(const std::string& user, const std::string& mapName) const override {
    return TPartyFuncs::UnderlingAllEx(user, mapName);
  }
};

}  // namespace zanrole
