// A simulated stream over the link in bursts of several sizes: what windows compute does not depend on them.
#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "core/mIni.h"
#include "files/mFrame.h"
#include "files/mTextIO.h"
#include "live/catch/cCatch.h"
#include "live/rower/cRower.h"
#include "sim/mRecord.h"
#include "support/Case.h"
#include "support/ScriptedLink.h"
#include "support/SurfaceLog.h"

namespace {
// The frames of a recording, and what follows the last one.
Texts FramesOf(const std::string& Bytes)
{
    std::size_t Read = 0;
    ByteSource Source([&](std::span<uint8_t> Room) {
        const std::size_t Count = std::min(Room.size(), Bytes.size() - Read);
        std::copy_n(Bytes.begin() + static_cast<std::ptrdiff_t>(Read), Count, Room.begin());
        Read += Count;
        return Count;
    });
    Texts Frames;
    while (const auto Taken = TakeFrame(Source))
        Frames.emplace_back(Taken->Bytes.begin(), Taken->Bytes.end());
    return Frames;
}

// Both panels in a window, and a count of the samples of each channel.
class PanelWindow : public cDataWindow
{
public:
    PanelWindow() : cDataWindow(DataTag)
    {
        Rower.Load();
        Catch.Load();
    }

    Texts Strokes; // with scores
    Texts Turns;   // strokes and factors of the catch panel
    Texts Points;  // samples, as an automatic calibration takes them
    int Pictures = 0;

    void TakeSample() override
    {
        Rower.TakeSample();
        Catch.TakeSample();
        Points.push_back(FormatShortest(gData[0]) + " " + FormatShortest(gData[1]));
        if (Rower.NewStroke()) AddStroke();
        if (Catch.Newest().Stroke || Catch.Newest().CF || Catch.Newest().FF || Catch.Newest().RSF) AddTurn();
    }
    void DrawData() override
    {
        ++Pictures;
        Rower.DrawData();
        Catch.DrawData();
    }
    void SetLive(bool) override {}
    void Unload() override {}

    /// The curves, drawn anew.
    Texts Curves()
    {
        Surface.Take();
        Rower.Resize();
        return Surface.Take();
    }

private:
    void AddStroke()
    {
        std::string Line = Rower.TimeText() + " " + Rower.RateText() + " " + Rower.StrokesText();
        for (const cData01real& Plot : Rower.Views())
            for (const StrokeNumber& Each : Plot.StrokeNumbers())
                Line += " " + Each.Key + "=" + (Each.IsMade ? FormatShortest(Each.Value) : "none");
        Strokes.push_back(Line);
    }
    void AddTurn()
    {
        std::string Line = FormatShortest(Catch.Stroke().Rate) + " " + FormatShortest(Catch.Stroke().Length);
        for (const auto* Factor : {&Catch.CatchFactor(), &Catch.FinishFactor(), &Catch.StyleFactor()})
            Line += *Factor ? " " + FormatShortest((*Factor)->Last) : " none";
        Turns.push_back(Line);
    }

    SurfaceLog Surface{1000, 600};
    SurfaceLog CatchSurface{1000, 600};
    cRower Rower{Surface};
    cCatch Catch{CatchSurface};
};

struct Outcome
{
    Texts Strokes;
    Texts Turns;
    Texts Points;
    Texts Curves;
    int Pictures = 0;
    std::string Recorded;
};

Outcome Play(const Texts& Frames, std::size_t Burst)
{
    LinkState Link;
    REQUIRE(ReadDataFile(SOURCE_FOLDER "/demo/single.txt", gFile, SectionFilter::Any));
    ResolveChannels();
    gKeyMode = gFile.KeyMode;
    gIsCurves = gIsValue = gIsScore = gIsInd = true;
    gConnection = 1;
    REQUIRE(OpenLink());
    Link.Socket.Answer();
    PanelWindow Window;
    const std::string Path = Link.Folder.Path("a.qvn");
    REQUIRE(OpenLog(Path, OldBytes::Kept));
    for (std::size_t From = 0; From < Frames.size(); From += Burst) {
        std::string Bytes;
        for (std::size_t i = From; i < std::min(From + Burst, Frames.size()); ++i)
            Bytes += Frames[i];
        Link.Socket.Feed(Bytes);
        Link.Clock.Wait(static_cast<int>(Burst) * 10);
    }
    StopAll();
    CloseLink();
    return {Window.Strokes,  Window.Turns,    Window.Points,
            Window.Curves(), Window.Pictures, ReadWhole(Path).value_or("none")};
}
} // namespace

TEST_CASE_FIXTURE(FreshState, "one stream gives the same strokes, scores, points and recording in bursts of any size")
{
    SimOptions Options;
    Options.Session = SOURCE_FOLDER "/demo/single.txt";
    Options.Recording = Folder.Path("sent.qvn");
    Options.Freq = 100;
    Options.Strokes = 12;
    REQUIRE(ReadDataFile(Options.Session, gFile, SectionFilter::Any));
    REQUIRE(RecordFile(Options, gFile) != "");
    const std::string Sent = ReadWhole(Options.Recording).value_or("");
    const Texts Frames = FramesOf(Sent);
    const Outcome Single = Play(Frames, 1);
    CHECK(Single.Strokes.size() > 10);
    CHECK(Single.Turns.size() > 10);
    CHECK(Single.Curves.size() > 20);
    CHECK(Single.Points.size() == Frames.size());
    CHECK(Single.Pictures == static_cast<int>(Frames.size()));
    CHECK(Single.Recorded == Sent);
    SUBCASE("a logger that is restarted and rows the same again")
    {
        Texts Twice = Frames;
        Twice.insert(Twice.end(), Frames.begin(), Frames.end());
        const Outcome Both = Play(Twice, 50);
        REQUIRE(Both.Strokes.size() == 2 * Single.Strokes.size());
        CHECK(Texts(Both.Strokes.begin() + static_cast<std::ptrdiff_t>(Single.Strokes.size()), Both.Strokes.end()) ==
              Single.Strokes);
        CHECK(Both.Curves == Single.Curves);
        CHECK(Both.Recorded == Sent + Sent);
    }
    for (const std::size_t Burst : {std::size_t{5}, std::size_t{50}, std::size_t{500}}) {
        CAPTURE(Burst);
        const Outcome Bundled = Play(Frames, Burst);
        CHECK(Bundled.Pictures == static_cast<int>((Frames.size() + Burst - 1) / Burst));
        CHECK(Bundled.Strokes == Single.Strokes);
        CHECK(Bundled.Turns == Single.Turns);
        CHECK(Bundled.Points == Single.Points);
        CHECK(Bundled.Curves == Single.Curves);
        CHECK(Bundled.Recorded == Single.Recorded);
    }
}
