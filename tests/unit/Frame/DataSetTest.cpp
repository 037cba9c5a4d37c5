#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "Frame/Host/Zandbs.h"

namespace zantest {
namespace {

using testing::ElementsAre;
using namespace zanrole;
using std::string_literals::operator""s;

TDataSet& Fill(TDataSet& data) {
  data.Load({"ID", "Name"}, {std::int64_t{1}, "one"s, std::int64_t{2}, "two"s, std::int64_t{3}, {}});
  return data;
}

TEST(DataSet, StandsOnTheFirstRowAndMovesToTheEnd) {
  TDataSet data;
  Fill(data);
  std::vector<std::string> names;
  for (data.First(); !data.Eof(); data.Next()) names.push_back(data.FieldByName("name").AsString());
  EXPECT_THAT(names, ElementsAre("one", "two", ""));
  EXPECT_TRUE(data.FieldByName("ID").IsNull());
}

TEST(DataSet, AnAbsentFieldRaisesOrIsNull) {
  TDataSet data;
  Fill(data);
  EXPECT_THROW(data.FieldByName("Code"), EDatabaseError);
  EXPECT_EQ(data.FindField("Code"), nullptr);
}

TEST(DataSet, LocatesByOneFieldOrSeveralAndStaysWhenThereIsNone) {
  TDataSet data;
  Fill(data);
  EXPECT_TRUE(data.Locate("ID", {"2"s}));
  EXPECT_EQ(data.FieldByName("Name").AsString(), "two");
  EXPECT_TRUE(data.Locate("ID;Name", {std::int64_t{1}, "one"s}));
  EXPECT_EQ(data.Row(), 0);
  EXPECT_FALSE(data.Locate("Name", {"ONE"s}));
  EXPECT_EQ(data.Row(), 0);
}

TEST(DataSet, AppendsChangesAndDeletesRows) {
  TDataSet data{"ID", "Name"};
  EXPECT_TRUE(data.IsEmpty());
  data.Append();
  data.FieldByName("ID").SetValue(std::int64_t{7});
  data.Append();
  data.FieldByName("ID").SetValue(std::int64_t{8});
  ASSERT_TRUE(data.Locate("ID", {std::int64_t{7}}));
  data.Delete();
  EXPECT_EQ(data.RowCount(), 1);
  EXPECT_EQ(data.FieldByName("ID").AsInteger(), 8);
  data.EmptyTable();
  EXPECT_TRUE(data.Eof());
  EXPECT_TRUE(data.Active());
}

/// One of each type; texts that are empty, hold a zero byte, or are longer than others.
const std::vector<TZanValue>& SomeValues() {
  static const std::vector<TZanValue> values{{},      std::int64_t{-1} << 62,
                                             2.5,     true,
                                             false,   ""s,
                                             "a\0b"s, std::string(1000, 'x'),
                                             "域"s,   TDateTime(std::chrono::milliseconds(-1500))};
  return values;
}

TEST(Cells, GiveBackValuesOfEachType) {
  TZanCells cells;
  for (const TZanValue& value : SomeValues()) cells.Add(value);
  ASSERT_EQ(cells.Size(), SomeValues().size());
  for (std::size_t i = 0; i < cells.Size(); ++i) {
    const TZanValue& value = SomeValues()[i];
    EXPECT_EQ(cells.At(i), value) << i;
    EXPECT_EQ(cells.IsNull(i), std::holds_alternative<std::monostate>(value)) << i;
    EXPECT_EQ(cells.AsString(i), ValueAsString(value)) << i;
  }
}

TEST(Cells, HoldOtherValuesAfterAChange) {
  TZanCells cells;
  for (const TZanValue& value : SomeValues()) cells.Add(value);
  for (std::size_t i = 0; i < cells.Size(); ++i) cells.Set(i, SomeValues()[cells.Size() - 1 - i]);
  for (std::size_t i = 0; i < cells.Size(); ++i) EXPECT_EQ(cells.At(i), SomeValues()[cells.Size() - 1 - i]);
  cells.Erase(1, cells.Size() - 2);
  ASSERT_EQ(cells.Size(), 2U);
  EXPECT_EQ(cells.At(0), SomeValues().back());
  EXPECT_EQ(cells.At(1), SomeValues().front());
}

TEST(Cells, ReadAsTheTypeThatIsAsked) {
  const TZanCells cells{{}, std::int64_t{7}, "-1"s, 2.9, "2020-02-29 12:30:00"s};
  EXPECT_EQ(cells.AsInteger(0), 0);
  EXPECT_EQ(cells.AsInteger(1), 7);
  EXPECT_EQ(cells.AsInteger(2), -1);
  EXPECT_EQ(cells.AsInteger(3), 2);
  EXPECT_FALSE(cells.AsBoolean(0));
  EXPECT_TRUE(cells.AsBoolean(2));
  EXPECT_EQ(cells.AsDateTime(4), TextToDateTime("2020-02-29 12:30:00"));
  EXPECT_THROW(cells.AsInteger(4), EConvertError);
}

TEST(DataSet, AFieldOffARowReadsAsNullAndTakesNothing) {
  TDataSet data;
  Fill(data);
  data.GoTo(data.RowCount());
  TField& id = data.FieldByName("ID");
  id.SetValue(std::int64_t{9});
  EXPECT_TRUE(id.IsNull());
  EXPECT_EQ(id.Value(), TZanValue());
  EXPECT_EQ(id.AsInteger(), 0);
  EXPECT_EQ(id.AsString(), "");
  EXPECT_FALSE(id.AsBoolean());
  EXPECT_EQ(id.AsDateTime(), TDateTime());
}

TEST(Params, AreTakenFromTheTextOutsideQuotesBracketsAndComments) {
  TParams params;
  params.Refill(
      "select ':no', [:no], \":no\" -- :no\r\n /* :no */ from T where A=:A and B=:b1 and C=:a and T='it''s "
      ":no'");
  ASSERT_EQ(params.Count(), 2);
  EXPECT_EQ(params[0].Name(), "A");
  EXPECT_EQ(params[1].Name(), "b1");
  EXPECT_EQ(params.Find("B1"), &params[1]);
}

TEST(Params, AreNotTakenFromALiteralInsideAQuotedBatch) {
  TParams params;
  const std::string update = "update T set Name = " + QuotedStr("a:b ':c") + ", B = ':d';";
  params.Refill("call MySql_execute_MultiSql(" + QuotedStr(update) + ")");
  EXPECT_EQ(params.Count(), 0);
}

TEST(Params, KeepTheValuesOfNamesThatStay) {
  TParams params;
  params.Refill("update T set A=:A, B=:B");
  params.Find("B")->AsString("kept");
  params.Refill("update T set B=:B where C=:C");
  EXPECT_EQ(ValueAsString(params.Find("B")->Value()), "kept");
  EXPECT_EQ(params.Find("A"), nullptr);
}

TEST(Values, ReadAsTheTypeThatIsAsked) {
  EXPECT_EQ(ValueAsInteger("12"s), 12);
  EXPECT_EQ(ValueAsInteger({}), 0);
  EXPECT_EQ(ValueAsString(true), "True");
  EXPECT_EQ(ValueAsString(2.5), "2.5");
  EXPECT_TRUE(ValueAsBoolean(std::int64_t{-1}));
  EXPECT_THROW(ValueAsInteger("x"s), EConvertError);
  EXPECT_THROW(ValueAsInteger(std::int64_t{1} << 40), EConvertError);
  EXPECT_EQ(ValueAsInteger(-2.9), -2);
  EXPECT_EQ(ValueAsInteger(2147483647.5), 2147483647);
  for (const double number : {2147483648.0, 1e300, -1e300, std::nan("")})
    EXPECT_THROW(ValueAsInteger(number), EConvertError) << number;
}

TEST(DatabaseError, TellsTheMessageAndTheStatement) {
  const EDatabaseError error("no such table: T", "select * from T");
  EXPECT_STREQ(error.what(), "no such table: T\nselect * from T");
}

}  // namespace
}  // namespace zantest
