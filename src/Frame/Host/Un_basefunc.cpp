#include "Frame/Host/Un_basefunc.h"

#include <algorithm>

#include "Frame/Host/Un_glbasefunc.h"

namespace zanrole {

TFuncParam& TFuncParamList::Add(TFuncParam param) { return FItems.emplace_back(std::move(param)); }

const TFuncParam* TFuncParamList::find(std::string_view name) const {
  const auto found =
      std::find_if(FItems.begin(), FItems.end(), [&](const TFuncParam& p) { return p.Name == name; });
  return found == FItems.end() ? nullptr : &*found;
}

TFuncParam* TFuncParamList::find(std::string_view name) {
  const auto found =
      std::find_if(FItems.begin(), FItems.end(), [&](const TFuncParam& p) { return p.Name == name; });
  return found == FItems.end() ? nullptr : &*found;
}

std::unique_ptr<TFuncInfo> TBaseFunc::NewFuncInfo() const { return std::make_unique<TFuncInfo>(); }

void TBaseFunc::SetCustomParam(TFuncParam& param, std::string_view value, TFuncInfo& /*info*/) {
  param.Value = value;
}

TGLFuncType TGLBaseFunc::GLFuncType() const { return TGLFuncType::Ordinary; }

}  // namespace zanrole
