// From a grid back to the session: what belongs to a table follows it, and a failure leaves the session as it was.
#pragma once

#include "records/mGridKinds.h"

#include <functional>
#include <vector>

/// Puts the rows of a grid into gFile, or where else its kind lives, with all that follows from them: the counts of the
/// session, the channels that are looked up, the reference tables, the patterns of samples that are gone. Then calls
/// Write. False when patterns would be dropped and the user does not want that, or when Write fails: everything is as
/// it was. Loaded are the rows by their origin, from 1, as the session has them.
bool StoreGrid(const GridKind& Kind, const cGrid& Grid, const std::vector<GridRow>& Loaded, const GridStoring& Store,
               const std::function<bool()>& Write);

/// Whether two tables have the same texts.
bool IsSameTable(const std::vector<GridRow>& First, const std::vector<GridRow>& Second);
