#pragma once

#include <string>

#include "Domain/U_DomainFuncsBase.h"
#include "Domain/U_DomainFuncsImp.h"

// The current domain and the kind of the operator.

namespace zanrole {

class ZAN_EXPORT TSysFunc_CurDomainID final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCurDomainID"; }
  std::string FuncDescription() const override { return "取当前域ID"; }

 protected:
  TFuncDataType ResultType() const override { return TFuncDataType::Integer; }
  std::string Ask() const override { return std::to_string(TDomainFuncImpl::GetCurDomainID()); }
};

class ZAN_EXPORT TSysFunc_CurDomainCode final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCurDomainCode"; }
  std::string FuncDescription() const override { return "取当前域代码"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetCurDomainCode(); }
};

class ZAN_EXPORT TSysFunc_CurDomainNodeCode final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCurDomainNodeCode"; }
  std::string FuncDescription() const override { return "取当前域节点代码"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetCurDomainNodeCode(); }
};

class ZAN_EXPORT TSysFunc_CurDomainName final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCurDomainName"; }
  std::string FuncDescription() const override { return "取当前域名称"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetCurDomainName(); }
};

class ZAN_EXPORT TSysFunc_CurDomainFullName final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCurDomainFullName"; }
  std::string FuncDescription() const override { return "取当前域全称"; }

 protected:
  std::string Ask() const override { return TDomainFuncImpl::GetCurDomainFullName(); }
};

class ZAN_EXPORT TSysFunc_GetCurUserType final : public TDomainValueFunc {
 public:
  std::string FuncName() const override { return "GetCurUserType"; }
  std::string FuncDescription() const override {
    return "当前操作员的用户类型：0普通用户；1超级用户；2域管理员";
  }

 protected:
  TFuncDataType ResultType() const override { return TFuncDataType::Integer; }
  std::string Ask() const override { return std::to_string(TDomainFuncImpl::GetCurUserType()); }
};

}  // namespace zanrole
