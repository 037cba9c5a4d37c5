#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "Domain/U_Domains.h"
#include "Frame/PartyMenuFunc.h"
#include "tests/support/RecordingHost.h"

namespace zantest {

/// One row of STDomains as the console reads it.
struct TDomainRow {
  int ID;
  int ParentID;
  int NodeLevel;
  int Sequence;
  std::string Name;
  std::string Code;
  std::string ParentName;
  std::string ParentCode;
  std::string Remark = {};
  int UserLimit = 0;
  int RelateOrg = 0;
};

/// The console of the domain tree on a recording host, worked as a person would: through its components.
class TDomainsTest : public testing::Test {
 protected:
  explicit TDomainsTest(TDialect dialect = TDialect::SqlServer);

  /// The next reading of the tree gives these rows.
  void ReadTree(const std::vector<TDomainRow>& rows);
  /// Opens the console through its menu function, as a page of the host; forgets the statements that ran.
  zanrole::TFormDomains& Open();
  /// The console as it was opened.
  zanrole::TFormDomains& Console();
  /// \A (3) with \A\B (5), which has \A\B\C (9), and \A\D (6); beside it \E (4).
  zanrole::TFormDomains& OpenCompany();

  /// Selects the node of a domain; -1 for the root.
  void Select(int domainID);
  zanrole::TTreeNode& Node(int domainID);
  /// Enabled and visible, by its own rules and those of what it is in.
  static bool IsUsable(zanrole::TComponent& part);
  /// Presses an action. A press on one that is not usable fails the test.
  static void Press(zanrole::TAction& action);
  /// The next dialog of a domain is filled with these values and OK is pressed.
  void WhenAsked(std::string name, std::string code, std::string remark = {}, int userLimit = 0);
  /// Runs `act` and gives the squeezed texts of the statements that it sent.
  std::vector<std::string> StatementsOf(const std::function<void()>& act);
  /// Answers the statements of NewDomain: the parent's paths, and the id that the new row gets.
  void AnswerNewDomain(int lastSequence, const TDomainRow* parent, int newID, std::string parentCode);

  /// The domain 5 of the company is the first child, 6 the second.
  void AnswerSequences();

  TRecordingServices FServices;
  TRecordingHost FHost;
  zanrole::TMenuFunc_DomainManage FFunc;
  zanrole::TFuncInfo FFuncInfo;
};

class TDomainsOracleTest : public TDomainsTest {
 protected:
  TDomainsOracleTest() : TDomainsTest(TDialect::Oracle) {}
};

class TDomainsMySqlTest : public TDomainsTest {
 protected:
  TDomainsMySqlTest() : TDomainsTest(TDialect::MySql) {}
};

}  // namespace zantest
