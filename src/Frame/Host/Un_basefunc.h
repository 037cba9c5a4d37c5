#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Classes.h"
#include "Frame/Host/Zandbs.h"

namespace zanrole {

/// Data types of function parameters.
enum class TFuncDataType { Integer = 1, String = 2, Boolean = 3 };

/// How the designer enters a parameter's value.
enum class TFuncParamKind { None = 0, Text = 1, YesNo = 5 };

/// One parameter of a function. Values pass as text in both directions.
struct TFuncParam {
  TFuncParamKind Kind = TFuncParamKind::None;
  std::string Name;
  std::string Description;
  std::string Value;
  TFuncDataType DataType = TFuncDataType::String;
};

class ZAN_EXPORT TFuncParamList {
 public:
  /// The reference lives until the next Add.
  TFuncParam& Add(TFuncParam param);
  /// Null when there is none of exactly that name.
  TFuncParam* find(std::string_view name);
  const TFuncParam* find(std::string_view name) const;
  int Count() const { return static_cast<int>(FItems.size()); }
  auto begin() const { return FItems.begin(); }
  auto end() const { return FItems.end(); }
  auto begin() { return FItems.begin(); }
  auto end() { return FItems.end(); }

 private:
  std::vector<TFuncParam> FItems;
};

/// The families in which a host keeps function classes.
enum class TFuncType { System = 0, Menu = 1, Linked = 2 };

/// Description of a function: its parameters with their defaults. Copyable; who runs a function by
/// description works on a copy of the manager's shared one.
class ZAN_EXPORT TFuncInfo {
 public:
  /// The function that the description belongs to: the manager fills both and finds the function by them.
  std::string FuncName;
  TFuncType FuncType = TFuncType::System;
  /// Set by a function that has parameters for the designer to fill. Only the host reads it.
  bool HasDesignParams = false;
  TFuncParamList InParams;
  TFuncParamList OutParams;
  void Assign(const TFuncInfo& from) { *this = from; }
};

/// The document from which a function was called.
class ZAN_EXPORT TVeshDj {
 public:
  virtual ~TVeshDj();
  /// Data set of the document's record for a bit; null when there is none. Owned by the document.
  virtual TDataSet* GetBitDSet(int bit) = 0;
};

/// What surrounds a call. The host owns it; it outlives the call.
class ZAN_EXPORT TContexts {
 public:
  virtual ~TContexts();
  /// The calling document (the context class TCurDjContext); null outside a document.
  virtual TVeshDj* CurDjContext() = 0;
};

/// The open style with which a console is shown modally; any other value shows it as a page of the host.
inline constexpr int kModalOpenStyle = 3;

/// A function that the host calls by name. The host makes one object for a call, fills `OpenStyle`,
/// `FuncInfo` and the contexts, calls Execute and frees it.
class ZAN_EXPORT TBaseFunc {
 public:
  TBaseFunc() = default;
  virtual ~TBaseFunc();
  TBaseFunc(const TBaseFunc&) = delete;
  TBaseFunc& operator=(const TBaseFunc&) = delete;

  /// The name by which the host and expressions call the function.
  virtual std::string FuncName() const = 0;
  /// One line for the designer.
  virtual std::string FuncDescription() const = 0;
  /// A fresh description with the parameters' defaults. A subclass extends what its base gives.
  virtual std::unique_ptr<TFuncInfo> NewFuncInfo() const;
  /// The host's own: takes a value that the designer entered.
  virtual void SetCustomParam(TFuncParam& param, std::string_view value, TFuncInfo& info);
  /// Runs the function on `FuncInfo`. False when the call stopped early. Faults of the database pass through.
  virtual bool Execute() = 0;

  int OpenStyle = 0;
  /// REQUIRES in Execute: not null. The caller owns it.
  TFuncInfo* FuncInfo = nullptr;
  /// Null when the call has no surroundings. The host owns it.
  TContexts* GetContexts() const { return FContexts; }
  void SetContexts(TContexts* contexts) { FContexts = contexts; }

 private:
  TContexts* FContexts = nullptr;
};

/// A function behind a menu entry: opens a console.
class ZAN_EXPORT TMenuBaseFunc : public TBaseFunc {
 public:
  ~TMenuBaseFunc() override;
};

/// A function of the expression language.
class ZAN_EXPORT TSysBaseFunc : public TBaseFunc {
 public:
  ~TSysBaseFunc() override;
};

/// One row of the table of function classes.
struct TFuncClass {
  const char* ClassName;
  TFuncType Type;
  std::unique_ptr<TBaseFunc> (*Create)();
};

}  // namespace zanrole
