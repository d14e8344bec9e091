// The per-user settings: one global for each key, and the one table from which loading, saving and setting by key
// follow.
#pragma once

#include "base/mCodePage.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <variant>

extern int16_t gLanguage;   // eLanguage
extern int16_t gCodePage;   // legacy code page of text files, 0: by language (1252 English, 1251 Russian)
extern int16_t gErgoMode;   // "Ergometer Mode"
extern int16_t gInBoatMode; // "In-Boat Mode"
extern int16_t gKeyModeSet; // stroke key mode when the file's is out of range
extern int16_t gExpSTD;     // deviations are stored with a sample
extern int16_t gConnection; // eConnection
extern std::string gTCPaddress;
extern int16_t gTCPport;
extern std::string gRowersDBFN;
extern int16_t gProcRuns; // processing passes
extern bool gToolBar;
extern bool gStatusBar;
extern double gDataFreq; // Hz, nominal sampling frequency
extern double StdFilter; // width of acceptance bands in standard deviations
extern int16_t gUseNonLinear;
extern int32_t gQVNbauds;    // serial speed of models 60 to 65
extern int16_t gPictureRate; // pictures a second that live windows bring to the screen; a small computer needs fewer
extern int16_t gQVN_RTS;
extern int16_t gQVN_GPS;
extern int16_t gQVN_BT;
extern int16_t gQVN_BLE;
extern std::array<int32_t, 9> gRGB; // 0x00BBGGRR
extern int16_t gDrawWidth;
extern int16_t gSplitPar; // eSplit
extern double VQ0;        // speed = VQ0 + VQ1 x count
extern double VQ1;
extern int16_t gSplitsCnt;
extern std::array<double, 11> gSplitsArr; // lengths of the splits from element 1 on; s when splits go by time
extern int16_t gVChan;                    // speed channel of a raw-file scan
extern int16_t gAutoCalibr;
extern int16_t gAutoSwitchCal;
extern int16_t fTorque;
extern int16_t fXisLog;
extern int16_t fAutoAxes;
extern int16_t fApproxMode;
extern double fCutOff;
extern int16_t gIsTargVals;
extern int16_t gIsTargCurves;
extern int16_t gDoReZero;
extern int16_t gRSFmode;
extern int16_t gSeatChan;
extern int16_t gTrunkChan;
extern double gRSFval0;
extern double gRSFval1;
extern int16_t gCFLow;
extern int16_t gCFHigh;
extern int16_t gCFmarg;
extern int16_t gRSFmarg;
extern int16_t gFFmarg;
extern double gCFslope;
extern int16_t gRSFLow;
extern int16_t gRSFHigh;
extern int16_t gFFLow;
extern int16_t gFFHigh;
extern double gFFslope;
extern int32_t gSessCnt;
extern int16_t gXScale;      // samples per plotted point of the data view
extern int16_t mDisplayMode; // eDisplay
extern int16_t mScullMode;   // eScull

/// One key of the store, the global that it fills, and the value of a missing key.
struct Setting
{
    std::string Section;
    std::string Key;
    std::variant<int16_t*, int32_t*, double*, bool*, std::string*> Global;
    std::string Default;
};

/// All settings in the order of the documentation.
std::span<const Setting> AllSettings();

/// The setting of that key, null when there is none.
const Setting* FindSetting(const std::string& Key);

/// Whether Text is a value that the setting's global can hold.
bool IsValidFor(const Setting& Item, const std::string& Text);

/// The code page of files that are not UTF-8: that of gCodePage, without it that of the language.
LegacyPage TextPage();

/// Fills every global from the store; a missing or unusable value gives the default.
void LoadSettings();

/// Fills one global from the store.
void LoadSetting(const std::string& Key);

/// Puts the global of a key into the store.
void SaveSetting(const std::string& Key);
