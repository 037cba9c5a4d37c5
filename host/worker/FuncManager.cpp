#include "host/worker/FuncManager.h"

#include <fmt/format.h>

namespace zanhost {

using zanrole::TFuncClass;
using zanrole::TFuncInfo;
using zanrole::TFuncType;

const TFuncInfo* THostFuncManager::FindFuncInfo(std::string_view name, TFuncType type) {
  const TFunction* const function = Find(name, type);
  return function != nullptr ? function->Info.get() : nullptr;
}

bool THostFuncManager::RunFuncName(std::string_view name, int style) {
  const TFunction* const function = FindInAny(name);
  if (function == nullptr) return false;
  TFuncInfo info = *function->Info;
  Execute(*function, info, style);
  return true;
}

bool THostFuncManager::RunFunc(TFuncInfo& info, zanrole::TZanParser* /*parser*/, int style) {
  const TFunction* const function = Find(info.FuncName, info.FuncType);
  if (function == nullptr) return false;
  Execute(*function, info, style);
  return true;
}

const TFunction* THostFuncManager::Find(std::string_view name, TFuncType type) {
  Walk();
  const TPlaces& places = PlacesOf(type);
  const auto found = places.find(name);
  return found != places.end() ? &FFunctions[found->second] : nullptr;
}

const TFunction* THostFuncManager::FindInAny(std::string_view name) {
  for (const TFuncType type : {TFuncType::Menu, TFuncType::System, TFuncType::Linked}) {
    if (const TFunction* const function = Find(name, type)) return function;
  }
  return nullptr;
}

bool THostFuncManager::Execute(const TFunction& function, TFuncInfo& info, int style) {
  const std::unique_ptr<zanrole::TBaseFunc> call = function.Create();
  call->OpenStyle = style;
  call->FuncInfo = &info;
  return call->Execute();
}

const std::vector<TFunction>& THostFuncManager::Functions() {
  Walk();
  return FFunctions;
}

const std::vector<std::string>& THostFuncManager::Duplicates() {
  Walk();
  return FDuplicates;
}

void THostFuncManager::Walk() {
  if (FWalked) return;
  FWalked = true;
  std::size_t count = 0;
  const TFuncClass* const classes = FModule->FuncClasses(&count);
  FFunctions.reserve(count);
  for (std::size_t i = 0; i < count; ++i) Enter(classes[i]);
}

void THostFuncManager::Enter(const TFuncClass& funcClass) {
  const std::unique_ptr<zanrole::TBaseFunc> sample = funcClass.Create();
  TFunction function{sample->FuncName(),  sample->FuncDescription(), funcClass.Type,
                     funcClass.ClassName, sample->NewFuncInfo(),     funcClass.Create};
  function.Info->FuncName = function.Name;
  function.Info->FuncType = function.Type;
  const auto [place, isNew] = PlacesOf(function.Type).emplace(function.Name, FFunctions.size());
  if (isNew) {
    FFunctions.push_back(std::move(function));
    return;
  }
  FDuplicates.push_back(fmt::format("{} is left out: {} has the name {} already", function.ClassName,
                                    FFunctions[place->second].ClassName, function.Name));
}

}  // namespace zanhost
