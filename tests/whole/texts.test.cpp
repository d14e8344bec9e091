// Numbers, fields, settings, ini files, tables of targets and of calibrations: what is read of odd texts, and what is
// written of odd values.
#include "whole/Walk.h"

#include "acquisition/cLinkWatch.h"
#include "acquisition/mLoggerCommands.h"
#include "base/mCodePage.h"
#include "calibration/mRawCal.h"
#include "core/mFields.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "processing/mGlobFunc.h"
#include "processing/mPhysVal.h"
#include "processing/mProcFuncs.h"
#include "processing/mRefTable.h"
#include "processing/mRefZero.h"
#include "records/mGridSteps.h"
#include "records/mSessName.h"
#include "records/mTargets.h"
#include "records/mTemplates.h"
#include "views/data/mViewLoad.h"

#include <limits>

namespace {
constexpr double Odd[] = {0,       -0.0,     1,      -1,     0.5,    1.5,       2.5,       -2.5,  0.05, 0.005,
                          0.00049, 9.995,    99.995, 999.5,  9999.5, 12345.678, -12345.67, 1e6,   1e15, 123456e9,
                          1e22,    -3.25e-7, 1e300,  0.0625, 0.3,    2.0 / 3.0, -0.004,    59.95, 4096, -0.35};

const char* const Words[] = {"",      " ",     "1",    " 1",   "+1",         "-1.5e3",   "1e",
                             "2e+",   ".5",    "5.",   ".",    "1,5",        "0x10",     "1d5",
                             "12ab",  "1e400", "nan",  "inf",  "--1",        "1 2",      "\t3",
                             "70000", "-1e9",  "1e39", "true", "-1",         "a\"b\"",   " Name  x ",
                             "32767", "32768", "0.5",  "1.5",  "2147483648", "14/05/25", "tab\tand\nend"};

template <class Row>
void NoteFields(Walk& Walking, std::span<const Field<Row>> Columns)
{
    for (const Field<Row>& Column : Columns) {
        Row Target;
        std::string Line = Column.Name + std::string(":");
        for (const char* Text : Words) {
            SetField(Target, Column, Text);
            Line += " ";
            AppendField(Line, Target, Column);
        }
        Walking.Lines.push_back(Line);
    }
}
} // namespace

TEST_CASE("numbers, dates and fields are read and written as in the golden list")
{
    Walk Walking;
    for (const double X : Odd) {
        std::string Line = FormatGeneral(X, 17) + ":";
        for (const char* Pattern : {"0", "00", "000", "0.0", "0.00", "00.000", "0.000000", "0.", "0.0%", "0%", ""})
            Line += " " + FormatNum(X, Pattern);
        Line += " |";
        for (const int Places : {1, 2, 6, 9})
            Line += " " + FormatSig(X, Places) + " " + FormatGeneral(X, Places);
        Line += " | " + FormatSig6(X) + " " + FormatShortest(X) + " " + FormatShortest(static_cast<float>(X)) + " " +
                FormatNum(RoundWithin(X, -100, 1000), "0") + " " + FormatBool(X > 1) + " ";
        AppendFixed(Line, X, 3, 2);
        Walking.Lines.push_back(Line);
    }
    for (const char* Text : Words)
        Walking.Lines.push_back(std::string(Text) + ": " + FormatShortest(Val(Text)) +
                                (LeadingNumber(Text) ? " is" : " is not"));
    for (const char* Text : {"14/05/25",    "1/1/00",   "31/12/29", "01/01/30",   "29/02/24",   "29/02/23",  "32/01/20",
                             "31/04/20",    "12/13/20", "14.05.25", "14/05/1925", " 14/05/25 ", "",          "a/b/c",
                             "1/2",         "1/2/3/4",  "1/1/",     "1/1/2x",     "/1/1",       "-1/1/20",   "1//20",
                             "99/99/99999", "0/1/20",   "1/0/20",   "29/02/00",   "1/1/99",     "29/2/1900", "1/1/100"})
        Walking.Lines.push_back(std::string(Text) + ": " + FormatShortest(ParseDate(Text).value_or(-1e6)));
    std::string Dates;
    for (const double Days : {-400.0, -1.0, 0.0, 1.0, 2.0, 59.0, 60.0, 61.0, 366.0, 36525.0, 36584.0, 45000.75, 1e9})
        Dates += FormatDate(Days) + " ";
    for (const auto& [Year, Month, Day] :
         {std::tuple{2024, 2, 29}, {2023, 2, 29}, {1900, 3, 1}, {2000, 12, 31}, {1, 1, 1}})
        Dates += FormatShortest(DateFromCalendar(Year, Month, Day).value_or(-1e6)) + " ";
    Walking.Lines.push_back(Dates);
    NoteFields(Walking, MainFields());
    NoteFields(Walking, SessHeadFields());
    NoteFields(Walking, SessTailFields());
    NoteFields(Walking, CrewFields());
    NoteFields(Walking, CalibrFields());
    NoteFields(Walking, ViewFields());
    NoteFields(Walking, BoatFields());
    NoteFields(Walking, DescFields());
    NoteFields(Walking, DataFields());
    NoteFields(Walking, DotFields());
    NoteFields(Walking, SegFields());
    NoteFields(Walking, VideoIDFields());
    CheckGolden("whole-texts.txt", Walking.Lines);
}

TEST_CASE("code pages turn bytes into characters and back as in the golden list")
{
    Walk Walking;
    const auto Codes = [](const std::string& Text) {
        std::string Line;
        for (const char Each : Text)
            Line += " " + FormatNum(static_cast<unsigned char>(Each), "0");
        return Line;
    };
    for (const LegacyPage Page : {LegacyPage::Latin, LegacyPage::Cyrillic}) {
        for (int Byte = 128; Byte < 256; Byte += 8) {
            std::string Bytes;
            for (int k = 0; k < 8; ++k)
                Bytes += static_cast<char>(Byte + k);
            TextEncoding Encoding{};
            const std::string Text = DecodeText(Bytes + "x", Encoding, Page);
            Walking.Lines.push_back(FormatNum(static_cast<int>(Encoding), "0") + Codes(Text) + " |" +
                                    Codes(EncodeText(Text, TextEncoding::Legacy, Page)));
        }
        for (const char* Bytes : {"plain", "\xC3\xA4", "\xC3", "\xC3(", "\xE2\x82\xAC", "\xE2\x82", "\xF0\x9F\x9A\xA3",
                                  "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xD0\x96", "\xE4\xC3\xA4",
                                  "\xEF\xBB\xBF"
                                  "a",
                                  "\xC2\x80"})
            for (const TextEncoding Wanted : {TextEncoding::Ascii, TextEncoding::Legacy, TextEncoding::Utf8}) {
                TextEncoding Encoding{};
                const std::string Text = DecodeText(Bytes, Encoding, Page);
                Walking.Lines.push_back(FormatNum(static_cast<int>(Encoding), "0") + Codes(Text) + " |" +
                                        Codes(EncodeText(Text, Wanted, Page)) + " |" +
                                        Codes(EncodeText(Bytes, Wanted, Page)));
            }
    }
    CheckGolden("whole-bytes.txt", Walking.Lines);
}

TEST_CASE("settings, the ini file and targets take and give odd texts as in the golden list")
{
    Walk Walking;
    Walking.Open("single.txt");
    for (const char* Key :
         {"gKeyMode", "gDataFreq", "StdFilter", "gQVNbauds", "ToolBar", "gTCPaddress", "gSplitsArr03", "RGBArr02"}) {
        const Setting& Each = *FindSetting(Key); // of every type
        std::string Line = Each.Section + " " + Each.Key + ":";
        for (const char* Text : Words) {
            Line += IsValidFor(Each, Text) ? " +" : " -";
            Walking.Settings.SaveSetting(Each.Section, Each.Key, Text);
            LoadSetting(Each.Key);
            SaveSetting(Each.Key);
            Line += Walking.Settings.GetSetting(Each.Section, Each.Key).value_or("(none)");
        }
        Walking.Lines.push_back(Line);
    }
    Walking.Open("single.txt");
    gAppDir = "./";
    std::string Ini = "No key\r\nOther=7\r\nSysID=abc=def\r\nCalibrSens=\r\n-1\tForce\t3\t-1.5\t0.25\t19\r\n0\tx";
    for (int i = 0; i < 6; ++i)
        Ini += "\r\n-1\tMore\t" + FormatNum(i, "0") + "\t1\t2\t" + FormatNum(20 - i, "0");
    ParseIni(Ini + "\r\nEnd\r\nLink Port=x\r\nCOM port=/dev/tty9\r\nLeft=1e50\r\nTop=-3.5\r\nIsSound=-1\r\nIsGrid=0");
    SelectCalibrSens(19);
    for (const std::string& Line : LinesOf(IniText()))
        Walking.Lines.push_back(Line);
    ParseIni("COM port=4\nIsCurves=2\nIsValue=0\nAutoCalCh=99999\nAutoCalQ0=x\nLink Port=65536\nWidth=\n");
    SelectCalibrSens(77);
    for (const std::string& Line : LinesOf(IniText()))
        Walking.Lines.push_back(Line);
    for (const char* Category : {"M", "W", "X"}) {
        gFile.Sex = Category;
        for (const char* On : {"0", "1"}) {
            Walking.Settings.SaveSetting("Models", "gIsTargVals", "1");
            Walking.Settings.SaveSetting("Models", "gIsTargCurves", On);
            if (*Category == 'X') std::filesystem::remove("Curves.ini");
            InitTargets();
            std::string Line = FormatNum(gIsTargVals, "0") + FormatNum(gIsTargCurves, "0");
            for (const double X : gTarget.Values)
                Line += " " + FormatShortest(X);
            for (const CurveRow& Each : gCurves)
                Line += " " + Each.Name + FormatNum(static_cast<double>(Each.Values.size()), "0");
            Walking.Lines.push_back(Line + " " + TargetChoice(TargetsToGrid()));
            Walking.NoteTold();
        }
    }
    cGrid Grid = TargetsToGrid();
    Walking.Lines.push_back(FormatNum(Grid.Current(), "0") + " of " + FormatNum(Grid.RowCount(), "0"));
    const auto Taken = [&](int Column, std::string Text) { return Grid.Take(Column, Text, eFrom::Typed) + Text; };
    for (const char* Text : Words)
        Walking.Lines.push_back(Taken(0, Text) + "|" + Taken(5, Text) + "|" + Taken(6, Text));
    Grid.Do(InsertRow(Grid, Grid.RowCount() - 1));
    Grid.Do(ChangeCells(Grid, {{Grid.Current(), 0, "Copy"}}));
    Grid.Do(DeleteRows(Grid, {1}));
    Walking.Lines.push_back(StoreTargets(Grid) ? "stored" : "not stored");
    Grid.Do(ChangeCells(Grid, {{2, 0, "Endless"}}));
    Walking.Lines.push_back(StoreTargets(Grid) ? "stored" : "not stored");
    gCurFile.clear();
    Walking.Lines.push_back(TargetChoice(Grid));
    Walking.NoteTold();
    Walking.NoteFiles();
    CheckGolden("whole-settings.txt", Walking.Lines);
}

TEST_CASE("calibrations turn counts into values as in the golden list")
{
    Walk Walking;
    Walking.Open("single.txt");
    const double Counts[] = {0, 100, 900, 1000, 1001, 995, 4000, 8000, 7000, 7000, 9000, 16383, 20000, -5};
    for (const bool IsFalling : {false, true}) {
        RefTable Table;
        Table.Cnt = 20;
        Table.Name = "T";
        for (std::size_t i = 0; i <= 20; ++i) {
            const double P = static_cast<double>(IsFalling ? 20 - i : i);
            Table.N[i] = 7;
            Table.X[i] = 1000 + 400 * P + 3 * P * P;
            Table.Y[i] = -50 + 5 * static_cast<double>(i);
        }
        REQUIRE(WriteRefTable(IsFalling ? "FALL.ref" : "RISE.ref", Table));
    }
    for (int16_t Mode = 0; Mode <= 5; ++Mode)
        for (const char* Sensor : {"RISE", "FALL"})
            for (int16_t Side = -1; Side <= 5; ++Side) {
                CalibrRow& Row = gFile.Calibr[19];
                Row.ProcMode = Mode;
                Row.Side = Side;
                Row.SensorID = Sensor;
                Row.Q2 = 1e-6;
                Row.Threshold = 3;
                Row.Qup0 = -10;
                Row.Qup1 = 0.01;
                Row.Qup2 = 1e-7;
                Row.Qdn0 = -12;
                Row.Qdn1 = 0.011;
                Row.Qdn2 = -1e-7;
                Row.Log0 = Side == 0 ? 0 : 3000;
                if (Mode == ApproxRefTable)
                    LoadRefTables();
                else if (Side > 1 || *Sensor == 'F')
                    continue;
                double Prev = 0;
                std::string Line = FormatNum(Mode, "0") + " " + Sensor + FormatNum(Side, "0") + ":";
                for (const double Count : Counts)
                    Line += " " + FormatGeneral(CalcPhysVal(19, Count, Prev), 9);
                std::vector<double> Run(std::begin(Counts), std::end(Counts));
                Prev = 8000;
                CalcPhysVals(19, Run, Prev);
                for (const double Value : Run)
                    Line += " " + FormatGeneral(Value, 9);
                Walking.Lines.push_back(Line + " " + FormatGeneral(Row.Min, 9) + " " + FormatGeneral(Row.Max, 9));
            }
    for (const double Number : {0.0, 0.5, 0.6, gRefCnt - 0.4, gRefCnt * 1.0, gRefCnt + 0.4, gRefCnt + 0.6, 99.0}) {
        CalibrRow& Row = gFile.Calibr[19];
        Row.Threshold = Number;
        Row.Side = SideRight;
        Row.Log0 += 500;
        ZeroRefTable(19);
        Walking.Lines.push_back(FormatGeneral(Row.Min, 9) + " " + FormatGeneral(Row.Max, 9));
    }
    for (const char* Text :
         {"", "x\n3\tName\n\n0\t1\t2\t3\n1\t1\t4\t9\n2\tx\t1\n", "x\ny\n", "x\n900\tLong\r\nh\n0\t1\t2\t3",
          "x\n-4\tN\nh\n0\t1\t2\t3\n1\t1\t3\t4\n", "x\n1\tN\nh\n0\t1\t2\t3\n1\t1\t3\t4\n2\t1\t5\t5\n"}) {
        RefTable Table;
        const bool Is = ParseRefTable(Text, Table);
        Walking.Lines.push_back(Is ? RefTableText(Table) : "no table");
    }
    for (const char* Bytes :
         {"", "Raw Calibration Data\r\n", "Raw Calibration Data\n\t19\t\t\t\t\t\t1.5\t\t-2\t\t0.9\t\t\t\tS\n",
          "Raw Calibration Data\nd\t99\n0\t1\t2\t\n1\t3\n2\t5\t6\t7\nx\n\n", "Raw Calibration Data\nd\t-1\n0\t1\t2"}) {
        int Bad = 0;
        const auto Data = ParseRawCal(Bytes, Bad);
        std::string Line =
            FormatNum(Bad, "0") + (Data ? " " + FormatNum(Data->Chan, "0") + " " + Data->SensID : " none");
        for (const CalPoint& Each : Data ? Data->Points : CalPoints{})
            Line += " " + FormatShortest(Each.L) + ":" + FormatShortest(Each.P);
        if (Data) Line += " " + FormatShortest(Data->Line.Q0) + " " + FormatShortest(Data->Line.Q1);
        Walking.Lines.push_back(Line);
    }
    Walking.NoteTold();
    CheckGolden("whole-counts.txt", Walking.Lines);
}

TEST_CASE("fits, lists and the words about the link are those of the golden list")
{
    Walk Walking;
    const std::vector<double> X = {-2, -1.5, 0, 0.25, 1, 3, 3, 7, 9, 12}, Y = {4, 3, 1, 2.5, 7, 8, 9, 30, 52, 71};
    const auto Note = [&](std::string Line, std::span<const double> Values) {
        for (const double Value : Values)
            Line += " " + Rounded(Value, 8);
        Walking.Lines.push_back(Line);
    };
    for (int16_t Degree = -1; Degree <= 11; ++Degree)
        for (const std::size_t Points : {0U, 1U, 4U, 10U}) {
            int16_t Made = Degree;
            double Sigma = -1;
            std::vector<double> Coef;
            const bool Is = PolyFit(std::span(X).first(Points), std::span(Y).first(Points), Made, Sigma, Coef);
            Note(FormatNum(Degree, "0") + (Is ? " gives " : " fails ") + FormatNum(Made, "0") + " " + Rounded(Sigma, 6),
                 Coef);
            if (Coef.size() < 2 || Coef.size() > 4) continue;
            Note("derivatives", PolyDeriv7(Coef, 1.5, 0.25));
            Note("value", std::array{PolyVal(Coef, 1.5), PolyFitAt(X, Y, 2.5)});
        }
    for (const eRegress Type : {eRegress::Linear, eRegress::Logarithmic, eRegress::Exponential})
        for (const std::size_t From : {0U, 3U, 9U})
            if (const auto Found = Regress2(Type, std::span(X).subspan(From), std::span(Y).subspan(From)))
                Note("regression", std::array{Found->A, Found->B});
    for (const char* Text : {"", "a", "a,b", ",", "1, 2,x,-3.5", "a,,b,"}) {
        std::string Line;
        for (const std::string& Word : SplitStr(Text))
            Line += "[" + Word + "]";
        Note(Line + std::string(LeftPart(Text, 2)), SplitNum(Text));
    }
    for (const char* Kind : {"MIN", "MAX", "ANY"})
        Note(Kind, std::array{ArrMinMax(X, Kind), ArrMinMax(std::array{3e9, -3e9}, Kind), ArrMinMax({}, Kind)});
    cLinkWatch Watch;
    int64_t Now = 0;
    Watch.OnChange = [&](const std::string& News) {
        Walking.Lines.push_back(FormatNum(static_cast<double>(Now), "0") + " " + News);
    };
    Watch.Reopen = [&] {
        Walking.Lines.push_back(FormatNum(static_cast<double>(Now), "0") + " reopen"), Watch.StillLost(Now);
    };
    Watch.TryBeside = [&] { Walking.Lines.push_back(FormatNum(static_cast<double>(Now), "0") + " beside"); };
    const std::tuple<int64_t, std::function<void()>> Events[] = {{0, [&] { Watch.Tick(Now); }},
                                                                 {50, [&] { Watch.Connecting("logger", Now); }},
                                                                 {6000, [&] { Watch.Opened("logger", Now); }},
                                                                 {6100, [&] { Watch.FrameCame(Now); }},
                                                                 {13000, [&] { Watch.FrameCame(Now); }},
                                                                 {13500, [&] { Watch.Lost("cut", Now); }},
                                                                 {14000, [&] { Watch.Lost("cut", Now); }},
                                                                 {15000, [&] { Watch.Lost("refused", Now); }},
                                                                 {15900, [&] { Watch.Opened("logger", Now); }},
                                                                 {24000, [&] { Watch.Replaced(Now); }},
                                                                 {45000, [&] { Watch.Restarted(); }},
                                                                 {45100, [&] { Watch.Closed(); }},
                                                                 {45200, [&] { Watch.Lost("late", Now); }},
                                                                 {46000, [&] { Watch.Opened("port", Now); }},
                                                                 {46100, [&] { Watch.Replaced(Now); }},
                                                                 {46200, [&] { Watch.Replaced(Now); }},
                                                                 {46300, [&] { Watch.Replaced(Now); }},
                                                                 {46400, [&] { Watch.Replaced(Now); }},
                                                                 {83000, [&] { Watch.Closed(); }}};
    for (const auto& [Time, Event] : Events) {
        for (; Now < Time; Now += 50)
            Watch.Tick(Now);
        Event();
        Walking.Lines.push_back(FormatNum(static_cast<double>(Now), "0") + " " + Watch.Words(Now) +
                                (Watch.IsSilent() ? " silent" : ""));
    }
    CheckGolden("whole-fits.txt", Walking.Lines);
}

TEST_CASE("templates give the sessions, and names the reasons, of the golden list")
{
    Walk Walking;
    Walking.Open("eight.txt");
    for (const SessionTemplate& Each : FindTemplates({SOURCE_FOLDER "/templates"}).Templates) {
        DataFile File = gFile;
        File.Model = File.SlaveCnt = File.SlaveChans = 99;
        File.KeyMode = 7;
        File.KeyThres = 7;
        File.KeyChanID = "Zz";
        File.Signed = !Each.Setup.Signed;
        ApplyTemplate(Each, File);
        Walking.Lines.push_back("> " + Each.Name + " " + Shortened(TemplateText(Each), ' '));
        for (const std::string& Line : Digest(LinesOf(DataFileText(File, SectionFilter::Any)), '\t', 8))
            Walking.Lines.push_back(Line);
    }
    for (int Byte = 1; Byte < 256; ++Byte)
        if (const std::string Reason = WhyNoTitle(std::string("a") + static_cast<char>(Byte)); !Reason.empty())
            Walking.Lines.push_back(FormatNum(Byte, "0") + " " + Reason);
    for (const std::size_t Length : {0U, 1U, 199U, 200U, 201U})
        Walking.Lines.push_back(FormatNum(static_cast<double>(Length), "0") + " " +
                                WhyNoTitle(std::string(Length, 'x')));
    for (const double Step : {0.0, -1.0, 0.04, 0.0403, 0.0405, 0.0397, 0.0395, 0.02}) {
        gFile.TimeStep = Step;
        Walking.Lines.push_back(FrequencyNote());
    }
    for (int Setting = 0; Setting < LoggerSettingCnt; ++Setting) {
        const auto Which = static_cast<eLoggerSetting>(Setting);
        for (int Choice = 0; const LoggerChoice& Each : SettingOf(Which).Choices) {
            StoreChoice(Which, Choice);
            Walking.Lines.push_back(std::string(Each.Control) + " " + Each.Caption + " " + CommandFor(Which, Choice) +
                                    " " + FormatNum(Each.Stored, "0") + " " +
                                    FormatNum(ChoiceOf(Which, Each.Value), "0") + " " +
                                    FormatNum(StoredChoice(Which), "0") + (IsStored(Which, Choice) ? " stored" : ""));
            ++Choice;
        }
    }
    gFile.Calibr[gFile.Calibr.UBound()].ParamID = "Last";
    for (const char* Name : {"A1", "Last", "Zz"}) {
        gFile.KeyChanID = Name;
        ResolveChannels();
        Walking.Lines.push_back(FormatNum(gKeyChan, "0") + " " + FormatShortest(gKeyQ1));
    }
    CheckGolden("whole-templates.txt", Walking.Lines);
}
