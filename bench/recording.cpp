// Frames of a master with four slaves of 16 channels, the two extra words on; channel 17 swings like an oar.
#include "recording.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "platform/plain/sDialogs.h"
#include "platform/plain/sSettings.h"
#include "platform/plain/sStatus.h"

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <unistd.h>
#include <vector>

namespace {
constexpr int StepMs = 20;

class Folder
{
public:
    Folder() : Path((std::filesystem::temp_directory_path() / ("skarvelin-bench-" + std::to_string(getpid()))).string())
    {
        std::filesystem::create_directory(Path);
    }
    ~Folder() { std::filesystem::remove_all(Path); }
    std::string Path;
};

void PutGroups(std::vector<uint8_t>& Bytes, int64_t Value, int Count)
{
    for (int i = 0; i < Count; ++i, Value /= 128)
        Bytes.push_back(static_cast<uint8_t>(Value % 128));
}

int Count(int Frame, int Chan)
{
    const double Period = 2.0 + 0.1 * std::sin(Frame * 0.001);
    const double Phase = 2 * 3.14159265358979 * Frame * (StepMs / 1000.0) / Period;
    return 8192 + static_cast<int>(4000 * std::sin(Phase + 0.01 * (Chan - 17))) + (Frame * 7 + Chan) % 5;
}

void PutFrame(std::vector<uint8_t>& Bytes, int Frame)
{
    constexpr int Body = FrameBytes - 4;
    Bytes.insert(Bytes.end(), {0x80, 0, (Body - 1) % 128, (Body - 1) / 128});
    PutGroups(Bytes, int64_t{Frame} * StepMs, 5);
    PutGroups(Bytes, 5, 1);
    PutGroups(Bytes, 0, 4);
    for (int Chan = 1; Chan <= 10; ++Chan)
        PutGroups(Bytes, Count(Frame, Chan), 2);
    for (int Chan = 17; Chan <= 80; ++Chan) {
        if (Chan % 16 == 1) Bytes.insert(Bytes.end(), {1, 0, 0, 0});
        PutGroups(Bytes, Count(Frame, Chan), 2);
        if (Chan % 16 == 0) PutGroups(Bytes, 0, 4);
    }
    PutGroups(Bytes, 0, 1);
}
} // namespace

const std::string& BenchFolder()
{
    static const Folder Temporary;
    return Temporary.Path;
}

void MakeBenchSession()
{
    static sStatus Status(false);
    static sDialogs Dialogs;
    static sSettings Settings;
    gHost = {&Dialogs, &Status, &Settings};
    LoadSettings();
    gFile = DataFile{};
    gFile.Model = 61;
    gFile.SlaveCnt = 4;
    gFile.SlaveChans = 16;
    gFile.ChanCnt = BenchChannels;
    gFile.KeyChanID = "A1";
    for (int Chan = 1; Chan <= BenchChannels; ++Chan) {
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.Chan = static_cast<int16_t>(Chan);
        Row.ParamID = Chan == 17 ? "A1" : Chan == 18 ? "H1" : "C" + FormatNum(Chan, "00");
        Row.Q0 = -90;
        Row.Q1 = 180.0 / FullScale;
        Row.Min = -90;
        Row.Max = 90;
    }
    gKeyMode = 1;
    ResolveChannels();
}

const std::string& BenchRecording(int Frames)
{
    static std::map<int, std::string> Paths;
    std::string& Path = Paths[Frames];
    if (!Path.empty()) return Path;
    Path = BenchFolder() + "/" + FormatNum(Frames, "0") + ".qvn";
    std::ofstream Out(Path, std::ios::binary);
    std::vector<uint8_t> Bytes;
    for (int Frame = 0; Frame < Frames; ++Frame) {
        Bytes.clear();
        PutFrame(Bytes, Frame);
        Out.write(reinterpret_cast<const char*>(Bytes.data()), static_cast<std::streamsize>(Bytes.size()));
    }
    return Path;
}
