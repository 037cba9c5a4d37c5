#pragma once

#include "host/query/DialectFamily.h"

namespace zanhost {

/// SQL Server: names in […], casts to "nvarchar", a Boolean column is a bit, the conditional statement needs
/// no closing text.
const TDialectFamily& SqlServerFamily();

/// [name]
class TSqlServerObjectHelper final : public zanrole::TDBObjectHelper {
 public:
  std::string QuoteName(std::string_view name) override { return "[" + std::string(name) + "]"; }
};

class TSqlServerTypesHelper final : public zanrole::TDBTypesHelper {
 public:
  std::string WideTextType() override { return "nvarchar"; }
};

}  // namespace zanhost
