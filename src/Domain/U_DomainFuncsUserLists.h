#pragma once

#include <string>

#include "Domain/U_DomainFuncsBase.h"
#include "Domain/U_DomainFuncsImp.h"

// Lists of users and roles.

namespace zanrole {

class ZAN_EXPORT TSysFunc_GetAuthDomainOIDs final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainOIDs"; }
  std::string FuncDescription() const override {
    return "当前用户域范围内的所有用户OID列表（不包括下级域中的用户）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainOIDs(); }
};

class ZAN_EXPORT TSysFunc_GetAuthDomainOIDss final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainOIDss"; }
  std::string FuncDescription() const override {
    return "当前用户域范围内的所有用户OID列表（包括下级域中的用户）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainOIDss(); }
};

class ZAN_EXPORT TSysFunc_GetAuthDomainUserIDs final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainUserIDs"; }
  std::string FuncDescription() const override {
    return "当前用户域范围内的所有用户的登录号列表（不包括下级域中的用户）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainUserIDs(); }
};

class ZAN_EXPORT TSysFunc_GetAuthDomainUserIDss final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainUserIDss"; }
  std::string FuncDescription() const override {
    return "当前用户域范围内的所有用户的登录号列表（包括下级域中的用户）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainUserIDss(); }
};

class ZAN_EXPORT TSysFunc_GetOwnDomainOIDs final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetOwnDomainOIDs"; }
  std::string FuncDescription() const override {
    return "当前用户所属域中的所有用户的OID列表（不包括下级域中的用户）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetOwnDomainOIDs(); }
};

class ZAN_EXPORT TSysFunc_GetOwnDomainOIDss final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetOwnDomainOIDss"; }
  std::string FuncDescription() const override {
    return "当前用户所属域中的所有用户的OID列表（包括下级域中的用户）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetOwnDomainOIDss(); }
};

class ZAN_EXPORT TSysFunc_GetOwnDomainUserIDs final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetOwnDomainUserIDs"; }
  std::string FuncDescription() const override {
    return "当前用户所属域中的所有用户的登录号列表（不包括下级域中的用户）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetOwnDomainUserIDs(); }
};

class ZAN_EXPORT TSysFunc_GetOwnDomainUserIDss final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetOwnDomainUserIDss"; }
  std::string FuncDescription() const override {
    return "当前用户所属域中的所有用户的登录号列表（包括下级域中的用户）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetOwnDomainUserIDss(); }
};

class ZAN_EXPORT TSysFunc_GetCurDomainOIDs final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCurDomainOIDs"; }
  std::string FuncDescription() const override {
    return "当前域中的所有用户的OID列表（不包括下级域中的用户）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetCurDomainOIDs(); }
};

class ZAN_EXPORT TSysFunc_GetCurDomainOIDss final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCurDomainOIDss"; }
  std::string FuncDescription() const override { return "当前域及其下级域中的所有用户的OID列表"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetCurDomainOIDss(); }
};

class ZAN_EXPORT TSysFunc_GetCurDomainUserIDs final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCurDomainUserIDs"; }
  std::string FuncDescription() const override {
    return "当前域中的所有用户的登录号列表（不包括下级域中的用户）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetCurDomainUserIDs(); }
};

class ZAN_EXPORT TSysFunc_GetCurDomainUserIDss final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCurDomainUserIDss"; }
  std::string FuncDescription() const override { return "当前域及其下级域中的所有用户的登录号列表"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetCurDomainUserIDss(); }
};

class ZAN_EXPORT TSysFunc_GetAuthDomainRoleOIDs final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainRoleOIDs"; }
  std::string FuncDescription() const override { return "当前操作员域范围（不包括下级域）之内的角色"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainRoleOIDs(); }
};

class ZAN_EXPORT TSysFunc_GetAuthDomainRoleOIDss final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainRoleOIDss"; }
  std::string FuncDescription() const override { return "当前操作员域范围（包括下级域）之内的角色"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainRoleOIDss(); }
};

class ZAN_EXPORT TSysFunc_GetAuthDomainRolesEx final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainRolesEx"; }
  std::string FuncDescription() const override {
    return "当前操作员域范围（不包括下级域）之内的角色，以及已共享的全局角色";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainRolesEx(); }
};

}  // namespace zanrole
