// Main and Sess, with the old models that kept the oar's dimensions in Sess.
#include "files/mTextMain.h"

#include "core/mSettings.h"
#include "files/mTextIO.h"

#include <array>

float gOldInboard = 0;
float gOldOarLen = 0;
float gOldBladeLen = 0;

namespace {
constexpr FieldFormat OarFormat{FieldForm::Number, 1, 2};
constexpr int16_t FirstNewModel = 2;

void SetOldOars(std::span<const std::string_view> Values)
{
    constexpr std::array Oars = {&gOldInboard, &gOldOarLen, &gOldBladeLen};
    for (std::size_t i = 0; i < std::min(Oars.size(), Values.size()); ++i)
        StoreText(*Oars[i], OarFormat, Values[i]);
}

// The oldest files have no table of the boat: its rows are made for the crew, all with the same oar.
void SpreadOldOars(DataFile& File)
{
    const int Seats = File.Crew.UBound();
    File.Crew.Clear();
    File.Crew.Resize(Seats);
    File.Boat.Clear();
    File.Boat.Resize(Seats);
    for (BoatRow& Row : File.Boat) {
        Row.OarInboard = gOldInboard;
        Row.OarLength = gOldOarLen;
        Row.BladeLength = gOldBladeLen;
    }
}
} // namespace

void ReadMain(LineReader& Lines, DataFile& File)
{
    std::string_view Line;
    if (!Lines.Take(Line)) return;
    LineFields Cells;
    Cells.Cut(Line);
    SetFields<DataFile>(File, MainFields(), Cells.Closed);
    gKeyMode = File.KeyMode >= 0 && File.KeyMode <= 3 ? File.KeyMode : gKeyModeSet;
}

void ReadSess(LineReader& Lines, DataFile& File)
{
    std::string_view Line;
    if (!Lines.Take(Line)) return;
    LineFields Cells;
    Cells.Cut(Line);
    SetFields<DataFile>(File, SessHeadFields(), Cells.Closed);
    const auto Rest = std::span(Cells.Closed).subspan(std::min(SessHeadFields().size(), Cells.Closed.size()));
    if (File.Model >= FirstNewModel) {
        SetFields<DataFile>(File, SessTailFields(), Rest);
        return;
    }
    SetOldOars(Rest);
    if (File.Model == 0) SpreadOldOars(File);
}

void AppendMain(std::string& Text, const DataFile& File)
{
    Text += "Main\r\n";
    AppendFields(Text, File, MainFields());
    Text += "\r\nEnd\r\n";
}

void AppendSess(std::string& Text, const DataFile& File)
{
    Text += "Sess\r\n";
    AppendFields(Text, File, SessHeadFields());
    if (File.Model >= FirstNewModel)
        AppendFields(Text, File, SessTailFields());
    else
        for (const float Oar : {gOldInboard, gOldOarLen, gOldBladeLen}) {
            AppendText(Text, OarFormat, static_cast<double>(Oar));
            Text += '\t';
        }
    Text += "\r\nEnd\r\n";
}
