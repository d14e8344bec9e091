// The keys of Skarvelin.ini as one table, and the table of calibrators inside it.
#include "core/mIni.h"

#include "base/mCodePage.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mFields.h"
#include "core/mSettings.h"
#include "core/mTextRows.h"
#include "platform/mHost.h"

#include <algorithm>
#include <string_view>
#include <variant>

std::string gAppDir;
std::string gSysID;
WindowPlace gMainPlace;
std::string gBaseFolder;
int16_t gCOMport = 1;
std::string gCOMdevice;
std::string gLinkAddress = "127.0.0.1";
int32_t gLinkPort = 6000;
std::string gBackground;
std::string gModelsFN;
int16_t gAutoCalCh = 0;
double gAutoCalQ0 = 0;
double gAutoCalQ1 = 0;
std::array<CalibrSensRow, 5> gCalibrSens;
bool gIsCurves = true;
bool gIsValue = true;
bool gIsScore = false;
bool gIsInd = true;
bool gIsSound = false;
bool gIsGrid = true;

namespace {
constexpr std::string_view SensKey = "CalibrSens";

struct CalibrSensTable // the place of the calibrators among the keys
{
};

struct PortChoice // the number or the device of the serial port
{
};
PortChoice ThePort;

struct IniItem
{
    std::string_view Key;
    std::variant<std::string*, float*, int16_t*, int32_t*, double*, bool*, PortChoice*, CalibrSensTable> Global;
};

// In the order of writing.
const std::array Items = {
    IniItem{"SysID", &gSysID},
    IniItem{"Left", &gMainPlace.Left},
    IniItem{"Top", &gMainPlace.Top},
    IniItem{"Width", &gMainPlace.Width},
    IniItem{"Height", &gMainPlace.Height},
    IniItem{"Current File", &gCurFile},
    IniItem{"Base Folder", &gBaseFolder},
    IniItem{"COM port", &ThePort},
    IniItem{"Background", &gBackground},
    IniItem{"Models", &gModelsFN},
    IniItem{"AutoCalCh", &gAutoCalCh},
    IniItem{"AutoCalQ0", &gAutoCalQ0},
    IniItem{"AutoCalQ1", &gAutoCalQ1},
    IniItem{SensKey, CalibrSensTable{}},
    IniItem{"IsCurves", &gIsCurves},
    IniItem{"IsValue", &gIsValue},
    IniItem{"IsScore", &gIsScore},
    IniItem{"IsInd", &gIsInd},
    IniItem{"IsSound", &gIsSound},
    IniItem{"IsGrid", &gIsGrid},
    IniItem{"Link Address", &gLinkAddress},
    IniItem{"Link Port", &gLinkPort},
};

std::string TextOf(const std::string& Global)
{
    return Global;
}

std::string TextOf(double Global)
{
    return FormatNum(Global, "0.00000000");
}

std::string TextOf(float Global)
{
    return FormatShortest(Global);
}

std::string TextOf(int32_t Global)
{
    return FormatNum(Global, "0");
}

std::string TextOf(bool Global)
{
    return FormatBool(Global);
}

void StoreText(PortChoice&, const FieldFormat& How, std::string_view Text)
{
    gCOMdevice = Text.starts_with('/') ? Text : "";
    if (gCOMdevice.empty()) StoreText(gCOMport, How, Text);
}

std::string TextOf(PortChoice)
{
    return gCOMdevice.empty() ? TextOf(gCOMport) : gCOMdevice;
}

// The columns of a calibrator's line.
constexpr std::array SensColumns = {
    Field<CalibrSensRow>{"IsActive", &CalibrSensRow::IsActive, {FieldForm::Truth, 1, 0}},
    Field<CalibrSensRow>{"Name", &CalibrSensRow::Name, {FieldForm::Text, 1, 0}},
    Field<CalibrSensRow>{"CalCh", &CalibrSensRow::CalCh, {FieldForm::Number, 1, 0}},
    Field<CalibrSensRow>{"Q0", &CalibrSensRow::Q0, {FieldForm::Number, 1, 8}},
    Field<CalibrSensRow>{"Q1", &CalibrSensRow::Q1, {FieldForm::Number, 1, 8}},
    Field<CalibrSensRow>{"ChToCal", &CalibrSensRow::ChToCal, {FieldForm::Number, 1, 0}},
};

// Rows after the table's five are ignored.
void ReadCalibrSens(LineReader& Lines)
{
    LineFields Cells;
    std::string_view Line;
    for (std::size_t i = 0; Lines.TakeRow(Line); ++i) {
        if (i >= gCalibrSens.size()) continue;
        Cells.Cut(Line);
        Cells.Closed.push_back(Cells.Open);
        SetFields<CalibrSensRow>(gCalibrSens[i], SensColumns, Cells.Closed);
    }
}

std::string TextOf(CalibrSensTable)
{
    std::string Text;
    for (const CalibrSensRow& Row : gCalibrSens)
        for (const auto& Column : SensColumns) {
            Text += &Column == SensColumns.data() ? "\r\n" : "\t";
            AppendField(Text, Row, Column);
        }
    return Text + "\r\nEnd";
}
} // namespace

std::string IniPath()
{
    return gAppDir + "Skarvelin.ini";
}

bool ReadIni()
{
    const auto Bytes = ReadWhole(IniPath());
    if (!Bytes) {
        MsgBox("File not found: " + IniPath() +
                   "\nSkarvelin begins with its defaults and writes the file anew when it ends.",
               TitleError);
        return false;
    }
    ParseIni(*Bytes);
    return true;
}

void ParseIni(const std::string& Bytes)
{
    TextEncoding Encoding{};
    const std::string Decoded = DecodeText(Bytes, Encoding, TextPage());
    LineReader Lines(Decoded);
    for (std::string_view Line; Lines.Take(Line);) {
        const auto Equal = Line.find('=');
        if (Equal == std::string_view::npos) continue;
        const std::string_view Key = Line.substr(0, Equal);
        if (Key == SensKey) {
            ReadCalibrSens(Lines);
            continue;
        }
        const auto Item =
            std::find_if(Items.begin(), Items.end(), [&](const IniItem& Each) { return Each.Key == Key; });
        if (Item == Items.end()) continue;
        std::visit(
            [&](auto Global) {
                if constexpr (std::is_pointer_v<decltype(Global)>) StoreText(*Global, {}, Line.substr(Equal + 1));
            },
            Item->Global);
    }
}

bool WriteIni()
{
    return SaveWhole(IniPath(), IniText()) || FileFailed(CantWrite, IniPath(), TitleError);
}

std::string IniText()
{
    std::string Text;
    for (const IniItem& Item : Items) {
        Text += std::string(Item.Key) + "=";
        std::visit(
            [&](auto Global) {
                if constexpr (std::is_pointer_v<decltype(Global)>)
                    Text += TextOf(*Global);
                else
                    Text += TextOf(Global);
            },
            Item.Global);
        Text += "\r\n";
    }
    return Text;
}

std::string PortText()
{
    return TextOf(ThePort);
}

void SetPort(const std::string& Text)
{
    StoreText(ThePort, {}, Text);
}

void SelectCalibrSens(int16_t CalCh)
{
    for (const CalibrSensRow& Row : gCalibrSens) {
        if (Row.ChToCal != CalCh) continue;
        gAutoCalCh = Row.CalCh;
        gAutoCalQ0 = Row.Q0;
        gAutoCalQ1 = Row.Q1;
    }
}
