// The channel indicators as the calls they draw with.
#include "calibration/cCheckChans.h"
#include "calibration/cTrackChans.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"

namespace {
void MakeChannels(int Count, int Rows)
{
    gFile = DataFile{};
    gFile.ChanCnt = static_cast<int16_t>(Count);
    for (int i = 1; i <= Rows; ++i) {
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.Chan = static_cast<int16_t>(i);
        Row.ParamID = i == 1 ? "GateAng" : "H1";
    }
}

Texts Only(const Texts& All, const std::string& What)
{
    Texts Found;
    for (const std::string& Call : All)
        if (Call.starts_with(What + " ")) Found.push_back(Call);
    return Found;
}

void Show(cTrackChans& Chans)
{
    Chans.TakeSample();
    Chans.DrawData();
}
} // namespace

TEST_CASE_FIXTURE(FreshState, "counts 0 and 16384 stand at the ends of the bar, and each channel is a step in its row")
{
    MakeChannels(4, 2);
    SurfaceLog Surface(500, 400);
    cCheckChans Chans(Surface);
    Chans.SetUpPoly();
    Chans.DrawGrid();
    const Texts Grid = Surface.Take();
    CHECK(Only(Grid, "polyline").empty());
    CHECK(Only(Grid, "box").front() == "box 29 7 471 393 #323232 empty");
    const Texts Labels = Only(Grid, "text");
    CHECK(Labels.size() == 14);
    CHECK(Labels[1] == "text 73 389 \"1638\" 8 centre #323232");
    CHECK(Labels[10].find("\"1 GateAng\"") != std::string::npos);
    CHECK(Labels[13].find("\"4\"") != std::string::npos);

    Chans.SetLive(true);
    Surface.Take();
    gData[1] = 0;
    gData[2] = 16384;
    gData[3] = 8192;
    gData[4] = 1.9;
    Chans.DrawData();
    CHECK(Surface.Take() ==
          Texts{"polyline 30 8 30 8 30 104 470 104 470 200 250 200 250 296 30 296 30 392 #0000C8 wide 2"});
    Chans.DrawData();
    Texts Second = Surface.Take();
    CHECK(Second.size() == 9);
    CHECK(Second[3] == "restore 468 102 472 202");
}

TEST_CASE_FIXTURE(FreshState,
                  "traces go on column by column, keep the last colour of the table, and start over at the left")
{
    MakeChannels(10, 10);
    SurfaceLog Surface(1020, 400);
    cTrackChans Chans(Surface);
    Chans.SetUpPoly();
    Chans.DrawGrid();
    Surface.Take();
    gData[1] = 16384;
    Show(Chans);
    CHECK(Surface.Take() == Texts{"restore 0 0 21 400", "line 23 8 23 392 #7F7F7F"});
    gData[1] = 0;
    Show(Chans);
    Texts Second = Surface.Take();
    REQUIRE(Second.size() == 12);
    CHECK(Second[0] == "restore 0 0 24 400");
    CHECK(Second[1] == "line 20 392 23 8 #FF0000 wide 2");
    CHECK(Second[8] == "line 20 8 23 8 #000000 wide 2");
    CHECK(Second[10] == "line 20 8 23 8 #000000 wide 2");
    CHECK(Second[11] == "line 27 8 27 392 #7F7F7F");
    for (int Frame = 3; Frame <= 255; ++Frame)
        Show(Chans);
    Surface.Take();
    Show(Chans);
    CHECK(Surface.Take() == Texts{"restore 0 0 21 400", "line 23 8 23 392 #7F7F7F"});
}
