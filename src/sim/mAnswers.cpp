// The commands as a table of what they begin with.
#include "sim/mAnswers.h"

#include "base/mNumText.h"

#include <array>
#include <string_view>

namespace {
constexpr const char* SerialNumber = "SIM-0001";
constexpr double MillisPerSecond = 1000;

std::string Reply(std::string_view Key, std::string_view Value)
{
    return std::string("#").append(Key).append(": ").append(Value).append("\r");
}

std::string ModeText(const LoggerMode& Mode)
{
    return Reply("MODE", "2," + FormatNum(MillisPerSecond / Mode.Freq, "0") + ",0");
}

std::string ClockText(const LoggerMode& Mode, const LocalTime& Now)
{
    if (!Mode.SetClock.empty()) return Reply("UTC", Mode.SetClock);
    std::string Text = FormatNum(Now.Year, "0000");
    const std::array<std::pair<char, int>, 5> Parts = {
        {{'/', Now.Month}, {'/', Now.Day}, {'-', Now.Hour}, {':', Now.Minute}, {':', Now.Second}}};
    for (const auto& [Separator, Value] : Parts)
        Text += Separator + FormatNum(Value, "00");
    return Reply("UTC", Text);
}

std::string SetMode(std::string_view Value, LoggerMode& Mode)
{
    for (const int Freq : {25, 50, 100})
        if (Value == "2," + FormatNum(MillisPerSecond / Freq, "0") + ",0") Mode.Freq = Freq;
    return ModeText(Mode);
}
} // namespace

std::string AnswerCommand(const std::string& Command, LoggerMode& Mode, const LocalTime& Now)
{
    constexpr std::string_view SetModeKey = "#MODE=";
    constexpr std::string_view SetClockKey = "#UTC=";
    if (Command == "#RUN") {
        Mode.IsRunning = true;
        return {};
    }
    if (Command == "#SETUP<CR>") {
        Mode.IsRunning = false;
        return Reply("SETUP", "OK");
    }
    if (Command == "#MODE?") return ModeText(Mode);
    if (Command.starts_with(SetModeKey)) return SetMode(std::string_view(Command).substr(SetModeKey.size()), Mode);
    if (Command == "#SN?") return Reply("SN", SerialNumber);
    if (Command == "#UTC?") return ClockText(Mode, Now);
    if (Command.starts_with(SetClockKey)) {
        Mode.SetClock = Command.substr(SetClockKey.size());
        return ClockText(Mode, Now);
    }
    return Reply("ERR", Command);
}
