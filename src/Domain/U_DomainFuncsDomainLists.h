#pragma once

#include <string>

#include "Domain/U_DomainFuncsBase.h"
#include "Domain/U_DomainFuncsImp.h"

// Lists of domains.

namespace zanrole {

class ZAN_EXPORT TSysFunc_GetAuthDomainIDs final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainIDs"; }
  std::string FuncDescription() const override { return "当前用户域范围的域ID列表"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainIDs(); }
};

class ZAN_EXPORT TSysFunc_GetAuthDomainIDss final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainIDss"; }
  std::string FuncDescription() const override { return "当前用户域范围的域ID列表（包含下级域）"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainIDss(); }
};

class ZAN_EXPORT TSysFunc_GetOwnDomainIDs final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetOwnDomainIDs"; }
  std::string FuncDescription() const override { return "当前用户的所属域ID（不包括下级域）"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetOwnDomainIDs(); }
};

class ZAN_EXPORT TSysFunc_GetOwnDomainIDss final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetOwnDomainIDss"; }
  std::string FuncDescription() const override { return "当前用户的所属域ID列表（包括下级域）"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetOwnDomainIDss(); }
};

class ZAN_EXPORT TSysFunc_GetCreatedDomainIDs final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCreatedDomainIDs"; }
  std::string FuncDescription() const override { return "返回当前操作员创建的域的ID列表"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetCreatedDomainIDs(); }
};

class ZAN_EXPORT TSysFunc_GetCreatedDomainCodes final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCreatedDomainCodes"; }
  std::string FuncDescription() const override { return "返回当前操作员创建的域的编码列表"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetCreatedDomainCodes(); }
};

class ZAN_EXPORT TSysFunc_GetAuthDomainCodes final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainCodes"; }
  std::string FuncDescription() const override {
    return "返回当前操作员域范围内的域编码列表（不包括下级域）";
  }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainCodes(); }
};

class ZAN_EXPORT TSysFunc_GetAuthDomainCodess final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetAuthDomainCodess"; }
  std::string FuncDescription() const override { return "返回当前操作员域范围内的域编码列表（包括下级域）"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetAuthDomainCodess(); }
};

class ZAN_EXPORT TSysFunc_GetOwnDomainCodes final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetOwnDomainCodes"; }
  std::string FuncDescription() const override { return "返回当前操作员所属域的编码（不包括下级域）"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetOwnDomainCodes(); }
};

class ZAN_EXPORT TSysFunc_GetOwnDomainCodess final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetOwnDomainCodess"; }
  std::string FuncDescription() const override { return "返回当前操作员所属域的编码（包括下级域）"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetOwnDomainCodess(); }
};

}  // namespace zanrole
