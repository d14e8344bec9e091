// Any bytes as a reference table: parsed, and looked up at, between and beyond its rows.
#include "program.h"

#include "processing/mRefTable.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    StartProgram();
    gRefTabs.assign(2, {});
    gRefCnt = 1;
    RefTable& Table = gRefTabs[1];
    if (!ParseRefTable(AsText(Data, Size), Table)) return 0;
    if (Table.Cnt < 0 || Table.Cnt > RefTable::MaxRow) std::abort();
    for (std::size_t i = 0; i <= static_cast<std::size_t>(Table.Cnt); ++i) {
        const double X = Table.X[i];
        for (const double V : {X, X / 2, X * 2, X - 1, X + 1, -X})
            RefLookup(1, V);
    }
    return 0;
}
