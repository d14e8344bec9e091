// Opening by model and port number, and opening a lost link again.
#include "acquisition/mComFast.h"

#include "acquisition/cOwnLink.h"
#include "acquisition/mSampling.h"
#include "acquisition/mSerialOpen.h"
#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mDataWindow.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "files/mStream.h"
#include "platform/mHost.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

cLinkWatch gLinkWatch;
cSocketPair gLinkSocket;

namespace {
constexpr int LastPort = 16;
constexpr int32_t LastTCPport = 65535;
constexpr int FarewellMs = 100; // for the last bytes sent to leave
constexpr const char* SlaveLine = "115200,n,8,1";

const std::array Models = {
    LoggerModel{ModelMasterFirst, ModelMasterLast, "Master and Slaves", nullptr, 0, 0},
    LoggerModel{ModelSlave16, ModelSlave16, "Slave 16ch (old)", SlaveLine, 18, 53},
    LoggerModel{ModelSlave8, ModelSlave8, "Slave 8ch", SlaveLine, 8, 53},
    LoggerModel{ModelEncoder, ModelEncoder, "Slave w.Encoder", SlaveLine, 8, 53},
};

// What the link that is open was opened with.
struct LinkInUse
{
    bool IsSocket = false;
    std::string Key;
    std::string Device;
    std::vector<std::string> Known; // devices that were there when it was opened
    bool IsRun = false;             // the logger was asked to stream
    bool HasServed = false;         // windows with live data, or a recording
};
LinkInUse Used;

// Models that set no speed use the settings of the last one that did.
constexpr const char* FirstLine = "9600,n,8,1";
std::string LineSettings = FirstLine;

std::string Line(const char* Command)
{
    return std::string(Command) + "\r";
}

std::string PortName()
{
    return "COM port " + (gCOMdevice.empty() ? FormatNum(gCOMport, "0") : gCOMdevice);
}

std::optional<std::string> NthDevice(const iSerialPort& Comm, int Number)
{
    const auto Devices = Comm.Devices();
    if (Number < 1 || static_cast<std::size_t>(Number) > Devices.size()) return {};
    return Devices[static_cast<std::size_t>(Number) - 1];
}

bool CanOpen(iSerialPort& Comm, int Number, const std::string& Settings)
{
    const auto Device = NthDevice(Comm, Number);
    if (!Device || !OpenDevice(Comm, *Device, Settings, eWaiting::Dropped)) return false;
    Comm.Close();
    return true;
}

// What the logger's model asks of the link and of the session's channels.
struct LinkSizes
{
    int16_t ChanCnt = gFile.ChanCnt;
    int16_t FrameMin = gFrameMin;
    std::string Settings = LineSettings;
};

LinkSizes SizesOfModel()
{
    LinkSizes Sizes;
    const LoggerModel* Model = FindModel(gFile.Model);
    if (!Model) return Sizes;
    const bool BySlaves = Model->ChanCnt == 0;
    const int Slaves = gFile.SlaveCnt;
    Sizes.ChanCnt = BySlaves ? ToInt16(int64_t{Slaves} * gFile.SlaveChans + 16) : Model->ChanCnt;
    Sizes.FrameMin = BySlaves ? ToInt16((int64_t{gFile.SlaveChans} * 2 + 4) * Slaves + 39) : Model->FrameMin;
    Sizes.Settings = Model->Settings ? Model->Settings : FormatNum(gQVNbauds, "0") + ",n,8,1";
    return Sizes;
}

void SetSizes(const LinkSizes& Sizes)
{
    gFile.ChanCnt = Sizes.ChanCnt;
    gFrameMin = Sizes.FrameMin;
    LineSettings = Sizes.Settings;
}

// Two links with the same key are the same link.
std::string LinkKey(const LinkSizes& Sizes)
{
    return LinkName() +
           (gConnection == ConnectionTCP ? "" : "," + Sizes.Settings + "," + FormatNum(Sizes.FrameMin, "0"));
}

// Opens the port that the settings select. Returns its device, empty when there is none (reported in panel 3).
std::string OpenPort(const LinkSizes& Sizes)
{
    iSerialPort& Comm = *gHost.SerialPort;
    if (!FindPort(Comm, Sizes.Settings)) {
        ShowReading("No COM ports found");
        return {};
    }
    ShowReading(PortName());
    const std::string Device = SelectedDevice(Comm);
    if (OpenDevice(Comm, Device, Sizes.Settings, eWaiting::Dropped)) return Device;
    ShowReading("Can't open " + Device);
    return {};
}

// The search for a port closed the one in use.
void TakeUpFormerPort()
{
    if (Used.Device.empty() || gLinkWatch.State() != cLinkWatch::eState::Open) return;
    BeginStream();
    if (!OpenDevice(*gHost.SerialPort, Used.Device, LineSettings, eWaiting::Kept))
        LinkLost("it could not be opened again");
}

void Leave()
{
    gLinkSocket.Close();
    gLinkWatch.Closed();
    gLinkStream.IsOpen = false;
    Used = {};
}

// Nothing of the session or of a link or replay in use changes before the port is open.
bool OpenSerial(const LinkSizes& Sizes)
{
    if (gLogging) TakeRest();
    const std::string Device = OpenPort(Sizes);
    if (Device.empty()) {
        TakeUpFormerPort();
        return false;
    }
    Leave();
    StopReplay();
    SetSizes(Sizes);
    Used.Device = Device;
    Used.Known = gHost.SerialPort->Devices();
    LinkOpened();
    return true;
}

// The setting may have changed while the link was open.
void SetPeriod()
{
    gTimeStep = SafeDiv(1, gDataFreq);
    gDeltaT = gTimeStep;
}

void Connect()
{
    Used.IsSocket = true;
    gLinkWatch.Connecting(LinkName(), gHost.Clock->Milliseconds());
    gLinkSocket.Connect(gLinkAddress, static_cast<uint16_t>(std::clamp(gLinkPort, 0, LastTCPport)));
}

// The devices that an unplugged adapter may have come back as, the most likely first.
std::vector<std::string> Candidates()
{
    std::vector<std::string> Found{Used.Device};
    if (!gCOMdevice.empty()) return Found;
    for (const std::string& Device : gHost.SerialPort->Devices())
        if (std::find(Used.Known.begin(), Used.Known.end(), Device) == Used.Known.end()) Found.push_back(Device);
    return Found;
}
} // namespace

void InitLink()
{
    gLinkWatch = {};
    Used = {};
    LineSettings = FirstLine;
}

std::span<const LoggerModel> LoggerModels()
{
    return Models;
}

const LoggerModel* FindModel(int16_t Model)
{
    const auto Found = std::find_if(Models.begin(), Models.end(), [Model](const LoggerModel& Each) {
        return Model >= Each.First && Model <= Each.Last;
    });
    return Found == Models.end() ? nullptr : &*Found;
}

std::string LinkName()
{
    return gConnection == ConnectionTCP ? gLinkAddress + ":" + FormatNum(gLinkPort, "0") : PortName();
}

std::string SelectedDevice(const iSerialPort& Comm)
{
    return gCOMdevice.empty() ? NthDevice(Comm, gCOMport).value_or("") : gCOMdevice;
}

bool FindPort(iSerialPort& Comm, const std::string& Settings)
{
    if (!gCOMdevice.empty() || CanOpen(Comm, gCOMport, Settings)) return true;
    for (int16_t Number = 1; Number <= LastPort; ++Number) {
        if (!CanOpen(Comm, Number, Settings)) continue;
        gCOMport = Number;
        WriteIni();
        return true;
    }
    return false;
}

std::string LineOfModel()
{
    return SizesOfModel().Settings;
}

void TakeModelSizes()
{
    SetSizes(SizesOfModel());
}

void BeginLive()
{
    CreateData();
    gLinkStream = NewStream();
    gLinkStream.IsOpen = true;
    SetPeriod();
    gFrameCnt = 0;
    gFirstCycle = true;
}

bool OpenLink()
{
    if (gOwnLink) {
        ShowReading(gOwnLink->Owner() + " has the link; its frames are shown");
        return false;
    }
    const bool IsSocket = gConnection == ConnectionTCP;
    const LinkSizes Sizes = IsSocket ? LinkSizes{} : SizesOfModel();
    if (gLinkWatch.State() != cLinkWatch::eState::Closed && Used.Key == LinkKey(Sizes)) {
        SetSizes(Sizes);
        SetPeriod();
        return true;
    }
    if (!IsSocket && !OpenSerial(Sizes)) return false;
    if (IsSocket) {
        DropLink();
        StopReplay();
        Connect();
    }
    Used.Key = LinkKey(Sizes); // the port may be another one now
    BeginLive();
    return true;
}

void CloseLink()
{
    DropLink();
    gFile.Signed = gSignedADC;
}

void CloseUnusedLink()
{
    if (gLinkWatch.State() == cLinkWatch::eState::Closed || IsLinkDiverted()) return;
    const bool IsNeeded = IsLinkNeeded();
    if (Used.HasServed && !IsNeeded && !gLogging) return CloseLink();
    Used.HasServed = Used.HasServed || IsNeeded || gLogging;
}

void SendRun()
{
    Used.IsRun = true;
    SendText(Line(RunCommand));
}

bool SendSetUp()
{
    Used.IsRun = false;
    return SendText(Line(SetUpCommand));
}

bool SendText(const std::string& Text)
{
    if (gLinkWatch.State() != cLinkWatch::eState::Open) return false;
    return Used.IsSocket ? gLinkSocket.InUse().SendData(Text) : gHost.SerialPort->Output(Text);
}

void EndSetUp()
{
    if (gLinkWatch.State() == cLinkWatch::eState::Closed) return;
    if (IsLinkNeeded()) OpenLink(); // with the sampling period and the speed as they are now
    SendRun();
    gHost.Clock->StartOnce(FarewellMs, [] {
        if (!IsLinkNeeded() && !gLogging && !IsLinkDiverted()) DropLink();
    });
}

void LinkOpened()
{
    BeginStream();
    gLinkWatch.Opened(LinkName(), gHost.Clock->Milliseconds());
    if (Used.IsRun) SendRun();
}

void LinkLost(const std::string& Reason)
{
    TakeRest();
    gLinkWatch.Lost(Reason, gHost.Clock->Milliseconds());
}

void ReopenLink()
{
    if (Used.IsSocket) return Connect();
    for (const std::string& Device : Candidates()) {
        if (!OpenDevice(*gHost.SerialPort, Device, LineSettings, eWaiting::Kept)) continue;
        Used.Device = Device;
        return LinkOpened();
    }
    gLinkWatch.StillLost(gHost.Clock->Milliseconds());
}

void TryBeside()
{
    if (Used.IsSocket && Used.IsRun) gLinkSocket.TryBeside(Line(RunCommand));
}

void LinkReplaced()
{
    TakeRest();
    BeginStream();
    gLinkWatch.Replaced(gHost.Clock->Milliseconds());
}

void DropLink()
{
    if (gOwnLink) gOwnLink->Suspend();
    if (gLogging) TakeRest();
    gHost.SerialPort->Close();
    Leave();
    gFrameMin = 0; // recordings are read as without a link
}
