// The commands as tables: settings with their checks, single commands, devices that scans find.
#include "sim/mAnswers.h"

#include "base/mNumText.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>

namespace {
constexpr const char* SerialNumber = "SIM-0001";
constexpr double MillisPerSecond = 1000;
constexpr int MaskEntries = 9; // the master and eight slaves
constexpr int TableRows = 8;

std::string Reply(std::string_view Key, std::string_view Value)
{
    return std::string("#").append(Key).append(": ").append(Value).append("\r");
}

// Channels of a slave block by the digit of its flags, as frames carry it.
struct SlaveDigit
{
    char Letter;
    int Chans;
    bool IsSigned;
};
constexpr SlaveDigit Digits[] = {{'0', 16, false}, {'A', 8, false}, {'C', 8, true}, {'E', 4, false}};

// An entry of the mask, "1A" or "A": without the 1 two more channels are sent.
struct MaskEntry
{
    const SlaveDigit* Digit = nullptr;
    bool HasExtras = false;
};

// The master's own entry is "0".
std::optional<MaskEntry> ReadEntry(std::string_view Text)
{
    const bool HasExtras = Text.size() == 1;
    if (!HasExtras && (Text.size() != 2 || Text[0] != '1')) return {};
    for (const SlaveDigit& Each : Digits)
        if (Each.Letter == Text.back()) return MaskEntry{&Each, HasExtras};
    return {};
}

// "<0>,<1A>,..." without the master's entry; empty when it is no mask.
std::vector<MaskEntry> ReadMask(std::string_view Text)
{
    std::vector<MaskEntry> Entries;
    for (int i = 0; i < MaskEntries; ++i) {
        const std::size_t End = Text.find('>');
        if (!Text.starts_with('<') || End == std::string_view::npos) return {};
        const auto Entry = ReadEntry(Text.substr(1, End - 1));
        if (!Entry) return {};
        if (i > 0) Entries.push_back(*Entry);
        Text.remove_prefix(End + 1);
        if (Text.starts_with(',')) Text.remove_prefix(1);
    }
    return Entries;
}

std::string MaskOf(const FrameLayout& Layout)
{
    const int Chans = Layout.SlaveChans / 4 * 4;
    const auto* Found = std::find_if(std::begin(Digits), std::end(Digits), [&](const SlaveDigit& Each) {
        return Each.Chans == Chans && (Chans != 8 || Each.IsSigned == Layout.Signed);
    });
    const char Letter = Found == std::end(Digits) ? 'A' : Found->Letter;
    std::string Mask = "<0>";
    for (int i = 1; i < MaskEntries; ++i)
        Mask += std::string(Layout.SlaveChans % 4 == 0 ? ",<1" : ",<") + Letter + ">";
    return Mask;
}

bool IsMode(const std::string& Value)
{
    return Value == "2,40,0" || Value == "2,20,0" || Value == "2,10,0";
}

bool IsSpeed(const std::string& Value)
{
    return Value.starts_with("4,") || Value.starts_with("0,") || Value.starts_with("1,");
}

bool IsMask(const std::string& Value)
{
    return !ReadMask(Value).empty();
}

bool IsAny(const std::string&)
{
    return true;
}

struct Known
{
    const char* Key;
    const char* Value; // of a logger that was never set up; null: by its layout or its line
    bool (*IsValid)(const std::string& Value);
    bool IsTable = false; // the first field is the number of a row
};

constexpr Known Table[] = {
    {"MODE", nullptr, IsMode},
    {"PORTCFG", nullptr, IsSpeed},
    {"CHMSK", nullptr, IsMask},
    {"GPSCFG", "2,0,1", IsAny},
    {"WLCFG", "0", IsAny},
    {"BLCFG", "0,FF,15", IsAny},
    {"ADCHWCFG", "1,2,0", IsAny},
    {"ACCLCFG", "0,4000,0,4000,0,4000", IsAny},
    {"GYROCFG", "8100,1,8100,1,8100,1", IsAny},
    {"CYDEF", "3,12,0,8000,0,1,1", IsAny},
    {"LED", "0,0", IsAny},
    {"WLDEVCFG", nullptr, IsAny, true},
    {"BLDEVCFG", nullptr, IsAny, true},
    {"CYFUN", nullptr, IsAny, true},
};

// What a scan finds, in the order in which it is heard of, some more than once.
struct Heard
{
    int Delay; // ms
    const char* Device;
};
constexpr Heard Wireless[] = {
    {1500, "00B9,048D,0013"}, {4200, "00F3,048D,0013"}, {6100, "00B9,048D,0013"}, {8800, "00C4,048D,0013"}};
constexpr Heard Sensors[] = {{300, "C4BE84F1A20B-EmPower 0417"},
                             {600, "D0A3C1556677-HRM 12"},
                             {900, "C4BE84F1A20B-EmPower 0417"},
                             {1400, "F2219C04E1D8-EmPower 0982"}};

struct Scan
{
    const char* Command;
    const char* Key;
    std::span<const Heard> Devices;
};
constexpr Scan Scans[] = {{"#WLDEVFND=10", "WLDEVFND", Wireless}, {"#BLSCAN=1", "BLSCAN", Sensors}};

// Speeds of the port by the first field of its setting.
constexpr std::array<std::pair<char, int>, 3> Speeds = {{{'4', 57600}, {'0', 115200}, {'1', 256000}}};

std::string ClockText(const LoggerMode& Mode, const LocalTime& Now)
{
    if (!Mode.SetClock.empty()) return Mode.SetClock;
    std::string Text = FormatNum(Now.Year, "0000");
    const std::array<std::pair<char, int>, 5> Parts = {
        {{'/', Now.Month}, {'/', Now.Day}, {'-', Now.Hour}, {':', Now.Minute}, {':', Now.Second}}};
    for (const auto& [Separator, Value] : Parts)
        Text += Separator + FormatNum(Value, "00");
    return Text;
}

// The speed of the line, as the logger would name it.
std::string LineText(const LoggerMode& Mode)
{
    for (const auto& [Code, Speed] : Speeds)
        if (Speed == Mode.LineSpeed) return std::string(1, Code) + ",0";
    return "4,0";
}

std::vector<LoggerAnswer> Report(const Known& Item, const LoggerMode& Mode)
{
    const std::string Key = Item.Key;
    std::vector<LoggerAnswer> Lines;
    for (const auto& [Name, Value] : Mode.Values)
        if (Name == Key || Name.starts_with(Key + "/")) Lines.push_back({0, Reply(Key, Value)});
    if (Lines.empty() && Key == "PORTCFG") Lines.push_back({0, Reply(Key, LineText(Mode))});
    return Lines;
}

// A row of a table is kept under its number; its answer is the row alone.
std::vector<LoggerAnswer> SetRow(const Known& Item, const std::string& Value, LoggerMode& Mode)
{
    const bool IsRow = Value.size() > 1 && Value[0] >= '0' && Value[0] < '0' + TableRows && Value[1] == ',';
    if (!IsRow) return {{0, Reply("ERR", std::string(Item.Key) + "=" + Value)}};
    Mode.Values[std::string(Item.Key) + "/" + Value[0]] = Value;
    return {{0, Reply(Item.Key, Value)}};
}

std::vector<LoggerAnswer> AskOrSet(const std::string& Command, LoggerMode& Mode)
{
    const std::size_t End = Command.find_first_of("?=");
    if (End == std::string::npos) return {};
    const std::string Key = Command.substr(1, End - 1);
    const std::string Value = Command.substr(End + 1);
    for (const Known& Each : Table) {
        if (Key != Each.Key) continue;
        if (Command[End] == '?') return Report(Each, Mode);
        if (Each.IsTable) return SetRow(Each, Value, Mode);
        if (Each.IsValid(Value)) Mode.Values[Key] = Value;
        return Report(Each, Mode);
    }
    return {};
}

// Settings in use are those that were kept, and all else is as after switching on.
void Restart(LoggerMode& Mode)
{
    Mode.Values = Mode.Saved;
    Mode.IsRunning = true;
    ++Mode.Resets;
}
} // namespace

LoggerMode SwitchedOn(const FrameLayout& Layout, int Freq)
{
    LoggerMode Mode;
    for (const Known& Each : Table)
        if (Each.Value) Mode.Values[Each.Key] = Each.Value;
    Mode.Values["MODE"] = "2," + FormatNum(MillisPerSecond / Freq, "0") + ",0";
    Mode.Values["CHMSK"] = MaskOf(Layout);
    Mode.Values["WLDEVCFG/0"] = "0,1,00B9,048D,0013";
    Mode.Saved = Mode.Values;
    return Mode;
}

std::vector<LoggerAnswer> AnswerCommand(const std::string& Command, LoggerMode& Mode, const LocalTime& Now)
{
    constexpr std::string_view SetClockKey = "#UTC=";
    if (Command == "#BLCON") return {};
    if (Command == "#RUN" || Command == "#SETUP" || Command == "#SETUP<CR>") {
        Mode.IsRunning = Command == "#RUN";
        return Mode.IsRunning ? std::vector<LoggerAnswer>{} : std::vector<LoggerAnswer>{{0, Reply("SETUP", "OK")}};
    }
    if (Command == "#SN?") return {{0, Reply("SN", SerialNumber)}};
    if (Command.starts_with(SetClockKey)) Mode.SetClock = Command.substr(SetClockKey.size());
    if (Command == "#UTC?" || Command.starts_with(SetClockKey)) return {{0, Reply("UTC", ClockText(Mode, Now))}};
    if (Command == "#SAVE") Mode.Saved = Mode.Values;
    if (Command == "#RST") Restart(Mode);
    for (const char* Plain : {"#SAVE", "#RST", "#WLCON"})
        if (Command == Plain) return {{0, Reply(Command.substr(1), "OK")}};
    for (const Scan& Each : Scans) {
        if (Command != Each.Command) continue;
        std::vector<LoggerAnswer> Lines;
        for (const Heard& Device : Each.Devices)
            Lines.push_back({Device.Delay, Reply(Each.Key, Device.Device)});
        return Lines;
    }
    if (auto Lines = AskOrSet(Command, Mode); !Lines.empty()) return Lines;
    const bool IsEmptyTable = Command == "#WLDEVCFG?" || Command == "#BLDEVCFG?" || Command == "#CYFUN?";
    return {{0, IsEmptyTable ? Reply(Command.substr(1, Command.size() - 2), "NONE") : Reply("ERR", Command)}};
}

int FreqOf(const LoggerMode& Mode)
{
    const double Period = Val(Mode.Values.at("MODE").substr(2));
    return static_cast<int>(RoundHalfEven(MillisPerSecond / Period));
}

int SpeedOf(const LoggerMode& Mode)
{
    const auto Set = Mode.Values.find("PORTCFG");
    if (Set == Mode.Values.end()) return 0;
    for (const auto& [Code, Speed] : Speeds)
        if (Set->second[0] == Code) return Speed;
    return 0;
}

FrameLayout LayoutOf(const LoggerMode& Mode, const FrameLayout& Layout)
{
    const auto Entries = ReadMask(Mode.Values.at("CHMSK"));
    if (!IsMasterModel(Layout.Model) || Layout.SlaveCnt < 1 || Mode.Values.at("CHMSK") == MaskOf(Layout)) return Layout;
    // All slaves send blocks of one size; the last one says whether they are signed, as it does for the reader.
    const auto Last = std::min(static_cast<std::size_t>(Layout.SlaveCnt), Entries.size());
    const MaskEntry& Entry = Entries[Last - 1];
    FrameLayout Set = Layout;
    Set.SlaveChans = Entry.Digit->Chans + (Entry.HasExtras ? 2 : 0);
    Set.Signed = Entry.Digit->IsSigned;
    return Set;
}
