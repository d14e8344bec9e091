// Re-zeroing of reference tables from their files.
#include "processing/mRefZero.h"

#include "base/mNumText.h"
#include "core/mModes.h"

#include <utility>

namespace {
// Number of the channel's table, 0 without one.
int TableOf(const CalibrRow& Row)
{
    const double Number = RoundHalfEven(Row.Threshold);
    return Number >= 1 && Number <= gRefCnt ? static_cast<int>(Number) : 0;
}
} // namespace

void ShiftRefTable(CalibrRow& Row, RefTable& Table)
{
    if (Row.Side < SideRight || Row.Side > SideLeftScull) return;
    const double Z = RefLookup(Table, Row.Log0);
    const double A = Table.Y[0], B = Table.Y[static_cast<std::size_t>(Table.Cnt)];
    const bool IsTurned = Row.Side == SideLeft || Row.Side == SideLeftScull;
    Row.Min = IsTurned ? Z - B : A - Z;
    Row.Max = IsTurned ? Z - A : B - Z;
    for (double& Y : Table.Y)
        Y = IsTurned ? Z - Y : Y - Z;
}

bool ZeroRefTable(int Chan)
{
    CalibrRow& Row = gFile.Calibr[Chan];
    const int Number = TableOf(Row);
    if (Number == 0) return true;
    RefTable Fresh;
    if (ReadRefTable(gCurDir + Row.SensorID + ".ref", Fresh) == 0) return false;
    ShiftRefTable(Row, Fresh);
    gRefTabs[static_cast<std::size_t>(Number)] = std::move(Fresh);
    return true;
}

void ZeroAllRefTables()
{
    for (int Chan = 1; Chan <= gFile.Calibr.UBound(); ++Chan)
        if (gFile.Calibr[Chan].ProcMode == ApproxRefTable && gFile.Calibr[Chan].Log0 != 0) ZeroRefTable(Chan);
}
