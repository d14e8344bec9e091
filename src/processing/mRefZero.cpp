// Re-zeroing of reference tables from their files.
#include "processing/mRefZero.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "processing/mRefTable.h"

#include <utility>

bool ZeroRefTable(int Chan)
{
    CalibrRow& Row = gFile.Calibr[Chan];
    const double Number = RoundHalfEven(Row.Threshold);
    if (!(Number >= 1 && Number <= gRefCnt)) return true;
    RefTable& Table = gRefTabs[static_cast<std::size_t>(Number)];
    RefTable Fresh;
    if (ReadRefTable(gCurDir + Row.SensorID + ".ref", Fresh) == 0) return false;
    Table = std::move(Fresh);
    if (Row.Side < SideRight || Row.Side > SideLeftScull) return true;
    const double Z = RefLookup(static_cast<int>(Number), Row.Log0);
    const double A = Table.Y[0], B = Table.Y[static_cast<std::size_t>(Table.Cnt)];
    const bool IsTurned = Row.Side == SideLeft || Row.Side == SideLeftScull;
    Row.Min = IsTurned ? Z - B : A - Z;
    Row.Max = IsTurned ? Z - A : B - Z;
    for (double& Y : Table.Y)
        Y = IsTurned ? Z - Y : Y - Z;
    return true;
}

void ZeroAllRefTables()
{
    for (int Chan = 1; Chan <= gFile.Calibr.UBound(); ++Chan)
        if (gFile.Calibr[Chan].ProcMode == ApproxRefTable && gFile.Calibr[Chan].Log0 != 0) ZeroRefTable(Chan);
}
