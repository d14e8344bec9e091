// The settings' globals and the table that ties them to section, key and default.
#include "core/mSettings.h"

#include "base/mNumText.h"
#include "core/mModes.h"
#include "platform/mHost.h"

#include <cmath>
#include <limits>
#include <vector>

int16_t gLanguage, gCodePage, gErgoMode, gInBoatMode, gKeyModeSet, gExpSTD, gConnection, gTCPport, gProcRuns;
int16_t gUseNonLinear, gQVN_RTS, gQVN_GPS, gQVN_BT, gQVN_BLE, gDrawWidth, gSplitPar, gSplitsCnt, gVChan;
int16_t gAutoCalibr, gAutoSwitchCal, fTorque, fXisLog, fAutoAxes, fApproxMode;
int16_t gIsTargVals, gIsTargCurves, gDoReZero, gRSFmode, gSeatChan, gTrunkChan;
int16_t gCFLow, gCFHigh, gCFmarg, gRSFmarg, gFFmarg, gRSFLow, gRSFHigh, gFFLow, gFFHigh, gXScale;
int16_t mDisplayMode, mScullMode;
int16_t gPictureRate = 60; // a surface may be drawn on before LoadSettings
int32_t gQVNbauds, gSessCnt;
double gDataFreq, StdFilter, VQ0, VQ1, fCutOff, gRSFval0, gRSFval1, gCFslope, gFFslope;
bool gToolBar, gStatusBar;
std::string gTCPaddress, gRowersDBFN;
std::array<int32_t, 9> gRGB;
std::array<double, 11> gSplitsArr;

namespace {
// White, red, sky blue, green, grey, magenta, cyan, brown, black.
constexpr std::array<const char*, 9> Colours = {"16777215", "255",      "16744448", "65280", "9408399",
                                                "16711935", "16776960", "4227072",  "0"};

std::vector<Setting> MakeSettings()
{
    std::vector<Setting> Table = {
        {"General", "gLanguage", &gLanguage, "0"},
        {"General", "gCodePage", &gCodePage, "0"},
        {"General", "gErgoMode", &gErgoMode, "0"},
        {"General", "gInBoatMode", &gInBoatMode, "0"},
        {"General", "gKeyMode", &gKeyModeSet, "0"},
        {"General", "gExpSTD", &gExpSTD, "0"},
        {"General", "gConnection", &gConnection, "0"},
        {"General", "gTCPaddress", &gTCPaddress, "127.0.0.1"},
        {"General", "gTCPport", &gTCPport, "6000"},
        {"General", "gRowersDBFN", &gRowersDBFN, ""},
        {"General", "gProcRuns", &gProcRuns, "1"},
        {"Settings", "ToolBar", &gToolBar, "-1"},
        {"Settings", "StatusBar", &gStatusBar, "-1"},
        {"Options", "gDataFreq", &gDataFreq, "25"},
        {"Options", "StdFilter", &StdFilter, "1"},
        {"Options", "gUseNonLinear", &gUseNonLinear, "0"},
        {"Options", "gQVNbauds", &gQVNbauds, "57600"},
        {"Options", "gQVN_RTS", &gQVN_RTS, "0"},
        {"Options", "gQVN_GPS", &gQVN_GPS, "1"},
        {"Options", "gQVN_BT", &gQVN_BT, "0"},
        {"Options", "gQVN_BLE", &gQVN_BLE, "0"},
        {"Options", "gPictureRate", &gPictureRate, "60"},
        {"RGBArr", "gDrawWidth", &gDrawWidth, "3"},
        {"AutoSplit", "gSplitPar", &gSplitPar, "0"},
        {"AutoSplit", "VQ0", &VQ0, "0"},
        {"AutoSplit", "gSplitsCnt", &gSplitsCnt, "0"},
        {"AutoSplit", "gVChan", &gVChan, "15"},
        {"AutoSplit", "VQ1", &VQ1, "1"},
        {"Calibration", "gAutoCalibr", &gAutoCalibr, "0"},
        {"Calibration", "gAutoSwitchCal", &gAutoSwitchCal, "0"},
        {"Calibration", "fTorque", &fTorque, "0"},
        {"Calibration", "fXisLog", &fXisLog, "1"},
        {"Calibration", "fAutoAxes", &fAutoAxes, "1"},
        {"Calibration", "fApproxMode", &fApproxMode, "1"},
        {"Calibration", "fCutOff", &fCutOff, "0"},
        {"Models", "gIsTargVals", &gIsTargVals, "0"},
        {"Models", "gIsTargCurves", &gIsTargCurves, "0"},
        {"Models", "gDoReZero", &gDoReZero, "0"},
        {"Models", "gRSFmode", &gRSFmode, "0"},
        {"Models", "gSeatChan", &gSeatChan, "6"},
        {"Models", "gTrunkChan", &gTrunkChan, "7"},
        {"Models", "gRSFval0", &gRSFval0, "0.2"},
        {"Models", "gRSFval1", &gRSFval1, "0.3"},
        {"Models", "gCFLow", &gCFLow, "-40"},
        {"Models", "gCFHigh", &gCFHigh, "0"},
        {"Models", "gCFmarg", &gCFmarg, "2"},
        {"Models", "gRSFmarg", &gRSFmarg, "2"},
        {"Models", "gFFmarg", &gFFmarg, "2"},
        {"Models", "gCFslope", &gCFslope, "0.6"},
        {"Models", "gRSFLow", &gRSFLow, "80"},
        {"Models", "gRSFHigh", &gRSFHigh, "100"},
        {"Models", "gFFLow", &gFFLow, "-80"},
        {"Models", "gFFHigh", &gFFHigh, "0"},
        {"Models", "gFFslope", &gFFslope, "-0.6"},
        {"FileNames", "gSessCnt", &gSessCnt, "0"},
        {"fData02view", "gXScale", &gXScale, "1"},
        {"fData01Coach", "mDisplayMode", &mDisplayMode, "0"},
        {"fData01Coach", "mScullMode", &mScullMode, "0"},
    };
    for (std::size_t i = 0; i < gSplitsArr.size(); ++i)
        Table.push_back({"AutoSplit", "gSplitsArr" + FormatNum(static_cast<double>(i), "00"), &gSplitsArr[i], "0"});
    for (std::size_t i = 0; i < gRGB.size(); ++i)
        Table.push_back({"RGBArr", "RGBArr" + FormatNum(static_cast<double>(i), "00"), &gRGB[i], Colours[i]});
    return Table;
}

// The number in Text when nothing but blanks surrounds it.
std::optional<double> WholeText(const std::string& Text)
{
    const auto Last = Text.find_last_not_of(" \t");
    if (Last == std::string::npos || std::string_view("0123456789.").find(Text[Last]) == std::string_view::npos)
        return {};
    return LeadingNumber(Text);
}

template <class Target>
bool Fits(double X)
{
    if constexpr (std::is_integral_v<Target>)
        return RoundHalfEven(X) >= std::numeric_limits<Target>::min() &&
               RoundHalfEven(X) <= std::numeric_limits<Target>::max();
    return std::isfinite(X);
}

template <class Target>
bool Store(Target& Global, const std::string& Text)
{
    if constexpr (std::is_same_v<Target, std::string>) {
        Global = Text;
        return true;
    } else if constexpr (std::is_same_v<Target, bool>) {
        if (Text == "true" || Text == "false") {
            Global = Text == "true";
            return true;
        }
        const auto X = WholeText(Text);
        if (X) Global = *X != 0;
        return X.has_value();
    } else {
        const auto X = WholeText(Text);
        if (!X || !Fits<Target>(*X)) return false;
        Global = static_cast<Target>(std::is_integral_v<Target> ? RoundHalfEven(*X) : *X);
        return true;
    }
}

void Load(const Setting& Item)
{
    const auto Stored = gHost.Settings->GetSetting(Item.Section, Item.Key);
    std::visit(
        [&](auto* Global) {
            if (!Stored || !Store(*Global, *Stored)) Store(*Global, Item.Default);
        },
        Item.Global);
}

template <class Target>
std::string TextOf(const Target& Global)
{
    if constexpr (std::is_same_v<Target, std::string>)
        return Global;
    else if constexpr (std::is_same_v<Target, bool>)
        return FormatBool(Global);
    else
        return FormatShortest(static_cast<double>(Global));
}
} // namespace

std::span<const Setting> AllSettings()
{
    static const std::vector<Setting> Table = MakeSettings();
    return Table;
}

const Setting* FindSetting(const std::string& Key)
{
    for (const Setting& Item : AllSettings())
        if (Item.Key == Key) return &Item;
    return nullptr;
}

bool IsValidFor(const Setting& Item, const std::string& Text)
{
    return std::visit(
        [&](auto* Global) {
            auto Trial = *Global;
            return Store(Trial, Text);
        },
        Item.Global);
}

LegacyPage TextPage()
{
    if (gCodePage == 1251) return LegacyPage::Cyrillic;
    if (gCodePage == 1252) return LegacyPage::Latin;
    return gLanguage == LanguageRussian ? LegacyPage::Cyrillic : LegacyPage::Latin;
}

void LoadSettings()
{
    for (const Setting& Item : AllSettings())
        Load(Item);
}

void LoadSetting(const std::string& Key)
{
    if (const Setting* Item = FindSetting(Key)) Load(*Item);
}

void SaveSetting(const std::string& Key)
{
    const Setting* Item = FindSetting(Key);
    if (!Item) return;
    const std::string Text = std::visit([](const auto* Global) { return TextOf(*Global); }, Item->Global);
    gHost.Settings->SaveSetting(Item->Section, Item->Key, Text);
}
