// Any bytes as a comma-separated table of points: taken, stored, written, and taken again to the same text.
#include "program.h"

#include "records/mGridImport.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    StartProgram();
    DataFile File;
    cGrid Grid;
    const GridStoring Store = FindGridKind("Dots")->Load(File, Grid);
    ReadTable Read = RowsFromCsv(Grid, std::string(AsText(Data, Size)));
    if (!Read.Reason.empty()) return 0;
    Grid.Fill(std::move(Read.Rows));
    const std::string First = GridToCsv(Grid);
    Store(Grid, File);
    FindGridKind("Dots")->Load(File, Grid);
    if (GridToCsv(Grid) != First) std::abort();
    if (!RowsFromCsv(Grid, First).Reason.empty()) std::abort();
    return 0;
}
