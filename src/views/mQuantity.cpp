// Quantities of channels, and what the operations make of them.
#include "views/mQuantity.h"

#include "core/mModes.h"
#include "processing/mGlobFunc.h"
#include "processing/mOper.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {
struct ChannelQuantity
{
    const char* Param; // the whole identifier, or one letter that a seat's number follows
    const char* Name;
    const char* Unit;
    const char* Arc;   // name as an arc in metres
    const char* Speed; // name of its change in time
};

constexpr std::array<ChannelQuantity, 15> Known = {{
    {"A", "Oar angle", "°", "Handle arc", "Handle speed"},
    {"V", "Vertical angle", "°", "Vertical arc", "Vertical speed"},
    {"H", "Handle force", "N", "", ""},
    {"G", "Gate force", "N", "", ""},
    {"S", "Seat position", "m", "", "Seat speed"},
    {"T", "Trunk angle", "°", "Trunk arc", "Trunk speed"},
    {"Vs", "Boat speed", "m/s", "", "Boat acceleration"},
    {"Dist", "Distance", "m", "", "Boat speed"},
    {"Acc", "Boat acceleration", "m/s²", "", ""},
    {"AccY", "Acceleration across", "m/s²", "", ""},
    {"AccZ", "Acceleration upward", "m/s²", "", ""},
    {"Roll", "Roll rate", "°/s", "", ""},
    {"Pitch", "Pitch rate", "°/s", "", ""},
    {"Yaw", "Yaw rate", "°/s", "", ""},
    {"Lat", "Latitude", "°", "", ""},
}};

bool IsFor(const ChannelQuantity& Each, const std::string& ParamID)
{
    if (ParamID == Each.Param) return true;
    return Each.Param[1] == 0 && ParamID.size() > 1 && ParamID[0] == Each.Param[0] && ParamID[1] >= '0' &&
           ParamID[1] <= '9';
}

auto KnownFor(const std::string& ParamID)
{
    return std::find_if(Known.begin(), Known.end(), [&](const auto& Row) { return IsFor(Row, ParamID); });
}

struct Argument
{
    Quantity Value;
    std::string Speed;
};

// Nothing when the session has no channel of that name.
std::vector<Argument> Find(const std::string& ParamID)
{
    const int Chan = FindChan(gFile.Calibr, ParamID);
    if (Chan < 1 || Chan > gFile.Calibr.UBound()) return {};
    const auto* const Each = KnownFor(ParamID);
    const bool IsArc = gFile.Calibr[Chan].Mode == SensorAngle;
    if (Each == Known.end()) return {Argument{{"", ""}, ""}};
    if (IsArc) return {Argument{{Each->Arc, "m"}, Each->Speed}};
    return {Argument{{Each->Name, Each->Unit}, Each->Speed}};
}

std::string PerSecond(const std::string& Unit)
{
    if (Unit.empty()) return "";
    return Unit == "m/s" ? "m/s²" : Unit + "/s";
}

const char* NameOfUnit(const std::string& Unit)
{
    constexpr std::array<std::array<const char*, 2>, 6> Names = {
        {{"N", "Force"}, {"m", "Length"}, {"m/s", "Speed"}, {"m/s²", "Acceleration"}, {"°", "Angle"}, {"W", "Power"}}};
    for (const auto& [Each, Name] : Names)
        if (Unit == Each) return Name;
    return "";
}
} // namespace

std::string ChannelUnit(const std::string& ParamID)
{
    const auto* const Each = KnownFor(ParamID);
    return Each == Known.end() ? "" : Each->Unit;
}

std::string AxisText(const Quantity& What)
{
    return What.Name.empty() || What.Unit.empty() ? What.Name + What.Unit : What.Name + ", " + What.Unit;
}

Quantity Common(const Quantity& First, const Quantity& Second)
{
    if (First == Second) return First;
    if (First.Unit == Second.Unit) return {NameOfUnit(First.Unit), First.Unit};
    return {};
}

Quantity QuantityX(const ViewRow& Row)
{
    const auto Names = SplitStr(Row.Arguments);
    if (Row.Mode != RowOverArgument || Names.empty()) return {};
    const auto Found = Find(Names[0]);
    return Found.empty() ? Quantity{} : Found[0].Value;
}

Quantity QuantityY(const ViewRow& Row)
{
    std::vector<Argument> Args;
    const auto Names = SplitStr(Row.Arguments);
    for (std::size_t i = 1; i < Names.size(); ++i)
        for (const Argument& Each : Find(Names[i]))
            Args.push_back(Each);
    if (Args.empty()) return {};
    const Operation* const Oper = FindOper(Row.Oper);
    switch (Oper ? Oper->Unit : eOperUnit::None) {
    case eOperUnit::Shared: {
        Quantity Whole = Args[0].Value;
        for (const Argument& Each : Args)
            Whole = Common(Whole, Each.Value);
        return Whole;
    }
    case eOperUnit::PerSecond:
        return {Args[0].Speed, PerSecond(Args[0].Value.Unit)};
    case eOperUnit::Segment:
        if (Args.size() == 1) return {Args[0].Speed, PerSecond(Args[0].Value.Unit)};
        return {"", PerSecond(Common(Args[0].Value, Args[1].Value).Unit)};
    case eOperUnit::Power:
        return {"Power", Args[0].Value.Unit == "m" && Args.back().Value.Unit == "N" ? "W" : ""};
    case eOperUnit::First:
        return Args[0].Value;
    case eOperUnit::None:
        return {};
    }
    return {};
}
