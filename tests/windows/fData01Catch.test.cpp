// The catch training panel as a window: its figures, colours and bars are those of the panel without a window.
#include "live/catch/fData01Catch.h"
#include "LabelWatch.h"
#include "ShellState.h"
#include "core/mIni.h"
#include "core/mNotice.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "support/SurfaceLog.h"

#include <QFrame>
#include <QLabel>
#include <QProcess>

#include <cmath>

namespace {
constexpr std::size_t SeatChan = 23, TrunkChan = 24;

struct CatchWindow : ShellState
{
    CatchWindow()
    {
        Start("IsCurves=-1\nIsValue=-1\n");
        REQUIRE(ReadDataFile(SOURCE_FOLDER "/demo/single.txt", gFile, SectionFilter::Any));
        SetCurFile(Folder.Path("single.txt"));
        ResolveChannels();
        gHost.Settings->SaveSetting("Models", "gSeatChan", "23");
        gHost.Settings->SaveSetting("Models", "gTrunkChan", "24");
        gFrameCnt = 0;
        Beside.Load();
        Choose("mnuSampleCatch");
        Window().parentWidget()->resize(900, 700);
    }

    fData01Catch& Window() { return dynamic_cast<fData01Catch&>(Find<QWidget>("fData01Catch")); }
    std::string Label(const char* Name) { return Plain(Find<QLabel>(Name).text()); }

    // Puts a physical value on a channel.
    static void Put(std::size_t Chan, double Value)
    {
        const CalibrRow& Row = gFile.Calibr[static_cast<int>(Chan)];
        gData[Chan] = (Value - Row.Q0) / Row.Q1;
    }

    // Strokes of two seconds; the seat turns 27 ms behind the handle, the trunk 40 ms ahead of it.
    void Row(int Frames)
    {
        const auto Swing = [&](double Late) { return -std::cos(3.14159265 * (Frame * 0.04 - 0.5 - Late)); };
        for (int i = 0; i < Frames; ++i, ++Frame) {
            ++gFrameCnt;
            gSampleTime = gData[0] = Frame * 0.04;
            Put(static_cast<std::size_t>(gKeyChan), 45 * Swing(0));
            Put(SeatChan, 0.3 * Swing(0.027));
            Put(TrunkChan, 20 * Swing(-0.04));
            SampleDataWindows();
            Beside.TakeSample();
            if (i % 5 == 4) DrawDataWindows();
        }
        QTest::qWait(30); // labels follow the picture rate
    }

    int Frame = 0;
    SurfaceLog Screen{1000, 600};
    cCatch Beside{Screen};
};
} // namespace

TEST_CASE_FIXTURE(CatchWindow, "an open panel takes other ranges and another background at once, and goes on counting")
{
    Row(200);
    const QString Sheet = Find<QLabel>("lbCatch_0").styleSheet();
    const std::string Strokes = Label("lbStrokeN");
    gCFLow = 900;
    gCFHigh = 950;
    for (const char* Key : {"gCFLow", "gCFHigh"})
        SaveSetting(Key);
    QImage Picture(8, 8, QImage::Format_RGB32);
    Picture.fill(QColor(1, 2, 3));
    gBackground = Folder.Path("b.png");
    REQUIRE(Picture.save(Shown(gBackground)));
    Notify(eNotice::OptionsSaved);
    const QImage Shot = Find<QWidget>("PB").grab().toImage();
    CHECK(Shot.pixelColor(Shot.width() / 2, 2) == QColor(1, 2, 3));
    Row(100);
    CHECK(Find<QLabel>("lbCatch_0").styleSheet() != Sheet);
    CHECK(Label("lbStrokeN") > Strokes);
    CHECK(Strokes != "000");
}

TEST_CASE_FIXTURE(CatchWindow,
                  "labels and marks show the factors of the strokes that were rowed, grey when frames stop")
{
    CHECK(Label("lbCatch_0").empty());
    CHECK(!Find<QFrame>("CFmark").isVisible());
    Row(500);
    REQUIRE((Beside.CatchFactor() && Beside.FinishFactor() && Beside.StyleFactor()));
    REQUIRE(Beside.Stroke().StrokeN >= 8);
    const CatchStroke& Stroke = Beside.Stroke();
    const std::tuple<const char*, double, const char*> Labels[] = {{"lbData_0", 0, "0"},
                                                                   {"lbData_1", 20, "0"},
                                                                   {"lbStrokeN", Stroke.StrokeN, "000"},
                                                                   {"lbRate_0", Stroke.Rate, "00.0"},
                                                                   {"lbRate_1", Stroke.RateAver, "00.0"},
                                                                   {"lbStrokeLength", Stroke.Length, "0.00"},
                                                                   {"lbSeatTravel", 0.6, "0.00"},
                                                                   {"lbMaxHandleVel", Stroke.MaxHandleV, "0.00"},
                                                                   {"lbMaxSeatVel", Stroke.MaxSeatV, "0.00"},
                                                                   {"lbCatch_0", 27, "0"},
                                                                   {"lbCatch_1", *Beside.CatchFactor()->Average, "0.0"},
                                                                   {"lbFF_0", -40, "0"},
                                                                   {"lbFF_1", *Beside.FinishFactor()->Average, "0.0"},
                                                                   {"lbRSF_0", Beside.StyleFactor()->Last, "0.0"},
                                                                   {"lbRSF_1", *Beside.StyleFactor()->Average, "0.0"}};
    for (const auto& [Name, Value, Format] : Labels) {
        CAPTURE(Name);
        CHECK(Label(Name) == FormatNum(Value, Format));
        const auto& Seen = Find<QLabel>(Name);
        CHECK(QFontMetrics(Seen.font()).horizontalAdvance(Seen.text()) <= Seen.width());
        CHECK(QFontMetrics(Seen.font()).height() <= Seen.height());
        CHECK(Seen.isEnabled());
    }
    // 27 ms is late at a rate of 30, where up to 6 ms is good: red, and to the right of the good zone.
    CHECK(Find<QLabel>("lbCatch_0").styleSheet().contains("color: rgb(255,0,0)"));
    CHECK(Find<QLabel>("lbFF_0").styleSheet().contains("color: rgb(0,200,0)"));
    const auto Middle = [&](const char* Name) { return Find<QFrame>(Name).geometry().center().x(); };
    CHECK(Middle("CFmark") > Find<QFrame>("CFbox_1").geometry().right());
    CHECK(Find<QFrame>("FFbox_1").geometry().contains(Find<QFrame>("FFmark").geometry().center()));
    CHECK(Find<QFrame>("CFbox_0").width() == doctest::Approx(2 * Find<QFrame>("CFbox_1").width()).epsilon(0.02));

    Window().LoseFrames();
    CHECK(!Find<QLabel>("lbCatch_0").isEnabled());
    auto& Mark = Find<QFrame>("CFmark");
    const QColor Grey = Mark.grab().toImage().pixelColor(2, 2);
    CHECK(Grey.lightness() > 100);
    CHECK(Grey.saturation() < 40);
    Window().NewRun();
    Row(5);
    CHECK(QTest::qWaitFor([this] { return Label("lbStrokeN") == "000"; }));
    CHECK(Label("lbCatch_0").empty());
    QTest::keyClick(&Window(), Qt::Key_Escape);
    QTest::qWait(5);
    CHECK(!Main.findChild<QWidget*>("fData01Catch"));
}

TEST_CASE_FIXTURE(CatchWindow, "a recording replayed through the window shows what the batch program prints of it")
{
    const QString Session = SOURCE_FOLDER "/demo/single.txt";
    const QString Raw = Shown(Folder.Path("a.qvn"));
    const QString Out = Shown(Folder.Path("a.tsv"));
    const auto Run = [](const char* Program, const QStringList& Words) {
        REQUIRE(QProcess::execute(QString(PROGRAM_FOLDER "/skarvelin-") + Program, Words) == 0);
    };
    Run("sim", {"--file", Raw, Session, "--strokes=8", "--spread=9"});
    Run("batch", {"--set", "gSeatChan=23", "--set", "gTrunkChan=24", "live", Session, Raw, Out, "--panel", "catch"});

    // Labels of each line's kind and key, with their format.
    const std::map<QString, std::pair<std::string, const char*>> Labels = {
        {"N Strokes", {"lbStrokeN", "000"}},        {"N Rate", {"lbRate_0", "00.0"}},
        {"N RateAver", {"lbRate_1", "00.0"}},       {"N Length", {"lbStrokeLength", "0.00"}},
        {"N SeatTravel", {"lbSeatTravel", "0.00"}}, {"N MaxHandle", {"lbMaxHandleVel", "0.00"}},
        {"N MaxSeat", {"lbMaxSeatVel", "0.00"}},    {"CF Last", {"lbCatch_0", "0"}},
        {"CF Average", {"lbCatch_1", "0.0"}},       {"FF Last", {"lbFF_0", "0"}},
        {"FF Average", {"lbFF_1", "0.0"}},          {"RSF Last", {"lbRSF_0", "0.0"}},
        {"RSF Average", {"lbRSF_1", "0.0"}}};
    const std::map<QString, const char*> Sheets = {
        {"green", "rgb(0,200,0)"}, {"blue", "rgb(0,0,255)"}, {"red", "rgb(255,0,0)"}};
    std::map<std::string, Texts> Printed;
    std::map<std::string, QStringList> Newest;
    for (const QString& Line : Shown(*ReadWhole(Plain(Out))).split('\n', Qt::SkipEmptyParts).sliced(1)) {
        const QStringList Cells = Line.split('\t');
        const auto& [Name, Format] = Labels.at(Cells[2] + " " + Cells[3]);
        LabelWatch::Add(Printed[Name], FormatNum(Val(Plain(Cells[4])), Format));
        Newest[Name] = Cells;
    }
    REQUIRE(Printed.size() == Labels.size());

    LabelWatch Watch(Window());
    Watch.DrawData();
    const std::map<std::string, Texts> Before = Watch.Seen;
    StartReplay(Plain(Raw));
    SetReplayInterval(2);
    Watch.WaitForEnd();
    for (const auto& [Name, Lines] : Printed) {
        CAPTURE(Name);
        CHECK(Watch.Shown(Name, Before.at(Name).back()) == Lines);
        const QStringList& Cells = Newest[Name];
        if (!Cells[5].isEmpty()) CHECK(Find<QLabel>(Name.c_str()).styleSheet().contains(Sheets.at(Cells[5])));
        if (Cells[6].isEmpty()) continue;
        const auto& Mark = Find<QFrame>(Plain(Cells[2] + "mark").c_str());
        const double At = Val(Plain(Cells[6])) / 1000 * Mark.parentWidget()->width();
        CHECK(std::abs(Mark.geometry().center().x() - At) <= 2);
    }
    StopAll();
}
