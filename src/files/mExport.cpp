// The text export of the sample store.
#include "files/mExport.h"

#include "base/mCodePage.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "platform/mHost.h"

#include <span>
#include <vector>

namespace {
constexpr int TimeDecimals = 3;
constexpr int ValueDecimals = 9;

std::string HeadLine()
{
    std::string Line = "N\tT\t";
    for (int Chan = 1; Chan <= gRaw.ChannelUBound(); ++Chan)
        Line += gFile.Calibr[Chan].ParamID + "\t";
    return EncodeText(Line + "\r\n", gFile.Encoding, TextPage());
}

std::vector<std::span<const double>> AllChannels()
{
    std::vector<std::span<const double>> Channels;
    const SampleStore& Store = gRaw;
    for (int Chan = 0; Chan <= Store.ChannelUBound(); ++Chan)
        Channels.push_back(Store.Channel(Chan));
    return Channels;
}

void AppendCell(std::string& Line, double X, int Decimals)
{
    AppendFixed(Line, X, Decimals);
    Line += '\t';
}

void AppendSamples(WholeFile& File, int32_t From, int32_t To)
{
    const auto Channels = AllChannels();
    std::string Line;
    int Percent = 0;
    for (int32_t Sample = From; Sample <= To; ++Sample) {
        Line.clear();
        AppendCell(Line, Sample, 0);
        AppendCell(Line, Channels[0][static_cast<std::size_t>(Sample)], TimeDecimals);
        for (const auto& Channel : std::span(Channels).subspan(1))
            AppendCell(Line, Channel[static_cast<std::size_t>(Sample)], ValueDecimals);
        Line += "\r\n";
        File.Append(Line);
        const int Reached = static_cast<int>(int64_t{100} * (Sample - From + 1) / (int64_t{To} - From + 1));
        if (Reached > Percent) UpdateProgress(Percent = Reached);
    }
}
} // namespace

bool WriteText(const std::string& Path, int32_t From, int32_t To)
{
    if (From <= To && (From < 0 || To > gRaw.UBound())) {
        MsgBox("Samples " + FormatNum(From, "0") + " to " + FormatNum(To, "0") +
                   " are not all in the recording, which has the samples 0 to " + FormatNum(gRaw.UBound(), "0") + ".",
               TitleWarning);
        return false;
    }
    UpdateStatus("Writing File " + Path);
    WholeFile File(Path);
    File.Append(HeadLine());
    AppendSamples(File, From, To);
    return File.Commit() || FileFailed(CantWrite, Path, TitleWarning, File.Failure());
}
