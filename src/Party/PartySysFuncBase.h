#pragma once

#include <memory>
#include <string>

#include "Frame/Host/Un_basefunc.h"

namespace zanrole {

/// A function of the expression language about the organisation: texts in, one text out. A parameter that the
/// call lacks is skipped; the call succeeds all the same. A fault of the question passes to the host.
class ZAN_EXPORT TPartyFunc : public TSysBaseFunc {
 public:
  std::unique_ptr<TFuncInfo> NewFuncInfo() const override;

 protected:
  virtual void DeclareInputs(TFuncParamList& inputs) const = 0;
  virtual const char* Output() const = 0;
  static void Declare(TFuncParamList& params, const char* name);
  /// Stores the answer, if the call wants it.
  void StoreOutput(const std::string& answer) const;
};

/// A question about one value. It is asked whatever the value is, also the empty one, and not without it.
class ZAN_EXPORT TPartyValueFunc : public TPartyFunc {
 public:
  bool Execute() override;

 protected:
  void DeclareInputs(TFuncParamList& inputs) const override;
  virtual const char* Input() const = 0;
  virtual std::string Ask(const std::string& value) const = 0;
};

/// A question about a user on a position map. About an empty user nothing is asked.
class ZAN_EXPORT TPartyMapFunc : public TPartyFunc {
 public:
  bool Execute() override;

 protected:
  void DeclareInputs(TFuncParamList& inputs) const override;
  virtual std::string Ask(const std::string& user, const std::string& mapName) const = 0;
};

}  // namespace zanrole
