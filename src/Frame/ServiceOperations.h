#pragma once

#include <initializer_list>
#include <type_traits>
#include <utility>

#include "Frame/Host/Classes.h"
#include "Frame/Host/Services.h"
#include "Frame/Session.h"

// How the operations of the services become entries of the table that hosts ask by name: the types of
// arguments and answers follow from the C++ operation, the names of the arguments are given.

namespace zanrole {

/// The object of the session on which the operations of a class work. A class that is no plain slot of the
/// session has a specialisation beside its entries.
template <typename TClass>
struct TServiceObject {
  static TClass& Get() { return TSession::Current().Slot<TClass>(); }
};

namespace service_operations {

using TNames = std::initializer_list<std::string_view>;

template <typename T>
constexpr TServiceType TypeOf() {
  if constexpr (std::is_void_v<T>) return TServiceType::Nothing;
  if constexpr (std::is_same_v<T, bool>) return TServiceType::Truth;
  if constexpr (std::is_integral_v<T>) return TServiceType::Number;
  if constexpr (std::is_convertible_v<T, std::string_view>) return TServiceType::Text;
  return TServiceType::List;
}

/// The value of an argument; raises EConvertError for a text of another type.
template <typename T>
T ValueOf(const std::string& text) {
  if constexpr (std::is_same_v<T, bool>) {
    return StrToBool(text);
  } else if constexpr (std::is_same_v<T, int>) {
    return StrToInt(text);
  } else {
    return T(text);
  }
}

inline TServiceAnswer AnswerOf(bool truth) { return truth; }
inline TServiceAnswer AnswerOf(int number) { return std::int64_t{number}; }
inline TServiceAnswer AnswerOf(std::string text) { return text; }
inline TServiceAnswer AnswerOf(const TStringList& list) {
  std::vector<std::string> items;
  for (int i = 0; i < list.Count(); ++i) items.push_back(list[i]);
  return items;
}

template <typename TResult, typename TCall>
TServiceAnswer AnswerFrom(const TCall& call) {
  if constexpr (std::is_void_v<TResult>) {
    call();
    return {};
  } else {
    return AnswerOf(call());
  }
}

template <typename TResult, typename... TArguments, typename TCall>
TServiceOperation Make(std::string name, TNames argumentNames, TCall call) {
  TServiceOperation operation{std::move(name), {}, TypeOf<std::remove_cvref_t<TResult>>(), {}};
  auto argument = argumentNames.begin();
  (operation.Arguments.push_back({*argument++, TypeOf<std::remove_cvref_t<TArguments>>()}), ...);
  operation.Ask = [call]([[maybe_unused]] std::span<const std::string> texts) {
    return [&]<std::size_t... Index>(std::index_sequence<Index...>) {
      return AnswerFrom<TResult>(
          [&] { return call(ValueOf<std::remove_cvref_t<TArguments>>(texts[Index])...); });
    }
    (std::index_sequence_for<TArguments...>());
  };
  return operation;
}

}  // namespace service_operations

/// Adds the operations of one class to the table.
class TServiceAppender {
 public:
  TServiceAppender(std::vector<TServiceOperation>& operations, std::string className)
      : FOperations(operations), FPrefix(std::move(className) + ".") {}

  /// A class operation. REQUIRES of all: one name for each argument.
  template <typename TResult, typename... TArguments>
  void operator()(const char* name, TResult (*operation)(TArguments...),
                  service_operations::TNames arguments = {}) const {
    Append<TResult, TArguments...>(name, arguments, operation);
  }

  /// An operation on the session's object of the class.
  template <typename TClass, typename TResult, typename... TArguments>
  void operator()(const char* name, TResult (TClass::*operation)(TArguments...),
                  service_operations::TNames arguments = {}) const {
    Append<TResult, TArguments...>(name, arguments, OnSessionObject<TClass, TResult>(operation));
  }
  template <typename TClass, typename TResult, typename... TArguments>
  void operator()(const char* name, TResult (TClass::*operation)(TArguments...) const,
                  service_operations::TNames arguments = {}) const {
    Append<TResult, TArguments...>(name, arguments, OnSessionObject<TClass, TResult>(operation));
  }

 private:
  template <typename TClass, typename TResult, typename TOperation>
  static auto OnSessionObject(TOperation operation) {
    return [operation](auto&&... values) -> TResult {
      return (TServiceObject<TClass>::Get().*operation)(std::forward<decltype(values)>(values)...);
    };
  }

  template <typename TResult, typename... TArguments, typename TCall>
  void Append(const char* name, service_operations::TNames argumentNames, TCall call) const {
    FOperations.push_back(
        service_operations::Make<TResult, TArguments...>(FPrefix + name, argumentNames, std::move(call)));
  }

  std::vector<TServiceOperation>& FOperations;
  std::string FPrefix;
};

}  // namespace zanrole
