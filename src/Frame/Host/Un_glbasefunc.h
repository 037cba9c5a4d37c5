#pragma once

#include "Frame/Host/Un_basefunc.h"

namespace zanrole {

enum class TGLFuncType { Ordinary = 0 };

/// A function that the host offers at a document.
class ZAN_EXPORT TGLBaseFunc : public TBaseFunc {
 public:
  ~TGLBaseFunc() override;
  virtual TGLFuncType GLFuncType() const;
};

}  // namespace zanrole
