#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Frame/Host/Classes.h"
#include "Frame/Host/ZanValues.h"

namespace zanrole {

/// A statement failed, or could not be sent. `what()` is the engine's message, then the statement.
class ZAN_EXPORT EDatabaseError : public EZanError {
 public:
  EDatabaseError(std::string message, std::string statement);
  ~EDatabaseError() override;
  /// The engine's message alone.
  const std::string& Message() const { return FMessage; }
  /// The statement as the module wrote it; empty when there was none.
  const std::string& Statement() const { return FStatement; }

 private:
  std::string FMessage;
  std::string FStatement;
};

class TDataSet;

/// One column of a data set, read and written at the data set's current row.
/// Lives as long as the columns of its data set.
class ZAN_EXPORT TField {
 public:
  TField(TDataSet& owner, int index, std::string name)
      : FOwner(&owner), FIndex(index), FName(std::move(name)) {}

  const std::string& Name() const { return FName; }
  /// REQUIRES of all below: the data set stands on a row; otherwise the value reads as null.
  TZanValue Value() const;
  bool IsNull() const;
  std::string AsString() const;
  int AsInteger() const;
  bool AsBoolean() const;
  TDateTime AsDateTime() const;
  /// Writes the current row of a working copy. Does nothing off a row.
  void SetValue(const TZanValue& value);

 private:
  friend class TDataSet;
  /// Of the current row, among the cells of the data set.
  std::size_t Cell() const;
  TDataSet* FOwner;
  int FIndex;
  std::string FName;
};

/// Rows in memory with a cursor: the result of a query, or a working copy of a console.
/// Field names compare without regard to case. Neither copyable nor movable: fields point into it.
class ZAN_EXPORT TDataSet {
 public:
  TDataSet() = default;
  /// A working copy with these columns and no rows, open.
  explicit TDataSet(std::initializer_list<std::string_view> columns);
  TDataSet(const TDataSet&) = delete;
  TDataSet& operator=(const TDataSet&) = delete;

  bool Active() const { return FActive; }
  /// Drops rows and columns.
  void Close();
  /// Replaces everything by these columns and `cells`, row after row, and stands on the first row.
  /// REQUIRES: cells.Size() is a multiple of columns.size().
  void Load(const std::vector<std::string>& columns, TZanCells cells);

  bool Eof() const { return FRow >= FRowCount; }
  bool IsEmpty() const { return FRowCount == 0; }
  int RowCount() const { return FRowCount; }
  /// The current row, 0-based; RowCount() past the last.
  int Row() const { return FRow; }
  /// REQUIRES: 0 <= row <= RowCount().
  void GoTo(int row) { FRow = row; }
  void First() { FRow = 0; }
  void Next() {
    if (!Eof()) ++FRow;
  }

  /// Raises EDatabaseError when the column is absent.
  TField& FieldByName(std::string_view name);
  /// Null when the column is absent.
  TField* FindField(std::string_view name);
  /// REQUIRES: 0 <= index < FieldCount().
  TField& Field(int index) { return FFields[static_cast<std::size_t>(index)]; }
  int FieldCount() const { return static_cast<int>(FFields.size()); }

  /// Moves to the first row whose columns hold these values (integers and texts compare by their text);
  /// false and no move when there is none. `fields` is one name, or several separated by ";"; a name that is
  /// absent raises EDatabaseError. REQUIRES: one value for each name.
  bool Locate(std::string_view fields, const std::vector<TZanValue>& values);
  /// Value at a place without moving. REQUIRES: the place exists.
  TZanValue At(int row, int field) const;

  /// Adds a row of nulls behind the last and stands on it.
  void Append();
  /// Removes the current row and stands on the one that follows it. Does nothing off a row.
  void Delete();
  /// Removes all rows and keeps the columns.
  void EmptyTable();

  /// Presentation of a long change is held back in between. Kept for symmetry with the platform: a data set
  /// without bound controls has nothing to hold back.
  void DisableControls() {}
  void EnableControls() {}

 private:
  friend class TField;
  std::size_t Cell(int row, int field) const;
  int FieldIndex(std::string_view name) const;

  std::vector<TField> FFields;
  TZanCells FCells;
  int FRowCount = 0;
  int FRow = 0;
  bool FActive = false;
};

// What is called for each value that is read.
inline std::size_t TDataSet::Cell(int row, int field) const {
  return static_cast<std::size_t>(row) * FFields.size() + static_cast<std::size_t>(field);
}
inline std::size_t TField::Cell() const { return FOwner->Cell(FOwner->FRow, FIndex); }
inline TZanValue TField::Value() const { return FOwner->Eof() ? TZanValue() : FOwner->FCells.At(Cell()); }
inline bool TField::IsNull() const { return FOwner->Eof() || FOwner->FCells.IsNull(Cell()); }
inline std::string TField::AsString() const {
  return FOwner->Eof() ? std::string() : FOwner->FCells.AsString(Cell());
}
inline int TField::AsInteger() const { return FOwner->Eof() ? 0 : FOwner->FCells.AsInteger(Cell()); }
inline bool TField::AsBoolean() const { return !FOwner->Eof() && FOwner->FCells.AsBoolean(Cell()); }
inline TDateTime TField::AsDateTime() const {
  return FOwner->Eof() ? TDateTime() : FOwner->FCells.AsDateTime(Cell());
}

/// One named parameter of a statement. A parameter that was never set is null.
class ZAN_EXPORT TParam {
 public:
  explicit TParam(std::string name) : FName(std::move(name)) {}
  const std::string& Name() const { return FName; }
  const TZanValue& Value() const { return FValue; }
  void Clear() { FValue = std::monostate{}; }
  void AsString(std::string_view value) { FValue = std::string(value); }
  void AsInteger(std::int64_t value) { FValue = value; }
  void AsBoolean(bool value) { FValue = value; }
  void AsDateTime(TDateTime value) { FValue = value; }

 private:
  std::string FName;
  TZanValue FValue;
};

/// The parameters of a statement in order of first appearance; a name counts once and without regard to case.
class ZAN_EXPORT TParams {
 public:
  int Count() const { return static_cast<int>(FItems.size()); }
  /// REQUIRES: 0 <= index < Count(). References live until Clear or Refill.
  TParam& operator[](int index) { return FItems[static_cast<std::size_t>(index)]; }
  const TParam& operator[](int index) const { return FItems[static_cast<std::size_t>(index)]; }
  auto begin() const { return FItems.begin(); }
  auto end() const { return FItems.end(); }
  /// Null when there is none of that name.
  TParam* Find(std::string_view name);
  void Clear() { FItems.clear(); }
  /// Takes the `:Name` markers of a statement, outside quotes, brackets and comments. Values of names that
  /// stay are kept.
  void Refill(std::string_view statement);

 private:
  std::vector<TParam> FItems;
};

/// The host's query object: one statement at a time on one database. The holder owns it.
/// An engine implements Open and ExecSQL; everything else is state that all engines share.
class ZAN_EXPORT TZANQuery {
 public:
  TZANQuery() = default;
  virtual ~TZANQuery();
  TZANQuery(const TZANQuery&) = delete;
  TZANQuery& operator=(const TZANQuery&) = delete;

  /// Runs a statement with a result, reads the result whole and stands on its first row.
  /// Raises EDatabaseError.
  virtual void Open() = 0;
  /// Runs a statement (or a batch) without a result. Raises EDatabaseError.
  virtual void ExecSQL() = 0;

  /// The statement text. Close before changing it.
  TStringList& SQL() { return FSQL; }
  /// The parameters of the current text, filled anew when the text has changed.
  TParams& Params();
  /// Raises EDatabaseError when the text has no such parameter.
  TParam& ParamByName(std::string_view name);

  void Close() { FData.Close(); }
  bool Active() const { return FData.Active(); }
  bool Eof() const { return FData.Eof(); }
  void First() { FData.First(); }
  void Next() { FData.Next(); }
  TField& FieldByName(std::string_view name) { return FData.FieldByName(name); }
  TField* FindField(std::string_view name) { return FData.FindField(name); }
  TField& Fields(int index) { return FData.Field(index); }
  bool Locate(std::string_view fields, const std::vector<TZanValue>& values) {
    return FData.Locate(fields, values);
  }
  TDataSet& DataSet() { return FData; }

 private:
  TStringList FSQL;
  TParams FParams;
  unsigned FParamsRevision = 0;
  TDataSet FData;
};

/// The database servers whose dialect the module speaks.
enum class TDialect { SqlServer, Oracle, MySql };

/// Reads a Boolean column, whatever type it has in the dialect.
class ZAN_EXPORT TDBFieldHelper {
 public:
  virtual ~TDBFieldHelper();
  virtual bool GetBoolean(const TField& field) = 0;
};

/// Writes a Boolean column, whatever type it has in the dialect.
class ZAN_EXPORT TDBParamHelper {
 public:
  virtual ~TDBParamHelper();
  virtual void SetBoolean(TParam& param, bool value) = 0;
};

/// Makes a name safe that is a reserved word of the dialect (`Type` of `PartyH`).
class ZAN_EXPORT TDBObjectHelper {
 public:
  virtual ~TDBObjectHelper();
  virtual std::string QuoteName(std::string_view name) = 0;
};

/// Names of types. The caller joins a length in brackets.
class ZAN_EXPORT TDBTypesHelper {
 public:
  virtual ~TDBTypesHelper();
  virtual std::string WideTextType() = 0;
};

/// Pieces of the one statement that updates and, when no row was hit, inserts.
class ZAN_EXPORT TDBFunctionsHelper {
 public:
  virtual ~TDBFunctionsHelper();
  /// Expression for the number of rows that the last statement touched.
  virtual std::string RowCountExpression() = 0;
  /// A statement that runs `statement` only when `condition` holds.
  virtual std::string ConditionalStatement(std::string_view condition, std::string_view statement) = 0;
  /// The text that closes the conditional statement; may be empty.
  virtual std::string ConditionalEnd() = 0;
};

/// What a built select is made of; each part is SQL text, `Where` and `OrderBy` may be empty.
struct TZANSelectSQLEntity {
  std::string Fields;
  std::string Table;
  std::string Where;
  std::string OrderBy;
};

/// Builds a select that gives the first row only.
class ZAN_EXPORT TSelectSQLHelper {
 public:
  virtual ~TSelectSQLHelper();
  virtual std::string Build(const TZANSelectSQLEntity& entity) = 0;
};

/// What a session's databases offer. The host implements it once for each engine.
class ZAN_EXPORT TDatabaseServices {
 public:
  virtual ~TDatabaseServices();
  virtual TDialect Dialect() const = 0;
  /// Name of the server in lower case: "mssql", "oracle" or "mysql".
  virtual std::string ServerType() const = 0;
  /// A fresh query on the data database, or on the system database. Never null.
  virtual std::unique_ptr<TZANQuery> GetQuery() = 0;
  virtual std::unique_ptr<TZANQuery> GetSysQuery() = 0;
  virtual std::unique_ptr<TDBFieldHelper> GetDBFieldHelper() = 0;
  virtual std::unique_ptr<TDBParamHelper> GetDBParamHelper() = 0;
  virtual std::unique_ptr<TDBObjectHelper> GetDBObjectHelper() = 0;
  virtual std::unique_ptr<TDBTypesHelper> GetDBTypesHelper() = 0;
  virtual std::unique_ptr<TDBFunctionsHelper> GetDBFunctionsHelper() = 0;
  virtual std::unique_ptr<TSelectSQLHelper> GetSelectSQLHelper() = 0;
};

}  // namespace zanrole
