// The one-based row table that all records of a session are kept in.
#pragma once

#include "base/mError.h"

#include <vector>

/// Rows numbered from 1; element 0 exists and stays empty. Iteration covers the rows only.
template <class Row>
class RowArray
{
public:
    /// Number of the last row; 0 when there are none.
    int UBound() const { return static_cast<int>(Rows.size()) - 1; }

    /// Makes UpperBound the last row: new rows are empty, rows above it are dropped.
    void Resize(int UpperBound) { Rows.resize(static_cast<std::size_t>(UpperBound) + 1); }

    /// Adds an empty row and returns it.
    Row& Grow() { return Rows.emplace_back(); }

    /// Drops all rows.
    void Clear() { Rows.assign(1, Row{}); }

    /// Row Index, 0 to UBound. Throws RunError outside.
    Row& operator[](int Index) { return At(Rows, Index); }
    const Row& operator[](int Index) const { return At(Rows, Index); }

    auto begin() { return Rows.begin() + 1; }
    auto end() { return Rows.end(); }
    auto begin() const { return Rows.begin() + 1; }
    auto end() const { return Rows.end(); }

    bool operator==(const RowArray&) const = default;

private:
    std::vector<Row> Rows = std::vector<Row>(1);
};
