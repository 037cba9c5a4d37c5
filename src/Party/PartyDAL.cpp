#include "Party/PartyDAL.h"

#include "Frame/Dialects.h"
#include "Party/QueryCloser.h"

namespace zanrole {

namespace {

// clang-format off

constexpr const char* kParty = "select DjLsh, Type, Name, Title, IsActive, Parent, Sequence, Code, LongName ";

// A company left under a removed parent stays visible at the top.
constexpr const char* kTopLevel = R"(from PartyH
where Type = 'Company' and Parent not in (select DjLsh from partyH)
order by Sequence)";

constexpr const char* kChildrenOf = "from PartyH where Parent = ";

// clang-format on

}  // namespace

TPartyDAL::TPartyDAL()
    : FQuery(TDbProviderFactory::GetQuery()),
      FRoleOfOrganizationQuery(TDbProviderFactory::GetQuery()),
      FUserOfOrganizationQuery(TDbProviderFactory::GetQuery()),
      FUserDataSet{"OID", "UserID", "UserName", "UserDesc", "Categories", "UserDept"},
      FRoleDataSet{"OID", "UserID", "UserName", "UserDesc", "Categories", "UserDept"} {}

TPartyDAL::~TPartyDAL() = default;

TPartyDAL::TEntityList TPartyDAL::LoadPartyTopLevel() { return LoadParty(kTopLevel); }

TPartyDAL::TEntityList TPartyDAL::LoadPartyByParentID(int ParentID) {
  return LoadParty(kChildrenOf + std::to_string(ParentID) + "\r\norder by Type, Sequence");
}

TPartyDAL::TEntityList TPartyDAL::LoadParty(std::string_view rest) {
  const TQueryCloser whenRead(*FQuery);
  OpenStatement(*FQuery, std::string(kParty) + "\r\n" + std::string(rest));
  return loadPartyFromDataSet(FQuery->DataSet());
}

TPartyDAL::TEntityList TPartyDAL::loadPartyFromDataSet(TDataSet& dataSet) {
  TEntityList entities;
  const auto text = [&](const char* column) { return Trim(dataSet.FieldByName(column).AsString()); };
  for (; !dataSet.Eof(); dataSet.Next()) {
    auto entity = std::make_unique<party::TPartyEntityInfo>();
    entity->FOID = dataSet.FieldByName("DjLsh").AsInteger();
    entity->FPartyType = party::TPartyEntityInfo::GetPartyType(text("Type"));
    entity->FName = text("Name");
    entity->FTitle = text("Title");
    entity->FIsActive = text("IsActive");
    entity->FParentID = dataSet.FieldByName("Parent").AsInteger();
    entity->FSequence = dataSet.FieldByName("Sequence").AsInteger();
    entity->FCode = text("Code");
    entity->FLongName = text("LongName");
    entities.push_back(entity.get());
    FPartyEntityList.push_back(std::move(entity));
  }
  return entities;
}

}  // namespace zanrole
