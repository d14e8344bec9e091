// Frames into a file until the strokes or the seconds are over.
#include "sim/mRecord.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "platform/mHost.h"
#include "sim/cTruth.h"

#include <filesystem>
#include <memory>

namespace {
constexpr int DefaultStrokes = 30;

// Whether two names lead to one file, there or not.
bool IsSameFile(const std::string& One, const std::string& Other)
{
    std::error_code Error;
    return std::filesystem::weakly_canonical(One, Error) == std::filesystem::weakly_canonical(Other, Error);
}

std::string WhyNoRig(const RigSettings& Rig, const DataFile& File, int Model)
{
    const cFrameEncoder Encoder(LayoutOf(File, Model));
    const int Chan = RigChannel(File, Rig.Chan);
    for (const std::string& Name : {Rig.Chan, Rig.Calibrator}) {
        const int Found = RigChannel(File, Name);
        if (!Name.empty() && (Found < 1 || Found > Encoder.LastChan()))
            return "The logger has no channel " + Name + " to put on the rig";
    }
    if (Chan == RigChannel(File, Rig.Calibrator)) return "A channel cannot be its own calibrator: " + Rig.Chan;
    return cRig(Rig, File, Encoder.MaxCount(Chan)).WhyNot();
}

std::string WhyNot(const SimOptions& Options, const DataFile& File, int Model)
{
    if (File.Calibr.UBound() < 1) return "The session data file has no channels: " + Options.Session;
    if (!cFrameEncoder::IsPossible(LayoutOf(File, Model)))
        return "No logger is of model " + FormatNum(Model, "0") + " with " + FormatNum(File.SlaveCnt, "0") +
               " slaves of " + FormatNum(File.SlaveChans, "0") + " channels: " + Options.Session;
    for (const std::string& Out : {Options.Recording, Options.Truth, Options.Sent})
        if (!Out.empty() && IsSameFile(Out, Options.Session)) return "This would replace the session data file: " + Out;
    if (!Options.Truth.empty() && IsSameFile(Options.Truth, Options.Recording))
        return "The recording and the table cannot be one file: " + Options.Truth;
    for (const RigSettings& Rig : Options.Logger.Rigs)
        if (const std::string Reason = WhyNoRig(Rig, File, Model); !Reason.empty()) return Reason;
    return {};
}

int FreqOf(const DataFile& File)
{
    const double Freq = RoundHalfEven(SafeDiv(1, File.TimeStep));
    return Freq == 50 || Freq == 100 ? static_cast<int>(Freq) : 25;
}

std::string Counted(int Count, const char* What)
{
    return Count == 0 ? "" : ", " + FormatNum(Count, "0") + What;
}

std::string Summary(const SimOptions& Options, const LoggerSettings& Used, const cLogger& Logger, double Seconds)
{
    const FaultCounts& Faults = Logger.FaultsDone();
    return Options.Recording + ": " + FormatNum(static_cast<double>(Logger.FrameCnt()), "0") + " frames of model " +
           FormatNum(Used.Model, "0") + " at " + FormatNum(Used.Freq, "0") + " Hz, " + FormatNum(Seconds, "0.00") +
           " s " +
           (Used.Rigs.empty() ? "at " + FormatShortest(Used.Rate) + " strokes per minute with a spread of " +
                                    FormatShortest(Used.Spread) + "%"
                              : "on the rig") +
           Counted(Faults.Junk, " with stray bytes") + Counted(Faults.Corrupt, " with a broken bit") +
           Counted(Faults.Drop, " lost") + Counted(Faults.Spikes, " with a spike");
}

bool HasFailed(const WholeFile& File, const std::string& Path)
{
    if (File.Failure().empty()) return false;
    FileFailed(CantWrite, Path, TitleWarning, File.Failure());
    return true;
}
} // namespace

std::string SettleLogger(const SimOptions& Options, const DataFile& File, LoggerSettings& Used)
{
    Used = Options.Logger;
    Used.Model = Options.Model > 0 ? Options.Model : File.Model;
    Used.Freq = Options.Freq > 0 ? Options.Freq : FreqOf(File);
    return WhyNot(Options, File, Used.Model);
}

std::string RecordFile(const SimOptions& Options, const DataFile& File)
{
    LoggerSettings Used;
    if (const std::string Reason = SettleLogger(Options, File, Used); !Reason.empty()) {
        MsgBox(Reason, TitleWarning);
        return {};
    }

    WholeFile Recording(Options.Recording);
    if (HasFailed(Recording, Options.Recording)) return {};
    const auto Table = Options.Truth.empty() ? nullptr : std::make_unique<WholeFile>(Options.Truth);
    if (Table && HasFailed(*Table, Options.Truth)) return {};

    cLogger Logger(File, Used);
    const int Strokes = Options.Strokes == 0 && Options.Seconds == 0 ? DefaultStrokes : Options.Strokes;
    const double Stop = Strokes > 0 ? Logger.Model().Strokes().EndOf(Strokes) : Options.Seconds;
    std::vector<uint8_t> Bytes;
    while (Logger.Time() < Stop && Recording.IsOpen()) {
        Bytes.clear();
        Logger.NextFrame(Bytes);
        Recording.Append({reinterpret_cast<const char*>(Bytes.data()), Bytes.size()});
    }
    if (Table)
        Table->Append(Used.Rigs.empty() ? TruthTable(TrueStrokes(File, Logger.Model(), Stop)) : Logger.RigTruth());
    if (!Recording.Commit() && HasFailed(Recording, Options.Recording)) return {};
    if (Table && !Table->Commit() && HasFailed(*Table, Options.Truth)) return {};
    return Summary(Options, Used, Logger, Stop);
}
