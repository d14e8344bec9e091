// The table of options and its two uses.
#include "sim/mSimOptions.h"

#include "base/mNumText.h"
#include "sim/mRigOption.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {
struct Option
{
    const char* Name;
    const char* Value; // null: the option has none
    const char* Help;
    bool (*Take)(SimOptions&, const std::string&); // false: no such value
};

// A number that is the whole text and lies in a range.
std::optional<double> NumberIn(const std::string& Text, double Low, double High)
{
    const bool IsPlain = !Text.empty() && Text.find_first_not_of("0123456789.") == std::string::npos &&
                         std::count(Text.begin(), Text.end(), '.') <= 1;
    const auto X = IsPlain ? LeadingNumber(Text) : std::nullopt;
    return X && *X >= Low && *X <= High ? X : std::nullopt;
}

bool TakeReal(double& Into, const std::string& Text, double Low, double High)
{
    const auto X = NumberIn(Text, Low, High);
    if (X) Into = *X;
    return X.has_value();
}

template <class Int>
bool TakeWhole(Int& Into, const std::string& Text, double Low, double High)
{
    const auto X = Text.find('.') == std::string::npos ? NumberIn(Text, Low, High) : std::nullopt;
    if (X) Into = static_cast<Int>(*X);
    return X.has_value();
}

bool TakeText(std::string& Into, const std::string& Text)
{
    Into = Text;
    return !Text.empty();
}

bool TakePerMille(double& Into, const std::string& Text)
{
    return TakeReal(Into, Text, 0, 1000);
}

bool TakeKinds(SimOptions& Options, const std::string& Text)
{
    constexpr std::array<int, 5> Known = {KindNone, KindWords, KindPlace, KindNoDist, KindAll};
    std::vector<int> Kinds;
    for (std::size_t From = 0; From <= Text.size();) {
        const std::size_t Comma = std::min(Text.find(',', From), Text.size());
        int Kind = 0;
        if (!TakeWhole(Kind, Text.substr(From, Comma - From), 0, KindAll)) return false;
        if (std::find(Known.begin(), Known.end(), Kind) == Known.end()) return false;
        Kinds.push_back(Kind);
        From = Comma + 1;
    }
    Options.Logger.Kinds = Kinds;
    return true;
}

bool TakeFreq(SimOptions& Options, const std::string& Text)
{
    return (Text == "25" || Text == "50" || Text == "100") && TakeWhole(Options.Freq, Text, 25, 100);
}

bool TakeStrokes(SimOptions& Options, const std::string& Text)
{
    return TakeWhole(Options.Strokes, Text, 1, 100000);
}

bool TakeSeconds(SimOptions& Options, const std::string& Text)
{
    Options.Strokes = 0;
    return TakeReal(Options.Seconds, Text, 0.01, 604800);
}

constexpr double HighestSeed = 9007199254740991;

constexpr std::array<Option, 26> Table = {{
    {"--file", "OUT.qvn", "the recording to write, as a whole new file",
     [](SimOptions& To, const std::string& Text) { return TakeText(To.Recording, Text); }},
    {"--monitor", "FILE",
     "the replies of a performance monitor on which seat 1 rows, 50 polls a second; beside a recording, or alone",
     [](SimOptions& To, const std::string& Text) { return TakeText(To.Replies, Text); }},
    {"--video", "FILE",
     "a video of the rower of seat 1 from the side, with picture number and time; .mp4, .mkv, .avi or .mpg says which "
     "kind; beside a recording, or alone",
     [](SimOptions& To, const std::string& Text) { return TakeText(To.Video, Text); }},
    {"--fps", "N", "pictures a second of the video, 25 to 100 (default 50)",
     [](SimOptions& To, const std::string& Text) { return TakeReal(To.VideoRate, Text, 25, 100); }},
    {"--tcp", "PORT", "stream live to whoever connects to this TCP port on this machine",
     [](SimOptions& To, const std::string& Text) { return TakeWhole(To.Port, Text, 1, 65535); }},
    {"--pty", "LINK", "stream live on a serial line: a pseudo-terminal behind this symbolic link",
     [](SimOptions& To, const std::string& Text) { return TakeText(To.Terminal, Text); }},
    {"--speed", "N", "stream N times faster than real time, 0.1 to 1000 (default 1)",
     [](SimOptions& To, const std::string& Text) { return TakeReal(To.Speed, Text, 0.1, 1000); }},
    {"--cut", "SECONDS", "drop the link every so often for a second; it comes back by itself",
     [](SimOptions& To, const std::string& Text) { return TakeReal(To.Cut, Text, 0.1, 86400); }},
    {"--sent", "FILE", "at the end of a stream write the bytes that were sent while the link was there",
     [](SimOptions& To, const std::string& Text) { return TakeText(To.Sent, Text); }},
    {"--rig", "RIG", "instead of a rowing crew a channel on a calibration rig, described below; may be given again",
     [](SimOptions& To, const std::string& Text) { return TakeRig(To.Logger.Rigs.emplace_back(), Text); }},
    {"--truth", "FILE",
     "also write the true strokes as a table: boundaries, rate, angles, length, peak force, on an ergometer turns; of "
     "a "
     "rig its own curve; with a video the joints on each of its pictures instead",
     [](SimOptions& To, const std::string& Text) { return TakeText(To.Truth, Text); }},
    {"--strokes", "N", "whole strokes, 1 to 100000 (default 30 of a recording; a stream is endless)", TakeStrokes},
    {"--seconds", "S", "length in seconds, instead of --strokes", TakeSeconds},
    {"--rate", "R", "strokes per minute, 10 to 60 (default 28)",
     [](SimOptions& To, const std::string& Text) { return TakeReal(To.Logger.Rate, Text, 10, 60); }},
    {"--spread", "PERCENT", "standard deviation of the stroke periods, 0 to 20 per cent of their mean (default 2)",
     [](SimOptions& To, const std::string& Text) { return TakeReal(To.Logger.Spread, Text, 0, 20); }},
    {"--seed", "N", "another crew on another day; the same number gives the same bytes (default 1)",
     [](SimOptions& To, const std::string& Text) { return TakeWhole(To.Logger.Seed, Text, 0, HighestSeed); }},
    {"--model", "M",
     "60 to 65 master and slaves, 66 old slave, 67 slave, 68 slave with encoder (default: the session's)",
     [](SimOptions& To, const std::string& Text) { return TakeWhole(To.Model, Text, 60, 68); }},
    {"--freq", "HZ", "25, 50 or 100 frames a second (default: by the session's time step)", TakeFreq},
    {"--kinds", "LIST", "kinds of a master's frames in turn, of 0, 26, 34, 36, 38 (default 38, all channels in each)",
     TakeKinds},
    {"--junk", "PERMILLE", "of a thousand frames so many have stray bytes ahead of them (default 0)",
     [](SimOptions& To, const std::string& Text) { return TakePerMille(To.Logger.Faults.Junk, Text); }},
    {"--corrupt", "PERMILLE", "so many have a bit turned over (default 0)",
     [](SimOptions& To, const std::string& Text) { return TakePerMille(To.Logger.Faults.Corrupt, Text); }},
    {"--drop", "PERMILLE", "so many are lost (default 0)",
     [](SimOptions& To, const std::string& Text) { return TakePerMille(To.Logger.Faults.Drop, Text); }},
    {"--spikes", "PERMILLE", "so many have one channel that jumps (default 0)",
     [](SimOptions& To, const std::string& Text) { return TakePerMille(To.Logger.Faults.Spikes, Text); }},
    {"--mute", nullptr, "obey commands without answering them",
     [](SimOptions& To, const std::string&) { return To.Mute = true; }},
    {"--slow-answers", nullptr, "answer 0.3 seconds late",
     [](SimOptions& To, const std::string&) { return To.SlowAnswers = true; }},
    {"--split-answers", nullptr, "answer byte by byte, and break off in a frame at #SETUP",
     [](SimOptions& To, const std::string&) { return To.SplitAnswers = true; }},
}};

// Takes the option in Words[i]; i moves on when its value is the next word.
std::string TakeOption(std::span<const std::string> Words, std::size_t& i, SimOptions& Options)
{
    const std::string& Word = Words[i];
    const std::size_t Equal = std::min(Word.find('='), Word.size());
    const std::string Name = Word.substr(0, Equal);
    const auto Found = std::find_if(Table.begin(), Table.end(), [&](const Option& Each) { return Each.Name == Name; });
    if (Found == Table.end()) return "there is no option " + Name;
    if (!Found->Value && Equal < Word.size()) return Name + " takes no value";
    if (!Found->Value) {
        Found->Take(Options, "");
        return {};
    }
    if (Equal == Word.size() && i + 1 == Words.size()) return Name + " needs " + Found->Value;
    const std::string Value = Equal < Word.size() ? Word.substr(Equal + 1) : Words[++i];
    if (!Found->Take(Options, Value)) return Name + " cannot be \"" + Value + "\"";
    return {};
}
} // namespace

std::string ParseSimOptions(std::span<const std::string> Words, SimOptions& Options)
{
    for (std::size_t i = 0; i < Words.size(); ++i) {
        const std::string& Word = Words[i];
        if (Word == "--help")
            Options.WantsHelp = true;
        else if (Word == "--version")
            Options.WantsVersion = true;
        else if (Word.starts_with("--")) {
            if (std::string Wrong = TakeOption(Words, i, Options); !Wrong.empty()) return Wrong;
        } else if (Options.Session.empty() && !Word.empty())
            Options.Session = Word;
        else
            return "\"" + Word + "\" is one argument too many";
    }
    if (Options.WantsHelp || Options.WantsVersion) return {};
    if (Options.Session.empty()) return "no session data file given";
    const int Ways =
        (Options.Recording.empty() ? 0 : 1) + (Options.Port == 0 ? 0 : 1) + (Options.Terminal.empty() ? 0 : 1);
    const bool IsBeside = Ways == 0 && (!Options.Replies.empty() || !Options.Video.empty());
    if (Ways != 1 && !IsBeside) return "give one of --file, --tcp and --pty, or --monitor, or --video";
    if (!Options.Video.empty() && !Options.Logger.Rigs.empty()) return "nobody rows on a rig: --video has no rower";
    if (!Options.Replies.empty() && !Options.Logger.Rigs.empty())
        return "nobody rows on a rig: --monitor has no strokes";
    const bool Streams = Options.Port != 0 || !Options.Terminal.empty();
    if (Streams && !Options.Video.empty()) return "--video goes with --file, or alone";
    return Streams && !Options.Replies.empty() ? "--monitor goes with --file, or alone" : "";
}

std::string SimUsage()
{
    return "skarvelin-sim --file OUT.qvn | --tcp PORT | --pty LINK | --monitor FILE | --video FILE SESSION [OPTION "
           "[VALUE]]...";
}

std::string SimHelp()
{
    constexpr std::size_t Column = 22;
    std::string Text = "Usage: " + SimUsage() +
                       "\n\nWrites the recording, or streams the frames, that a logger with the channels of the "
                       "session data file SESSION\nwould make of a crew that rows by the options. A stream obeys the "
                       "logger's set-up commands and ends with its seconds\nor with Ctrl-C.\n\n";
    for (const Option& Each : Table) {
        std::string Line = std::string("  ") + Each.Name + (Each.Value ? std::string(" ") + Each.Value : "");
        Line.resize(std::max(Line.size() + 2, Column), ' ');
        Text += Line + Each.Help + "\n";
    }
    return Text +
           "  --help              this text\n  --version           the version\n\n"
           "A value may also follow its option behind \"=\". Channels are known by their ParamID: A, V, H, G, S "
           "and T with the\nseat's number (oar angle, vertical angle, handle force, gate force, seat, trunk; "
           "sides 3 and 4 are the right and\nleft scull), Acc, AccY, AccZ, Roll, Pitch, Yaw, Vs, Dist, Lat and "
           "Lon. All others rest at zero. With the boat type\nErg one rower is on an ergometer: L is the handle's "
           "chain in metres, H its force, S the seat and T the trunk.\n\n" +
           RigHelp() + "\nExit code: 0 done, 1 a failure was reported, 2 wrong usage.\n";
}
