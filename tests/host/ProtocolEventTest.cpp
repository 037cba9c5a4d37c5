#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/worker/Event.h"
#include "tests/host/ProtocolForm.h"

// Lines that are events, and lines that are none.

namespace zantest {
namespace {

namespace json = boost::json;
using zanhost::EProtocolError;
using zanhost::ParseControl;
using zanhost::ParseEvent;
using zanhost::TControl;
using zanhost::TDo;
using zanhost::TEvent;

TEST(ProtocolEventTest, ReadsTheMembersOfAnEvent) {
  const TEvent event = ParseEvent(
      R"({"n":18,"do":"select","window":3,"name":"DomainTree","id":12,"mode":"range","more":[1]})");
  EXPECT_EQ(event.Number, 18);
  EXPECT_EQ(event.Do, TDo::Select);
  EXPECT_EQ(event.Window, 3);
  EXPECT_EQ(event.Name, "DomainTree");
  EXPECT_EQ(event.Id, 12);
  EXPECT_EQ(event.Mode, zanhost::TSelectMode::Range);
}

TEST(ProtocolEventTest, ValuesOfFunctionsPassAsText) {
  const TEvent event =
      ParseEvent(R"({"n":1,"do":"call","function":"F","in":{"a":"x","b":12,"c":true,"d":null,"e":{"f":1}}})");
  EXPECT_THAT(event.Inputs, testing::ElementsAre(testing::Pair("a", "x"), testing::Pair("b", "12"),
                                                 testing::Pair("c", "true"), testing::Pair("d", ""),
                                                 testing::Pair("e", R"({"f":1})")));
}

TEST(ProtocolEventTest, DropTakesOneRowOrSeveralAndMayHaveNoTarget) {
  const TEvent one = ParseEvent(R"({"n":1,"do":"drop","window":1,"name":"T","id":5,"onto":null})");
  EXPECT_THAT(one.Ids, testing::ElementsAre(5));
  EXPECT_FALSE(one.Onto.has_value());
  const TEvent several =
      ParseEvent(R"({"n":1,"do":"drop","window":1,"name":"T","ids":[5,6],"onto":7,"name2":"U"})");
  EXPECT_THAT(several.Ids, testing::ElementsAre(5, 6));
  EXPECT_EQ(several.Onto, 7);
  EXPECT_EQ(several.OntoName, "U");
}

class MalformedEventTest : public testing::TestWithParam<const char*> {};

TEST_P(MalformedEventTest, IsRefused) { EXPECT_THROW(ParseEvent(GetParam()), EProtocolError); }

// clang-format off
INSTANTIATE_TEST_SUITE_P(Lines, MalformedEventTest, testing::Values(
    "", "x", "[]", "12", "{}", "{\"n\":1",
    R"({"do":"snapshot"})",
    R"({"n":0,"do":"snapshot"})",
    R"({"n":-1,"do":"snapshot"})",
    R"({"n":1.5,"do":"snapshot"})",
    R"({"n":"1","do":"snapshot"})",
    R"({"n":99999999999999999999,"do":"snapshot"})",
    R"({"n":1,"do":"dance"})",
    R"({"n":1,"do":5})",
    R"({"n":1,"do":"act","name":"A"})",
    R"({"n":1,"do":"act","window":1})",
    R"({"n":1,"do":"act","window":"1","name":"A"})",
    R"({"n":1,"do":"act","window":4294967297,"name":"A"})",
    R"({"n":1,"do":"act","window":1,"name":""})",
    R"({"n":1,"do":"act","window":1,"name":["A"]})",
    R"({"n":1,"do":"select","window":1,"name":"L","id":"5"})",
    R"({"n":1,"do":"select","window":1,"name":"L","index":-1})",
    R"({"n":1,"do":"select","window":1,"name":"L","id":5,"mode":"all"})",
    R"({"n":1,"do":"view","window":1,"name":"L","first":0})",
    R"({"n":1,"do":"view","window":1,"name":"L","first":-1,"last":5})",
    R"({"n":1,"do":"set","window":1,"name":"E","value":{}})",
    R"({"n":1,"do":"set","window":1,"name":"E","value":1.5})",
    R"({"n":1,"do":"set","window":1,"name":"E","value":"a\u0000b"})",
    R"({"n":1,"do":"set","window":1,"name":"E","value":"\ud83d"})",
    "{\"n\":1,\"do\":\"set\",\"window\":1,\"name\":\"E\",\"value\":\"\xff\xfe\"}",
    "{\"n\":1,\"do\":\"set\",\"window\":1,\"name\":\"E\",\"value\":\"\xc0\xaf\"}",
    R"({"n":1,"do":"drop","window":1,"name":"T"})",
    R"({"n":1,"do":"drop","window":1,"name":"T","ids":5})",
    R"({"n":1,"do":"drop","window":1,"name":"T","ids":["5"]})",
    R"({"n":1,"do":"call"})",
    R"({"n":1,"do":"call","function":"F","in":[]})"));
// clang-format on

TEST(ProtocolEventTest, AnErrorTellsTheNumberWhenItCanBeRead) {
  try {
    ParseEvent(R"({"n":7,"do":"dance"})");
    ADD_FAILURE();
  } catch (const EProtocolError& fault) {
    EXPECT_EQ(fault.Number(), 7);
  }
}

TEST(ProtocolEventTest, DeepNestingIsRefused) {
  const std::string deep = std::string(100000, '[') + std::string(100000, ']');
  EXPECT_THROW(ParseEvent(R"({"n":1,"do":"set","window":1,"name":"E","value":)" + deep + "}"),
               EProtocolError);
}

TEST(ProtocolEventTest, LinesOfTheGateway) {
  EXPECT_EQ(ParseControl(R"({"gateway":"attach"})"), TControl::Attach);
  EXPECT_EQ(ParseControl(R"({"gateway":"detach"})"), TControl::Detach);
  EXPECT_EQ(ParseControl(R"({"gateway":"uploaded","window":3,"path":"x"})"), TControl::Other);
  EXPECT_EQ(ParseControl(R"({"n":1,"do":"set","window":1,"name":"E","value":"\"gateway\""})"),
            TControl::None);
}

TEST(ProtocolEventTest, AfterARefusalTheSessionGoesOn) {
  TFormSession<TSampleForm> session;
  const json::object refused = session.Driver.SendRaw("{nonsense");
  EXPECT_TRUE(refused.contains("error"));
  EXPECT_FALSE(refused.contains("n"));
  EXPECT_EQ(session.Driver.SendRaw(R"({"n":3,"do":"dance"})").at("n"), 3);
  session.Driver.Number = 3;
  EXPECT_EQ(session.Driver.Act(1, "Action").at("ack"), 4);
}

TEST(ProtocolEventTest, WithoutAGatewayItsLinesAreNoEvents) {
  TFormSession<TSampleForm> session;
  EXPECT_TRUE(session.Driver.SendRaw(R"({"gateway":"detach"})").contains("error"));
}

}  // namespace
}  // namespace zantest
