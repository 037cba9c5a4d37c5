#include "tests/host/OdbcFake.h"

#include <algorithm>

namespace zantest {

using zanhost::TOdbcAnswer;
using zanrole::TZanValue;

TFakeOdbc* TFakeOdbc::FCurrent = nullptr;

class TFakeStatement final : public zanhost::TOdbcStatement {
 public:
  explicit TFakeStatement(TFakeOdbc& odbc) : FOdbc(odbc) {}

  void SetTimeLimit(std::chrono::seconds limit) override {
    FOdbc.TimeLimit = static_cast<int>(limit.count());
  }
  void Execute(const std::string& text) override { FAnswer = FOdbc.Run(text); }
  void Prepare(const std::string& text) override {
    ++FOdbc.Prepared;
    FText = text;
  }
  void Execute(const std::vector<const TZanValue*>& values) override {
    FOdbc.Bound.clear();
    for (const TZanValue* value : values) FOdbc.Bound.push_back(zanrole::ValueAsString(*value));
    FAnswer = FOdbc.Run(FText);
  }
  TOdbcAnswer ReadAnswer(bool) override { return FAnswer; }
  bool NextAnswer() override { return false; }
  void Close() noexcept override {}
  void Cancel() noexcept override {}

 private:
  TFakeOdbc& FOdbc;
  std::string FText;
  TOdbcAnswer FAnswer;
};

class TFakeLink final : public zanhost::TOdbcLink {
 public:
  explicit TFakeLink(TFakeOdbc& odbc) : FOdbc(odbc) {}

  std::string ProductName() override { return FOdbc.FProductName; }
  std::unique_ptr<zanhost::TOdbcStatement> NewStatement() override {
    return std::make_unique<TFakeStatement>(FOdbc);
  }
  void BeginTransaction() override { FOdbc.Sent.push_back("[begin]"); }
  void EndTransaction(bool keep) override { FOdbc.Sent.push_back(keep ? "[keep]" : "[undo]"); }

 private:
  TFakeOdbc& FOdbc;
};

TFakeOdbc::TFakeOdbc(std::string productName) : FProductName(std::move(productName)) { FCurrent = this; }
TFakeOdbc::~TFakeOdbc() { FCurrent = nullptr; }

void TFakeOdbc::Answer(std::string_view piece, std::vector<std::string> columns,
                       std::vector<std::string> cells) {
  FScripted.push_back({std::string(piece), std::move(columns), std::move(cells)});
}

void TFakeOdbc::Fail(std::string_view piece, zanhost::TOdbcError error) {
  FScripted.push_back({std::string(piece), {}, {}, true, std::move(error)});
}

std::unique_ptr<zanhost::TOdbcDatabase> TFakeOdbc::Open(const std::string& options) {
  return std::make_unique<zanhost::TOdbcDatabase>(
      zanhost::ParseOdbcUrl("odbc:DRIVER=Fake;SERVER=db;UID=me;PWD=geheim" + options),
      zanhost::TOpenMode::MustExist, Connect);
}

std::unique_ptr<zanhost::TOdbcLink> TFakeOdbc::Connect(const std::string& connection) {
  FCurrent->Connections.push_back(connection);
  return std::make_unique<TFakeLink>(*FCurrent);
}

TOdbcAnswer TFakeOdbc::Run(const std::string& text) {
  Sent.push_back(text);
  const auto holds = [&](const TScripted& scripted) {
    return text.find(scripted.Piece) != std::string::npos;
  };
  const auto scripted = std::ranges::find_if(FScripted, holds);
  if (scripted == FScripted.end()) return {};
  const TScripted found = *scripted;
  FScripted.erase(scripted);
  if (found.Fails) throw found.Error;
  TOdbcAnswer answer{found.Columns, {}, 0};
  for (const std::string& cell : found.Cells) answer.Cells.AddText(cell);
  return answer;
}

}  // namespace zantest
