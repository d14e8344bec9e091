// The pages of the options for logger, link, processing, splits and calibrators.
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "records/mOptionFaults.h"
#include "records/mOptionParts.h"

namespace {
using enum eOption;

constexpr double MostInt16 = 32767;
constexpr const char* Precise = "0.00000000";
constexpr OptionRange Positive{.Min = 0, .Why = "Less than nothing cannot be used."};

std::vector<std::string> ParamIDs()
{
    std::vector<std::string> Names;
    for (const CalibrRow& Row : gFile.Calibr)
        Names.push_back(Row.ParamID);
    return Names;
}
} // namespace

void AddLogger(std::vector<OptionGroup>& Groups)
{
    Groups.push_back({eOptionPage::Logger,
                      "Mode",
                      {{.Control = "opMode",
                        .Label = "Logger",
                        .Kind = Choice,
                        .Global = &gFile.Model,
                        .Fault = ModelFault,
                        .Choices = {{"Master and Slaves", ModelMaster},
                                    {"Slave 16ch (old)", ModelSlave16},
                                    {"Slave 8ch", ModelSlave8},
                                    {"Slave w.Encoder", ModelEncoder}}},
                       {.Control = "txtSlavesNum",
                        .Label = "Slaves Number",
                        .Global = &gFile.SlaveCnt,
                        .Help = "Slaves on a master. The channels follow when the link is opened.",
                        .Range = Positive,
                        .Fault = SlavesFault},
                       {.Control = "lbInfo1_0", .Label = "Channels Number", .Kind = Shown, .Global = &gFile.ChanCnt},
                       {.Control = "lbInfo1_2",
                        .Label = "Sampling Frequency (Hz)",
                        .Kind = Shown,
                        .Global = static_cast<const double*>(&gDataFreq),
                        .Help = "Set where the logger is set up.",
                        .Format = "0.0"}},
                      "This page is kept in the session data file; without an open session it is lost at the end."});
    Groups.push_back(
        {eOptionPage::Logger,
         "Stroke Detection",
         {{.Control = "txtPage1_4",
           .Label = "Channal ID",
           .Kind = Text,
           .Global = &gFile.KeyChanID,
           .Help = "ParamID of the channel that shows where a stroke begins.",
           .Fault = KeyChanFault,
           .Proposals = ParamIDs},
          {.Control = "lbInfo1_4",
           .Label = "Channal #",
           .Kind = Shown,
           .Global = static_cast<const int16_t*>(&gKeyChan),
           .Help = "The channel that has this ID; -1: none."},
          {.Control = "txtPage1_5",
           .Label = "Threshold Value",
           .Global = &gFile.KeyThres,
           .Unit = "of the channel",
           .Help = "The first two ways of detection look for the moment at which the channel passes it.",
           .Format = "0.000",
           .Fault = ThresholdFault},
          {.Control = "opKeyMode",
           .Label = "A stroke begins with",
           .Kind = Choice,
           .Global = &gKeyMode,
           .Key = "gKeyMode",
           .Choices = InTurn({"Threshold Decreasing", "Threshold Increasing", "Peak Minimum", "Peak Maximum"})}}});
    Groups.push_back({eOptionPage::Logger,
                      "Recording",
                      {{.Control = "txtPage1_6",
                        .Label = "Samples Count",
                        .Global = &gFile.SampleCnt,
                        .Help = "Number of the next recording, which its file's name ends with.",
                        .Range = {0, MostInt16 - 1, "The next recording could not be counted."}}}});
}

void AddLink(std::vector<OptionGroup>& Groups)
{
    const char* const NotApplied = "For your records: the link uses the two values below.";
    const OptionRange Ports{1, 65535, "Ports are numbered from 1 to 65535."};
    Groups.push_back({eOptionPage::Link,
                      "Connection",
                      {{.Control = "opConnection",
                        .Label = "Link",
                        .Kind = Choice,
                        .Global = &gConnection,
                        .Key = "gConnection",
                        .Choices = InTurn({"COM port", "TCP/IP"})},
                       {.Control = "txtCOMport",
                        .Label = "COM Port Number",
                        .Kind = Port,
                        .Global = &gCOMport,
                        .Help = "1 is the first serial device of this computer; or a path, as /dev/ttyUSB0.",
                        .Range = {1, MostInt16, "Ports are numbered from 1."},
                        .Fault = PortFault},
                       {.Control = "txtTCPaddress",
                        .Label = "TCP Address",
                        .Kind = Text,
                        .Global = &gTCPaddress,
                        .Key = "gTCPaddress",
                        .Help = NotApplied,
                        .Fault = AddressFault},
                       {.Control = "txtTCPport",
                        .Label = "TCP port",
                        .Global = &gTCPport,
                        .Key = "gTCPport",
                        .Help = NotApplied,
                        .Range = {1, MostInt16, "Ports are numbered from 1."}}},
                      "Taken when the link is opened the next time."});
    Groups.push_back({eOptionPage::Link,
                      "Wireless logger",
                      {{.Control = "txtLinkAddress",
                        .Label = "Address",
                        .Kind = Text,
                        .Global = &gLinkAddress,
                        .Help = "Name or number of the logger's wireless access point.",
                        .Fault = AddressFault},
                       {.Control = "txtLinkPort", .Label = "Port", .Global = &gLinkPort, .Range = Ports}},
                      "Where the link by TCP/IP goes."});
}

void AddProcessing(std::vector<OptionGroup>& Groups)
{
    Groups.push_back(
        {eOptionPage::Processing,
         "Processing Options",
         {{.Control = "txtGeneral_2",
           .Label = "Std. Filter Value",
           .Global = &StdFilter,
           .Key = "StdFilter",
           .Unit = "SD",
           .Help = "Strokes farther than so many standard deviations from the mean are left out.",
           .Format = "",
           .Range = {1e-9, 1e9, "No stroke lies in a band without width."}},
          {.Control = "txtGeneral_4",
           .Label = "Athletes Database File",
           .Kind = File,
           .Global = &gRowersDBFN,
           .Key = "gRowersDBFN",
           .Help = "Crew rows that sessions share.",
           .Fault = FileFault,
           .FileTitle = "Rowers Database File",
           .FileExt = "txt"},
          {.Control = "txtProcRuns",
           .Label = "Processing Runs",
           .Global = &gProcRuns,
           .Key = "gProcRuns",
           .Help = "2 leaves out, in a second run, points far from the mean stroke of the first.",
           .Range = {1, 2, "Neither 1 nor 2: no sample is stored."}},
          Switch("chkErgoMode", "Ergometer Mode", &gErgoMode, "gErgoMode",
                 "Distances are typed, not computed from the boat's speed; Save As asks for an athlete."),
          Switch("chkInBoatMode", "In-Boat Mode", &gInBoatMode, "gInBoatMode",
                 "A recording replaces a file of the same name without a question."),
          Switch("chkExpSTD", "Export STD", &gExpSTD, "gExpSTD",
                 "Standard deviations of the mean strokes are stored with the samples.", DeviationsFault)}});
}

void AddSplits(std::vector<OptionGroup>& Groups)
{
    const char* const Unused = "Stored only: no calculation uses it now.";
    Groups.push_back(
        {eOptionPage::Splits,
         "Split Paremeter",
         {{.Control = "obSplitPar",
           .Label = "A recording is split by",
           .Kind = Choice,
           .Global = &gSplitPar,
           .Key = "gSplitPar",
           .Fault = SplitFault,
           .Choices = InTurn({"No Splitting", "Time", "Distance", "Strokes"})},
          {.Control = "txtPieceNum",
           .Label = "Number of pieces",
           .Global = &gSplitsCnt,
           .Key = "gSplitsCnt",
           .Help = "\"Proc Splits\" of the data view makes a sample of each.",
           .Range = {0, 9, "Lengths can be given for 9 pieces."}},
          {.Control = "txtVChan",
           .Label = "Speed Channel",
           .Global = &gVChan,
           .Key = "gVChan",
           .Help = "Gives speed and distance when a logger's file is scanned.",
           .Range = Positive,
           .Fault = SpeedFault},
          {.Control = "txtVQ0", .Label = "Speed Q0", .Global = &VQ0, .Key = "VQ0", .Help = Unused, .Format = Precise},
          {.Control = "txtVQ1",
           .Label = "Speed Q1",
           .Global = &VQ1,
           .Key = "VQ1",
           .Help = Unused,
           .Format = Precise}}});
    OptionGroup Lengths{
        eOptionPage::Splits,
        "Splits",
        {},
        "The pieces follow one another from the start. What stands behind a box says whose length it is."};
    Lengths.LabelNames = "lPieceLen_";
    constexpr std::size_t Boxes = 10;
    for (std::size_t i = 0; i < Boxes; ++i)
        Lengths.Items.push_back({.Control = Numbered("txtPieceLen_", i),
                                 .Label = Numbered("", Boxes - i),
                                 .Global = &gSplitsArr[i],
                                 .Key = Numbered("gSplitsArr", i, "00"),
                                 .Unit = i == 0 ? "not used" : Numbered("s, piece ", i),
                                 .Range = Positive,
                                 .Fault = PieceFault});
    Groups.push_back(Lengths);
}

void AddCalibrators(std::vector<OptionGroup>& Groups)
{
    Groups.push_back({eOptionPage::Calibrators,
                      "Calibration",
                      {Switch("chCalibr", "Automatic Calibration", &gAutoCalibr, "gAutoCalibr",
                              "Channels are calibrated against a sensor with known factors."),
                       Switch("chAutoSwitch", "Switch Auto Channel", &gAutoSwitchCal, "gAutoSwitchCal",
                              "With the channel to calibrate its calibrator is chosen from the table below.")}});
    Groups.push_back(
        {eOptionPage::Calibrators,
         "Current Values",
         {{.Control = "txtCalibr_0", .Label = "Channel", .Global = &gAutoCalCh, .Fault = CalibratorFault},
          {.Control = "txtCalibr_1", .Label = "Q0", .Global = &gAutoCalQ0, .Unit = "physical unit", .Format = Precise},
          {.Control = "txtCalibr_2",
           .Label = "Q1",
           .Global = &gAutoCalQ1,
           .Unit = "physical unit a count",
           .Format = Precise}},
         "The calibrator in use: a row of the table that is active takes their place."});
    OptionGroup Sensors{eOptionPage::Calibrators, "Calibration Sensors", {}, {}, eOptionLayout::Table};
    Sensors.Columns = {"Active", "Name", "Channel", "Q0", "Q1", "Channels to calibrate"};
    const auto Add = [&Sensors](std::size_t i, const char* Name, OptionItem Item) {
        Item.Control = Numbered(Name, i);
        Item.Row = static_cast<int>(i);
        Sensors.Items.push_back(std::move(Item));
    };
    std::size_t i = 0;
    for (CalibrSensRow& Row : gCalibrSens) {
        Sensors.Rows.push_back(Numbered("N", i + 1));
        Add(i, "obIsActive_", {.Label = Sensors.Rows[i] + " active", .Kind = Radio, .Global = &Row.IsActive});
        Add(i, "txtCalName_", {.Label = "Name", .Kind = Text, .Global = &Row.Name});
        Add(i, "txtCalCh_", {.Label = "Channel", .Global = &Row.CalCh, .Fault = SensorFault});
        Add(i, "txtQ0_", {.Label = "Q0", .Global = &Row.Q0, .Format = Precise});
        Add(i, "txtQ1_", {.Label = "Q1", .Global = &Row.Q1, .Format = Precise});
        Add(i, "txtChToCal_", {.Label = "Channels to calibrate", .Global = &Row.ChToCal, .Fault = SensorFault});
        ++i;
    }
    Sensors.Rows.emplace_back("None");
    Sensors.Items.push_back({.Control = "obIsActiveNone",
                             .Label = "No sensor active: the current values stay",
                             .Kind = Radio,
                             .Row = static_cast<int>(i)});
    Groups.push_back(Sensors);
}
