// Loading, cutting, saving and processing of what the data view shows, on recordings in files.
#include "views/data/cDataNav.h"
#include "views/data/mViewEdit.h"
#include "views/data/mViewLoad.h"
#include "views/data/mViewProc.h"
#include "views/data/mViewSave.h"

#include "files/mQVN.h"
#include "files/mRawLog.h"
#include "platform/plain/sSurface.h"
#include "support/Case.h"
#include "support/Hex.h"

#include <fstream>
#include <optional>

namespace {
constexpr int FrameSize = 33;
constexpr int Frames = 600;

std::string Word(int X)
{
    return {static_cast<char>(X % 128), static_cast<char>(X / 128 % 128)};
}

// A short frame each 40 ms; channel 2 rises from 0 to 99 once in four seconds.
std::string FrameAt(int i)
{
    return HexText("80 00 1C 00") + Word(40 * (i + 1)) + Word(40 * (i + 1) / 16384) + std::string(8, '\0') + Word(i) +
           Word(i % 100) + Word(0) + std::string(11, '\0');
}

std::string FramesFrom(int First, int Count)
{
    std::string Bytes;
    for (int i = First; i < First + Count; ++i)
        Bytes += FrameAt(i);
    return Bytes;
}

// A session with one sample and a recording of six strokes in its folder.
struct Outing : FreshState
{
    std::string Raw = Folder.Path("a.qvn");
    ViewData Data;
    ViewUndo Undo;

    Outing()
    {
        gFile = DataFile{};
        gFile.Model = 67;
        gFile.ChanCnt = 3;
        gFile.Calibr.Resize(3);
        for (int Chan = 1; Chan <= 3; ++Chan) {
            gFile.Calibr[Chan].Chan = static_cast<int16_t>(Chan);
            gFile.Calibr[Chan].Q1 = 1;
        }
        gFile.Calibr[2].ParamID = gFile.KeyChanID = "A1";
        gFile.KeyThres = 49.5F;
        gKeyMode = 1;
        ResolveChannels();
        gFile.SampleCnt = 2;
        DescRow& Row = gFile.Desc.Grow();
        Row.SampleID = "S01";
        Row.RawFN = "a.qvn";
        Row.DistReal = 500;
        Row.TimeReal = 99.5;
        SetCurFile(Folder.Path("session.txt"));
        std::ofstream(Raw, std::ios::binary) << "xy" << FramesFrom(0, Frames) << "z";
    }

    void Set(const std::string& Key, const std::string& Value)
    {
        Settings.SaveSetting(FindSetting(Key)->Section, Key, Value);
    }

    // Channel 1, which counts the frames, with dots for runs.
    static std::string Numbers()
    {
        std::string Text;
        for (int i = 0; i <= gRaw.UBound(); ++i)
            if (i == 0 || i == gRaw.UBound() || gRaw(1, i) != gRaw(1, i - 1) + 1 || gRaw(1, i) + 1 != gRaw(1, i + 1))
                Text += FormatNum(gRaw(1, i), "0") + " ";
        return Text;
    }
};
} // namespace

TEST_CASE_FIXTURE(Outing, "a recording comes with the distance and time of its sample")
{
    REQUIRE(LoadView(Raw, DataRaw, Data));
    CHECK(Data.Caption == "Raw Data in a.qvn");
    CHECK((Data.DescIdx == 1 && Data.DistText == "500.0" && Data.TimeText == "99.5"));
    CHECK_FALSE(LoadView(Folder.Path("none.qvn"), DataRaw, Data));
    CHECK(Dialogs.Told == Texts{"Error: Can't open file: " + Folder.Path("none.qvn")});
    CHECK((Numbers() == "0 599 " && gRawFN == Raw && Data.FileName == "a.qvn"));
}

TEST_CASE_FIXTURE(Outing, "what was deleted comes back, and a save leaves out its frames")
{
    REQUIRE(LoadView(Raw, DataRaw, Data));
    const std::string Piece = Folder.Path("piece.qvn");
    const std::tuple<int32_t, int32_t, const char*> Cuts[] = {
        {100, 150, "0 99 150 598 "}, {-5, 10, "10 598 "}, {550, 9999, "0 549 "}, {0, 599, ""}};
    for (const auto& [Start, Stop, Left] : Cuts) {
        CAPTURE(Start);
        CHECK(DeleteSamples(Start, Stop, Data.Map, Undo));
        CHECK(Numbers() == Left);
        CHECK(Data.Map.Frames.size() == static_cast<std::size_t>(gRaw.UBound() + 1));
        CHECK(Undo.Run());
        CHECK((Numbers() == "0 599 " && Data.Map.Frames.size() == Frames));
    }
    CHECK_FALSE(Undo.Run());
    CHECK_FALSE(DeleteSamples(7, 7, Data.Map, Undo));
    CHECK(DeleteSamples(100, 150, Data.Map, Undo));
    Dialogs.Files = {Piece, Raw};
    CHECK(SaveFrames(98, 101, Data.Map));
    CHECK(ReadWhole(Piece) == FramesFrom(98, 2) + FramesFrom(150, 2));
    CHECK_FALSE(SaveFrames(98, 101, Data.Map)); // a piece in the place of its own recording
    CHECK(ReadWhole(Raw)->size() == 3 + Frames * FrameSize);
    const std::string Running = Folder.Path("running.qvn");
    REQUIRE(OpenLog(Running, OldBytes::Kept));
    Dialogs.Files = {Running};
    CHECK_FALSE(SaveFrames(98, 101, Data.Map));
    CHECK(Dialogs.Told.back() == "Error: The recording is still running: " + Running);
    StopLog();
}

TEST_CASE_FIXTURE(Outing, "strokes of a scanned recording are read with three on either side, cut and trimmed")
{
    REQUIRE(LoadView(Raw, DataScanned, Data));
    REQUIRE(gScanRows.UBound() == 6); // in the frames 50, 150, ...
    CHECK(GetRawData(5, 6, Data));
    CHECK(Numbers() == "150 549 ");
    CHECK((gScanStart == 16 && gScanStop == 20));
    CHECK(GetRawData(2, 3, Data));
    CHECK(Numbers() == "0 549 ");
    CHECK_FALSE(GetRawData(3, 7, Data));
    sSurface Surface(1000, 100);
    cDataNav Strip(Surface);
    Strip.Select(2000, 230); // from right to left, and from beyond the end
    CHECK((Strip.FirstRow == 2 && Strip.LastRow == 6));
    Strip.Cursor = 6;
    Strip.SetStart(); // behind the stop
    CHECK((Strip.IsOpen() && !Strip.HasSelection()));
    CHECK(Strip.Caption().starts_with("The selection starts at stroke 6 and has no stop yet"));
    Strip.Cursor = 2;
    Strip.SetStop();
    CHECK((Strip.FirstRow == 2 && Strip.LastRow == 6));
    CHECK(Strip.Caption() == "Duration=0m 16.0s   Strokes=4   Rate=15.0   Speed=0.00   Distance=0.0");
    Dialogs.Files = {Folder.Path("piece.qvn")};
    CHECK(SaveRows(2, 4));
    CHECK(ReadWhole(Folder.Path("piece.qvn")) == FramesFrom(150, 200));
    CHECK((gScanStart == 4 && gScanStop == 12));
    CHECK(TrimRows(2, 5, Undo));
    CHECK((gScanRows.UBound() == 2 && gScanRows[1].Time == 251 * gTimeStep));
    CHECK(GetRawData(1, 2, Data)); // from the row ahead of those that were kept
    CHECK(Numbers() == "150 349 ");
    CHECK(Undo.Run());
    CHECK(gScanRows.UBound() == 6);
    gScanRows[6].Time = gScanRows[1].Time + 119.97;
    CHECK(cDataNav::RowText(6).starts_with("Stroke 6 at 2m 0.0s "));
}

TEST_CASE_FIXTURE(Outing, "a scan or a cut that is given up leaves everything as it was")
{
    REQUIRE(LoadView(Raw, DataScanned, Data));
    std::ofstream(Raw, std::ios::binary) << FramesFrom(0, 300);
    Status.CancelAt = 60;
    CHECK_FALSE(LoadView(Raw, DataScanned, Data));
    CHECK((gScanRows.UBound() == 6 && Status.Shown.back() == "2: "));
    Dialogs.Files = {Folder.Path("piece.qvn")};
    CHECK_FALSE(SaveRows(1, 3));
    CHECK_FALSE(std::filesystem::exists(Folder.Path("piece.qvn")));
}

TEST_CASE_FIXTURE(Outing, "of a broken recording a mended copy is offered, and shown in its place")
{
    // A slave's frame that holds a sync byte, and one of another size that the decoder refuses.
    const std::string Broken = FramesFrom(0, 200) + HexText("80 00 02 00 01 80 01") + FramesFrom(200, 400);
    const std::string Question =
        "Warning!: " + Raw +
        ": stopped at byte 6601 of 19807 (frame 200, 8.0 s): the rest was not read.\n\nWrite a "
        "copy without the broken bytes and open it? The recording stays as it is.";
    std::ofstream(Raw, std::ios::binary) << Broken;
    Dialogs.AnswerYes = false;
    REQUIRE(LoadView(Raw, DataRaw, Data));
    CHECK((Numbers() == "0 199 " && gRawFN == Raw));
    CHECK(Dialogs.Told == Texts{Question});
    Dialogs.AnswerYes = true;
    for (const char* Name : {"a_mended.qvn", "a_mended_2.qvn"}) {
        Dialogs.Told.clear();
        REQUIRE(LoadView(Raw, DataRaw, Data));
        CHECK((Numbers() == "0 599 " && gRawFN == Folder.Path(Name) && Data.FileName == Name));
        CHECK(Data.Caption == std::string("Raw Data in ") + Name);
        CHECK(Dialogs.Told == Texts{Question, "Information: 1 frame (7 bytes) left out, the first at byte 6601; 600 "
                                              "frames kept: " +
                                                  Folder.Path(Name)});
    }
    CHECK(ReadWhole(Raw) == Broken);
    CHECK(ReadWhole(Folder.Path("a_mended.qvn")) == FramesFrom(0, 600));
    REQUIRE(LoadView(Raw, DataScanned, Data));
    CHECK((gScanRows.UBound() == 6 && gRawFN == Folder.Path("a_mended_3.qvn")));
    // Nothing of the rest could be mended.
    Dialogs.Told.clear();
    std::ofstream(Raw, std::ios::binary) << FramesFrom(0, 200) << "\x80 half";
    REQUIRE(LoadView(Raw, DataRaw, Data));
    CHECK(Dialogs.Told ==
          Texts{"Warning!: " + Raw + ": stopped at byte 6601 of 6606 (frame 200, 8.0 s): the rest was not read"});
}

TEST_CASE_FIXTURE(Outing, "a rate other than the setting is asked about once ahead of a search, and the answer is kept")
{
    Set("gDataFreq", "100");
    const std::string Question = "Sampling frequency: The frames of a.qvn come at 25 Hz, but the setting gDataFreq is "
                                 "100 Hz, by which times are counted. Which rate is meant (Hz)? [25]";
    REQUIRE(LoadView(Raw, DataRaw, Data)); // whose times are the frames' own
    CHECK(Dialogs.Told.empty());
    Dialogs.Answers = {"100"};
    REQUIRE(LoadView(Raw, DataScanned, Data));
    CHECK(gScanRows[1].Time == 51 * 0.01);
    REQUIRE(LoadView(Raw, DataScanned, Data));
    CHECK(Dialogs.Told == Texts{Question});
    Set("gDataFreq", "50");
    for (const auto& Answer : {std::optional<std::string>(), std::optional<std::string>("fast")}) {
        Set("gDataFreq", Answer ? "40" : "50");
        Dialogs.Answers = {Answer};
        REQUIRE(LoadView(Raw, DataScanned, Data));
        CHECK(gDataFreq == (Answer ? 40 : 50));
    }
    Set("gDataFreq", "12.5");
    REQUIRE(LoadView(Raw, DataScanned, Data)); // the proposed answer
    CHECK((gScanRows[1].Time == 51 * 0.04 && gDataFreq == 25));
    CHECK(Settings.GetSetting("Options", "gDataFreq") == "25");
    Dialogs.Told.clear();
    Set("gDataFreq", "24.6");
    REQUIRE(LoadView(Raw, DataScanned, Data));
    CHECK(Dialogs.Told.empty());
}

TEST_CASE_FIXTURE(Outing, "a failed run writes the four fields of the last sample and says so")
{
    REQUIRE(LoadView(Raw, DataRaw, Data));
    gScanStart = 60;
    gScanStop = 90;
    CHECK_FALSE(ProcSel(Data, {10, 60, 1000, 200, {}}));
    const DescRow& Row = gFile.Desc[1];
    CHECK((Row.Start == 1 && Row.Finish == 1.5 && Row.DistReal == 1000 && Row.TimeReal == 200));
    CHECK(Dialogs.Told.at(0) == "Warning!: Could not find any cycle!");
    CHECK(Dialogs.Told.at(1).find("were written into sample S01") != std::string::npos);
    CHECK(ReadWhole(gCurFile)->find("S01") != std::string::npos);
    CHECK(ProcSel(Data, {10, 500, 1000, 200, 800}));
    CHECK((gFile.Desc.UBound() == 2 && gFile.Desc[2].RawFN == "a.qvn" && gFile.Desc[2].DistReal == 800));
    gErgoMode = 1;
    CHECK(ProcSel(Data, {10, 500, 1000, 200, 800}));
    CHECK(gFile.Desc[3].DistReal == 1000);
    // No stroke is as long as the mean of a long one and the others.
    for (int i = 300; i <= gRaw.UBound(); ++i)
        gRaw(0, i) += 1;
    StdFilter = 0;
    CHECK_FALSE(ProcSel(Data, {10, 500, 1, 1, {}}));
    CHECK(Dialogs.Told.back().find("No stroke lies within the filter of 0 SD") != std::string::npos);
    CHECK(gFile.Desc[3].DistReal == 1000);
}

TEST_CASE_FIXTURE(Outing, "splits follow one another by their durations, and one without strokes stops no other")
{
    REQUIRE(LoadView(Raw, DataRaw, Data));
    const std::tuple<const char*, const char*, std::vector<int32_t>> Tables[] = {
        {"1", "2", {0, 221, 446}}, {"1", "3", {0, 221, 446, 599}}, {"0", "2", {0, 0, 0}}, {"1", "0", {0}}};
    Set("gSplitsArr01", "8.8"); // sample 220 lies on it
    Set("gSplitsArr02", "9");
    Set("gSplitsArr03", "60");
    for (const auto& [Par, Count, Bounds] : Tables) {
        Set("gSplitPar", Par);
        Set("gSplitsCnt", Count);
        LoadSettings();
        CHECK(FillSplits() == Bounds);
    }
    Set("gSplitPar", "1");
    Set("gSplitsCnt", "3");
    Set("gSplitsArr01", "1");
    Set("gSplitsArr02", "12");
    CHECK_FALSE(ProcSplits(Data, {}, [](int32_t, int32_t) { return std::nullopt; }));
    CHECK(gFile.Desc.UBound() == 3); // the two splits behind the first
}

TEST_CASE_FIXTURE(FreshState, "the velocity is the acceleration's running integral over the selection alone")
{
    ViewUndo Undo;
    gRaw.Create(15, -1);
    CHECK_FALSE(AccToVel(0, 0, Undo));
    gRaw.Create(15, 4);
    for (int i = 0; i <= 4; ++i) {
        gRaw(0, i) = 0.5 * i;
        gRaw(5, i) = i * i;
        gRaw(15, i) = 9;
    }
    CHECK(AccToVel(1, 99, Undo));
    const std::vector<double> Velocity(gRaw.Channel(15).begin(), gRaw.Channel(15).end());
    CHECK(Velocity == std::vector<double>{9, 0, 1.25, 4.5, 10.75});
    CHECK(Undo.Run());
    CHECK(gRaw(15, 2) == 9);
}
