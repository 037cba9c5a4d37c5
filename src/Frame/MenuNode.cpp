#include "Frame/MenuNode.h"

#include "Frame/Commlib.h"
#include "Frame/Session.h"

namespace zanrole {

TMenuNode ReadMenuNode(const TBaseFunc& function) {
  TMenuNode node{TMenuNode::UnknownObject, TZanResEx::resByExFunc(function.FuncName())};
  const TFuncParam* param =
      function.FuncInfo != nullptr ? function.FuncInfo->InParams.find("MenuNode") : nullptr;
  if (param == nullptr) return node;
  const auto members = HostServices().ParseJsonObject(param->Value);
  if (!members) return node;
  for (const auto& [name, value] : *members) {
    if (name == "ObjectID") node.ObjectID = StrToIntDef(value, TMenuNode::UnknownObject);
    if (name == "Caption" && !value.empty()) node.Caption = value;
  }
  return node;
}

bool IsParamTrue(const TFuncInfo& info, std::string_view name) {
  const TFuncParam* param = info.InParams.find(name);
  if (param == nullptr) return false;
  const std::string value = LowerCase(param->Value);
  return value == "是" || value == "true" || value == "yes";
}

}  // namespace zanrole
