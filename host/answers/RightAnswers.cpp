#include "host/answers/RightAnswers.h"

#include <fmt/format.h>

#include <boost/json.hpp>
#include <utility>

#include "host/answers/Reply.h"
#include "host/platform/Accounts.h"
#include "host/worker/MenuTree.h"
#include "host/worker/ServiceQuestion.h"

namespace zanhost {

namespace json = boost::json;

namespace {

constexpr std::int64_t kUnknown = -1;

std::int64_t AskNumber(TAnswerSession& session, const TServiceQuestion& question) {
  return std::get<std::int64_t>(AskService(session.Module(), question));
}

void RequireType(TAnswerSession& session, const std::string& type) {
  if (AskNumber(session, {"TTolPermission.GetTypeIDByName", {type}}) == kUnknown)
    throw ERefusedQuestion(404, fmt::format("There is no type '{}'.", type));
}

/// The object that a question names.
int ObjectOf(TAnswerSession& session, const TQuestion& question) {
  if (!question.Type.empty()) RequireType(session, question.Type);
  if (question.ObjectID) return *question.ObjectID;
  const std::int64_t objectID =
      AskNumber(session, {"TRunPermission.GetObjID", {question.Type, question.Object}});
  if (objectID == kUnknown)
    throw ERefusedQuestion(
        404, fmt::format("There is no object '{}' of the type '{}'.", question.Object, question.Type));
  return static_cast<int>(objectID);
}

json::array Describe(const std::vector<TMenuEntry>& entries) {
  json::array described;
  for (const TMenuEntry& entry : entries) {
    json::object menu{{"objectID", entry.ObjectID}, {"caption", entry.Caption}};
    if (!entry.Function.empty()) menu["function"] = entry.Function;
    if (!entry.Children.empty()) menu["children"] = Describe(entry.Children);
    described.push_back(std::move(menu));
  }
  return described;
}

const char* EffectOf(std::string_view right) {
  if (right.empty()) return "notSet";
  return right == "允许" ? "allowed" : "denied";
}

json::object Describe(const zanrole::TRightRow& row) {
  json::object holder{{"oid", row.HolderOID}, {"name", row.HolderName}, {"role", row.IsRole}};
  if (!row.HolderLogin.empty()) holder["login"] = row.HolderLogin;
  return {{"holder", std::move(holder)},
          {"right", row.Right},
          {"effect", EffectOf(row.Right)},
          {"decides", row.Decides}};
}

json::array Describe(const std::vector<zanrole::TRightRow>& rows) {
  json::array described;
  for (const zanrole::TRightRow& row : rows) described.push_back(Describe(row));
  return described;
}

json::object Describe(const zanrole::TRightHolder& user) {
  return {{"oid", user.OID},
          {"login", user.Login},
          {"name", user.Name},
          {"right", user.Right},
          {"effect", EffectOf(user.Right)},
          {"superUser", user.IsSuperUser},
          {"disabled", user.IsDisabled}};
}

}  // namespace

json::object AnswerMenus(TAnswerSession& session, const TQuestion& question) {
  const auto isAllowed = session.Module().Entries()->GetMenuPermission;
  return {{"login", question.Login}, {"menus", Describe(ReadMenu(session.Host().Databases(), isAllowed))}};
}

json::object AnswerDenied(TAnswerSession& session, const TQuestion& question) {
  const int objectID = ObjectOf(session, question);
  const zanrole::TServiceAnswer denied = AskService(
      session.Module(), {"TRunPermission.GetObjOperates", {question.Type, std::to_string(objectID)}});
  return {{"login", question.Login},
          {"objectID", objectID},
          {"denied", json::value_from(std::get<std::vector<std::string>>(denied))}};
}

json::object AnswerRight(TAnswerSession& session, const TQuestion& question) {
  const int objectID = ObjectOf(session, question);
  const zanrole::TRightReason reason = session.Module().Entries()->ExplainRight(objectID, question.Operation);
  const auto account = FindAccount(session.Host().Databases(), question.Login);
  return {{"login", question.Login},
          {"objectID", objectID},
          {"operation", question.Operation},
          {"right", reason.Right},
          {"effect", EffectOf(reason.Right)},
          {"superUser", reason.IsSuperUser},
          {"disabled", account && account->IsDisabled},
          {"rows", Describe(reason.Rows)},
          {"reason", json::value_from(reason.Sentences)}};
}

json::object AnswerHolders(TAnswerSession& session, const TQuestion& question) {
  const int objectID = ObjectOf(session, question);
  const zanrole::TRightHolders holders =
      session.Module().Entries()->RightHolders(objectID, question.Operation, question.After, question.Limit);
  json::array users;
  for (const zanrole::TRightHolder& user : holders.Users) users.push_back(Describe(user));
  json::object answer{{"objectID", objectID},
                      {"operation", question.Operation},
                      {"rows", Describe(holders.Rows)},
                      {"users", std::move(users)},
                      {"next", nullptr}};
  if (holders.HasMore) answer["next"] = holders.Users.back().OID;
  return answer;
}

}  // namespace zanhost
