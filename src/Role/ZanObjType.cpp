#include "Role/ZanObjType.h"

#include <initializer_list>

#include "Frame/Session.h"

namespace zanrole {

namespace {

void Register(TZanObjTypeManager& manager, const char* name, int typeID,
              std::initializer_list<const char*> oprates) {
  auto type = std::make_unique<TZanObjType>(name, typeID);
  for (const char* oprate : oprates) type->Oprates().Add(oprate);
  manager.RegeistType(name, std::move(type));
}

}  // namespace

TZanObjTypeManager& TZanObjTypeManager::Instance() { return TSession::Current().Slot<TZanObjTypeManager>(); }

// clang-format off
void TZanObjTypeManager::Init() {
  Register(*this, "单据", 1, {
      "增加", "删除", "修改", "复制", "浏览", "预览", "打印", "列表预览", "列表打印",
      "审核", "反审", "记账", "反记", "批审核", "批反审", "批记账", "批反记"});
  Register(*this, "查询", 2, {"打印", "Excel导出", "图表显示", "显示卡片", "显示方案"});
  Register(*this, "菜单", 7, {"执行"});
}
// clang-format on

void TZanObjTypeManager::RegeistType(std::string name, std::unique_ptr<TZanObjType> type) {
  FList.emplace_back(std::move(name), std::move(type));
}

const TZanObjType* TZanObjTypeManager::GetType(std::string_view name) const {
  for (const auto& [registeredName, type] : FList)
    if (registeredName == name) return type.get();
  return nullptr;
}

const TZanObjType* TZanObjTypeManager::GetType(int typeID) const {
  for (const auto& [registeredName, type] : FList)
    if (type->TypeID() == typeID) return type.get();
  return nullptr;
}

}  // namespace zanrole
