#include <gmock/gmock.h>

#include "Frame/Package.h"
#include "Frame/Un_UpgradeDB.h"
#include "host/platform/Sample.h"
#include "host/platform/Schema.h"
#include "tests/conformance/faults/Operations.h"
#include "tests/conformance/faults/TableDump.h"

// Every operation, with each of its statements failing: what it leaves behind, what is told, and that the
// session goes on.

namespace zantest {

namespace {

using TPlace = TFaultyDatabase::TPlace;

/// What came of running an operation once.
struct TAttempt {
  std::string Result;
  std::vector<std::string> Faults;
  std::vector<TSentStatement> Sent;
  TTableDump Left;
};

/// Runs operations on one session of an engine, beginning with the same rows each time.
class TFaultBench {
 public:
  TFaultBench(const TEngine& engine, zanhost::TDatabase& database)
      : FDatabase(&database), FTables(engine, database), FBefore(FTables.Dump()) {}

  /// Every statement fails once in its turn, and each batch once more from within.
  void Check(const TFaultOperation& operation) {
    SCOPED_TRACE(operation.Name);
    const TAttempt good = Attempt(operation, 0, TPlace::BeforeTheEngine);
    ASSERT_THAT(good.Faults, testing::IsEmpty());
    const std::vector<TTableDump> states = StatesAfter(operation, good.Sent);
    EXPECT_EQ(Difference(good.Left, states.back()), "");
    for (std::size_t n = 1; n <= good.Sent.size(); ++n) {
      SCOPED_TRACE("statement " + std::to_string(n) + ": " + good.Sent[n - 1].Text);
      CheckFault(operation, good, n, TPlace::BeforeTheEngine, states[n - 1]);
      if (good.Sent[n - 1].IsBatch()) CheckFault(operation, good, n, TPlace::InsideTheBatch, states[n - 1]);
      ++Checked;
    }
  }

  int Checked = 0;
  std::set<std::string> Pressed;
  std::set<std::string> Offered;

 private:
  TAttempt Attempt(const TFaultOperation& operation, std::size_t failing, TPlace place) {
    FTables.Restore(FBefore);
    TFaultWorld world(*FDatabase);
    if (operation.Prepare) operation.Prepare(world);
    world.Database.FailAt(static_cast<int>(failing), place);
    TAttempt attempt;
    Run(operation, world, attempt);
    attempt.Sent = world.Database.Sent();
    world.Database.FailAt(0);
    attempt.Left = FTables.Dump();
    if (failing > 0) GoOn(operation, world);
    Note(world);
    return attempt;
  }

  static void Run(const TFaultOperation& operation, TFaultWorld& world, TAttempt& attempt) {
    const std::size_t before = world.HasPerson() ? world.Person().Faults().size() : 0;
    try {
      operation.Run(world);
      attempt.Result = world.Result;
    } catch (const TPerson::TSawFault&) {
      const auto& faults = world.Person().Faults();
      attempt.Faults.assign(faults.begin() + static_cast<std::ptrdiff_t>(before), faults.end());
    } catch (const zanrole::EZanError& fault) {
      attempt.Faults.emplace_back(fault.what());
    }
  }

  static void GoOn(const TFaultOperation& operation, TFaultWorld& world) {
    try {
      if (operation.GoOn)
        operation.GoOn(world);
      else
        operation.Run(world);
    } catch (const TPerson::TSawFault&) {
      ADD_FAILURE() << "afterwards: " << world.Person().Faults().back();
    } catch (const zanrole::EZanError& fault) {
      ADD_FAILURE() << "afterwards: " << fault.what();
    }
  }

  void Note(TFaultWorld& world) {
    if (!world.HasPerson()) return;
    Pressed.insert(world.Person().Pressed().begin(), world.Person().Pressed().end());
    Offered.insert(world.Person().Offered().begin(), world.Person().Offered().end());
  }

  /// What the tables hold before the first statement, and after each.
  std::vector<TTableDump> StatesAfter(const TFaultOperation& operation,
                                      const std::vector<TSentStatement>& statements) {
    FTables.Restore(FBefore);
    {
      TFaultWorld world(*FDatabase);
      if (operation.Prepare) operation.Prepare(world);
    }
    std::vector<TTableDump> states{FTables.Dump()};
    for (const TSentStatement& statement : statements) {
      SendAgain(*FDatabase, statement);
      states.push_back(FTables.Dump());
    }
    return states;
  }

  void CheckFault(const TFaultOperation& operation, const TAttempt& good, std::size_t failing, TPlace place,
                  const TTableDump& expected) {
    const TAttempt attempt = Attempt(operation, failing, place);
    EXPECT_EQ(Difference(attempt.Left, expected), "") << "the tables hold something else";
    EXPECT_THAT(attempt.Faults, testing::SizeIs(1)) << "a fault is told once";
    if (place == TPlace::BeforeTheEngine) {
      EXPECT_THAT(attempt.Faults, testing::Each(testing::AnyOf(testing::HasSubstr(TFaultyDatabase::kMessage),
                                                               testing::HasSubstr("执行失败"))));
    }
    ASSERT_EQ(attempt.Sent.size(), failing) << "nothing is sent after a fault";
    for (std::size_t i = 0; i < failing; ++i) EXPECT_EQ(attempt.Sent[i].Text, good.Sent[i].Text);
  }

  zanhost::TDatabase* FDatabase;
  TTables FTables;
  TTableDump FBefore;
};

/// Names in the table that begin with this word, without it.
std::set<std::string> NamesOf(const std::vector<TFaultOperation>& operations, const std::string& word) {
  std::set<std::string> names;
  for (const TFaultOperation& operation : operations)
    if (operation.Name.starts_with(word + " ")) names.insert(operation.Name.substr(word.size() + 1));
  return names;
}

}  // namespace

TEST(FaultOperations, AreAllThatTheModuleExports) {
  const std::vector<TFaultOperation> operations = FaultOperations();
  std::size_t count = 0;
  const zanrole::TFuncClass* const classes = zanrole::ZanroleFuncClasses(&count);
  std::set<std::string> functions;
  std::set<std::string> menu;
  for (std::size_t i = 0; i < count; ++i)
    (classes[i].Type == zanrole::TFuncType::Menu ? menu : functions).insert(classes[i].Create()->FuncName());
  EXPECT_EQ(NamesOf(operations, "call"), functions);
  EXPECT_EQ(NamesOf(operations, "menu"), menu);
  EXPECT_EQ(NamesOf(operations, "entry").size(), sizeof(zanrole::TZanroleEntries) / sizeof(void (*)()));
}

TEST_P(Conformance, Faults_EachStatementOfEachOperation) {
  Engine().InstallSchema();
  MakeFaultTables(Database());
  const TRecordingServices services;
  TFaultBench bench(Engine(), Database());
  for (const TFaultOperation& operation : FaultOperations()) bench.Check(operation);
  EXPECT_GE(bench.Checked, 100);
  EXPECT_EQ(bench.Pressed, bench.Offered) << "an action that no operation presses";
}

TEST_P(Conformance, Faults_AnUpgradeGoesOnWhereItStopped) {
  Exec("create table STUsers (OID int not null, UserID " + Engine().TextType(200) + ", primary key (OID))");
  TFaultyDatabase faulty(Database());
  const TEngineHost host(faulty);
  // One look at the table, and one statement for each column that is missing still.
  for (const int added : {0, 1, 2, 3, 4, 5}) {
    faulty.FailAt(added == 0 ? 1 : 3);
    if (added == 5) {
      EXPECT_NO_THROW(zanrole::TUpgradeDB::Execute());
    } else {
      EXPECT_THROW(zanrole::TUpgradeDB::Execute(), zanrole::EDatabaseError) << added;
    }
    EXPECT_EQ(Query()->DataSet().FieldCount(), 0);
    const auto look = Query();
    look->SQL().SetText("select * from STUsers where 1=0");
    look->Open();
    EXPECT_EQ(look->DataSet().FieldCount(), 2 + added);
  }
  faulty.FailAt(1);
  EXPECT_NO_THROW(zanrole::TUpgradeDB::Execute()) << "a session that has seen to it sends nothing more";
}

TEST_P(Conformance, Faults_InstallingTheSchemaIsTriedAgain) {
  TFaultyDatabase faulty(Database());
  int statements = 0;
  for (int n = 1;; ++n) {
    faulty.FailAt(n);
    try {
      zanhost::InstallSchema(faulty);
      statements = n - 1;
      break;
    } catch (const zanrole::EDatabaseError& fault) {
      ASSERT_EQ(fault.Message(), TFaultyDatabase::kMessage);
    }
  }
  EXPECT_GE(statements, 2);
  EXPECT_EQ(zanhost::InstalledSchemaVersion(Database()), zanhost::kSchemaVersion);
}

TEST_P(Conformance, Faults_OfTheSampleCompanyNothingStays) {
  Engine().InstallSchema();
  TRecordingServices services;
  const zanhost::TSampleOptions options{.People = 5, .AdminPassword = "x", .Cipher = services.Cipher()};
  const TTables tables(Engine(), Database());
  const TTableDump empty = tables.Dump();
  TFaultyDatabase faulty(Database());
  faulty.FailAt(0);
  zanhost::MakeSample(faulty, options);
  const int statements = static_cast<int>(faulty.Sent().size());
  EXPECT_NE(Difference(tables.Dump(), empty), "");
  tables.Restore(empty);
  // The first, the last, which keeps everything, and some between.
  for (int n = 1; n <= statements;
       n = n < 8 || n >= statements - 2 ? n + 1 : std::min(n + 25, statements - 2)) {
    faulty.FailAt(n);
    EXPECT_THROW(zanhost::MakeSample(faulty, options), zanrole::EDatabaseError) << n;
    ASSERT_EQ(Difference(tables.Dump(), empty), "") << n;
  }
  faulty.FailAt(0);
  EXPECT_NO_THROW(zanhost::MakeSample(faulty, options));
}

}  // namespace zantest
