#include "Role/TolPermission.h"

#include <algorithm>

#include "Frame/Dialects.h"
#include "Frame/Session.h"
#include "Role/ZanObjType.h"

namespace zanrole {

namespace {

constexpr const char* kLargestObjectID = "Select Max(ObjectID) as MOID From ObjectRegister";

constexpr const char* kInsertObject =
    "Insert Into ObjectRegister (ObjectID, TypeID, Object, OwnerID) "
    "Values (:ObjectID, :TypeID, :Object, :OwnerID)";

constexpr const char* kObjectsOfType = "Select * From ObjectRegister Where TypeID = :TypeID";

constexpr const char* kDeleteObject = "Delete From ObjectRegister Where ObjectID = :ObjectID";

// The table is `Permission`, not STPermission: rows of the latter stay.
constexpr const char* kDeleteLegacyRights = "Delete From Permission Where ObjectID = :ObjectID";

void ExecForObject(TZANQuery& query, const char* statement, int objectID) {
  query.SQL().SetText(statement);
  query.ParamByName("ObjectID").AsInteger(objectID);
  query.ExecSQL();
}

}  // namespace

TSubDef& TTypeDef::Place(TSubDef object) {
  const auto notSmaller = [&](const TSubDef& other) { return other.ID >= object.ID; };
  return *Objects.insert(std::find_if(Objects.begin(), Objects.end(), notSmaller), std::move(object));
}

TTolPermission& TTolPermission::GetInstance() {
  auto& instance = TSession::Current().Slot<TTolPermission>();
  instance.SetUserID(SystemInfo().LoginUserOID);
  return instance;
}

TTolPermission::TTolPermission()
    : FSystemInfo(&SystemInfo()),
      FOprateQuery(TDbProviderFactory::GetSysQuery()),
      FPerQuery(TDbProviderFactory::GetQuery()) {}

int TTolPermission::AddObject(int typeID, std::string_view name, int owner) {
  std::optional<TTypeDef> type = FindType(typeID);
  if (!type) return -1;
  TSubDef& object = type->Place({0, owner, std::string(name)});
  object.ID = NextIdentity(*FOprateQuery, kLargestObjectID);
  FOprateQuery->SQL().SetText(kInsertObject);
  FOprateQuery->ParamByName("ObjectID").AsInteger(object.ID);
  FOprateQuery->ParamByName("TypeID").AsInteger(typeID);
  FOprateQuery->ParamByName("Object").AsString(object.Name);
  FOprateQuery->ParamByName("OwnerID").AsInteger(object.SID);
  FOprateQuery->ExecSQL();
  return object.ID;
}

void TTolPermission::DeleteObject(int objectID) {
  ExecForObject(*FOprateQuery, kDeleteObject, objectID);
  ExecForObject(*FOprateQuery, kDeleteLegacyRights, objectID);
  Clear();
}

void TTolPermission::DeleteObject(int typeID, std::string_view name) {
  DeleteObject(GetObjectIDByName(name, typeID));
}

int TTolPermission::GetObjectIDByName(std::string_view name, int typeID) {
  std::optional<TTypeDef> type = FindType(typeID);
  if (!type) return -1;
  if (!type->ReadObjects) GetObjectsInfo(*type);
  for (const TSubDef& object : type->Objects)
    if (object.Name == name) return object.ID;
  return -1;
}

void TTolPermission::GetObjectsInfo(TTypeDef& type) {
  FOprateQuery->SQL().SetText(kObjectsOfType);
  FOprateQuery->ParamByName("TypeID").AsInteger(type.TypeID);
  for (FOprateQuery->Open(); !FOprateQuery->Eof(); FOprateQuery->Next()) {
    type.Place({FOprateQuery->FieldByName("ObjectID").AsInteger(),
                FOprateQuery->FieldByName("OwnerID").AsInteger(),
                Trim(FOprateQuery->FieldByName("Object").AsString())});
  }
  FOprateQuery->Close();
  type.ReadObjects = true;
}

std::optional<TSubDef> TTolPermission::GetObjectByIndex(int index, int typeID) {
  std::optional<TTypeDef> type = FindType(typeID);
  if (!type) return std::nullopt;
  if (!type->ReadObjects) GetObjectsInfo(*type);
  if (index < 0 || index >= static_cast<int>(type->Objects.size())) return std::nullopt;
  return type->Objects[static_cast<std::size_t>(index)];
}

std::optional<TTypeDef> TTolPermission::FindType(int typeID) const {
  const TZanObjType* type = TZanObjTypeManager::Instance().GetType(typeID);
  if (type == nullptr) return std::nullopt;
  TTypeDef record;
  record.TypeID = type->TypeID();
  record.TypeName = type->TypeName();
  record.Oprates = &type->Oprates();
  return record;
}

int TTolPermission::GetOprateCount(int typeID) const {
  const TZanObjType* type = TZanObjTypeManager::Instance().GetType(typeID);
  return type == nullptr ? 0 : type->Oprates().Count();
}

std::string TTolPermission::GetOprateName(int index, int typeID) const {
  if (index < 0 || index >= GetOprateCount(typeID)) return {};
  return TZanObjTypeManager::Instance().GetType(typeID)->Oprates()[index];
}

const TStringList* TTolPermission::GetOpratesByTypeName(std::string_view typeName) const {
  const TZanObjType* type = TZanObjTypeManager::Instance().GetType(typeName);
  return type == nullptr ? nullptr : &type->Oprates();
}

int TTolPermission::GetTypeIDByName(std::string_view typeName) const {
  const TZanObjType* type = TZanObjTypeManager::Instance().GetType(typeName);
  return type == nullptr ? -1 : type->TypeID();
}

}  // namespace zanrole
