#include "Domain/U_DomainFuncsBase.h"

namespace zanrole {

std::unique_ptr<TFuncInfo> TDomainFunc::NewFuncInfo() const {
  auto info = TSysBaseFunc::NewFuncInfo();
  DeclareInputs(info->InParams);
  Declare(info->OutParams, "Result", ResultType());
  return info;
}

void TDomainFunc::DeclareInputs(TFuncParamList& /*inputs*/) const {}

void TDomainFunc::Declare(TFuncParamList& params, const char* name, TFuncDataType type,
                          const char* description) {
  params.Add({TFuncParamKind::None, name, description, /*Value*/ "", type});
}

std::optional<std::string> TDomainFunc::Input(const char* name) const {
  const TFuncParam* param = FuncInfo->InParams.find(name);
  if (param == nullptr) return std::nullopt;
  return param->Value;
}

bool TDomainValueFunc::Execute() {
  StoreResult([&] { return Ask(); });
  return true;
}

void TDomainAuthFunc::DeclareInputs(TFuncParamList& inputs) const {
  Declare(inputs, DeclaredInput(), InputType());
}

bool TDomainAuthFunc::Execute() {
  const std::optional<std::string> domain = Input(ReadInput());
  if (!domain || !IsUsable(*domain)) return false;
  StoreResult([&] { return BoolToStr(Check(*domain)); });
  return true;
}

namespace {

constexpr const char* kField = "返回内容";
constexpr const char* kScope = "查询范围";
constexpr const char* kIncludeLower = "是否包含下级域";

}  // namespace

void TDomainScopeFunc::DeclareInputs(TFuncParamList& inputs) const {
  Declare(inputs, kField, TFuncDataType::String, FieldDescription());
  Declare(inputs, kScope, TFuncDataType::String, "可选择（当前域/创建域/所属域/域范围），多选时以逗号分隔");
  Declare(inputs, kIncludeLower, TFuncDataType::Boolean);
}

bool TDomainScopeFunc::Execute() {
  const std::optional<std::string> field = Input(kField);
  if (!field) return false;
  const std::optional<std::string> scope = Input(kScope);
  if (!scope) return false;
  const std::optional<std::string> lower = Input(kIncludeLower);
  if (!lower) return false;
  const bool includeLower = StrToBool(*lower);
  StoreResult([&] { return Ask(*field, *scope, includeLower); });
  return true;
}

}  // namespace zanrole
