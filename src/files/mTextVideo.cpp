// Digitised points: a line with the X values of a point and one with its Y values make one row.
#include "files/mTextVideo.h"

#include "core/mNumText.h"

namespace {
// Fields of a line ahead of its values: sample, point, frame count, highest frame, "X" or "Y".
constexpr std::size_t HeadSize = 5;
constexpr FieldFormat Whole{FieldForm::Number, 1, 0};

// The row of that sample and point, made when there is none yet.
VidCoordsRow& RowFor(RowArray<VidCoordsRow>& Rows, std::string_view SampleID, std::string_view PointID)
{
    for (VidCoordsRow& Row : Rows)
        if (Row.SampleID == SampleID && Row.PointID == PointID) return Row;
    VidCoordsRow& Row = Rows.Grow();
    Row.SampleID = SampleID;
    Row.PointID = PointID;
    return Row;
}
} // namespace

void ReadVideoPoints(LineReader& Lines, RowArray<VidCoordsRow>& Rows)
{
    LineFields Cells;
    Rows.Clear();
    for (std::string_view Line; Lines.TakeRow(Line);) {
        Cells.Cut(Line);
        if (!Cells.Open.empty()) Cells.Closed.push_back(Cells.Open);
        const auto& Values = Cells.Closed;
        if (Values.size() < HeadSize || (Values[4] != "X" && Values[4] != "Y")) continue;
        VidCoordsRow& Row = RowFor(Rows, Values[0], Values[1]);
        StoreText(Row.Count, Whole, Values[2]);
        StoreText(Row.High, Whole, Values[3]);
        Row.Values.resize(std::max(Row.Values.size(), Values.size() - HeadSize));
        double VideoPoint::*const Axis = Values[4] == "X" ? &VideoPoint::X : &VideoPoint::Y;
        for (std::size_t i = HeadSize; i < Values.size(); ++i)
            Row.Values[i - HeadSize].*Axis = Val(Values[i]);
    }
}
