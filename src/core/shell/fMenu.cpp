// Menus and toolbar as tables.
#include "core/shell/fMenu.h"

#include "core/mDataWindow.h"
#include "core/shell/fCommands.h"
#include "core/shell/fDigitising.h"
#include "core/shell/fPlayCommands.h"
#include "core/shell/frmMain.h"

namespace {
// Why an entry is there and cannot be chosen.
constexpr const char* NotUsed = "Not in use";

constexpr MenuTitle Menus[] = {
    {"mnuFile", "&File"}, {"mnuSetUp", "&SetUp"}, {"mnuCalibrate", "&Calibrate"}, {"mnuSample", "S&Ample"},
    {"mnuView", "&View"}, {"mnuPlay", "&Play"},   {"mnuWindow", "&Window"},       {"mnuHelp", "&Help"},
};

constexpr MenuItem Items[] = {
    {"mnuFile", "mnuFileNew", "&New", "Ctrl+N", FileNew, nullptr},
    {"mnuFile", "mnuFileOpen", "&Open...", "Ctrl+O", FileOpen, nullptr},
    {"mnuFile", "mnuFileSave", "&Save", "Ctrl+S", FileSave, nullptr},
    {"mnuFile", "mnuFileSaveAs", "Save A&s...", "Ctrl+Shift+S", FileSaveAs, nullptr},
    {"mnuFile", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mnuFile", "mnuFileExit", "E&xit", "Ctrl+Q", FileExit, nullptr},

    {"mnuSetUp", "mnuSetGlobals", "&Globals...", nullptr, nullptr, nullptr, "fOpts"},
    {"mnuSetUp", "mnuSetSkarvelin", "Skarvelin", nullptr, nullptr, nullptr, "fADCsetup"},
    {"mnuSetUp", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mnuSetUp", "mnuSetSession", "S&ession...", nullptr, SetSession, nullptr},
    {"mnuSetUp", "mnuSetAthlete", "Athlete Data", nullptr, nullptr, nullptr, "fAthleteInp"},
    {"mnuSetUp", "mnuSetCrew", "&Crew...", nullptr, nullptr, nullptr, "fDataGrid", "Crew"},
    {"mnuSetUp", "mnuSetCalibr", "C&alibration...", nullptr, nullptr, nullptr, "fDataGrid", "Calibr"},
    {"mnuSetUp", "mnuSetBoat", "&Boat SetUp...", nullptr, nullptr, nullptr, "fDataGrid", "Boat"},
    {"mnuSetUp", "mnuSetAntro", "Anthropometr&y...", nullptr, nullptr, nullptr, "fDataGrid", "Antro"},
    {"mnuSetUp", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mnuSetUp", "mnuSetView1", "A&quisition View...", nullptr, nullptr, nullptr, "fDataGrid", "View1"},
    {"mnuSetUp", "mnuSetView3", "&Report View...", nullptr, nullptr, nullptr, "fDataGrid", "View3"},
    {"mnuSetUp", "mnuSetView4", "&Play View...", nullptr, nullptr, nullptr, "fDataGrid", "View4"},
    {"mnuSetUp", "mnuSetTargets", "&Targets", nullptr, nullptr, nullptr, "fTargets"},

    {"mnuCalibrate", "mnuCalibrCheck", "&Check Channels", "F5", CheckChannels, nullptr},
    {"mnuCalibrate", "mnuCalibrDo", "&Do Calibration", nullptr, nullptr, nullptr, "fDoCalibr"},
    {"mnuCalibrate", "mnuCalibrReZero", "Re&Zero Channels...", nullptr, nullptr, nullptr, "fDoReZero"},
    {"mnuCalibrate", "mnuCalibrAutoReZero", "A&uto ReZero...", nullptr, AskAutoReZero, nullptr},
    {"mnuCalibrate", "mnuCalibrZeroCal", "Set Calib&Rator...", nullptr, SetCalibrator, nullptr},
    {"mnuCalibrate", "mnuCalibrAnthro", "Anthropometry", nullptr, MeasureBody, nullptr},
    {"mnuCalibrate", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mnuCalibrate", "mnuCalibrLog", "&Log Channels", "Ctrl+R", LogChannels, nullptr},
    {"mnuCalibrate", "mnuCalibrReadLog", "&Read Log", nullptr, ReadLog, nullptr},

    {"mnuSample", "mnuSampleRower", "&Rower's Panel", nullptr, SampleRower, nullptr},
    {"mnuSample", "mnuSampleCatch", "&Catch Training", nullptr, SampleCatch, nullptr},
    {"mnuSample", "mnuSampleCoach", "C&oach's Panel", nullptr, nullptr, nullptr, "fData01Coach"},
    {"mnuSample", "mnuSampleErgo", "&Ergometer", nullptr, nullptr, nullptr, "fData01RP3"},
    {"mnuSample", "mnuSampleMonitor", "Performance &Monitor", nullptr, nullptr, nullptr, "fPMI"},
    {"mnuSample", "mnuSampleTwoPanels", "&All Panels", nullptr, SampleAllPanels, nullptr},

    {"mnuView", "mnuViewQVN", "Read Skarvelin file", nullptr, ViewLoggerFile, nullptr},
    {"mnuView", "mnuViewScanQVN", "Scan Skarvelin file", nullptr, ViewScannedFile, nullptr},
    {"mnuView", "mnuViewRaw", "&Raw...", nullptr, ViewRawFile, nullptr},
    {"mnuView", "mnuViewPrim", "&Primary...", nullptr, ViewPrimaryFile, nullptr},
    {"mnuView", "mnuViewTyp", "&Typical", nullptr, nullptr, nullptr, "fDataGrid", "Desc"},
    {"mnuView", "mnuViewSwap", "Correct Vars", nullptr, nullptr, nullptr, "fSwap"},

    {"mnuPlay", "mnuPlayRawRower", "&Catch", nullptr, PlayRawRower, nullptr},
    {"mnuPlay", "mnuPlayRawCoach", "Simple", nullptr, PlayRawCoach, nullptr},
    {"mnuPlay", "mnuPlayPrim", "&Primary Data...", nullptr, PlayPrimaryFile, nullptr},
    {"mnuPlay", "mnuPlayTypical", "Normalised", nullptr, PlayTypicalData, nullptr},
    {"mnuPlay", "mnuPlayNorm", "Typical Data + &Video", nullptr, PlayNorm, nullptr},
    {"mnuPlay", "mnuPlayLoad", "&Load and Play...", nullptr, PlayLoad, nullptr},
    {"mnuPlay", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mnuPlay", "mnuVidPlay", "&Video", nullptr, PlayVideo, nullptr},
    {"mnuPlay", "mnuVidDigit", "&Digitise Video", nullptr, DigitiseVideo, nullptr},
    {"mnuPlay", "mnuSetDots", "Setup Points", nullptr, nullptr, nullptr, "fDataGrid", "Dots"},
    {"mnuPlay", "mnuSetSegs", "SetUp Segments", nullptr, nullptr, nullptr, "fDataGrid", "Segs"},
    {"mnuPlay", "mnuPlayAnim", "Animation", nullptr, PlayAnimation, nullptr},
    {"mnuPlay", "mnyPlayComp", "Complex Data...", nullptr, nullptr, NotUsed},
    {"mnuPlay", "mnuPlayMPEG", "MPEG video", nullptr, PlayMPEG, nullptr},
    {"mnuPlay", "mnuPlaySound", "Sound", nullptr, nullptr, NotUsed},

    {"mnuWindow", "mnuWinToolbar", "&Toolbar", nullptr, [](frmMain& Main) { Main.ShowBars(); }, nullptr},
    {"mnuWindow", "mnuWinStatusBar", "Status &Bar", nullptr, [](frmMain& Main) { Main.ShowBars(); }, nullptr},
    {"mnuWindow", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mnuWindow", "mnuWindowCascade", "&Cascade", nullptr, [](frmMain& Main) { Main.Cascade(); }, nullptr},
    {"mnuWindow", "mnuWindowTileHorizontal", "Tile &Horizontal", nullptr,
     [](frmMain& Main) { Main.Tile(Qt::Horizontal); }, nullptr},
    {"mnuWindow", "mnuWindowTileVertical", "Tile &Vertical", nullptr, [](frmMain& Main) { Main.Tile(Qt::Vertical); },
     nullptr},

    {"mnuHelp", "mnuHelpContents", "&Contents", "F1", ShowHelp, nullptr},
    {"mnuHelp", "mnuHelpSearchForHelpOn", "&Search For Help On...", nullptr, ShowHelp, nullptr},
    {"mnuHelp", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"mnuHelp", "mnuHelpAbout", "&About ", nullptr, nullptr, nullptr, "frmAbout"},
};

constexpr ToolButton Buttons[] = {
    {"Open File...", "Открыть файл", "open", "mnuFileOpen", nullptr, nullptr},
    {"New File...", "Новый файл", "new", "mnuFileNew", nullptr, nullptr},
    {"Check", "Каналы", "check", "mnuCalibrCheck", nullptr, nullptr},
    {"Boat Works", "Обнулить", "boat", "mnuSampleCoach", nullptr, nullptr},
    {"Erg Works", "Гребля", "erg", "mnuSampleRower", nullptr, nullptr},
    {"Play", "Воспроизв.", "play", "mnuPlayRawRower", nullptr, nullptr},
    {"Log Data", "Запись", "record", nullptr, ToggleLog, nullptr},
    {"Close", "Закрыть", "close", nullptr, [](frmMain&) { CloseDForms(); }, nullptr},
};
} // namespace

std::span<const MenuTitle> AllMenus()
{
    return Menus;
}

std::span<const MenuItem> AllMenuItems()
{
    return Items;
}

std::span<const ToolButton> AllToolButtons()
{
    return Buttons;
}
