#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Frame/Host/Un_basefunc.h"

namespace zanrole {

/// A function of the expression language about domains: it unpacks its inputs, asks the query service and
/// packs the answer into the one output "Result". Without that output nothing is asked.
class ZAN_EXPORT TDomainFunc : public TSysBaseFunc {
 public:
  std::unique_ptr<TFuncInfo> NewFuncInfo() const override;

 protected:
  virtual void DeclareInputs(TFuncParamList& inputs) const;
  static void Declare(TFuncParamList& params, const char* name, TFuncDataType type,
                      const char* description = "");
  virtual TFuncDataType ResultType() const { return TFuncDataType::String; }
  /// Value of an input as the call gives it; nothing when the call lacks the input.
  std::optional<std::string> Input(const char* name) const;
  /// Stores what `ask` gives in "Result", if the call wants it.
  template <typename TAsk>
  void StoreResult(const TAsk& ask) const {
    if (TFuncParam* result = FuncInfo->OutParams.find("Result")) result->Value = ask();
  }
};

/// A function without inputs.
class ZAN_EXPORT TDomainValueFunc : public TDomainFunc {
 public:
  bool Execute() override;

 protected:
  virtual std::string Ask() const = 0;
};

/// May the operator act on the domain that the one input names? Stops with false when the input is missing,
/// or cannot name a domain: it is empty, or no id.
class ZAN_EXPORT TDomainAuthFunc : public TDomainFunc {
 public:
  bool Execute() override;

 protected:
  void DeclareInputs(TFuncParamList& inputs) const override;
  TFuncDataType ResultType() const override { return TFuncDataType::Boolean; }
  virtual const char* DeclaredInput() const = 0;
  virtual TFuncDataType InputType() const { return TFuncDataType::String; }
  /// Name of the input that Execute reads.
  virtual const char* ReadInput() const { return DeclaredInput(); }
  /// Can the value name a domain at all?
  virtual bool IsUsable(const std::string& value) const { return !value.empty(); }
  virtual bool Check(const std::string& value) const = 0;
};

/// Values of one field over the domains of a scope. Stops with false when an input is missing; raises
/// EConvertError when the third is no boolean text.
class ZAN_EXPORT TDomainScopeFunc : public TDomainFunc {
 public:
  bool Execute() override;

 protected:
  void DeclareInputs(TFuncParamList& inputs) const override;
  virtual const char* FieldDescription() const = 0;
  virtual std::string Ask(const std::string& field, const std::string& scope, bool includeLower) const = 0;
};

}  // namespace zanrole
