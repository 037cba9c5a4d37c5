#include "host/worker/FunctionLines.h"

#include <boost/json.hpp>

#include "Frame/Host/Zandbs.h"
#include "host/query/Redaction.h"

namespace zanhost {

namespace json = boost::json;

namespace {

const char* KindName(zanrole::TFuncType type) {
  switch (type) {
    case zanrole::TFuncType::System:
      return "system";
    case zanrole::TFuncType::Menu:
      return "menu";
    case zanrole::TFuncType::Linked:
      break;
  }
  return "linked";
}

const char* TypeName(zanrole::TFuncDataType type) {
  switch (type) {
    case zanrole::TFuncDataType::Integer:
      return "integer";
    case zanrole::TFuncDataType::Boolean:
      return "boolean";
    case zanrole::TFuncDataType::String:
      break;
  }
  return "string";
}

const char* TypeName(zanrole::TServiceType type) {
  switch (type) {
    case zanrole::TServiceType::Text:
      return "text";
    case zanrole::TServiceType::Number:
      return "number";
    case zanrole::TServiceType::Truth:
      return "boolean";
    case zanrole::TServiceType::List:
      return "list";
    case zanrole::TServiceType::Nothing:
      break;
  }
  return "nothing";
}

json::value JsonOf(const zanrole::TServiceAnswer& answer) {
  struct TToJson {
    json::value operator()(std::monostate) const { return nullptr; }
    json::value operator()(const std::vector<std::string>& list) const {
      return json::array(list.begin(), list.end());
    }
    json::value operator()(const std::string& text) const { return json::value(text); }
    json::value operator()(std::int64_t number) const { return number; }
    json::value operator()(bool truth) const { return truth; }
  };
  return std::visit(TToJson(), answer);
}

json::array DescribeParams(const zanrole::TFuncParamList& params) {
  json::array described;
  for (const zanrole::TFuncParam& param : params)
    described.push_back(json::object{{"name", param.Name},
                                     {"type", TypeName(param.DataType)},
                                     {"description", param.Description},
                                     {"default", param.Value}});
  return described;
}

}  // namespace

json::object DescribeFunction(const TFunction& function) {
  return {{"name", function.Name},
          {"description", function.Description},
          {"kind", KindName(function.Type)},
          {"in", DescribeParams(function.Info->InParams)},
          {"out", DescribeParams(function.Info->OutParams)}};
}

json::object DescribeOutcome(const TCallOutcome& outcome) {
  json::object out;
  for (const auto& [name, value] : outcome.Out) out[name] = value;
  return {{"result", outcome.Result}, {"out", std::move(out)}};
}

json::object DescribeAnswer(const zanrole::TServiceAnswer& answer) { return {{"answer", JsonOf(answer)}}; }

json::object DescribeOperation(const zanrole::TServiceOperation& operation) {
  json::array arguments;
  for (const zanrole::TServiceArgument& argument : operation.Arguments)
    arguments.push_back(
        json::object{{"name", std::string(argument.Name)}, {"type", TypeName(argument.Type)}});
  return {{"operation", operation.Name},
          {"arguments", std::move(arguments)},
          {"answer", TypeName(operation.Answer)}};
}

json::object DescribeFault(const std::exception& fault) {
  const auto* failed = dynamic_cast<const zanrole::EDatabaseError*>(&fault);
  if (failed == nullptr) return {{"error", fault.what()}};
  json::object described{{"error", failed->Message()}};
  if (!failed->Statement().empty()) described["statement"] = RedactStatement(failed->Statement());
  return described;
}

}  // namespace zanhost
