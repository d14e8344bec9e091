// A row of the report: its curve from the typical pattern, and the row's functions.
#pragma once

#include "core/mGlobData.h"

#include <span>
#include <string>
#include <vector>

/// Makes a stored sample the typical pattern in memory: gRate, and gNormAver2 with its columns numbered by the place
/// of their data rows in the sample. Throws RunError for a sample of more points than a pattern has.
void LoadSamplePattern(const DescRow& Sample);

/// A value of a row, and the text that stands before it.
struct RowValue
{
    std::string Label; // the row's ID and the key, a blank behind each
    std::string Key;   // four characters
    double Value = 0;
};

class cData03report
{
public:
    /// Computes row number Row of View3 from the typical pattern at gRate. A row without arguments stays invisible.
    /// Throws RunError when the row's operation asks for an argument or a column that is not there.
    void InitViewID(int Row);

    /// Whether the row has arguments.
    bool Visible() const { return IsVisible; }

    /// The curve. A point is made of two points of the pattern, so it has one less.
    std::span<const double> Xs() const { return CurveX; }
    std::span<const double> Ys() const { return CurveY; }

    /// The row's functions over its curve, in the row's order; an unknown key has 0.
    std::vector<RowValue> GetFuncs() const;

private:
    void FillNormArr(const std::vector<int>& ArgChans);

    ViewRow View;
    bool IsVisible = false;
    std::vector<double> CurveX;
    std::vector<double> CurveY;
};
