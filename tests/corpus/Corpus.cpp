#include "tests/corpus/Corpus.h"

#include <boost/json.hpp>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "host/query/MariaDb/Rules.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/StatementCorpus.h"

namespace zantest {

using zanrole::TDialect;

namespace {

TDialect DialectNamed(std::string_view name) {
  if (name == "mysql") return TDialect::MySql;
  return name == "oracle" ? TDialect::Oracle : TDialect::SqlServer;
}

TCorpusStatement StatementOf(const std::string& line) {
  const boost::json::object entry = boost::json::parse(line).as_object();
  const auto text = [&entry](std::string_view name) { return std::string(entry.at(name).as_string()); };
  return {DialectNamed(text("dialect")), text("database") == "system", text("text"), text("test"),
          entry.contains("refused") ? text("refused") : ""};
}

std::vector<TCorpusStatement> ReadCorpus() {
  const char* const folder = std::getenv(kCorpusFolder);
  if (folder == nullptr || !std::filesystem::is_directory(folder))
    throw std::runtime_error("There is no corpus of statements: ctest -R '^(unit|corpus)$' makes it.");
  std::vector<TCorpusStatement> statements;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) statements.push_back(StatementOf(line));
  }
  return statements;
}

}  // namespace

const std::vector<TCorpusStatement>& Corpus() {
  static const std::vector<TCorpusStatement> statements = ReadCorpus();
  return statements;
}

std::vector<TCorpusStatement> CorpusOf(TDialect dialect) {
  std::vector<TCorpusStatement> statements = Corpus();
  std::erase_if(statements, [dialect](const auto& statement) { return statement.Dialect != dialect; });
  return statements;
}

std::string WithoutMultiSqlCall(const std::string& text) {
  return zanhost::StatementsOfCall(text).value_or(text);
}

void TFaults::Add(const TCorpusStatement& statement, std::string_view message) {
  const bool asMarked = message.empty() == statement.Refused.empty();
  if (asMarked) return;
  const std::string fault =
      message.empty() ? "not refused, though " + statement.Refused : std::string(message);
  ++FCount;
  FText.append(statement.Test).append(": ").append(fault).append("\n  ").append(Squeeze(statement.Text)) +=
      "\n";
}

std::string TFaults::Report() const {
  return FCount == 0 ? "" : std::to_string(FCount) + " faults:\n" + FText;
}

bool AddsColumn(const zanhost::TTokens& statement, TAddedColumn& added) {
  const bool adds = statement.size() > 5 && statement[0].IsWord("alter") && statement[3].IsWord("add");
  if (adds) added = {std::string(statement[2].Name()), std::string(statement[4].Name())};
  return adds;
}

}  // namespace zantest
