#include "Frame/PartyMenuFunc.h"

#include "Domain/U_Domains.h"

namespace zanrole {

std::string TMenuFunc_DomainManage::FuncName() const { return "域管理"; }
std::string TMenuFunc_DomainManage::FuncDescription() const { return "域管理，用于权限的分级管理。"; }
bool TMenuFunc_DomainManage::Execute() { return TFormDomains::Execute(*this); }

void AppendMenuFuncClasses(std::vector<TFuncClass>& classes) {
  classes.push_back({"TMenuFunc_DomainManage", TFuncType::Menu, []() -> std::unique_ptr<TBaseFunc> {
                       return std::make_unique<TMenuFunc_DomainManage>();
                     }});
}

}  // namespace zanrole
