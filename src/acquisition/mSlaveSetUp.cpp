// All is computed into a copy of the session, which replaces it once it is saved.
#include "acquisition/mSlaveSetUp.h"

#include "acquisition/mLoggerCommands.h"
#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mNotice.h"
#include "files/mStream.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <utility>

namespace {
constexpr int16_t MasterChans = 16;
constexpr double HighestCount = FullScale - 1;

CalibrRow BlankRow(int16_t Chan)
{
    CalibrRow Row;
    Row.Chan = Chan;
    Row.SessID = gSessID;
    Row.ParamID = "In" + FormatNum(Chan, "0");
    Row.Q1 = 1;
    Row.Max = HighestCount;
    return Row;
}

bool IsCutConfirmed(const RowArray<CalibrRow>& Table, int16_t Count)
{
    return AskYesNo("The slaves have " + FormatNum(Count, "0") +
                        " channels with the master's, the session has rows for " + FormatNum(Table.UBound(), "0") +
                        ". The rows " + FormatNum(Count + 1, "0") + " to " + FormatNum(Table.UBound(), "0") + ", " +
                        Table[Count + 1].ParamID + " to " + Table[Table.UBound()].ParamID +
                        ", with their calibration will be removed. Remove them?",
                    TitleWarning);
}
} // namespace

bool FitCalibr(RowArray<CalibrRow>& Table, int16_t Count)
{
    if (Table.UBound() > Count && !IsCutConfirmed(Table, Count)) return false;
    const int Kept = Table.UBound();
    Table.Resize(Count);
    for (int Chan = Kept + 1; Chan <= Count; ++Chan)
        Table[Chan] = BlankRow(static_cast<int16_t>(Chan));
    return true;
}

bool SetSlaves(std::size_t Kind, bool HasExtras)
{
    const SlaveKind& Chosen = SlaveKinds()[Kind];
    DataFile Changed = gFile;
    Changed.SlaveChans = static_cast<int16_t>(Chosen.Chans + (HasExtras ? 2 : 0));
    if (Chosen.Chans == 8) Changed.Signed = Chosen.IsSigned;
    Changed.ChanCnt = ToInt16(int64_t{Changed.SlaveCnt} * Changed.SlaveChans + MasterChans);
    if (!FitCalibr(Changed.Calibr, Changed.ChanCnt)) return false;
    const bool IsOther = Changed.ChanCnt != gFile.ChanCnt || Changed.Calibr.UBound() != gFile.Calibr.UBound() ||
                         Changed.SlaveChans != gFile.SlaveChans;
    std::swap(gFile, Changed);
    if (!WriteSession()) {
        std::swap(gFile, Changed);
        return false;
    }
    gSignedADC = gFile.Signed; // until frames tell
    ResolveChannels();
    if (IsOther) Notify(eNotice::SessionReplaced);
    return true;
}
