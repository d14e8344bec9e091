// Colours and argument channels of derived variables.
#include "processing/mViewRow.h"

#include "core/mSettings.h"

int32_t RowColour(const ViewRow& Row)
{
    const int Colours = static_cast<int>(gRGB.size()) - 1;
    const int Index = (Row.Color - 1) % Colours + 1;
    return Index < 0 ? 0 : gRGB[static_cast<std::size_t>(Index)];
}

std::vector<int> ArgChannels(const std::vector<std::string>& ArgNames)
{
    std::vector<int> Channels;
    Channels.reserve(ArgNames.size());
    for (const std::string& Name : ArgNames)
        Channels.push_back(FindChan(gFile.Calibr, Name));
    return Channels;
}
