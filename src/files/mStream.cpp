// The streams and the globals that show their values.
#include "files/mStream.h"

Stream gLinkStream;
Stream gReplayStream;
bool gSignedADC = false;
std::array<double, 6> gLastGPS{};

namespace {
void PublishFrame(const Stream& From)
{
    gLastGPS = From.LastGPS;
    gSampleTime = From.SampleTime;
    gFrequency = From.Frequency;
    if (From.DeltaT) gDeltaT = *From.DeltaT;
}
} // namespace

bool IsLive()
{
    return gLinkStream.IsOpen || gReplayStream.IsOpen;
}

Stream NewStream()
{
    Stream Begun;
    Begun.LastGPS = gLastGPS;
    Begun.SignedADC = gSignedADC;
    Begun.SampleTime = gSampleTime;
    Begun.Frequency = gFrequency;
    Begun.Missed = gMissed;
    return Begun;
}

void PublishLive(const Stream& From)
{
    PublishFrame(From);
    gSignedADC = From.SignedADC;
    gMissed = From.Missed;
}

void PublishFile(const Stream& From)
{
    if (!IsLive()) PublishFrame(From);
}
