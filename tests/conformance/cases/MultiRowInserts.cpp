#include "tests/conformance/Conformance.h"

namespace zantest {

namespace {

/// The pattern of an insert of many rows, as memberships are written.
std::string InsertOfRows(int count) {
  std::string text = "Insert Into STUserGroup (UserID, GroupID)";
  for (int i = 1; i <= count; ++i)
    text += "\r\nselect " + std::to_string(i) + ", " + std::to_string(-i) + " " + zanrole::DualSuffix() +
            (i < count ? " union all" : ";");
  return text;
}

}  // namespace

TEST_P(Conformance, MultiRowInserts_OfOneToTenThousandRows) {
  if (const std::string whyNot = Engine().WhyNoUnions(); !whyNot.empty()) GTEST_SKIP() << whyNot;
  Engine().InstallSchema();
  for (const int count : {1, 2, 249, 250, 251, 499, 500, 501, 502, 750, 1000, 10000}) {
    zanrole::TStringList statements;
    statements.Add("delete from STUserGroup;");
    statements.Add(InsertOfRows(count));
    zanrole::RunBatch(*Query(), statements);
    EXPECT_EQ(Rows("select count(*), sum(UserID), sum(GroupID) from STUserGroup"),
              (std::vector<TTextRow>{{std::to_string(count), std::to_string(count * (count + 1) / 2),
                                      std::to_string(-count * (count + 1) / 2)}}))
        << count;
  }
}

TEST_P(Conformance, MultiRowInserts_KeepTheNamesOfTheFirstRow) {
  if (const std::string whyNot = Engine().WhyNoUnions(); !whyNot.empty()) GTEST_SKIP() << whyNot;
  MakeCasesTable();
  Exec("insert into Cases(ID, Name) values(600, 'x')");
  std::string lines;
  for (int i = 1; i <= 600; ++i)
    lines += (i > 1 ? " union all " : "") + ("select " + std::to_string(i) + " DjLsh, " +
                                             std::to_string(i * 2) + " Sequence " + zanrole::DualSuffix());
  EXPECT_EQ(Cell("select b.Sequence from Cases a inner join (" + lines + ") b on a.ID = b.DjLsh"), "1200");
}

TEST_P(Conformance, MultiRowInserts_ASelectOfConstants) {
  EXPECT_EQ(Rows("select 1 A, 'x' B " + zanrole::DualSuffix()), (std::vector<TTextRow>{{"1", "x"}}));
}

}  // namespace zantest
