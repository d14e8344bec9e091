// The file of measurements, and the newest ones of a rower.
#include "records/mAntro.h"

#include "base/mCodePage.h"
#include "base/mSafeSave.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "core/mTextRows.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <array>
#include <filesystem>

RowArray<AntroRow> gAntro;

namespace {
constexpr std::string_view Keyword = "Antro";
} // namespace

std::span<const Field<AntroRow>> AntroFields()
{
    constexpr FieldFormat Text{FieldForm::Text, 0, 0};
    constexpr FieldFormat Sig6{FieldForm::Sig6, 0, 0};
    static constexpr std::array Table = {
        Field<AntroRow>{"RowerID", &AntroRow::RowerID, Text},
        Field<AntroRow>{"Date", &AntroRow::Date, {FieldForm::Date, 0, 0}},
        Field<AntroRow>{"Height", &AntroRow::Height, Sig6},
        Field<AntroRow>{"Weight", &AntroRow::Weight, Sig6},
        Field<AntroRow>{"Foot", &AntroRow::Foot, Sig6},
        Field<AntroRow>{"Shank", &AntroRow::Shank, Sig6},
        Field<AntroRow>{"Thigh", &AntroRow::Thigh, Sig6},
        Field<AntroRow>{"Trunk", &AntroRow::Trunk, Sig6},
        Field<AntroRow>{"TrunkBend", &AntroRow::TrunkBend, Sig6},
        Field<AntroRow>{"Head", &AntroRow::Head, Sig6},
        Field<AntroRow>{"UpArm", &AntroRow::UpArm, Sig6},
        Field<AntroRow>{"ForeArm", &AntroRow::ForeArm, Sig6},
        Field<AntroRow>{"Wrist", &AntroRow::Wrist, Sig6},
        Field<AntroRow>{"ShouldW", &AntroRow::ShouldW, Sig6},
        Field<AntroRow>{"AnkleFlex", &AntroRow::AnkleFlex, Sig6},
        Field<AntroRow>{"AnkleExt", &AntroRow::AnkleExt, Sig6},
        Field<AntroRow>{"Hip_Seat", &AntroRow::HipSeat, Sig6},
    };
    return Table;
}

std::string AntroPath()
{
    return gAppDir + "Antro.txt";
}

bool LoadAntro()
{
    std::error_code Error;
    if (!std::filesystem::exists(AntroPath(), Error)) {
        gAntro.Clear();
        return true;
    }
    const auto Bytes = ReadWhole(AntroPath());
    if (!Bytes) return FileFailed(CantOpen, AntroPath(), TitleError);
    TextEncoding Encoding{};
    const std::string Text = DecodeText(*Bytes, Encoding, TextPage());
    LineReader Lines(Text);
    std::string_view Line;
    if (!Lines.Take(Line) || Line != Keyword)
        return FileFailed("This is no table of measurements: ", AntroPath(), TitleError);
    ReadClosedRows(Lines, AntroFields(), gAntro);
    return true;
}

bool SaveAntro()
{
    std::string Text;
    AppendRows(Text, Keyword, AntroFields(), gAntro);
    if (!BackupFile(AntroPath())) return false;
    WholeFile New(AntroPath());
    New.Append(EncodeText(Text, TextEncoding::Utf8, TextPage()));
    return New.Commit() || FileFailed(CantWrite, AntroPath(), TitleError, New.Failure());
}

const AntroRow* NewestAntro(const std::string& RowerID)
{
    const AntroRow* Newest = nullptr;
    for (const AntroRow& Row : gAntro)
        if (Row.RowerID == RowerID && (!Newest || Row.Date >= Newest->Date)) Newest = &Row;
    return Newest;
}
