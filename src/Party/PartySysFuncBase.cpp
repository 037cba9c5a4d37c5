#include "Party/PartySysFuncBase.h"

namespace zanrole {

std::unique_ptr<TFuncInfo> TPartyFunc::NewFuncInfo() const {
  auto info = TSysBaseFunc::NewFuncInfo();
  DeclareInputs(info->InParams);
  Declare(info->OutParams, Output());
  return info;
}

void TPartyFunc::Declare(TFuncParamList& params, const char* name) {
  params.Add({.Name = name, .DataType = TFuncDataType::String});
}

void TPartyFunc::StoreOutput(const std::string& answer) const {
  if (TFuncParam* output = FuncInfo->OutParams.find(Output())) output->Value = answer;
}

void TPartyValueFunc::DeclareInputs(TFuncParamList& inputs) const { Declare(inputs, Input()); }

bool TPartyValueFunc::Execute() {
  const TFuncParam* const input = FuncInfo->InParams.find(Input());
  StoreOutput(input == nullptr ? std::string{} : Ask(input->Value));
  return true;
}

namespace {

constexpr const char* kUser = "当前用户";
constexpr const char* kMapName = "岗位关系图";

std::string ValueOf(const TFuncParamList& params, const char* name) {
  const TFuncParam* const param = params.find(name);
  return param == nullptr ? std::string{} : param->Value;
}

}  // namespace

void TPartyMapFunc::DeclareInputs(TFuncParamList& inputs) const {
  Declare(inputs, kUser);
  Declare(inputs, kMapName);
}

bool TPartyMapFunc::Execute() {
  const std::string user = ValueOf(FuncInfo->InParams, kUser);
  StoreOutput(user.empty() ? std::string{} : Ask(user, ValueOf(FuncInfo->InParams, kMapName)));
  return true;
}

}  // namespace zanrole
