#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Frame/Host/Classes.h"

namespace zanrole {

/// A kind of object that rights can be given on, with its operation words in the order in which they are
/// listed.
class ZAN_EXPORT TZanObjType {
 public:
  TZanObjType(std::string name, int typeID) : FTypeID(typeID), FTypeName(std::move(name)) {}

  int TypeID() const { return FTypeID; }
  const std::string& TypeName() const { return FTypeName; }
  TStringList& Oprates() { return FOprates; }
  const TStringList& Oprates() const { return FOprates; }

 private:
  int FTypeID;
  std::string FTypeName;
  TStringList FOprates;
};

/// The fixed table of object types of a session. It owns the types; references to them live until Clear.
class ZAN_EXPORT TZanObjTypeManager {
 public:
  /// The session's manager, with the whole table registered.
  static TZanObjTypeManager& Instance();

  TZanObjTypeManager() { Init(); }

  /// Adds a type under a name. Doubles are not looked for.
  void RegeistType(std::string name, std::unique_ptr<TZanObjType> type);
  /// The first type registered under exactly this name, or with this `TypeID`; null when there is none.
  const TZanObjType* GetType(std::string_view name) const;
  const TZanObjType* GetType(int typeID) const;
  /// Frees all types.
  void Clear() { FList.clear(); }

 private:
  void Init();

  std::vector<std::pair<std::string, std::unique_ptr<TZanObjType>>> FList;
};

}  // namespace zanrole
