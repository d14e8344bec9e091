// Shared parts of the channel indicators.
#include "calibration/mChanGrid.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"

#include <algorithm>
#include <cmath>

namespace {
// A colour's red, green and blue, each from 0 to 1.
using Parts = std::array<double, 3>;

Parts Split(int32_t Colour)
{
    return {(Colour & 255) / 255.0, ((Colour >> 8) & 255) / 255.0, ((Colour >> 16) & 255) / 255.0};
}

int32_t Join(const Parts& From)
{
    const auto Byte = [](double Part) { return static_cast<int32_t>(std::lround(Part * 255)); };
    return Byte(From[0]) | Byte(From[1]) << 8 | Byte(From[2]) << 16;
}

// Relative luminance of sRGB, 0 for black and 1 for white.
double Luminance(const Parts& Colour)
{
    constexpr Parts Weights = {0.2126, 0.7152, 0.0722};
    double Sum = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const double Part = Colour[i];
        Sum += Weights[i] * (Part <= 0.04045 ? Part / 12.92 : std::pow((Part + 0.055) / 1.055, 2.4));
    }
    return Sum;
}
} // namespace

double ScaleValue(int Line)
{
    return FullScale / ScaleLines * Line;
}

int32_t ChanColour(int Chan)
{
    return gRGB[static_cast<std::size_t>((Chan - 1) % 8 + 1)];
}

std::string ChanLabel(int Chan)
{
    const std::string Number = FormatNum(Chan, "0");
    return Chan <= gFile.Calibr.UBound() ? Number + " " + gFile.Calibr[Chan].ParamID : Number;
}

std::string ChanList()
{
    constexpr int InLine = 8;
    std::string Text;
    int Count = 0;
    for (int Chan = 1; Chan <= std::min(gFile.Calibr.UBound(), LastDataChan); ++Chan) {
        if (gFile.Calibr[Chan].ParamID.empty()) continue;
        Text += (Count == 0 ? "" : Count % InLine == 0 ? "\n" : ",  ") + ChanLabel(Chan);
        ++Count;
    }
    return Text;
}

// White has 5.5 times the light of the text, more than small print needs indoors.
int32_t Legible(int32_t Colour)
{
    Parts Dark = Split(Colour);
    while (1.05 / (Luminance(Dark) + 0.05) < 5.5)
        for (double& Part : Dark)
            Part *= 0.95;
    return Join(Dark);
}

int32_t Pale(int32_t Colour)
{
    Parts Light = Split(Colour);
    for (double& Part : Light)
        Part = 1 - (1 - Part) * 0.35;
    return Join(Light);
}

int32_t Place(double X)
{
    return static_cast<int32_t>(std::clamp(X, -16000.0, 16000.0));
}
