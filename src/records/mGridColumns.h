// The columns of the record grid, kind by kind, as users see them.
#pragma once

#include "records/mColumnTable.h"

#include <span>

std::span<const ColumnSpec> CalibrColumns();
std::span<const ColumnSpec> CrewColumns();
std::span<const ColumnSpec> ViewColumns();
std::span<const ColumnSpec> AntroColumns();
std::span<const ColumnSpec> BoatColumns();
std::span<const ColumnSpec> DescColumns();
std::span<const ColumnSpec> DotColumns();
std::span<const ColumnSpec> SegColumns();
