// Measuring the frames' clock and asking which rate is meant.
#include "files/mFrameRate.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "files/mBinIO.h"
#include "platform/mHost.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {
constexpr std::size_t FramesLooked = 2000;
constexpr std::size_t FewestSteps = 20;
constexpr int16_t OldSlaveModel = 66;
constexpr double Tolerance = 0.02;

// The rate that was asked about last, and the setting that it was answered with.
std::pair<double, double> Answered{0, 0};

// Time between each two of the first frames, s; steps back and frames with one stamp are left out.
std::vector<double> ReadSteps(const std::string& Path)
{
    std::vector<double> Steps;
    RawFile File;
    if (!File.Open(Path)) return Steps;
    Stream Kept = NewStream();
    SampleVector Data{};
    std::optional<double> Before;
    while (Steps.size() < FramesLooked) {
        const auto Taken = File.Take();
        if (!Taken || !DecodeFrame(FrameSource::File, *Taken, Kept, Data)) break;
        if (Before && Data[0] > *Before) Steps.push_back(Data[0] - *Before);
        Before = Data[0];
    }
    return Steps;
}
} // namespace

// Stamps are whole milliseconds, so that steps of one rate differ by one: their mean is wanted. A gap of lost frames is
// twice as long or longer.
std::optional<double> FrameRate(const std::string& Path)
{
    if (gFile.Model == OldSlaveModel) return {};
    std::vector<double> Steps = ReadSteps(Path);
    if (Steps.size() < FewestSteps) return {};
    const auto Middle = Steps.begin() + static_cast<std::ptrdiff_t>(Steps.size() / 2);
    std::nth_element(Steps.begin(), Middle, Steps.end());
    const double Usual = *Middle;
    double Sum = 0, Count = 0;
    for (const double Step : Steps) {
        if (Step < Usual / 2 || Step > Usual * 1.5) continue;
        Sum += Step;
        ++Count;
    }
    return Count / Sum;
}

std::optional<double> SessionRate()
{
    if (!(gFile.TimeStep > 0)) return {};
    return 1 / gFile.TimeStep;
}

bool IsOffDataFreq(double Rate)
{
    return std::abs(Rate - gDataFreq) > Tolerance * Rate;
}

std::string RateText(double Rate)
{
    const double Whole = RoundHalfEven(Rate);
    if (Whole > 0 && std::abs(Rate - Whole) <= Whole / 500) return FormatShortest(Whole);
    return FormatShortest(RoundHalfEven(Rate * 100) / 100);
}

void AskDataFreq(double Rate, const std::string& Who)
{
    LoadSetting("gDataFreq");
    if (!IsOffDataFreq(Rate)) return;
    if (std::abs(Answered.first - Rate) <= Tolerance * Rate && Answered.second == gDataFreq) return;
    const std::string Answer =
        InputBox(Who + " at " + RateText(Rate) + " Hz, but the setting gDataFreq is " + FormatShortest(gDataFreq) +
                     " Hz, by which times are counted. Which rate is meant (Hz)?",
                 "Sampling frequency", RateText(Rate));
    const double Meant = Val(Answer);
    if (!Answer.empty() && (!(Meant > 0) || !IsValidFor(*FindSetting("gDataFreq"), Answer)))
        MsgBox("\"" + Answer + "\" is no sampling frequency: " + FormatShortest(gDataFreq) + " Hz is kept.",
               TitleWarning);
    else if (!Answer.empty()) {
        gDataFreq = Meant;
        SaveSetting("gDataFreq");
    }
    Answered = {Rate, gDataFreq};
}
