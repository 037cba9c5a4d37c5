#include "host/platform/ParameterStore.h"

namespace zanhost {

namespace {

// clang-format off
constexpr char kSelectText[] =
    "select ParamText from ZanPluginParam "
    "where ParamGroup = :ParamGroup and ObjectID = :ObjectID and ParamName = :ParamName";

constexpr char kUpdateText[] =
    "update ZanPluginParam set ParamText = :ParamText "
    "where ParamGroup = :ParamGroup and ObjectID = :ObjectID and ParamName = :ParamName";

// Inserts unless the row is there, in words that every engine takes.
constexpr char kInsertMissing[] =
    "insert into ZanPluginParam (ParamGroup, ObjectID, ParamName, ParamText) "
    "select :ParamGroup, :ObjectID, :ParamName, :ParamText "
    "from (select count(*) Stored from ZanPluginParam "
          "where ParamGroup = :ParamGroup and ObjectID = :ObjectID and ParamName = :ParamName) Existing "
    "where Existing.Stored = 0";
// clang-format on

}  // namespace

TPluginParam::TPluginParam(zanrole::TDatabaseServices& database, std::string_view group, int id,
                           std::string_view name)
    : FDatabase(&database), FGroup(group), FId(id), FName(name) {
  const std::unique_ptr<zanrole::TZANQuery> query = FDatabase->GetSysQuery();
  query->SQL().SetText(kSelectText);
  BindKey(*query);
  query->Open();
  if (!query->Eof()) Text = query->FieldByName("ParamText").AsString();
}

void TPluginParam::BindKey(zanrole::TZANQuery& query) const {
  query.ParamByName("ParamGroup").AsString(FGroup);
  query.ParamByName("ObjectID").AsInteger(FId);
  query.ParamByName("ParamName").AsString(FName);
}

void TPluginParam::Execute(const char* statement) const {
  const std::unique_ptr<zanrole::TZANQuery> query = FDatabase->GetSysQuery();
  query->SQL().SetText(statement);
  BindKey(*query);
  query->ParamByName("ParamText").AsString(Text);
  query->ExecSQL();
}

void TPluginParam::SaveToDB() const {
  Execute(kUpdateText);
  Execute(kInsertMissing);
}

std::unique_ptr<TPluginParam> TPluginParamHome::GetParam(std::string_view group, int id,
                                                         std::string_view name) {
  return std::make_unique<TPluginParam>(*FDatabase, group, id, name);
}

}  // namespace zanhost
