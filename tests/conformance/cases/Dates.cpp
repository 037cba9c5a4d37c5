#include <chrono>

#include "tests/conformance/Conformance.h"

namespace zantest {

using namespace std::chrono_literals;

TEST_P(Conformance, Dates_ArriveByParameter) {
  MakeCasesTable();
  const zanrole::TDateTime moment = zanrole::TextToDateTime("2024-02-29 23:59:58");
  Exec("insert into Cases(ID, Moment) values(1, :Moment)", {{"Moment", moment}});
  const auto query = Query();
  query->SQL().SetText("select Moment from Cases where Moment = :Moment");
  query->ParamByName("Moment").AsDateTime(moment);
  query->Open();
  ASSERT_FALSE(query->Eof());
  EXPECT_EQ(query->Fields(0).AsDateTime(), moment);
  EXPECT_EQ(query->Fields(0).AsString(), "2024-02-29 23:59:58");
}

TEST_P(Conformance, Dates_SortAsTimesPass) {
  MakeCasesTable();
  int id = 0;
  for (const char* moment : {"2024-10-01 00:00:00", "2024-09-30 23:59:59", "1999-12-31 00:00:01"})
    Exec("insert into Cases(ID, Moment) values(:ID, :Moment)",
         {{"ID", std::int64_t{++id}}, {"Moment", zanrole::TextToDateTime(moment)}});
  EXPECT_EQ(Rows("select ID from Cases order by Moment"), (std::vector<TTextRow>{{"3"}, {"2"}, {"1"}}));
  EXPECT_EQ(Cell("select count(*) from Cases where Moment < :Limit",
                 {{"Limit", zanrole::TextToDateTime("2024-10-01 00:00:00")}}),
            "2");
}

TEST_P(Conformance, Dates_NowIsTheLocalTime) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Moment) select 1, " + zanrole::DBCurDateStr() + zanrole::DualSuffix());
  const auto query = Query();
  query->SQL().SetText("select Moment from Cases");
  query->Open();
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
  const auto distance = zanrole::TextToDateTime(text) - query->Fields(0).AsDateTime();
  EXPECT_LE(distance, 5s);
  EXPECT_GE(distance, -5s);
}

TEST_P(Conformance, Dates_AnUnsetOneIsNull) {
  MakeCasesTable();
  Exec("insert into Cases(ID, Moment) values(1, :Moment)");
  EXPECT_EQ(Cell("select count(*) from Cases where Moment is null"), "1");
}

}  // namespace zantest
