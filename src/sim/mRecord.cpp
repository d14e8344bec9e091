// Frames into a file until the strokes or the seconds are over.
#include "sim/mRecord.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "platform/mHost.h"
#include "sim/cMonitor.h"
#include "sim/cTruth.h"
#include "sim/mVideo.h"

#include <array>
#include <filesystem>
#include <list>
#include <utility>

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
    const std::array Outs = {Options.Recording, Options.Truth, Options.Sent, Options.Replies, Options.Video};
    for (std::size_t i = 0; i < Outs.size(); ++i) {
        if (Outs[i].empty()) continue;
        if (IsSameFile(Outs[i], Options.Session)) return "This would replace the session data file: " + Outs[i];
        for (std::size_t j = 0; j < i; ++j)
            if (!Outs[j].empty() && IsSameFile(Outs[i], Outs[j])) return "Two files cannot be one: " + Outs[i];
    }
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

std::string RecordingText(const SimOptions& Options, const LoggerSettings& Used, const cLogger& Logger, double Seconds)
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

std::string RowersTruth(const DataFile& File, cRowerModel& Model, double Stop)
{
    const auto Strokes = TrueStrokes(File, Model, Stop);
    return Model.IsErg() ? ErgTruthTable(Strokes) : TruthTable(Strokes);
}

// The files that are written, all or none of them as long as the disk allows.
class Outputs
{
public:
    // Null when no file is wanted or it cannot be written.
    WholeFile* Add(const std::string& Path)
    {
        if (Path.empty()) return nullptr;
        Files.emplace_back(Path, Path);
        return HasFailed(Files.back()) ? nullptr : &Files.back().File;
    }

    bool Commit()
    {
        for (Named& Each : Files)
            if (!Each.File.Commit() && HasFailed(Each)) return false;
        return true;
    }

    bool IsGood() const { return Good; }

private:
    struct Named
    {
        Named(std::string InitPath, const std::string& Target) : Path(std::move(InitPath)), File(Target) {}
        std::string Path;
        WholeFile File;
    };

    bool HasFailed(const Named& Each)
    {
        if (Each.File.Failure().empty()) return false;
        Good = false;
        FileFailed(CantWrite, Each.Path, TitleWarning, Each.File.Failure());
        return true;
    }

    std::list<Named> Files;
    bool Good = true;
};

void Record(cLogger& Logger, double Stop, WholeFile& Recording)
{
    std::vector<uint8_t> Bytes;
    while (Logger.Time() < Stop && Recording.IsOpen()) {
        Bytes.clear();
        Logger.NextFrame(Bytes);
        Recording.Append({reinterpret_cast<const char*>(Bytes.data()), Bytes.size()});
    }
}

// Gives a line on the replies.
std::string WriteReplies(const SimOptions& Options, const DataFile& File, cLogger& Logger, double Stop, WholeFile& Out)
{
    cMonitor Monitor(File, Logger.Model());
    int64_t Count = 0;
    for (; static_cast<double>(Count) * cMonitor::Step < Stop && Out.IsOpen(); ++Count)
        Out.Append(Monitor.NextReply() + "\n");
    return Options.Replies + ": " + FormatNum(static_cast<double>(Count), "0") + " replies of a performance monitor, " +
           FormatNum(Stop, "0.00") + " s";
}
// What --truth asks for.
std::string TruthOf(const SimOptions& Options, const LoggerSettings& Used, const DataFile& File, cLogger& Logger,
                    double Stop)
{
    if (!Options.Video.empty()) return JointTable(File, Logger.Model(), Stop, Options.VideoRate);
    return Used.Rigs.empty() ? RowersTruth(File, Logger.Model(), Stop) : Logger.RigTruth();
}

// Gives a line on the video; nothing when it cannot be written (reported to the user).
std::string MakeVideo(const SimOptions& Options, const DataFile& File, cRowerModel& Model, double Stop)
{
    if (const std::string Why = WriteVideo(Options.Video, File, Model, Stop, Options.VideoRate); !Why.empty()) {
        FileFailed(CantWrite, Options.Video, TitleWarning, Why);
        return {};
    }
    return Options.Video + ": " + FormatNum(VideoPictures(Stop, Options.VideoRate), "0") + " pictures, " +
           FormatShortest(Options.VideoRate) + " a second";
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

    Outputs Out;
    WholeFile* const Recording = Out.Add(Options.Recording);
    WholeFile* const Table = Out.IsGood() ? Out.Add(Options.Truth) : nullptr;
    WholeFile* const Replies = Out.IsGood() ? Out.Add(Options.Replies) : nullptr;
    if (!Out.IsGood()) return {};

    cLogger Logger(File, Used);
    const int Strokes = Options.Strokes == 0 && Options.Seconds == 0 ? DefaultStrokes : Options.Strokes;
    const double Stop = Strokes > 0 ? Logger.Model().Strokes().EndOf(Strokes) : Options.Seconds;
    std::string Text;
    if (Recording) {
        Record(Logger, Stop, *Recording);
        Text = RecordingText(Options, Used, Logger, Stop);
    }
    if (Table) Table->Append(TruthOf(Options, Used, File, Logger, Stop));
    if (Replies) Text += (Text.empty() ? "" : "\n") + WriteReplies(Options, File, Logger, Stop, *Replies);
    if (!Options.Video.empty()) {
        const std::string Line = MakeVideo(Options, File, Logger.Model(), Stop);
        if (Line.empty()) return {};
        Text += (Text.empty() ? "" : "\n") + Line;
    }
    return Out.Commit() ? Text : "";
}
