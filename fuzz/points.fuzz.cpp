// Any bytes as a file of digitised points: what is read is written and read again as it was.
#include "program.h"

#include "files/mPoints.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    StartProgram();
    PointTables Tables;
    if (!ParsePoints(AsText(Data, Size), Tables).empty()) return 0;
    gVidCoords = std::move(Tables.Coords);
    gVidAngles = std::move(Tables.Angles);
    const std::string Text = PointsText();
    PointTables Again;
    if (!ParsePoints(Text, Again).empty()) std::abort();
    gVidCoords = std::move(Again.Coords);
    gVidAngles = std::move(Again.Angles);
    if (PointsText() != Text) std::abort();
    return 0;
}
