#pragma once

#include <random>
#include <string>
#include <vector>

namespace zantest {

/// In what the statements for one engine differ from those for another. The table is T, its key the column
/// ID.
struct TVocabulary {
  std::vector<std::string> Columns;
  std::vector<std::string> Signs;  ///< of comparisons
  std::string TextType;            ///< of a cast
};

/// Statements made at random of the forms that the module uses, with literals of all sorts.
class TStatementGenerator {
 public:
  TStatementGenerator(unsigned seed, TVocabulary vocabulary)
      : FRandom(seed), FVocabulary(std::move(vocabulary)) {}

  std::string Statement() {
    static const std::vector<std::string> kLists{"ID", "ID, Name", "ID, 1 One, 'x'", "distinct ID, 5"};
    std::string text = "select " + Any(kLists) + " from T where " + Condition(2) + " order by 1";
    if (Chance(4)) text += " limit " + std::to_string(1 + Number(3));
    if (Chance(4))
      text = "select ID, 'u' from T where " + Condition(1) + " union all select 9, 'v' order by 1";
    return text;
  }

 private:
  unsigned Number(unsigned below) { return static_cast<unsigned>(FRandom() % below); }
  bool Chance(unsigned oneIn) { return Number(oneIn) == 0; }
  const std::string& Any(const std::vector<std::string>& words) {
    return words[Number(static_cast<unsigned>(words.size()))];
  }

  std::string Literal() {
    static const std::vector<std::string> kTexts{"'a'",  "''",   "'it''s'", "'1'",
                                                 "'01'", "'域'", "'x%'",    "'-1'"};
    return Chance(2) ? Any(kTexts) : (Chance(3) ? "-" : "") + std::to_string(Number(7));
  }

  std::string Operand() {
    switch (Number(8)) {
      case 0:
        return "ifnull(" + Any(FVocabulary.Columns) + ", " + Literal() + ")";
      case 1:
        return "substr(" + Any(FVocabulary.Columns) + ", " + std::to_string(Number(3)) + ", 1)";
      case 2:
        return "cast(" + Any(FVocabulary.Columns) + " as " + FVocabulary.TextType + ")";
      case 3:
        return "(ID + " + std::to_string(Number(4)) + ")";
      case 4:
        return Literal();
      case 5:
        return "case when Flag = " + Literal() + " then " + Literal() + " else ID end";
      default:
        return Any(FVocabulary.Columns);
    }
  }

  std::string Condition(int depth) {
    if (depth > 0 && Chance(2))
      return "(" + Condition(depth - 1) + (Chance(2) ? " and " : " or ") + Condition(depth - 1) + ")";
    switch (Number(6)) {
      case 0:
        return Operand() + " in (" + Literal() + ", " + Literal() + ", " + Literal() + ")";
      case 1:
        return Operand() + " like " + Literal() + " escape '\\'";
      case 2:
        return Operand() + " between " + Literal() + " and " + Literal();
      case 3:
        return "ID in (select ID from T where " + Operand() + " = " + Literal() + ")";
      default:
        return Operand() + Any(FVocabulary.Signs) + Literal();
    }
  }

  std::mt19937 FRandom;
  TVocabulary FVocabulary;
};

}  // namespace zantest
