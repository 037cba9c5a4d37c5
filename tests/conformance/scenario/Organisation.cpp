#include "tests/conformance/scenario/Organisation.h"

#include "tests/conformance/scenario/Options.h"

namespace zantest {

namespace {

constexpr int kTopLevel = -1;
constexpr int kRecycleBin = -9;
constexpr int kNoUpperPosition = -9;

const std::string& CodeOf(const TOutlineLine& line) { return line.Word(1, "the code"); }
const std::string& NameOf(const TOutlineLine& line) { return line.Word(2, "the name"); }

}  // namespace

void TOrganisation::AddNodes(const TOutlineLine& parent) { AddNodesBelow(parent, TPlace{.Id = kTopLevel}); }

void TOrganisation::AddNodesBelow(const TOutlineLine& parent, const TPlace& place) {
  for (const TOutlineLine& line : parent.Below) {
    const std::string& kind = line.Words.front();
    if (kind == "company")
      AddUnit(line, place, "Company", "CompanyH");
    else if (kind == "department")
      AddUnit(line, place, "Department", "DepartmentH");
    else if (kind == "position")
      AddPosition(line, place);
    else if (kind == "person")
      AddPerson(line, place, parent.Words.size() > 1 ? parent.Words[1] : "top");
    else
      throw line.Error("\"" + kind + "\" is no company, department, position or person");
  }
}

TOrganisation::TPlace TOrganisation::AddNode(const TOutlineLine& line, const TPlace& parent,
                                             const char* type) {
  const int id = ++FLastNode;
  const std::string name = NameOf(line);
  const bool top = parent.Id < 0;
  TPlace place{.Id = id,
               .Level = top ? 0 : parent.Level + 1,
               .LongName = (top ? "" : parent.LongName + "\\") + name,
               .LongCode = (top ? "" : parent.LongCode + "\\") + std::to_string(id),
               .ParentPath = top ? "" : parent.ParentPath + std::to_string(parent.Id) + ","};
  FRows.Insert("PartyH", {{"DjLsh", id},
                          {"Parent", parent.Id},
                          {"Type", type},
                          {"Name", name},
                          {"Title", name},
                          {"Code", CodeOf(line)},
                          {"Sequence", id},
                          {"IsActive", parent.Id == kRecycleBin ? 0 : 1},
                          {"LongName", place.LongName},
                          {"LongCode", place.LongCode},
                          {"ParentPath", place.ParentPath},
                          {"NodeLevel", place.Level},
                          {"IsLastLevel", line.Below.empty() ? 1 : 0}});
  return place;
}

void TOrganisation::AddUnit(const TOutlineLine& line, const TPlace& parent, const char* type,
                            const char* entityTable) {
  const TOptions none(line, 3, {});
  const TPlace place = AddNode(line, parent, type);
  FNumbers.Name(line, CodeOf(line), place.Id);
  FRows.Insert(entityTable, {{"Djlsh", ++FLastEntity},
                             {"ObjID", place.Id},
                             {"code", CodeOf(line)},
                             {"Name", NameOf(line)},
                             {"Title", NameOf(line)}});
  AddNodesBelow(line, place);
}

void TOrganisation::AddPosition(const TOutlineLine& line, const TPlace& parent) {
  const TOptions options(line, 3, {"head", "unranked", "manager"}, {"below", "kind"});
  const TPlace place = AddNode(line, parent, "PositionEntity");
  FNumbers.Name(line, CodeOf(line), place.Id);
  const std::string above = options.Value("below");
  FRows.Insert("PositionEntityH",
               {{"Djlsh", ++FLastEntity},
                {"ObjID", place.Id},
                {"code", CodeOf(line)},
                {"Name", NameOf(line)},
                {"Title", NameOf(line)},
                {"PositionCode", options.Value("kind")},
                {"UpperPosition", above.empty() ? kNoUpperPosition : FNumbers.Find(line, above, "position")},
                {"isManager", options.Has("manager") ? 1 : 0}});
  FRows.Run("update PartyH set FullName = " + zanrole::QuotedStr(parent.LongName + "\\" + NameOf(line)) +
            " where DjLsh = " + std::to_string(place.Id));
  if (!options.Has("unranked")) {
    FRows.Run("update PartyH set isHeadPosition = " + std::string(options.Has("head") ? "1" : "0") +
              " where DjLsh = " + std::to_string(place.Id));
  }
  AddNodesBelow(line, place);
}

// People.

void TOrganisation::AddPerson(const TOutlineLine& line, const TPlace& parent, const std::string& upperCode) {
  const TOptions options(line, 3, {"second", "unlinked", "administrator", "disabled"});
  if (!line.Below.empty()) throw line.Below.front().Error("nothing stands below a person");
  const std::string& login = CodeOf(line);
  const TPlace place = AddNode(line, parent, "User");
  FNumbers.Name(line, login + ":" + upperCode, place.Id);
  const bool mainPost = !options.Has("second") && parent.Id != kRecycleBin;
  if (FPeople.insert(login).second)
    MakePerson(line, mainPost ? place.Id : 0);
  else if (mainPost)
    FRows.Run("update UserH set ObjID = " + std::to_string(place.Id) +
              " where code = " + zanrole::QuotedStr(login));
  FRows.Run("update PartyH set isCapitalPosition = " + std::string(mainPost ? "1" : "0") +
            " where DjLsh = " + std::to_string(place.Id));
  if (!options.Has("unlinked")) LinkAccount(line, place.Id);
}

void TOrganisation::MakePerson(const TOutlineLine& line, int mainPost) {
  FRows.Insert("UserH", {{"DjLsh", ++FLastPerson},
                         {"ObjID", mainPost},
                         {"code", CodeOf(line)},
                         {"name", NameOf(line)},
                         {"title", NameOf(line)}});
  FNumbers.Name(line, "person:" + CodeOf(line), FLastPerson);
  if (!FNumbers.Knows(CodeOf(line))) AddAccount(line, /*isRole*/ false);
}

void TOrganisation::LinkAccount(const TOutlineLine& line, int post) {
  const int person = FNumbers.Find(line, "person:" + CodeOf(line), "person");
  const int account = FNumbers.Find(line, CodeOf(line), "account");
  FRows.Run("update PartyH set isSTUser = 1, UserOID = " + std::to_string(account) +
            ", UserLsh = " + std::to_string(person) + " where DjLsh = " + std::to_string(post));
}

int TOrganisation::AddAccount(const TOutlineLine& line, bool isRole) {
  const TOptions options(line, 3, {"second", "unlinked", "administrator", "disabled"});
  const int oid = ++FLastAccount;
  FNumbers.Name(line, CodeOf(line), oid);
  FRows.Insert("STUsers", {{"OID", oid},
                           {"UserID", CodeOf(line)},
                           {"UserName", NameOf(line)},
                           {"uGroup", isRole ? 1 : 0},
                           {"IsAdministrator", options.Has("administrator") ? 1 : 0},
                           {"UnUsed", options.Has("disabled") ? 1 : 0}});
  return oid;
}

void TOrganisation::AddDetached(const TOutlineLine& line) {
  for (const TOutlineLine& person : line.Below) {
    if (person.Words.front() != "person") throw person.Error("only a person can be detached");
    AddPerson(person, TPlace{.Id = kRecycleBin}, "detached");
  }
}

// Positions above each other.

void TOrganisation::AddKind(const TOutlineLine& line) {
  const TOptions none(line, 3, {});
  FRows.Insert("PositionH", {{"DjLsh", ++FLastEntity}, {"Code", CodeOf(line)}, {"Name", NameOf(line)}});
}

void TOrganisation::AddMap(const TOutlineLine& line) {
  const TOptions none(line, 2, {});
  const int map = ++FLastPlace;
  const std::string& name = line.Word(1, "the name of the map");
  FNumbers.Name(line, name, map);
  FRows.Insert(
      "PositionMapH",
      {{"Djlsh", map}, {"PositionID", -1}, {"PositionName", name}, {"UpperPosition", -1}, {"MapID", map}});
  AddPlaces(line, map, map);
}

void TOrganisation::AddPlaces(const TOutlineLine& upperLine, int upper, int map) {
  for (const TOutlineLine& line : upperLine.Below) {
    const int place = ++FLastPlace;
    const std::string& code = line.Words.front();
    const TOptions none(line, 1, {});
    FRows.Insert("PositionMapH", {{"Djlsh", place},
                                  {"PositionID", FNumbers.Find(line, code, "position")},
                                  {"PositionName", code},
                                  {"UpperPosition", upper},
                                  {"MapID", map}});
    AddPlaces(line, place, map);
  }
}

}  // namespace zantest
