// Rows and head of a report.
#include "views/report/cReport.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "processing/mGlobFunc.h"
#include "processing/mNorm.h"
#include "processing/mOper.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>

namespace {
// The texts that are not empty, with Between between them.
std::string Joined(const std::vector<std::string>& Texts, const char* Between)
{
    std::string Whole;
    for (const std::string& Each : Texts)
        if (!Each.empty()) Whole += (Whole.empty() ? "" : Between) + Each;
    return Whole;
}

// In a sculling boat a rower has a row for each side. Lines break between rowers: blanks within a name do not part.
std::string CrewText()
{
    const std::string Blank = "\u00A0";
    std::set<std::pair<int, std::string>> Seats;
    for (const CrewRow& Rower : gFile.Crew)
        Seats.insert({Rower.Seat, Rower.Name});
    std::vector<std::string> Names;
    for (const auto& [Seat, Name] : Seats) {
        if (Name.empty()) continue;
        std::string Text = FormatNum(Seat, "0") + Blank;
        for (const char Letter : Name)
            Text += Letter == ' ' ? Blank : std::string(1, Letter);
        Names.push_back(Text);
    }
    return Joined(Names, (Blank + Blank + " ").c_str());
}

std::string NonZero(double X, const char* Pattern, const char* Unit)
{
    return X == 0 ? "" : FormatNum(X, Pattern) + Unit;
}

// Minutes and seconds.
std::string Duration(double Seconds)
{
    if (Seconds <= 0) return "";
    const double Tenths = RoundHalfEven(Seconds * 10); // before the minutes part: no 60.0 seconds
    return FormatNum(std::floor(Tenths / 600), "0") + ":" + FormatNum(std::fmod(Tenths, 600) / 10, "00.0");
}
} // namespace

std::string ValueText(const RowValue& Value)
{
    if (!IsRowFunction(Value.Key)) return "–";
    const double Size = std::abs(Value.Value);
    if (Size < 0.005) return "0.00"; // without a sign
    return FormatNum(Value.Value, Size < 10 ? "0.00" : Size < 100 ? "0.0" : "0");
}

std::string ValueUnit(const ReportLine& Line, const RowValue& Value)
{
    if (!IsRowFunction(Value.Key)) return "";
    return Value.Key.back() == 'X' ? Line.X.Unit : Line.Y.Unit;
}

void cReport::InitData(int Kind, int16_t Sample, int32_t First, int32_t Last)
{
    const DescRow& Desc = gFile.Desc[Sample];
    Notes.clear();
    PrimObjs.clear();
    NormObjs.clear();
    TimeStep = SafeDiv(60, Desc.Rate);
    if (Kind & ReportStored) {
        LoadSamplePattern(Desc);
        CheckColumns(Desc);
        Kind |= ReportTypical;
    }
    MakeHead(Desc, Kind, First, Last);
    if (gFile.View3.UBound() < 1) Notes.emplace_back("The session has no rows in its report view");
    if (Kind & ReportPrimary) MakeObjects(PrimObjs, ReportPrimary, First, Last);
    if (!(Kind & ReportTypical)) return;
    if (gNormAver2.ChannelUBound() < 1)
        Notes.emplace_back("There is no typical stroke to show");
    else
        MakeObjects(NormObjs, ReportTypical, 0, 0);
}

void cReport::MakeObjects(std::vector<cData03report>& Objs, int ObjKind, int32_t First, int32_t Last)
{
    for (int Row = 1; Row <= gFile.View3.UBound(); ++Row) {
        const std::string What = "Row " + FormatNum(Row, "0") + " (" + gFile.View3[Row].ID + ")";
        if (!HasArguments(What, gFile.View3[Row])) continue;
        cData03report Plot;
        const bool Success = Guard(What, Notes, [&] {
            Plot.InitViewID(Row, ObjKind, First, Last);
            return true;
        });
        if (!Success || !Plot.Visible()) continue;
        CheckArguments(What, Plot.Row());
        Objs.push_back(std::move(Plot));
    }
}

// A row without arguments is left out without a word: it names nothing to draw.
bool cReport::HasArguments(const std::string& What, const ViewRow& Row)
{
    const int ArgCnt = static_cast<int>(SplitStr(Row.Arguments).size()) - 1;
    const Operation* const Oper = FindOper(Row.Oper);
    if (!Oper || ArgCnt < 0 || ArgCnt >= Oper->ArgCnt) return true;
    Notes.push_back(What + ": the operation " + Oper->Title + " takes " + FormatNum(Oper->ArgCnt, "0") +
                    (Oper->ArgCnt == 1 ? " argument" : " arguments") + " behind the first, the row has " +
                    FormatNum(ArgCnt, "0"));
    return false;
}

// An argument without a channel counts as 0. The name None says that this is meant.
void cReport::CheckArguments(const std::string& What, const ViewRow& Row)
{
    const auto Names = SplitStr(Row.Arguments);
    for (std::size_t Arg = Row.Mode == RowOverArgument ? 0 : 1; Arg < Names.size(); ++Arg)
        if (!Names[Arg].empty() && Names[Arg] != "None" && FindChan(gFile.Calibr, Names[Arg]) < 1)
            Notes.push_back(What + ": the session has no channel " + Names[Arg] + ", which counts as 0 here");
}

// Columns are the sample's rows in their order, whatever they are called: where the session's channels have another
// order, a row shows another parameter than it names, and whoever reads the page has to know.
void cReport::CheckColumns(const DescRow& Sample)
{
    int Column = 0;
    for (const DataRow& Row : gFile.Data) {
        if (Row.SampleID != Sample.SampleID) continue;
        ++Column;
        const std::string Channel = Column <= gFile.Calibr.UBound() ? gFile.Calibr[Column].ParamID : "missing";
        if (Row.ParamID == Channel) continue;
        Notes.push_back("The sample's curves have another order than the session's channels: curve " +
                        FormatNum(Column, "0") + " is " + Row.ParamID + ", channel " + FormatNum(Column, "0") + " is " +
                        Channel + ". Rows may show other parameters than they name");
        return;
    }
}

void cReport::MakeHead(const DescRow& Sample, int Kind, int32_t First, int32_t Last)
{
    const bool IsStored = Kind & ReportStored;
    const bool IsTypical = Kind & ReportTypical;
    const std::string Stretch = "Samples " + FormatNum(First, "0") + " to " + FormatNum(Last, "0");
    const std::string File = std::filesystem::path(gRawFN).filename().string();
    Title = IsStored ? Sample.SampleID : (IsTypical ? "Typical stroke" : Stretch) + (File.empty() ? "" : " of " + File);
    Session = Joined({gFile.SessID, gFile.BoatType, gFile.Category, gFile.Place, FormatDate(gFile.SessDate),
                      gFile.Coach.empty() ? "" : "Coach " + gFile.Coach},
                     "  ·  ");
    Crew = CrewText();
    Comment = IsStored && !Sample.Comment.empty() ? Sample.Comment : gFile.Comment;
    const double Rate = IsTypical ? gRate : Sample.Rate;
    const std::vector<std::pair<std::string, std::string>> All = {
        {"Stroke rate", Rate == 0 ? "" : FormatNum(Rate, "0.0") + " /min"},
        {"Strokes", NonZero(IsStored    ? Sample.StrokeCount
                            : IsTypical ? gStrokeCnt
                                        : 0,
                            "0", "")},
        {"Stroke time", NonZero(SafeDiv(60, Rate), "0.00", " s")},
        {"Distance", NonZero(IsStored ? Sample.DistReal : 0, "0", " m")},
        {"Time", Duration(IsStored ? Sample.TimeReal : 0)},
    };
    Facts.clear();
    for (const auto& Each : All)
        if (!Each.second.empty()) Facts.push_back(Each);
}

void cReport::SetDrawScale(const PlotRect& Area, double Pixel)
{
    for (std::vector<cData03report>* Objs : {&NormObjs, &PrimObjs})
        for (cData03report& Plot : *Objs)
            Plot.SetScales(Area, Pixel);
}

void cReport::DrawData(iSurface& Surface) const
{
    for (const cData03report* Plot : Shown()) {
        constexpr std::size_t ManyDots = 2000;
        Surface.SetPen(PaperInk(Plot->Colour()), Plot->IsPrimary() && Plot->Xs().size() > ManyDots ? 1 : 2);
        if (Plot->IsPrimary())
            Plot->DrawDot(Surface);
        else
            Plot->DrawNorm(Surface);
    }
}

std::vector<const cData03report*> cReport::Shown() const
{
    std::vector<const cData03report*> Plots;
    for (const std::vector<cData03report>* Objs : {&NormObjs, &PrimObjs})
        for (const cData03report& Plot : *Objs)
            Plots.push_back(&Plot);
    return Plots;
}

std::vector<ReportLine> cReport::PrintReport() const
{
    std::vector<ReportLine> Lines;
    const Quantity Position = {"Point of the stroke", ""};
    for (const cData03report& Plot : NormObjs)
        if (auto Values = Plot.GetFuncs(); !Values.empty())
            Lines.push_back(
                {Plot.Row().ID, Plot.Row().Mode == RowOverPosition ? Position : Plot.X(), Plot.Y(), std::move(Values)});
    return Lines;
}
