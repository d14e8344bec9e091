// Digitised points: a line with the X values of a point and one with its Y values make one row.
#include "files/mTextVideo.h"

#include "base/mNumText.h"

#include <map>

namespace {
// Fields of a line ahead of its values: sample, point, frame count, highest frame, "X" or "Y".
constexpr std::size_t HeadSize = 5;
constexpr FieldFormat Whole{FieldForm::Number, 1, 0};

void FillPoints(VidCoordsRow& Row, const std::vector<std::string_view>& Fields)
{
    Row.SampleID = Fields[0];
    Row.PointID = Fields[1];
    StoreText(Row.Count, Whole, Fields[2]);
    StoreText(Row.High, Whole, Fields[3]);
    Row.Values.resize(std::max(Row.Values.size(), Fields.size() - HeadSize));
    double VideoPoint::*const Axis = Fields[4] == "X" ? &VideoPoint::X : &VideoPoint::Y;
    for (std::size_t i = HeadSize; i < Fields.size(); ++i)
        Row.Values[i - HeadSize].*Axis = Val(Fields[i]);
}

// Frames without the point hold zeros.
void DropZeros(RowArray<VidCoordsRow>& Rows)
{
    for (VidCoordsRow& Row : Rows)
        for (VideoPoint& Each : Row.Values)
            if (Each.X == 0 && Each.Y == 0) Each = {};
}
} // namespace

void ReadVideoPoints(LineReader& Lines, RowArray<VidCoordsRow>& Rows)
{
    std::map<std::pair<std::string, std::string>, int> Known;
    LineFields Cells;
    Rows.Clear();
    for (std::string_view Line; Lines.TakeRow(Line);) {
        Cells.Cut(Line);
        if (!Cells.Open.empty()) Cells.Closed.push_back(Cells.Open);
        const auto& Fields = Cells.Closed;
        if (Fields.size() < HeadSize || (Fields[4] != "X" && Fields[4] != "Y")) continue;
        const auto [Place, IsNew] =
            Known.try_emplace({std::string(Fields[0]), std::string(Fields[1])}, Rows.UBound() + 1);
        FillPoints(IsNew ? Rows.Grow() : Rows[Place->second], Fields);
    }
    DropZeros(Rows);
}
