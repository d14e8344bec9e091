// The commands of the sample corrections. Each works on copies that replace the tables when all went well.
#include "views/samples/cSwap.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace {
constexpr int LastValue = 50; // a sample has 51 values, whatever its DataCount says

// Place of a sample's row of a parameter, -1 when there is none. The search leaves out the last row of the table.
int GetVarPos(const RowArray<DataRow>& Data, const std::string& SampleID, const std::string& ParamID)
{
    for (int i = 0; i < Data.UBound(); ++i)
        if (Data[i].SampleID == SampleID && Data[i].ParamID == ParamID) return i;
    return -1;
}

// Calls Work(sample, data) for each sample of a copy of the data rows; Count becomes the number of calls that gave
// true.
template <class Work>
RowArray<DataRow> OnSamples(int16_t& Count, const Work& Correct)
{
    RowArray<DataRow> Data = gFile.Data;
    int Rows = 0;
    for (const DescRow& Sample : gFile.Desc)
        if (Correct(Sample.SampleID, Data)) ++Rows;
    Count = ToInt16(Rows);
    return Data;
}

std::optional<int16_t> SeatNumber(const std::string& Text)
{
    const double Number = RoundHalfEven(Val(Text));
    using Limits = std::numeric_limits<int16_t>;
    if (!(Number >= Limits::min() && Number <= Limits::max())) return {};
    return static_cast<int16_t>(Number);
}

template <class Row>
int SwapSeats(RowArray<Row>& Table, int16_t A, int16_t B)
{
    int Count = 0;
    for (int i = 0; i < Table.UBound(); ++i) {
        int16_t& Seat = Table[i].Seat;
        if (Seat != A && Seat != B) continue;
        Seat = Seat == A ? B : A;
        ++Count;
    }
    return Count;
}
} // namespace

void cSwap::Commit(SwapTables Corrected)
{
    HasUndo = true;
    WasChanged = Changed;
    After = std::move(Corrected);
    Before = {std::exchange(gFile.Calibr, After.Calibr), std::exchange(gFile.Data, After.Data)};
    Changed = Changed || !(Before == After);
}

std::string cSwap::Times() const
{
    return FormatNum(Count, "0") + " times.";
}

std::string cSwap::OffScale(char Kind, double Number)
{
    bool IsTooLarge = false;
    RowArray<DataRow> Data = OnSamples(Count, [&](const std::string& Sample, RowArray<DataRow>& Rows) {
        const int P = GetVarPos(Rows, Sample, What);
        for (int j = 0; P > 0 && j <= LastValue; ++j) {
            double& Value = At(Rows[P].Values, j);
            const double Corrected = Kind == 'S' ? Number * Value : Number + Value;
            IsTooLarge = IsTooLarge || (std::isfinite(Value) && !std::isfinite(Corrected));
            Value = Corrected;
        }
        return P > 0;
    });
    if (IsTooLarge)
        return FormatGeneral(Number, 15) + " takes " + What + " beyond the range of numbers: nothing was changed.";
    Commit({gFile.Calibr, std::move(Data)});
    return What + (Kind == 'S' ? " was scaled " : " was offsetted ") + FormatGeneral(Number, 15) + " " + Times();
}

std::string cSwap::Swap()
{
    const auto SeatA = SeatNumber(What), SeatB = SeatNumber(With);
    if (!SeatA || !SeatB) return "There is no seat " + (SeatA ? With : What) + ": nothing was changed.";
    const int16_t A = *SeatA, B = *SeatB;
    RowArray<CalibrRow> Calibr = gFile.Calibr;
    RowArray<DataRow> Data = gFile.Data;
    Count = ToInt16(SwapSeats(Calibr, A, B) + SwapSeats(Data, A, B));
    Commit({std::move(Calibr), std::move(Data)});
    return "Seat " + FormatNum(A, "0") + " was swapped with Seat " + FormatNum(B, "0") + " " + FormatNum(Count, "0") +
           " times.";
}

std::string cSwap::Rename()
{
    RowArray<CalibrRow> Calibr = gFile.Calibr;
    RowArray<DataRow> Data = gFile.Data;
    int Rows = 0;
    const int Chan = FindChan(Calibr, What);
    if (Chan > 0) Calibr[Chan].ParamID = With;
    for (DataRow& Row : Data) {
        if (Row.ParamID != What) continue;
        Row.ParamID = With;
        ++Rows;
    }
    Count = ToInt16(Rows);
    Commit({std::move(Calibr), std::move(Data)});
    return What + " was renamed with " + With + " " + Times();
}

std::string cSwap::Replace()
{
    RowArray<DataRow> Data = OnSamples(Count, [&](const std::string& Sample, RowArray<DataRow>& Rows) {
        const int P = GetVarPos(Rows, Sample, What), Q = GetVarPos(Rows, Sample, With);
        const bool IsFound = P > 0 && Q > 0;
        for (int j = 0; IsFound && j <= LastValue; ++j)
            At(Rows[P].Values, j) = At(Rows[Q].Values, j);
        return IsFound;
    });
    Commit({gFile.Calibr, std::move(Data)});
    return What + " was replaced with " + With + " " + Times();
}

std::string cSwap::Average()
{
    RowArray<DataRow> Data = OnSamples(Count, [&](const std::string& Sample, RowArray<DataRow>& Rows) {
        const int P = GetVarPos(Rows, Sample, What), Q = GetVarPos(Rows, Sample, With),
                  R = GetVarPos(Rows, Sample, AverTo);
        const bool IsFound = P > 0 && Q > 0 && R > 0;
        for (int j = 0; IsFound && j <= LastValue; ++j)
            At(Rows[R].Values, j) = (At(Rows[P].Values, j) + At(Rows[Q].Values, j)) / 2;
        return IsFound;
    });
    Commit({gFile.Calibr, std::move(Data)});
    return What + " was averaged with " + With + " " + Times();
}

bool cSwap::Undo()
{
    const bool IsMine = HasUndo && After == SwapTables{gFile.Calibr, gFile.Data};
    if (IsMine) {
        gFile.Calibr = std::move(Before.Calibr);
        gFile.Data = std::move(Before.Data);
        Changed = WasChanged;
    }
    Before = After = {};
    HasUndo = false;
    return IsMine;
}

bool cSwap::Save()
{
    if (gCurFile.empty()) {
        MsgBox("There is no session to save: open one first.", TitleInformation);
        return false;
    }
    if (!WriteSession()) return false;
    SetSaved();
    return true;
}

void cSwap::SetSaved()
{
    Changed = false;
    WasChanged = true; // to take a correction back that is saved is a change
}
