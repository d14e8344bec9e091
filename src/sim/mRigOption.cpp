// One table of the parameters, for reading and for the help.
#include "sim/mRigOption.h"

#include "base/mNumText.h"

#include <algorithm>

namespace {
struct Parameter
{
    const char* Name;
    double Low;
    double High;
    double RigSettings::*Into; // null: another type
    const char* Help;
};

// Bow and wave together keep the curve going one way.
constexpr Parameter Table[] = {
    {"hold", 0, 3600, &RigSettings::Hold, "seconds that each load is held, 0 to 3600 (default 4)"},
    {"ramp", 0, 3600, &RigSettings::Ramp, "seconds from one load to the next, 0 to 3600 (default 1)"},
    {"noise", 0, 1000, &RigSettings::Noise, "standard deviation of the counts, 0 to 1000 (default 1)"},
    {"hyst", 0, 20, &RigSettings::Hyst, "the rising and the falling curve are so far apart, 0 to 20 per cent"},
    {"bend", -15, 15, &RigSettings::Bend, "bow of the curve at its middle, -15 to 15 per cent"},
    {"wave", -4, 4, &RigSettings::Wave, "height of an S along the curve, -4 to 4 per cent"},
    {"q0", -1e9, 1e9, nullptr, "offset of the sensor's line in physical units (default: the session's Q0)"},
    {"q1", -1e9, 1e9, nullptr, "its gain in physical units a count (default: the session's Q1)"},
    {"calibrator", 0, 0, nullptr, "a second channel that measures the same loads by its line in the session"},
};

std::optional<double> RealNumber(const std::string& Text)
{
    const std::size_t Sign = Text.starts_with('-') ? 1 : 0;
    const bool IsPlain = Text.size() > Sign && Text.find_first_not_of("0123456789.", Sign) == std::string::npos &&
                         std::count(Text.begin(), Text.end(), '.') <= 1;
    return IsPlain ? LeadingNumber(Text) : std::nullopt;
}

bool TakeParameter(RigSettings& Rig, const std::string& Name, const std::string& Text)
{
    const auto Found =
        std::find_if(std::begin(Table), std::end(Table), [&](const Parameter& Each) { return Name == Each.Name; });
    if (Found == std::end(Table)) return false;
    if (Name == "calibrator") {
        Rig.Calibrator = Text;
        return !Text.empty();
    }
    const auto X = RealNumber(Text);
    if (!X || *X < Found->Low || *X > Found->High) return false;
    if (Name == "q0")
        Rig.Q0 = X;
    else if (Name == "q1")
        Rig.Q1 = X;
    else
        Rig.*Found->Into = *X;
    return true;
}

bool TakeItem(RigSettings& Rig, const std::string& Item)
{
    const std::size_t Equal = Item.find('=');
    if (Equal != std::string::npos) return TakeParameter(Rig, Item.substr(0, Equal), Item.substr(Equal + 1));
    const auto Load = RealNumber(Item);
    if (Load) Rig.Loads.push_back(*Load);
    return Load.has_value();
}
} // namespace

bool TakeRig(RigSettings& Rig, const std::string& Text)
{
    const std::size_t Equal = std::min(Text.find('='), Text.size());
    RigSettings New;
    New.Chan = Text.substr(0, Equal);
    for (std::size_t From = Equal + 1; From <= Text.size();) {
        const std::size_t Comma = std::min(Text.find(',', From), Text.size());
        if (!TakeItem(New, Text.substr(From, Comma - From))) return false;
        From = Comma + 1;
    }
    if (New.Chan.empty() || New.Loads.empty() || New.Hold + New.Ramp <= 0) return false;
    Rig = New;
    return true;
}

std::string RigHelp()
{
    std::string Text = "A rig is CHANNEL=LOAD,LOAD,...,NAME=VALUE,...: channel by number or ParamID, loads in physical "
                       "units, which are put\non it in turn, for example --rig H1=0,200,400,600,400,200,hyst=2 with "
                       "these parameters:\n";
    for (const Parameter& Each : Table) {
        std::string Line = std::string("  ") + Each.Name + "=";
        Line.resize(14, ' ');
        Text += Line + Each.Help + "\n";
    }
    return Text +
           "Per cent are of the range of the loads. All other channels rest at their zero levels. A stream reports "
           "each load when\nit has come to rest.\n";
}
