// Main and Sess, with the old models that kept the oar's dimensions in Sess.
#include "files/mTextMain.h"

#include "core/mModes.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"

#include <array>

namespace {
constexpr FieldFormat OarFormat{FieldForm::Number, 1, 2};

void ReadOldOars(std::span<const std::string_view> Values, OldOars& Oars)
{
    const std::array Fields = {&Oars.Inboard, &Oars.OarLen, &Oars.BladeLen};
    for (std::size_t i = 0; i < std::min(Fields.size(), Values.size()); ++i)
        StoreText(*Fields[i], OarFormat, Values[i]);
}

// The oldest files have no table of the boat: its rows are made for the crew, all with the same oar.
void SpreadOldOars(DataFile& File, const OldOars& Oars)
{
    const int Seats = File.Crew.UBound();
    File.Crew.Clear();
    File.Crew.Resize(Seats);
    File.Boat.Clear();
    File.Boat.Resize(Seats);
    for (BoatRow& Row : File.Boat) {
        Row.OarInboard = Oars.Inboard;
        Row.OarLength = Oars.OarLen;
        Row.BladeLength = Oars.BladeLen;
    }
}
} // namespace

void ReadMain(LineReader& Lines, LoadedSession& Into)
{
    std::string_view Line;
    if (!Lines.Take(Line)) return;
    LineFields Cells;
    Cells.Cut(Line);
    SetFields<DataFile>(Into.File, MainFields(), Cells.Closed);
    Into.KeyMode = IsKeyMode(Into.File.KeyMode) ? Into.File.KeyMode : gKeyModeSet;
}

void ReadSess(LineReader& Lines, LoadedSession& Into)
{
    DataFile& File = Into.File;
    std::string_view Line;
    if (!Lines.Take(Line)) return;
    LineFields Cells;
    Cells.Cut(Line);
    SetFields<DataFile>(File, SessHeadFields(), Cells.Closed);
    const auto Rest = std::span(Cells.Closed).subspan(std::min(SessHeadFields().size(), Cells.Closed.size()));
    if (File.Model > ModelOld) {
        SetFields<DataFile>(File, SessTailFields(), Rest);
        return;
    }
    ReadOldOars(Rest, Into.Oars);
    if (File.Model == ModelOldest) SpreadOldOars(File, Into.Oars);
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
    if (File.Model > ModelOld)
        AppendFields(Text, File, SessTailFields());
    else
        for (const float Oar : {gOldInboard, gOldOarLen, gOldBladeLen}) {
            AppendText(Text, OarFormat, static_cast<double>(Oar));
            Text += '\t';
        }
    Text += "\r\nEnd\r\n";
}
