// Colours and argument channels of derived variables.
#include "processing/mViewRow.h"

#include "base/mNumText.h"
#include "core/mSettings.h"

int32_t RowColour(const ViewRow& Row)
{
    const int Colours = static_cast<int>(gRGB.size()) - 1;
    const int Index = (Row.Color - 1) % Colours + 1;
    return Index < 0 ? 0 : gRGB[static_cast<std::size_t>(Index)];
}

int32_t PaperInk(int32_t Colour)
{
    constexpr double Lightest = 105; // of 255
    const double Parts[] = {0.3 * (Colour & 255), 0.59 * ((Colour >> 8) & 255), 0.11 * ((Colour >> 16) & 255)};
    const double Light = Parts[0] + Parts[1] + Parts[2];
    if (Light <= Lightest) return Colour;
    int32_t Ink = 0;
    for (const int Shift : {0, 8, 16})
        Ink |= static_cast<int32_t>(RoundHalfEven(((Colour >> Shift) & 255) * Lightest / Light)) << Shift;
    return Ink;
}

std::vector<int> ArgChannels(const std::vector<std::string>& ArgNames)
{
    std::vector<int> Channels;
    Channels.reserve(ArgNames.size());
    for (const std::string& Name : ArgNames)
        Channels.push_back(FindChan(gFile.Calibr, Name));
    return Channels;
}
