// The pages of reports, the corrections of samples, and derived variables of demonstration recordings.
#include "whole/Walk.h"

#include "files/mBinIO.h"
#include "files/mTextIO.h"
#include "processing/mOper.h"
#include "views/mAxis.h"
#include "views/mQuantity.h"
#include "views/play/cData04play.h"
#include "views/report/cReportPage.h"
#include "views/samples/cSamplePicture.h"
#include "views/samples/cSwap.h"

#include <array>

namespace {
// What a row gives, or why it has none.
template <class Work>
void NoteRow(Walk& Walking, const std::string& What, const Work& Make)
{
    std::string Line = What;
    try {
        CellSums Sums;
        double Place = 0;
        for (const double Y : Make())
            Sums.Add(FormatGeneral(Y, 9), Place++);
        Line += " " + Sums.Text();
    } catch (const RunError& Failure) {
        Line += std::string(" ") + Failure.what();
    }
    Walking.Lines.push_back(Line);
}

void NotePages(Walk& Walking, const std::string& What, int Kind, int16_t Sample)
{
    cReport Report;
    Report.InitData(Kind, Sample, 40, 140);
    cReportPage Pages(Report);
    SurfaceLog Surface(cReportPage::PageSize.X, cReportPage::PageSize.Y);
    for (int Page = 0; Page < Pages.Pages(); ++Page) {
        Pages.Draw(Surface, Page);
        Walking.Lines.push_back("> " + What + " page " + FormatNum(Page, "0"));
        // Texts and curves as they are, but shortened: lines and boxes are many and alike.
        Texts Others;
        for (const std::string& Call : Surface.Take())
            if (Call.starts_with("text") || Call.starts_with("polyline"))
                Walking.Lines.push_back("  " + Shortened(Call, ' '));
            else
                Others.push_back(Call);
        for (const std::string& Line : Digest(Others, ' ', 8, 7, true))
            Walking.Lines.push_back("  " + Line);
    }
}

// Each correction by itself, taken back afterwards.
void NoteCorrections(Walk& Walking)
{
    const auto Session = [] { return DataFileText(gFile, SectionFilter::Any); };
    const std::tuple<const char*, const char*, std::function<std::string(cSwap&)>> Corrections[] = {
        {"H1", "", [](cSwap& S) { return S.OffScale('O', 0.5); }},
        {"A1", "", [](cSwap& S) { return S.OffScale('S', -2); }},
        {"H1", "", [](cSwap& S) { return S.OffScale('S', 1e308); }},
        {"1", "2", [](cSwap& S) { return S.Swap(); }},
        {"1", "99999", [](cSwap& S) { return S.Swap(); }},
        {"S1", "S9", [](cSwap& S) { return S.Rename(); }},
        {"A1", "H1", [](cSwap& S) { return S.Replace(); }},
        {"Zz", "H1", [](cSwap& S) { return S.Replace(); }},
        {"A1", "S1", [](cSwap& S) { return S.Average(); }}};
    for (const auto& [What, With, Correct] : Corrections) {
        const std::string Before = Session();
        cSwap Swap;
        Swap.What = What;
        Swap.With = With;
        Swap.AverTo = "H1";
        const std::string Told = Correct(Swap);
        NoteRow(Walking, Told + (Swap.IsChanged() ? " changed" : ""), [] {
            std::vector<double> All;
            for (const DataRow& Row : gFile.Data)
                All.insert(All.end(), {Row.Values.front(), Row.Values[17], Row.Values.back(), Row.Seat * 1.0});
            for (const CalibrRow& Row : gFile.Calibr)
                All.insert(All.end(), {Row.Seat * 1.0, static_cast<double>(Row.ParamID.back())});
            return All;
        });
        Swap.Undo();
        CHECK((Session() == Before && !Swap.IsChanged() && !Swap.Undo()));
        if (Told.find("nothing") != std::string::npos) continue;
        const DataFile Kept = gFile;
        Correct(Swap);
        gFile.Data.Grow().SampleID = "recorded since";
        CHECK_FALSE(Swap.Undo());
        gFile = Kept;
    }
}
} // namespace

TEST_CASE("reports, pictures and corrections of stored samples are those of the golden list")
{
    Walk Walking;
    Walking.Run("sim single.txt --file=a.qvn --strokes=9 --seed=21 --rate=25");
    Walking.Run("gProcRuns=2 gExpSTD=1 process single.txt a.qvn a.qvn --dist 500 --time 100");
    Walking.Run("sim eight.txt --file=e.qvn --strokes=9 --seed=22 --rate=38 --freq=100");
    Walking.Run("process eight.txt e.qvn --comment Wind");
    Walking.Lines.clear();
    for (const char* Name : {"single", "eight"}) {
        Walking.Open(std::string(Name) + ".txt");
        int32_t Start = 0, Stop = 0;
        REQUIRE(ReadRawFile(*Name == 's' ? "a.qvn" : "e.qvn", Start, Stop));
        gFile.Comment =
            "Rowed against a strong wind, which turned after a third of the distance; the stroke seat's oar "
            "was changed for a longer one before the start.";
        NotePages(Walking, std::string(Name) + " stored", ReportStored, 1);
        gFile.Crew[1].Name = "Alexandra Maximiliana of the Long Lake Rowing Club and its Neighbours";
        gFile.View3[1].ID = "A name of a curve that is much longer than its column in the table";
        gFile.View3[2].ID = std::string(90, 'W');
        gFile.Place = std::string(300, 'm') + " \xC3\xA4\xC3\xB6\xC3\xBC";
        gFile.Desc[1].Comment = "";
        NoteCorrections(Walking);
        SurfaceLog Picture(240, 160);
        DrawSamplePicture(Picture, OarCurves("S01"));
        Walking.NoteDrawing("picture", Picture);
        NotePages(Walking, std::string(Name) + " primary", ReportPrimary, 0);
        NotePages(Walking, std::string(Name) + " both", ReportStored | ReportPrimary, 1);
        gFile.View3[3].Arguments = "A1,Zz,Q7";
        gFile.View3[4].Oper = 99;
        NotePages(Walking, std::string(Name) + " typical", ReportTypical, 0);
        gFile.View3[4].Oper = OperPower;
        gFile.View3[6].MaxYPar = gFile.View3[7].MinYPar = 0; // lines of zero on the edges
        gFile.View3[6].MinYPar = -100;
        gFile.View3[7].MaxYPar = 100;
        gFile.View3[5].Mode = RowOverPosition;
        gFile.View3[5].Arguments = "Q8,H1,Q9";
        const RowArray<DataRow> Curves = gFile.Data;
        std::swap(gFile.Data[1], gFile.Data[2]);
        NotePages(Walking, std::string(Name) + " mixed", ReportStored, 1);
        gFile.Data.Clear();
        NotePages(Walking, std::string(Name) + " bare", ReportStored, 1);
        gFile.Data = Curves;
        cSwap Swap;
        Swap.What = "1";
        Swap.With = "2";
        Walking.Lines.push_back(Swap.Swap());
        Swap.What = "H1";
        Swap.With = "A1";
        Swap.AverTo = "S1";
        Walking.Lines.push_back(Swap.Average());
        Walking.Lines.push_back(Swap.OffScale('S', 1.5));
        SetSessID("elsewhere/other.txt", gFile);
        Walking.Lines.push_back(Swap.Save() ? "saved" : "not saved");
        Walking.Lines.push_back(Swap.Undo() && Swap.IsChanged() ? "taken back" : "stays");
        gCurFile.clear();
        Walking.Lines.push_back(Swap.Save() ? "saved" : "not saved");
        gFile.View3.Clear();
        gFile.Comment = gFile.Place = "";
        gFile.Crew.Clear();
        NotePages(Walking, std::string(Name) + " empty", ReportStored, 1);
        Walking.NoteTold();
        Walking.NoteFiles();
    }
    CheckGolden("whole-pages.txt", Walking.Lines);
}

TEST_CASE("derived variables of every operation and their axes are those of the golden list")
{
    Walk Walking;
    Walking.Run("sim single.txt --file=a.qvn --strokes=9 --seed=21 --rate=25");
    Walking.Run("process single.txt a.qvn");
    Walking.Open("single.txt");
    LoadSamplePattern(gFile.Desc[1]);
    ViewRow& Row3 = gFile.View3[1];
    ViewRow& Row4 = gFile.View4[1];
    cData04play Play;
    for (int16_t Oper = -1; Oper <= 14; ++Oper)
        for (const char* Arguments : {"A1,A1", "A1,H1,A1", "T1,S1,T1,H1,H2", "A1,A2,Acc,G1,G2", "None,V1,None,V2,Roll",
                                      "S1,Vs,Dist,Lat,Lon,In3", "Acc,AccZ,AccY", "", "A1"}) {
            Row3.Oper = Row4.Oper = Oper;
            Row3.Arguments = Row4.Arguments = Arguments;
            const std::string What = FormatNum(Oper, "0") + " " + Arguments;
            cData03report Plot; // taken twice: nothing of the first row stays
            for (const int16_t Mode : {RowOverPosition, RowOverArgument}) {
                Row3.Mode = Mode;
                NoteRow(Walking, What + " " + AxisText(QuantityX(Row3)) + " | " + AxisText(QuantityY(Row3)) + " |",
                        [&] {
                            Plot.InitViewID(1);
                            std::vector<double> All(Plot.Xs().begin(), Plot.Xs().end());
                            All.insert(All.end(), Plot.Ys().begin(), Plot.Ys().end());
                            return All;
                        });
            }
            NoteRow(Walking, What + " play", [&] {
                Play.InitViewID(1, PlayTypical, 1);
                return std::vector<double>(Play.Ys().begin(), Play.Ys().end());
            });
            LiveOper Live;
            Live.ArgCnt = 4;
            Live.HasSecond = Oper % 2 == 0;
            gDeltaT = 0.04;
            NoteRow(Walking, What + " live", [&] {
                std::vector<double> All;
                for (int i = 1; i <= 6; ++i) {
                    for (std::size_t k = 1; k <= 4; ++k)
                        Live.ArgVals[k] = std::sin(i * 1.3 + static_cast<double>(k));
                    Live.DoOper(Oper, i * i * 0.01);
                    All.push_back(Live.ArgVals[0]);
                }
                return All;
            });
        }
    for (const char* Key : {"MinX", "MaxX", "DelX", "MinY", "MaxY", "DelY", "MinZ", "AvgX", "Min", "MaxXY"})
        Walking.Lines.push_back(
            std::string(Key) + (IsRowFunction(Key) ? " is " : " is not ") +
            FormatGeneral(RowFunction(Key, std::array{3.0, -2.0, 7.5}, std::array{9.0, 4.0, 4.0}), 9));
    for (const int Points : {2, 3, 50})
        NoteRow(Walking, "integral", [&] {
            std::vector<double> In;
            for (int i = 0; i < Points; ++i)
                In.push_back(std::cos(i * 0.7) + 0.1 * i);
            return GetIntegral(In, 0.04);
        });
    CheckGolden("whole-derived.txt", Walking.Lines);
}

TEST_CASE("steps, numbers and cut curves of scales are those of the golden list")
{
    Walk Walking;
    for (const auto& [Low, High, Wanted] : {std::tuple{0.0, 1.0, 5},
                                            {-3.0, 7.0, 4},
                                            {100.0, -100.0, 8},
                                            {0.0, 0.004, 3},
                                            {1e6, 1.1e6, 6},
                                            {5.0, 5.0, 4},
                                            {-0.35, 0.349999, 7},
                                            {0.0, 1e-9, 4},
                                            {12.0, 19.0, 1},
                                            {0.0, 10.0, 10},
                                            {0.0, 50.0, 2}}) {
        std::string Line = FormatGeneral(NiceStep(High - Low, Wanted), 9) + ":";
        for (const double Each : Ticks(Low, High, Wanted))
            Line += " " + FormatGeneral(Each, 9) + " \"" + TickText(Each, NiceStep(High - Low, Wanted)) + "\"";
        Walking.Lines.push_back(Line);
    }
    SurfaceLog Surface(500, 500);
    const double None = std::nan("");
    for (const std::vector<SurfacePlace>& Curve : {std::vector<SurfacePlace>{{0, 0}, {500, 500}},
                                                   {{150, 150}, {250, 160}, {600, 170}, {250, 290}},
                                                   {{100, 50}, {100, 400}},
                                                   {{50, 100}, {450, 100}, {450, 300}, {50, 300}},
                                                   {{99, 0}, {99, 400}},
                                                   {{150, 150}, {None, 200}, {250, 250}, {260, 120}},
                                                   {{200, 200}},
                                                   {{0, 250}, {250, 0}, {500, 250}, {200, 500}}}) {
        DrawClipped(Surface, {100, 400, 100, 300}, Curve);
        Walking.NoteDrawing("curve", Surface);
    }
    for (const std::vector<double>& Y : {std::vector<double>{0}, {5, 5}, {0, 1e300}, {-3, 7, 2}}) {
        DrawSamplePicture(Surface, {{"1", Y, Y}, {"2", std::vector<double>(Y.size(), 20), Y}});
        Walking.NoteDrawing("picture", Surface);
    }
    for (const int32_t Colour : {0, 0xFFFFFF, 0x00FFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0x8080FF, 0x696969, 0x6A6A6A})
        Walking.Lines.push_back(FormatNum(PaperInk(Colour), "0"));
    CheckGolden("whole-scales.txt", Walking.Lines);
}
