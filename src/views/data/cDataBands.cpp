// Scales of the bands, distance by the speed channel, rate by the stroke boundaries.
#include "views/data/cDataBands.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "processing/mProcess.h"
#include "views/mQuantity.h"

#include <algorithm>

std::vector<double> gDist;
int32_t gDistStart = 0;
int32_t gDistStop = 0;

namespace {
constexpr double MaxRate = 60; // of the rate's scale
} // namespace

void cDataBands::SetUp(double Height)
{
    Bands.clear();
    for (int Chan = 1; Chan <= std::min(gFile.Calibr.UBound(), gRaw.ChannelUBound()); ++Chan) {
        const CalibrRow& Row = gFile.Calibr[Chan];
        if (Row.Visible != 0) Bands.push_back({ViewBand::eKind::Channel, Chan, Row.Min, Row.Max});
    }
    for (const ViewBand::eKind Kind : Extra) {
        const bool IsRate = Kind == ViewBand::eKind::Rate;
        const double Max = IsRate ? MaxRate : *std::max_element(gDist.begin(), gDist.end());
        Bands.push_back({Kind, 0, 0, std::max(Max, 1e-9)});
    }
    const double B = SafeDiv(Height, static_cast<double>(Bands.size()));
    double k = 0;
    for (ViewBand& Band : Bands) {
        Band.Scale = SafeDiv(B, Band.Max - Band.Min);
        Band.Base = ++k * B;
        Band.Zero = Band.Scale * Band.Min + Band.Base;
    }
}

const ViewBand* cDataBands::At(double Y) const
{
    const auto Found = std::find_if(Bands.begin(), Bands.end(), [Y](const auto& Band) { return Y < Band.Base; });
    return Y < 0 || Found == Bands.end() ? nullptr : &*Found;
}

std::string cDataBands::Text(const ViewBand& Band, int32_t Sample)
{
    const bool HasSample = Sample >= 0 && Sample <= gRaw.UBound();
    switch (Band.Kind) {
    case ViewBand::eKind::Rate:
        return "Rate (1/min)";
    case ViewBand::eKind::Dist:
        return "Dist (m)" + (HasSample ? " = " + FormatNum(::At(gDist, Sample), "0.0") : std::string());
    case ViewBand::eKind::Channel:
        break;
    }
    const std::string& Name = gFile.Calibr[Band.Chan].ParamID;
    if (!HasSample) return Name;
    const std::string Unit = ChannelUnit(Name);
    return Name + " = " + FormatGeneral(gRaw(Band.Chan, Sample), 5) + (Unit.empty() ? "" : " " + Unit);
}

bool cDataBands::ShowDist(int32_t Start, int32_t Stop)
{
    gVChan = FindChan(gFile.Calibr, "Vs");
    if (gVChan < 1 || gVChan > gRaw.ChannelUBound()) {
        MsgBox("There is no distance without a channel \"Vs\", the boat's speed.", TitleInformation);
        return false;
    }
    const int32_t Last = gRaw.UBound();
    gDist.assign(static_cast<std::size_t>(Last + 1), 0);
    double Dist = 0;
    gDistStart = gDistStop = std::max(Start, 0);
    for (int32_t i = gDistStart; i <= std::min(Stop, Last - 1); ++i) {
        const double V = (gRaw(gVChan, i) + gRaw(gVChan, i + 1)) / 2;
        const double dT = gRaw(0, i + 1) - gRaw(0, i);
        if (dT <= 0) break;
        Dist += V * dT;
        gDist[static_cast<std::size_t>(i)] = Dist;
        gDistStop = i;
    }
    // No step follows the last sample: it has what was rowed up to it.
    if (gDistStop == Last - 1 && Stop >= Last) {
        gDistStop = Last;
        gDist.back() = Dist;
    }
    if (gDistStop < Stop)
        UpdateStatus("The times go back behind " + FormatNum(gRaw(0, gDistStop), "0.0") +
                     " s: the distance ends there");
    Extra.push_back(ViewBand::eKind::Dist);
    return true;
}

void cDataBands::ShowRate()
{
    RateArr.clear();
    int32_t Cur = 0;
    double Time = 0;
    KeyWindow Win = WindowAt(0);
    bool HasStroke = DetectCycle(Win, Cur, gRaw.UBound(), Time);
    while (HasStroke) {
        const int32_t Before = Cur;
        const double From = Time;
        HasStroke = DetectCycle(Win, Cur, gRaw.UBound(), Time);
        if (HasStroke) RateArr.push_back({(Before + Cur) / 2.0, SafeDiv(60, Time - From)});
    }
    Extra.push_back(ViewBand::eKind::Rate);
}

void cDataBands::DropExtra()
{
    Extra.clear();
    RateArr.clear();
    gDist.clear();
}
