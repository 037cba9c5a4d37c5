#pragma once

#include <string>
#include <vector>

#include "Frame/Session.h"
#include "Party/OrgUnitSQL.h"
#include "tests/conformance/Conformance.h"

namespace zantest {

/// An organisation that the module itself saves, unit by unit, into the product's tables.
class TPartyWorld {
 public:
  explicit TPartyWorld(zanhost::TDatabase& database) : FQuery(database.GetQuery()) {}

  /// A new unit below `parent`; gives its identity.
  int Save(const char* kind, int parent, const std::string& name, int sequence = 1) {
    zanrole::TOrgUnit unit;
    unit.ID = zanrole::SystemInfo().NewDjLsh("Party");
    unit.parentID = parent;
    unit.sequence = sequence;
    unit.IsActive = true;
    unit.kind = kind;
    unit.name = unit.title = name;
    unit.code = "C-" + name;
    unit.isNew = true;
    zanrole::TOrgUnitSQL::SaveOrganUnits(unit);
    return unit.ID;
  }

  /// The person of this login in a position, as the dialog that assigns people does it; gives the node.
  int Assign(int position, const std::string& login, bool keepOthers = false) {
    zanrole::TOrgUnit unit;
    unit.parentID = position;
    unit.IsActive = true;
    unit.kind = "User";
    unit.name = unit.title = "Mr " + login;
    unit.code = login;
    unit.UserPartyUpdate = true;
    zanrole::TOrgUnitSQL::PositionAssignUser(unit, keepOthers);
    return unit.ID;
  }

  /// What breaks a rule that all writers of the organisation keep, told in words; empty when all hold.
  std::vector<std::string> BrokenRules() {
    std::vector<std::string> broken;
    const auto check = [&](const std::string& rule, const std::string& statement) {
      zanrole::OpenStatement(*FQuery, statement);
      for (; !FQuery->Eof(); FQuery->Next()) broken.push_back(rule + ": " + FQuery->Fields(0).AsString());
    };
    for (const std::string kind : {"Company", "Department", "PositionEntity"}) {
      check(kind + " without entity", "select DjLsh from PartyH where Type = '" + kind +
                                          "' and DjLsh not in (select ObjID from " + kind + "H)");
      check(kind + " of no node",
            "select ObjID from " + kind + "H where ObjID > 0 and ObjID not in (select DjLsh from PartyH)");
    }
    check("person with two rows", "select code from UserH group by code having count(*) > 1");
    check("main post that is no row of the person",
          "select u.code from UserH u left outer join PartyH p on p.DjLsh = u.ObjID and p.Code = u.code "
          "where u.ObjID > 0 and p.DjLsh is null");
    return broken;
  }

 private:
  std::unique_ptr<zanrole::TZANQuery> FQuery;
};

}  // namespace zantest
