#pragma once

#include <string>

#include "host/query/Database.h"

namespace zantest {

/// Rows of one batch.
inline constexpr int kPartsOfBatch = 20;

/// The tables Batches(Batch, Part) and Totals(ID, Batches), which a batch changes together.
void MakeBatchesTable(zanhost::TDatabase& database);
/// Writes batch `number` in one call: a row for each part, and one more in the total. A session of the module
/// on `database` is current. Raises EDatabaseError.
void WriteBatch(zanhost::TDatabase& database, int number);

/// What is wrong with the batches from `first` up to `last`: empty when each of them is whole.
std::string HalfBatches(zanhost::TDatabase& database, int first, int last);
/// How many of these batches there are.
int CountBatches(zanhost::TDatabase& database, int first, int last);
/// How far the total, to which each batch adds one, is off; asked in one statement, as others may be writing.
int TotalIsOffBy(zanhost::TDatabase& database);

}  // namespace zantest
