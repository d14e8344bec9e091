// The tables, and what follows from a row of them.
#include "acquisition/mLoggerCommands.h"

#include "acquisition/mComFast.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <type_traits>
#include <variant>

namespace {
constexpr LoggerChoice Frequencies[] = {
    {"op25", "25 Hz", "2,40,0", 25, 25}, {"op50", "50 Hz", "2,20,0", 50, 50}, {"op100", "100 Hz", "2,10,0", 100, 100}};

// The fast speed counts as set when 230400 is stored, and is stored as what its caption says.
constexpr LoggerChoice Speeds[] = {{"opBaud57", "57 600", "4,", 57600, 57600},
                                   {"opBaud115", "115 200", "0,", 115200, 115200},
                                   {"opBaud256", "256 000", "1,", 256000, 230400}};

constexpr LoggerChoice GPSModes[] = {{"opUseGPS", "Use GPS", "2,0,1", 1, 1}, {"opNoGPS", "No GPS", "0,0,0", 0, 0}};

constexpr LoggerChoice BTModes[] = {{"opNoBT", "Off", "0", 0, 0},
                                    {"opManBT", "Manual: the registered list", "1,FF,0", 1, 1},
                                    {"opAutoBT", "Automatic", "2,FF,0", 2, 2}};

constexpr LoggerChoice BLEModes[] = {{"opNoBLE", "Off", "0,FF,15", 0, 0},
                                     {"opManBLE", "Manual: the registered list", "1,FF,15", 1, 1},
                                     {"opAutoBLE", "Automatic", "2,FF,15", 2, 2}};

constexpr LoggerSetting Settings[LoggerSettingCnt] = {
    {"MODE", "gDataFreq", 2, Frequencies}, {"PORTCFG", "gQVNbauds", 1, Speeds}, {"GPSCFG", "gQVN_GPS", 1, GPSModes},
    {"WLCFG", "gQVN_BT", 1, BTModes},      {"BLCFG", "gQVN_BLE", 1, BLEModes},
};

constexpr LoggerQuery Queries[] = {
    {"MODE", "Sampling mode"},
    {"PORTCFG", "Port speed"},
    {"GPSCFG", "GPS"},
    {"CHMSK", "Channels of the slaves"},
    {"WLCFG", "Wireless slaves"},
    {"WLDEVCFG", "Registered wireless devices", true},
    {"BLCFG", "BLE sensors"},
    {"BLDEVCFG", "Registered BLE sensors", true},
    {"UTC", "Clock"},
    {"SN", "Serial number"},
    {"ADCHWCFG", "Converter hardware"},
    {"GYROCFG", "Gyroscope"},
    {"CYDEF", "Stroke cycle detector", false, true},
    {"CYFUN", "Cycle functions", true, true},
};

constexpr SlaveKind Slaves[] = {{"4 with encoder", 4, 'E', 'E', false},
                                {"8 normal", 8, 'A', 'A', false},
                                {"8 wireless", 8, 'A', 'C', true},
                                {"16 (old)", 16, '0', '0', false}};
constexpr int SlavesInMask = 8;

constexpr DiagnosticCommand Diagnostics[] = {
    {"#WLCON", "connect the wireless devices"},
    {"#BLCON", "connect the BLE sensors"},
    {"#CYDEF=3,12,0,8000,0,1,1", "set the logger's stroke cycle detector", true},
    {"#CYDEF?", "read the stroke cycle detector", true},
    {"#CYFUN=0,0,0,0,2000,3000,1,1", "set cycle function 0", true},
    {"#CYFUN=1,0,0,0,4000,1000,1,1", "set cycle function 1", true},
    {"#CYFUN=2,0,0,0,4000,1000,1,1", "set cycle function 2", true},
    {"#CYFUN?", "read the cycle functions", true},
    {"#WLDEVCFG=0,1,00B9,048D,0013", "register wireless device 00B9,048D,0013"},
    {"#WLDEVCFG=1,1,00F3,048D,0013", "register wireless device 00F3,048D,0013"},
    {"#LED=1,1", "light LED 1 of the master"},
    {"#LED=2,2", "light LED 2 of the master"},
    {"#LED=4,4", "light LED 4 of the master"},
};

constexpr const char* ZeroAcc[] = {"#ACCLCFG=0,4000,0,4000,0,4000", "#GYROCFG=8100,1,8100,1,8100,1"};

// The first Count fields of a value without blanks, each with a comma behind it.
std::string LeadingFields(std::string_view Value, std::size_t Count)
{
    std::string Fields;
    for (const char C : Value) {
        if (C == ' ' || C == '\t') continue;
        if (C == ',' && --Count == 0) break;
        Fields += C;
    }
    return Fields + ",";
}

int32_t StoredNumber(eLoggerSetting Which)
{
    return std::visit(
        [](auto* Global) -> int32_t {
            if constexpr (std::is_arithmetic_v<std::remove_pointer_t<decltype(Global)>>)
                return static_cast<int32_t>(*Global);
            else
                return 0;
        },
        FindSetting(Settings[Which].Store)->Global);
}

void PutNumber(const Setting& Item, int32_t Number)
{
    std::visit(
        [Number](auto* Global) {
            using Type = std::remove_pointer_t<decltype(Global)>;
            if constexpr (std::is_arithmetic_v<Type>) *Global = static_cast<Type>(Number);
        },
        Item.Global);
}
} // namespace

const LoggerSetting& SettingOf(eLoggerSetting Which)
{
    return Settings[Which];
}

std::string CommandFor(eLoggerSetting Which, int Choice)
{
    const std::string Value = Settings[Which].Choices[static_cast<std::size_t>(Choice)].Value;
    const std::string Rest = Which == SettingBaud ? FormatNum(gQVN_RTS, "0") : "";
    return "#" + std::string(Settings[Which].Key) + "=" + Value + Rest;
}

int ChoiceOf(eLoggerSetting Which, const std::string& Value)
{
    const std::size_t Fields = Settings[Which].Fields;
    int Index = 0;
    for (const LoggerChoice& Each : Settings[Which].Choices) {
        if (LeadingFields(Each.Value, Fields) == LeadingFields(Value, Fields)) return Index;
        ++Index;
    }
    return -1;
}

int StoredChoice(eLoggerSetting Which)
{
    const int32_t Number = StoredNumber(Which);
    int Index = 0;
    for (const LoggerChoice& Each : Settings[Which].Choices) {
        if (Number == Each.Compared || Number == Each.Stored) return Index;
        ++Index;
    }
    return -1;
}

bool IsStored(eLoggerSetting Which, int Choice)
{
    return StoredNumber(Which) == Settings[Which].Choices[static_cast<std::size_t>(Choice)].Compared;
}

void StoreChoice(eLoggerSetting Which, int Choice)
{
    const Setting& Item = *FindSetting(Settings[Which].Store);
    PutNumber(Item, Settings[Which].Choices[static_cast<std::size_t>(Choice)].Stored);
    SaveSetting(Item.Key);
}

std::vector<LoggerQuery> QueriesToAsk()
{
    std::vector<LoggerQuery> Asked;
    for (const LoggerQuery& Each : Queries)
        if (!Each.NeedsKeyChan || gKeyChan > 0) Asked.push_back(Each);
    return Asked;
}

LoggerRequest QueryRequest(const LoggerQuery& Query, int Patience)
{
    LoggerRequest Request{"#" + std::string(Query.Key) + "?", Patience};
    if (!Query.IsTable) Request.Key = Query.Key;
    return Request;
}

LoggerRequest SetUpRequest()
{
    LoggerRequest Request{SetUpCommand};
    Request.Key = std::string(SetUpCommand).substr(1);
    return Request;
}

bool IsLoggerCommand(const std::string& Text)
{
    return Text.size() > 1 && Text[0] == '#' &&
           std::all_of(Text.begin(), Text.end(), [](char C) { return C >= ' ' && C <= '~'; });
}

int WaitFor(const std::string& Command)
{
    constexpr std::array<std::pair<std::string_view, int>, 2> Scans = {{{"#WLDEVFND=", 13000}, {"#BLSCAN=", 2000}}};
    for (const auto& [Begin, Wait] : Scans)
        if (Command.starts_with(Begin)) return Wait;
    return LoggerRequest{}.Wait;
}

std::span<const SlaveKind> SlaveKinds()
{
    return Slaves;
}

std::string ChannelMask(std::size_t Kind, bool HasExtras)
{
    std::string Mask = "<0>";
    for (int i = 1; i <= SlavesInMask; ++i)
        Mask += std::string(HasExtras ? ",<" : ",<1") + (i == 1 ? Slaves[Kind].First : Slaves[Kind].Letter) + ">";
    return Mask;
}

std::optional<std::size_t> SlaveKindOf(int16_t SlaveChans, bool IsSigned)
{
    for (std::size_t Kind = 0; Kind < std::size(Slaves); ++Kind)
        if (SlaveChans >= Slaves[Kind].Chans && SlaveChans <= Slaves[Kind].Chans + 2 &&
            (Slaves[Kind].Chans != 8 || Slaves[Kind].IsSigned == IsSigned))
            return Kind;
    return {};
}

std::string MaskWords(const std::string& Mask)
{
    std::string Plain = Mask;
    std::erase(Plain, ' ');
    for (std::size_t Kind = 0; Kind < std::size(Slaves); ++Kind)
        for (const bool HasExtras : {false, true})
            if (Plain == ChannelMask(Kind, HasExtras))
                return std::string(Slaves[Kind].Caption) + (HasExtras ? ", heart rate" : "");
    return {};
}

std::string ClockCommand(const LocalTime& Now)
{
    std::string Text = "#UTC=" + FormatNum(Now.Year, "0000");
    const std::array<std::pair<char, int>, 5> Parts = {
        {{'/', Now.Month}, {'/', Now.Day}, {'-', Now.Hour}, {':', Now.Minute}, {':', Now.Second}}};
    for (const auto& [Separator, Number] : Parts)
        Text += Separator + FormatNum(Number, "00");
    return Text;
}

std::span<const DiagnosticCommand> DiagnosticCommands()
{
    return Diagnostics;
}

std::span<const char* const> ZeroAccCommands()
{
    return ZeroAcc;
}
