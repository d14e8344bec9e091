// Mapping between samples and places, zoom, and the bands with what is computed for them.
#include "views/data/cDataView.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "processing/mProcess.h"
#include "views/mQuantity.h"

#include <algorithm>
#include <cmath>

std::vector<double> gDist;
int32_t gDistStart = 0;
int32_t gDistStop = 0;

namespace {
constexpr double MarginShare = 0.03; // of the width, left of the curves
constexpr double TimesHeight = 36;   // below the bands
constexpr double MaxRate = 60;       // of the rate's scale

double Single(double X)
{
    return static_cast<double>(static_cast<float>(X));
}
} // namespace

int32_t cDataView::LastSample()
{
    return gRaw.UBound();
}

bool cDataView::ZoomOut()
{
    if (gXScale >= MaxXScale) return false;
    gXScale = static_cast<int16_t>(gXScale * 2);
    SaveSetting("gXScale");
    return true;
}

bool cDataView::ZoomIn()
{
    if (gXScale < 2) return false;
    gXScale = static_cast<int16_t>(gXScale / 2);
    SaveSetting("gXScale");
    return true;
}

bool cDataView::ZoomAt(double X, bool IsIn)
{
    const int32_t Sample = RawXtoLog(X);
    if (!(IsIn ? ZoomIn() : ZoomOut())) return false;
    ScrollTo(Sample - PointAt(X) * gXScale);
    return true;
}

void cDataView::MoveView(double Frac)
{
    ScrollTo(FirstSample + std::trunc(Frac * Steps) * gXScale);
}

void cDataView::ScrollTo(double Sample)
{
    FirstSample = static_cast<int32_t>(std::clamp<double>(std::trunc(Sample), 0, std::max(LastSample(), 0)));
}

void cDataView::Scroll(int Value)
{
    ScrollTo(static_cast<double>(Value) / ScrollMax * LastSample());
}

int cDataView::ScrollValue() const
{
    return static_cast<int>(RoundHalfEven(SafeDiv(static_cast<double>(FirstSample) * ScrollMax, LastSample())));
}

int cDataView::ScrollPage()
{
    const double Page = ScrollMax * SafeDiv(static_cast<double>(gXScale) * Steps, LastSample());
    return static_cast<int>(std::clamp(Page, 1.0, static_cast<double>(ScrollMax)));
}

void cDataView::ScrollToEnd()
{
    ScrollTo(LastSample() - static_cast<double>(gXScale) * Steps);
}

bool cDataView::Select(double X1, double X2)
{
    const auto Within = [](int32_t Sample) { return std::clamp(Sample, 0, std::max(LastSample(), 0)); };
    const int32_t From = Within(RawXtoLog(std::min(X1, X2))), To = Within(RawXtoLog(std::max(X1, X2)));
    if (From == To) return false;
    SelStart = From;
    SelStop = To;
    return true;
}

bool cDataView::SetCursor(double X)
{
    const int32_t Sample = RawXtoLog(X);
    if (Sample < 0 || Sample > LastSample()) return false;
    Cursor = Sample;
    return true;
}

void cDataView::MoveCursor(int Points)
{
    const int32_t Last = std::max(LastSample(), 0);
    const int32_t From = Cursor < 0 ? FirstSample + Steps / 2 * gXScale : Cursor;
    Cursor = std::clamp(From + Points * gXScale, 0, Last);
    if (Cursor < FirstSample || Cursor > FirstSample + Steps * gXScale) ScrollTo(Cursor - Steps / 2.0 * gXScale);
}

std::string cDataView::PointerText(double X, double Y) const
{
    const int32_t Sample = RawXtoLog(X);
    const ViewBand* Band = BandAt(Y);
    if (!Band || X < MarginX || Sample < 0 || Sample > LastSample()) return {};
    return BandText(*Band, Sample) + "  at " + FormatNum(gRaw(0, Sample), "0.00") + " s";
}

void cDataView::Clip()
{
    const int32_t Last = std::max(LastSample(), 0);
    SelStart = std::clamp(SelStart, 0, Last);
    SelStop = std::clamp(SelStop, 0, Last);
    if (Cursor > Last) Cursor = -1;
    FirstSample = std::clamp(FirstSample, 0, Last);
}

double cDataView::PointX(int k) const
{
    return MarginX + std::trunc(Single(k * StepX));
}

double cDataView::PointAt(double X) const
{
    return std::trunc(Single((X - MarginX) / StepX));
}

int32_t cDataView::RawXtoLog(double X) const
{
    return static_cast<int32_t>(gXScale * PointAt(X)) + FirstSample;
}

double cDataView::LogToX(double Sample) const
{
    return MarginX + (Sample - FirstSample) / gXScale * StepX;
}

void cDataView::AddBand(ViewBand::eKind Kind, int Chan, double Min, double Max)
{
    BandArr.push_back({Kind, Chan, Min, Max});
}

void cDataView::SetUpPoly()
{
    const SurfacePoint Size = Surface.Size();
    MarginX = Single(MarginShare * Size.X);
    StepX = Single(std::max((Size.X - MarginX) / Steps, 1e-3));
    BandArr.clear();
    for (int Chan = 1; Chan <= std::min(gFile.Calibr.UBound(), gRaw.ChannelUBound()); ++Chan) {
        const CalibrRow& Row = gFile.Calibr[Chan];
        if (Row.Visible != 0) AddBand(ViewBand::eKind::Channel, Chan, Row.Min, Row.Max);
    }
    for (const ViewBand::eKind Kind : Extra) {
        const bool IsRate = Kind == ViewBand::eKind::Rate;
        const double Max = IsRate ? MaxRate : *std::max_element(gDist.begin(), gDist.end());
        AddBand(Kind, 0, 0, std::max(Max, 1e-9));
    }
    Height = std::max(Size.Y - TimesHeight, 1.0);
    const double B = SafeDiv(Height, static_cast<double>(BandArr.size()));
    double k = 0;
    for (ViewBand& Band : BandArr) {
        Band.Scale = SafeDiv(B, Band.Max - Band.Min);
        Band.Base = ++k * B;
        Band.Zero = Band.Scale * Band.Min + Band.Base;
    }
}

const ViewBand* cDataView::BandAt(double Y) const
{
    const auto Found = std::find_if(BandArr.begin(), BandArr.end(), [Y](const auto& Band) { return Y < Band.Base; });
    return Y < 0 || Found == BandArr.end() ? nullptr : &*Found;
}

std::string cDataView::BandText(const ViewBand& Band, int32_t Sample)
{
    const bool HasSample = Sample >= 0 && Sample <= LastSample();
    switch (Band.Kind) {
    case ViewBand::eKind::Rate:
        return "Rate (1/min)";
    case ViewBand::eKind::Dist:
        return "Dist (m)" + (HasSample ? " = " + FormatNum(At(gDist, Sample), "0.0") : std::string());
    case ViewBand::eKind::Channel:
        break;
    }
    const std::string& Name = gFile.Calibr[Band.Chan].ParamID;
    if (!HasSample) return Name;
    const std::string Unit = ChannelUnit(Name);
    return Name + " = " + FormatGeneral(gRaw(Band.Chan, Sample), 5) + (Unit.empty() ? "" : " " + Unit);
}

bool cDataView::ShowDist()
{
    gVChan = FindChan(gFile.Calibr, "Vs");
    if (gVChan < 1 || gVChan > gRaw.ChannelUBound()) {
        MsgBox("There is no distance without a channel \"Vs\", the boat's speed.", TitleInformation);
        return false;
    }
    EndSelection();
    gDist.assign(static_cast<std::size_t>(LastSample() + 1), 0);
    double Dist = 0;
    gDistStart = gDistStop = std::max(SelStart, 0);
    for (int32_t i = gDistStart; i <= std::min(SelStop, LastSample() - 1); ++i) {
        const double V = (gRaw(gVChan, i) + gRaw(gVChan, i + 1)) / 2;
        const double dT = gRaw(0, i + 1) - gRaw(0, i);
        if (dT <= 0) break;
        Dist += V * dT;
        gDist[static_cast<std::size_t>(i)] = Dist;
        gDistStop = i;
    }
    // No step follows the last sample: it has what was rowed up to it.
    if (gDistStop == LastSample() - 1 && SelStop >= LastSample()) {
        gDistStop = LastSample();
        gDist.back() = Dist;
    }
    if (gDistStop < SelStop)
        UpdateStatus("The times go back behind " + FormatNum(gRaw(0, gDistStop), "0.0") +
                     " s: the distance ends there");
    Extra.push_back(ViewBand::eKind::Dist);
    return true;
}

void cDataView::ShowRate()
{
    RateArr.clear();
    int32_t Cur = 0;
    double Time = 0;
    KeyWindow Win = WindowAt(0);
    bool HasStroke = DetectCycle(Win, Cur, LastSample(), Time);
    while (HasStroke) {
        const int32_t Before = Cur;
        const double From = Time;
        HasStroke = DetectCycle(Win, Cur, LastSample(), Time);
        if (HasStroke) RateArr.push_back({(Before + Cur) / 2.0, SafeDiv(60, Time - From)});
    }
    Extra.push_back(ViewBand::eKind::Rate);
}

void cDataView::DropExtraBands()
{
    Extra.clear();
    RateArr.clear();
    gDist.clear();
}
