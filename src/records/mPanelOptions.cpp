// The pages of the options for instant feedback, colours and the program itself.
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "records/mOptionFaults.h"
#include "records/mOptionParts.h"

namespace {
using enum eOption;

constexpr const char* Hundredths = "0.00";
constexpr const char* AtOpening = "A live panel takes these when it is opened.";

void AddFeedbackSwitches(std::vector<OptionGroup>& Groups)
{
    Groups.push_back(
        {eOptionPage::Feedback,
         "Instant Feedback",
         {Switch("chIsTargVals", "Target Values", &gIsTargVals, "gIsTargVals",
                 "Panels compare each stroke with the targets of the session's category."),
          Switch("chIsTargCurves", "Target Curves", &gIsTargCurves, "gIsTargCurves",
                 "The rower's panel draws its curves over those of the target; needs target values, too."),
          Switch("chDoReZero", "Rezero on Recovery", &gDoReZero, "gDoReZero",
                 "The coach's panel keeps the zero of the forces that it finds in recoveries in the session."),
          Switch("chIsCurves", "Display Curves", &gIsCurves, "", ""),
          Switch("chIsValue", "Display Values", &gIsValue, "", ""),
          Switch("chIsInd", "Display Dots", &gIsInd, "", "Green, orange and red marks of a stroke's parts."),
          Switch("chIsScore", "Display Scores", &gIsScore, "", "Numbers at these marks."),
          Switch("chIsGrid", "Display Grid", &gIsGrid, "", ""),
          Switch("chIsSound", "Play Sound", &gIsSound, "", "Stored only: no panel plays a sound now."),
          {.Control = "txtModelsFN",
           .Label = "Targets file",
           .Kind = File,
           .Global = &gModelsFN,
           .Help = "For your records: targets are read from Targets.ini in the program's folder.",
           .Fault = FileFault,
           .FileTitle = "Models Data File",
           .FileExt = "*"}},
         AtOpening});
}

void AddDependents(std::vector<OptionGroup>& Groups)
{
    Groups.push_back({eOptionPage::Feedback,
                      "Dependent Variables",
                      {{.Control = "txtSeatChan",
                        .Label = "Seat Channel",
                        .Global = &gSeatChan,
                        .Key = "gSeatChan",
                        .Help = "The catch panel finds the turns of the seat in it.",
                        .Fault = PanelChanFault},
                       {.Control = "txtTrunkChan",
                        .Label = "Trunk Channel",
                        .Global = &gTrunkChan,
                        .Key = "gTrunkChan",
                        .Help = "The catch panel finds the turns of the trunk in it.",
                        .Fault = PanelChanFault}},
                      AtOpening});
    Groups.push_back({eOptionPage::Feedback,
                      "RSF mode",
                      {{.Control = "opRSF",
                        .Label = "Style Factor at",
                        .Kind = Choice,
                        .Global = &gRSFmode,
                        .Key = "gRSFmode",
                        .Choices = InTurn({"Percentage", "Fixed length"})},
                       {.Control = "txtRSFmode_0",
                        .Label = "Percentage",
                        .Global = &gRSFval0,
                        .Key = "gRSFval0",
                        .Unit = "% of the travel",
                        .Format = Hundredths,
                        .Scale = 100,
                        .Fault = PercentFault},
                       {.Control = "txtRSFmode_1",
                        .Label = "Fixed length",
                        .Global = &gRSFval1,
                        .Key = "gRSFval1",
                        .Unit = "m of travel",
                        .Format = Hundredths,
                        .Fault = TravelFault}},
                      AtOpening});
}

struct Zone
{
    const char* Row;
    const char* Name; // of its controls and settings
    const char* Unit;
    int16_t* Low;
    int16_t* High;
    int16_t* Margin;
    double* Slope; // null: none
};

void AddZones(std::vector<OptionGroup>& Groups)
{
    const Zone Zones[] = {
        {"Catch Factor CF (ms)", "CF", "ms", &gCFLow, &gCFHigh, &gCFmarg, &gCFslope},
        {"Rowing Style Factor RCF (%)", "RSF", "%", &gRSFLow, &gRSFHigh, &gRSFmarg, nullptr},
        {"Finish Factor FF (ms)", "FF", "ms", &gFFLow, &gFFHigh, &gFFmarg, &gFFslope},
    };
    OptionGroup Group{eOptionPage::Feedback, "Borders of Green Zone at 20 spm", {}, {}, eOptionLayout::Table};
    Group.Note = "Margins: width of either outer zone of the bar, in green zones. Slope: how far the borders move with "
                 "each stroke per minute above 20.";
    Group.Columns = {"Low", "High", "Margins", "Slope (ms/spm)"};
    const auto Add = [&Group](const Zone& Each, const char* End, OptionItem Item) {
        Item.Control = std::string("txt") + Each.Name + End;
        Item.Key = std::string("g") + Each.Name + End;
        Item.Help = Each.Row;
        Item.Row = static_cast<int>(Group.Rows.size()) - 1;
        Group.Items.push_back(std::move(Item));
    };
    for (const Zone& Each : Zones) {
        Group.Rows.emplace_back(Each.Row);
        Add(Each, "Low", {.Label = "Low", .Global = Each.Low, .Unit = Each.Unit, .Fault = ZoneFault});
        Add(Each, "High", {.Label = "High", .Global = Each.High, .Unit = Each.Unit, .Fault = ZoneFault});
        Add(Each, "marg",
            {.Label = "Margins", .Global = Each.Margin, .Range = {.Min = 0, .Why = "The bar would have no width."}});
        if (Each.Slope)
            Add(Each, "slope", {.Label = "Slope", .Global = Each.Slope, .Unit = "ms/spm", .Format = Hundredths});
    }
    Groups.push_back(Group);
}
} // namespace

void AddFeedback(std::vector<OptionGroup>& Groups)
{
    AddFeedbackSwitches(Groups);
    AddDependents(Groups);
    AddZones(Groups);
}

void AddColours(std::vector<OptionGroup>& Groups)
{
    OptionGroup Group{eOptionPage::Colours,
                      "Colours",
                      {},
                      "Double-click, or press Enter, to choose another colour. "
                      "Colours and width are taken at once."};
    Group.LabelNames = "lbColors_";
    for (std::size_t i = 0; i < gRGB.size(); ++i)
        Group.Items.push_back({.Control = Numbered("lbColorInp_", i),
                               .Label = i == 0 ? "Background" : Numbered("Curves ", i),
                               .Kind = Colour,
                               .Global = &gRGB[i],
                               .Fault = ColourFault});
    Group.Items.push_back({.Control = "lbLineWd", .Label = "Draw Width", .Kind = PenWidth, .Global = &gDrawWidth});
    Groups.push_back(Group);
    Groups.push_back({eOptionPage::Colours,
                      "Rower's panel",
                      {{.Control = "txtBkPicFN",
                        .Label = "Picture",
                        .Kind = File,
                        .Global = &gBackground,
                        .Help = "Lies under the curves in place of the background's colour.",
                        .Fault = FileFault,
                        .FileTitle = "Background Picture File",
                        .FileExt = "*"}}});
}

void AddGeneral(std::vector<OptionGroup>& Groups)
{
    Groups.push_back({eOptionPage::General,
                      "Current Language",
                      {{.Control = "opLang",
                        .Label = "Language",
                        .Kind = Choice,
                        .Global = &gLanguage,
                        .Key = "gLanguage",
                        .Help = "Of the toolbar and of the catch panel.",
                        .Choices = InTurn({"English", "Русский"})}}});
    Groups.push_back({eOptionPage::General,
                      "Files",
                      {{.Control = "opCodePage",
                        .Label = "Letters of files that are not UTF-8",
                        .Kind = Choice,
                        .Global = &gCodePage,
                        .Key = "gCodePage",
                        .Choices = {{"As the language", 0}, {"Western (1252)", 1252}, {"Cyrillic (1251)", 1251}}}}});
    Groups.push_back({eOptionPage::General,
                      "Screen",
                      {{.Control = "txtPictureRate",
                        .Label = "Picture rate",
                        .Global = &gPictureRate,
                        .Key = "gPictureRate",
                        .Unit = "pictures/s",
                        .Help = "Of live windows, at most; 25 suits a small computer.",
                        .Range = {1, 250, "Taken as the nearest of 1 to 250."}}}});
}
