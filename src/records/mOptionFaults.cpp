// What settings have to fit to: the session's channels, the machine's devices and files, and each other.
#include "records/mOptionFaults.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "records/cOptions.h"

#include <cmath>
#include <filesystem>

namespace {
std::string Whole(double X)
{
    return FormatNum(X, "0");
}

// The digits that an array's control ends with.
double IndexOf(const OptionItem& Item)
{
    return Val(Item.Control.substr(Item.Control.rfind('_') + 1));
}

bool Exists(const std::string& Path)
{
    std::error_code Ignored;
    return std::filesystem::exists(Path, Ignored);
}

bool IsDataChan(double Chan)
{
    return Chan >= 1 && Chan <= LastDataChan;
}

constexpr const char* NoDataChan = "The logger's channels are numbered from 1 to 84.";
} // namespace

std::string ModelFault(const cOptions& Shown, const OptionItem&)
{
    const int Model = Shown.Chosen("opMode");
    if (Model < 0 || gFile.Model > ModelOld) return {};
    return gCurFile.empty() ? "" : "An old session: with a logger's model its former oar dimensions leave the file.";
}

std::string SlavesFault(const cOptions& Shown, const OptionItem&)
{
    constexpr int Own = 16; // channels of a master
    const double Count = Own + Shown.Number("txtSlavesNum") * gFile.SlaveChans;
    if (!IsMasterModel(Shown.Chosen("opMode")) || Count <= LastDataChan) return {};
    return Whole(Count) + " channels with " + Whole(gFile.SlaveChans) + " a slave: only " + Whole(LastDataChan) +
           " are taken.";
}

std::string KeyChanFault(const cOptions& Shown, const OptionItem& Item)
{
    const std::string& ID = Shown.Text(Shown.Find(Item.Control));
    if (FindChan(gFile.Calibr, ID) >= 1) return {};
    return ID.empty() ? "Without a channel no strokes are found." : "No channel of the session has this ParamID.";
}

std::string ThresholdFault(const cOptions& Shown, const OptionItem& Item)
{
    const int Mode = Shown.Chosen("opKeyMode");
    const int16_t Chan = FindChan(gFile.Calibr, Shown.Text(Shown.Find("txtPage1_4")));
    if (Chan < 1 || Chan > gFile.Calibr.UBound() || (Mode != KeyDecreasing && Mode != KeyIncreasing)) return {};
    const CalibrRow& Row = gFile.Calibr[Chan];
    const double Level = Shown.Number(Item.Control);
    if (Row.Min >= Row.Max || (Level >= Row.Min && Level <= Row.Max)) return {};
    return "Outside the channel's range, " + FormatGeneral(Row.Min, 6) + " to " + FormatGeneral(Row.Max, 6) +
           ": it is hardly ever passed.";
}

std::string PortFault(const cOptions& Shown, const OptionItem& Item)
{
    const std::string& Port = Shown.Text(Shown.Find(Item.Control));
    if (Port.starts_with('/')) return Exists(Port) ? "" : "There is no such device now.";
    if (!gHost.SerialPort || Val(Port) <= static_cast<double>(gHost.SerialPort->Devices().size())) return {};
    return "No such port is plugged in now: the first that can be opened is taken.";
}

std::string AddressFault(const cOptions& Shown, const OptionItem& Item)
{
    const std::string& Address = Shown.Text(Shown.Find(Item.Control));
    if (Address.empty()) return "Empty: there is no logger to connect to.";
    return Address.find_first_of(" \t,/") == std::string::npos ? "" : "An address has no blank, comma or slash.";
}

std::string FileFault(const cOptions& Shown, const OptionItem& Item)
{
    const std::string& Path = Shown.Text(Shown.Find(Item.Control));
    return Path.empty() || Exists(Path) ? "" : "There is no such file now.";
}

std::string DeviationsFault(const cOptions& Shown, const OptionItem& Item)
{
    if (Shown.IsOn(Item.Control) || gFile.STD.UBound() < 1) return {};
    return "The session has deviations: saved without them, its file loses them.";
}

std::string SplitFault(const cOptions& Shown, const OptionItem& Item)
{
    const int Chosen = Shown.Chosen(Item.Control);
    return Chosen == SplitDistance || Chosen == SplitStrokes ? "Only time is split by now: all pieces are empty." : "";
}

std::string SpeedFault(const cOptions& Shown, const OptionItem& Item)
{
    const int Last = gFile.Calibr.UBound();
    if (Last < 1 || Shown.Number(Item.Control) < Last) return {};
    return "Not below the session's last channel, " + Whole(Last) + ": speed and distance stay 0.";
}

std::string PieceFault(const cOptions& Shown, const OptionItem& Item)
{
    const double Piece = IndexOf(Item);
    const bool IsUsed = Shown.Chosen("obSplitPar") == SplitTime && Piece >= 1 && Piece <= Shown.Number("txtPieceNum");
    return IsUsed && Shown.Number(Item.Control) == 0 ? "This piece is empty." : "";
}

std::string CalibratorFault(const cOptions& Shown, const OptionItem& Item)
{
    const double Chan = Shown.Number(Item.Control);
    if (IsDataChan(Chan) || (Chan == 0 && !Shown.IsOn("chCalibr"))) return {};
    return Chan == 0 ? "Automatic calibration needs a calibrator's channel." : NoDataChan;
}

std::string SensorFault(const cOptions& Shown, const OptionItem& Item)
{
    const double Chan = Shown.Number(Item.Control);
    const bool IsActive = Shown.IsOn("obIsActive_" + Whole(IndexOf(Item)));
    if (IsDataChan(Chan) || (Chan == 0 && !(IsActive && Item.Control.starts_with("txtCalCh")))) return {};
    return Chan == 0 ? "The active sensor needs its channel." : NoDataChan;
}

std::string PanelChanFault(const cOptions& Shown, const OptionItem& Item)
{
    const double Chan = Shown.Number(Item.Control);
    if (Chan >= 1 && (gFile.ChanCnt < 1 || Chan <= gFile.ChanCnt)) return {};
    return Chan < 1 ? "Channels are numbered from 1." : "The session has " + Whole(gFile.ChanCnt) + " channels.";
}

std::string PercentFault(const cOptions& Shown, const OptionItem& Item)
{
    const double Percent = Shown.Number(Item.Control);
    return Percent > 0 && Percent < 100 ? "" : "The place is between 0 and 100 % of the travel.";
}

std::string TravelFault(const cOptions& Shown, const OptionItem& Item)
{
    constexpr double LongestArc = 3; // m
    const double Travel = Shown.Number(Item.Control);
    return Travel > 0 && Travel < LongestArc ? "" : "No handle travels so far: the length is in metres.";
}

std::string ZoneFault(const cOptions& Shown, const OptionItem& Item)
{
    const std::size_t End = Item.Control.find_last_of("LH");
    const std::string Zone = Item.Control.substr(0, End);
    return Shown.Number(Zone + "Low") < Shown.Number(Zone + "High") ? "" : "Low is to be below High.";
}

std::string ColourFault(const cOptions&, const OptionItem& Item)
{
    constexpr int Near = 48; // steps of red, green and blue
    const int32_t Ink = *std::get<int32_t*>(Item.Global);
    int Distance = 0;
    for (const int Shift : {0, 8, 16})
        Distance += std::abs(((Ink >> Shift) & 255) - ((gRGB[0] >> Shift) & 255));
    return Item.Control != "lbColorInp_0" && Distance < Near ? "Hardly to be seen on the background." : "";
}
