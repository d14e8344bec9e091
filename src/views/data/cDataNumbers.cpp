// Texts of the numbers.
#include "views/data/cDataNumbers.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "views/data/cDataBands.h"
#include "views/data/mSelNumbers.h"

namespace {
constexpr int DistChan = 16;
} // namespace

void cDataNumbers::MarkOld()
{
    if (HasOpenStart) Selected.fill({});
    HasOpenStart = false;
    for (ViewNumber& Each : Selected)
        Each.IsCurrent = false;
}

void cDataNumbers::Show(const cDataRange& Range)
{
    if (Range.IsOpen()) return ShowOpenStart(Range.SelStart());
    const auto Texts = SelectionNumbers(Range.SelStart(), Range.SelStop());
    MarkOld();
    for (std::size_t i = 1; Texts && i < Selected.size(); ++i)
        Selected[i] = {(*Texts)[i]};
    UpdateStatus(Texts ? GapNote(Range.SelStart(), Range.SelStop())
                       : "There is no whole stroke in the selection, by channel " + gFile.KeyChanID);
}

void cDataNumbers::ShowOpenStart(int32_t Start)
{
    Selected.fill({});
    HasOpenStart = true;
    Selected[1] = {FormatNum(gRaw(0, Start), "0.0")};
    Selected[2] = {"no stop"};
    UpdateStatus("The selection has no stop yet: set it with 2 Stop.");
}

void cDataNumbers::ShowDist(const cDataRange& Range)
{
    const auto Texts = DistTexts(Range.SelStart(), Range.SelStop());
    for (std::size_t i = 0; i < Texts.size(); ++i)
        Selected[7 + i] = {Texts[i]};
}

void cDataNumbers::ShowCursor(int32_t Sample)
{
    if (Sample < 0 || Sample > gRaw.UBound()) return;
    AtCursor[0] = FormatNum(gRaw(0, Sample), "0.0");
    if (gRaw.ChannelUBound() >= DistChan) LoggedAtCursor = FormatNum(gRaw(DistChan, Sample), "0.00");
    if (cDataBands::HasDist()) AtCursor[1] = FormatNum(At(gDist, Sample), "0.0");
}
