#include "host/worker/ServiceQuestion.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <span>

#include "Frame/Host/Classes.h"

namespace zanhost {

using zanrole::TServiceOperation;
using zanrole::TServiceType;

namespace {

std::vector<const TServiceOperation*> OperationsNamed(const TModule& module, const std::string& name) {
  std::size_t count = 0;
  const TServiceOperation* const operations = module.ServiceOperations(&count);
  std::vector<const TServiceOperation*> found;
  for (const TServiceOperation& operation : std::span(operations, count))
    if (operation.Name == name) found.push_back(&operation);
  if (found.empty())
    throw zanrole::EZanError(
        fmt::format("There is no operation '{}'; the list of them tells what there is.", name));
  return found;
}

bool CanBe(const std::string& text, TServiceType type) {
  try {
    if (type == TServiceType::Number) zanrole::StrToInt(text);
    if (type == TServiceType::Truth) zanrole::StrToBool(text);
    return true;
  } catch (const zanrole::EConvertError&) {
    return false;
  }
}

bool Takes(const TServiceOperation& operation, const std::vector<std::string>& arguments) {
  return std::equal(arguments.begin(), arguments.end(), operation.Arguments.begin(),
                    operation.Arguments.end(),
                    [](const std::string& text, const auto& argument) { return CanBe(text, argument.Type); });
}

[[noreturn]] void RaiseUnfit(const std::vector<const TServiceOperation*>& operations) {
  std::vector<std::string> signatures;
  for (const TServiceOperation* operation : operations) signatures.push_back(SignatureOf(*operation));
  throw zanrole::EZanError(fmt::format("The arguments do not fit: {}", fmt::join(signatures, " or ")));
}

const char* NameOf(TServiceType type) {
  switch (type) {
    case TServiceType::Number:
      return "number";
    case TServiceType::Truth:
      return "true|false";
    case TServiceType::List:
      return "list";
    case TServiceType::Nothing:
    case TServiceType::Text:
      break;
  }
  return "text";
}

}  // namespace

std::string SignatureOf(const TServiceOperation& operation) {
  std::string signature = operation.Name;
  for (const zanrole::TServiceArgument& argument : operation.Arguments)
    signature += fmt::format(" {}:{}", argument.Name, NameOf(argument.Type));
  return signature;
}

zanrole::TServiceAnswer AskService(const TModule& module, const TServiceQuestion& question) {
  const auto operations = OperationsNamed(module, question.Operation);
  const auto found =
      std::find_if(operations.begin(), operations.end(),
                   [&](const TServiceOperation* operation) { return Takes(*operation, question.Arguments); });
  if (found == operations.end()) RaiseUnfit(operations);
  return (*found)->Ask(question.Arguments);
}

}  // namespace zanhost
