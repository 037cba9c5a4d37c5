#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zanrole {

/// What an operation of a service answers; `std::monostate` when it gives nothing.
using TServiceAnswer =
    std::variant<std::monostate, std::string, std::int64_t, bool, std::vector<std::string>>;

enum class TServiceType { Nothing, Text, Number, Truth, List };

struct TServiceArgument {
  std::string_view Name;
  TServiceType Type = TServiceType::Text;
};

/// One operation of a service that other modules use, for hosts that ask by name with texts.
struct TServiceOperation {
  /// Class and operation, as in "TOrgRightFuncs.OrgDeptMemberIDs". Operations of one name differ in the
  /// number or the types of their arguments.
  std::string Name;
  std::vector<TServiceArgument> Arguments;
  TServiceType Answer = TServiceType::Nothing;
  /// Runs the operation in the current session. Objects that an operation works on are the session's and keep
  /// what earlier operations made of them. Raises EConvertError for a text that is not of its argument's
  /// type; faults of the operation pass. REQUIRES: as many texts as there are Arguments.
  std::function<TServiceAnswer(std::span<const std::string>)> Ask;
};

}  // namespace zanrole
