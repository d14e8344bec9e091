// From the rower model through each channel's calibration to frames.
#include "sim/cLogger.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "sim/mInverse.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr uint64_t NoiseStream = 1;
constexpr int32_t MaxConverter = 16383;
} // namespace

FrameLayout LayoutOf(const DataFile& File, int Model)
{
    return {Model, File.SlaveCnt, File.SlaveChans, File.Signed};
}

cLogger::cLogger(const DataFile& File, const LoggerSettings& Settings_)
    : Settings(Settings_), Rower(File.BoatType, Settings.Rate, Settings.Spread, File.KeyMode, Settings.Seed),
      Encoder(LayoutOf(File, Settings.Model)), Faults(Settings.Faults, Settings.Seed), Noise(Settings.Seed, NoiseStream)
{
    const int Last = std::min(Encoder.LastChan(), File.Calibr.UBound());
    for (int Chan = 1; Chan <= Last; ++Chan) {
        Channel& New = Channels.emplace_back();
        New.Row = File.Calibr[Chan];
        New.Source = Rower.SensorOf(New.Row);
        New.MaxCount = Encoder.MaxCount(Chan);
        New.Rest = ZeroLevel(New.Row, New.MaxCount);
    }
    Counts.resize(Channels.size() + 1);
    if (!Settings.Rigs.empty()) MountRigs(File);
}

// On the rig nobody rows.
void cLogger::MountRigs(const DataFile& File)
{
    for (Channel& Each : Channels)
        Each.Source = {};
    Rigs.reserve(Settings.Rigs.size());
    for (const RigSettings& Each : Settings.Rigs) {
        Channel& Sensor = At(Channels, RigChannel(File, Each.Chan) - 1);
        cRig* Rig = &Rigs.emplace_back(Each, File, Sensor.MaxCount);
        // The rig gives counts itself.
        Sensor.Row = {};
        Sensor.Row.Q1 = 1;
        Sensor.Source = {[Rig](double T) { return Rig->CountAt(T); }, EvenNoise(Each.Noise)};
        if (Each.Calibrator.empty()) continue;
        At(Channels, RigChannel(File, Each.Calibrator) - 1).Source = {[Rig](double T) { return Rig->Load(T); },
                                                                      EvenNoise(Each.Noise)};
    }
}

std::string cLogger::News()
{
    std::string Text;
    for (cRig& Each : Rigs)
        if (const std::string Load = Each.News(Time()); !Load.empty()) Text += Load + "\n";
    return Text;
}

std::string cLogger::RigTruth() const
{
    std::string Text;
    for (const cRig& Each : Rigs)
        Text += Each.TruthTable();
    return Text;
}

double cLogger::Time() const
{
    return static_cast<double>(Sent) / Settings.Freq;
}

int32_t cLogger::CountNow(Channel& Each, double T)
{
    const double Clean =
        Each.Source.Value ? CountOf(Each.Row, Each.Source.Value(T), Each.Last, Each.MaxCount) : Each.Rest;
    const double Noisy = RoundHalfEven(Clean + Each.Source.Noise * Noise.Between(-1, 1));
    // A calibration without sense can give no number at all.
    Each.Last = std::isnan(Noisy) ? 0 : std::clamp(Noisy, 0.0, static_cast<double>(Each.MaxCount));
    return static_cast<int32_t>(Each.Last);
}

void cLogger::NextFrame(std::vector<uint8_t>& Out)
{
    const double T = Time();
    for (std::size_t i = 0; i < Channels.size(); ++i)
        Counts[i + 1] = CountNow(Channels[i], T);
    Faults.Spike(Counts, MaxConverter);
    const int Kind = Settings.Kinds[static_cast<std::size_t>(Sent) % Settings.Kinds.size()];
    Frame.clear();
    Encoder.Append(Frame, Millis(), Counts, Kind);
    ++Sent;
    Faults.Deliver(Frame, Out);
}
