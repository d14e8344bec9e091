// Rows, zeros and where they are stored.
#include "calibration/cReZero.h"

#include "acquisition/mComFast.h"
#include "base/mNumText.h"
#include "calibration/mCalStore.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "files/mBinIO.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "processing/mPhysVal.h"
#include "processing/mRefZero.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {
constexpr char GroupLetters[ReZeroGroupCnt] = {'A', 'V', 'H', 'S', 'G'};
constexpr int NamesInGroup = 8;

bool IsChannel(double Number)
{
    return Number >= 1 && Number <= std::min(gFile.Calibr.UBound(), LastDataChan);
}

double Count(int16_t Chan)
{
    return Chan >= 0 && Chan <= LastDataChan ? gData[static_cast<std::size_t>(Chan)] : 0;
}

bool AreDataComing()
{
    return gLinkWatch.State() == cLinkWatch::eState::Open && !gLinkWatch.IsSilent();
}

// Puts the last frame of a file that can be decoded into gData. False when there is none or the file cannot be read
// (reported to the user).
bool ReadLastFrame(const std::string& Path)
{
    if (!OpenScanFile(Path)) return false;
    std::optional<SampleVector> Last;
    while (ReadFrame())
        Last = gScanData;
    if (!CloseScanFile()) return false;
    if (Last) gData = *Last;
    if (!Last) MsgBox("There is no frame of this logger model in file: " + Path, TitleError);
    return Last.has_value();
}
} // namespace

cReZero::cReZero(bool CalibratorMode) : mCalibrMode(CalibratorMode)
{
    if (!mCalibrMode) return;
    ReZeroRow& Row = mRows.emplace_back();
    Row.Chan = gAutoCalCh;
    Row.Name = Row.ChanText = FormatNum(gAutoCalCh, "0");
}

bool cReZero::ChooseGroup(int Group)
{
    if (mDirty && !AskYesNo("Are you sure to discard changes?", TitleWarning)) return false;
    mRows.clear();
    mDirty = mSaved = mGainTyped = false;
    mChosen = true;
    for (int i = 1; i <= NamesInGroup; ++i)
        AddChannel(GroupLetters[Group] + FormatNum(i, "0"));
    return true;
}

bool cReZero::AddChannel(const std::string& Name)
{
    const int16_t Chan = FindChan(gFile.Calibr, Name);
    const bool IsShown = std::any_of(mRows.begin(), mRows.end(), [&](const auto& Row) { return Row.Chan == Chan; });
    if (!IsChannel(Chan) || IsShown || mRows.size() >= MaxRows) return false;
    ReZeroRow& Row = mRows.emplace_back();
    Row.Name = Name;
    Row.Chan = Chan;
    Row.ChanText = FormatNum(Chan, "0");
    Fill(Row);
    return true;
}

void cReZero::Fill(ReZeroRow& Row)
{
    const CalibrRow& Chan = gFile.Calibr[Row.Chan];
    Row.NewQ0 = Chan.Q0;
    Row.LogZero = Chan.Log0;
    Row.OldQ0Text = Row.NewQ0Text = FormatSig(Chan.Q0, 2);
    Row.Q1Text = FormatSig(Chan.Q1, 6);
    Row.LZeroText = FormatNum(Chan.Log0, "0.0");
    Row.HasData = Row.IsZeroed = false;
}

bool cReZero::IsRow(int Row) const
{
    return Row >= 0 && Row < static_cast<int>(mRows.size());
}

void cReZero::StartData()
{
    mSaved = false;
    if (mCalibrMode) {
        ReZeroRow& Row = mRows[0];
        Row.Chan = gAutoCalCh;
        Row.NewQ0 = gAutoCalQ0;
        Row.IsZeroed = false;
        Row.OldQ0Text = Row.NewQ0Text = FormatSig(gAutoCalQ0, 2);
        Row.Q1Text = FormatSig(gAutoCalQ1, 6);
        return;
    }
    for (ReZeroRow& Row : mRows) {
        const double Typed = RoundHalfEven(Val(Row.ChanText));
        const int16_t Chan = IsChannel(Typed) ? static_cast<int16_t>(Typed) : FindChan(gFile.Calibr, Row.Name);
        if (Chan < 1) continue;
        Row.Chan = Chan;
        Row.ChanText = FormatNum(Chan, "0");
        Row.Name = gFile.Calibr[Chan].ParamID;
        Fill(Row);
    }
}

void cReZero::SetChan(int Row, const std::string& Text)
{
    if (!mCalibrMode && IsRow(Row)) mRows[static_cast<std::size_t>(Row)].ChanText = Text;
}

void cReZero::SetQ1(int Row, const std::string& Text)
{
    if (mCalibrMode || !IsRow(Row)) return;
    ReZeroRow& Edited = mRows[static_cast<std::size_t>(Row)];
    Edited.Q1Text = Text;
    const auto Number = LeadingNumber(Text);
    if (!Number) return;
    gFile.Calibr[Edited.Chan].Q1 = *Number;
    mDirty = mGainTyped = true;
}

void cReZero::ShowCount(ReZeroRow& Row)
{
    Row.LogText = FormatNum(Row.Log, "0000");
    // A value that rounds to zero is shown without a sign.
    Row.PhysText = FormatNum(std::abs(Row.Phys) < 0.005 ? 0.0 : Row.Phys, "00.00");
}

void cReZero::TakeSample()
{
    for (ReZeroRow& Row : mRows) {
        Row.Log = static_cast<int32_t>(RoundHalfEven(Count(Row.Chan)));
        Row.Phys = mCalibrMode ? Row.Log * gAutoCalQ1 + gAutoCalQ0 : CalcPhysVal(Row.Chan, Row.Log, Row.Prev);
        Row.HasData = true;
        ShowCount(Row);
    }
}

// The line is moved so that it passes through zero at the count.
void cReZero::TakeZero(ReZeroRow& Row, double Count)
{
    const double Q1 = mCalibrMode ? gAutoCalQ1 : gFile.Calibr[Row.Chan].Q1;
    Row.LogZero = Count;
    Row.NewQ0 = 0 - Q1 * Count; // a minus alone would give a count of 0 a zero with a sign
    Row.IsZeroed = true;
    mGainTyped = false;
    Row.LZeroText = FormatNum(Row.LogZero, "0.0");
    Row.NewQ0Text = FormatNum(Row.NewQ0, mCalibrMode ? "0.0000" : "00.0000");
}

bool cReZero::ReZero()
{
    if (mRows.empty() || !std::all_of(mRows.begin(), mRows.end(), [](const auto& Row) { return Row.HasData; })) {
        MsgBox("There are no counts to take as zeros: choose a group, start the data, and see that the logger sends "
               "them.",
               TitleInformation);
        return false;
    }
    if (mCalibrMode && mRows[0].Chan < 1) {
        MsgBox("There is no automatic calibrator: set one in the calibration workbench first.", TitleInformation);
        return false;
    }
    if (gLinkWatch.State() != cLinkWatch::eState::Closed && !AreDataComing() &&
        !AskYesNo("No data are coming: the counts shown are old. Do you want to make them the zeros nevertheless?",
                  TitleWarning))
        return false;
    for (ReZeroRow& Row : mRows) {
        TakeZero(Row, Row.Log);
        if (mCalibrMode || gFile.Calibr[Row.Chan].ProcMode != ApproxRefTable) continue;
        gFile.Calibr[Row.Chan].Log0 = Row.LogZero;
        ZeroRefTable(Row.Chan);
    }
    mDirty = true;
    return true;
}

std::string cReZero::Unmoved() const
{
    std::string Names;
    for (const ReZeroRow& Row : mRows)
        if (const int16_t Mode = mCalibrMode ? int16_t{ApproxLinear} : gFile.Calibr[Row.Chan].ProcMode;
            Mode == ApproxOneLine || Mode == ApproxTwoLines)
            Names += (Names.empty() ? "" : ", ") + Row.Name;
    return Names;
}

std::string cReZero::State(bool IsTaking) const
{
    const std::string Leave = " Escape closes.";
    if (mRows.empty())
        return std::string(mChosen ? "The session has no channel of this group: choose another one"
                                   : "Choose a group") +
               ", or add a channel." + Leave;
    if (mCalibrMode && mRows[0].Chan < 1)
        return "There is no automatic calibrator: calibrate a channel and press \"Set as Auto-Calibr\" there." + Leave;
    const bool HasData = mRows[0].HasData;
    const bool IsLive = IsTaking && HasData && AreDataComing();
    std::string Text = IsLive      ? "Data are coming."
                       : !IsTaking ? "Data are stopped."
                       : HasData   ? "Data have stopped coming: the counts are old."
                                   : "No data are coming yet.";
    if (mDirty && mGainTyped)
        Text += " The gain was changed: ReZero (Alt+Z) anew, then Save Data (Alt+S).";
    else if (mDirty)
        Text += " Changes are not saved: Save Data (Alt+S) keeps them.";
    else if (mSaved)
        Text += " Saved.";
    else if (IsLive)
        Text += " ReZero (Alt+Z) makes the present counts the zeros.";
    else if (!IsTaking)
        Text += " Leave the sensors unloaded; Start Data (a) shows the counts.";
    if (const std::string Names = mDirty || mSaved ? Unmoved() : ""; !Names.empty())
        Text += " Read by curves, which do not move: " + Names + ".";
    return Text + Leave;
}

bool cReZero::GetFromFile(const std::string& Path)
{
    if (!ReadLastFrame(Path)) return false;
    TakeSample();
    for (ReZeroRow& Row : mRows)
        TakeZero(Row, Row.Log);
    mDirty = true;
    return true;
}

// A row without a new zero does not change its channel, which may have been calibrated since the row was filled.
void cReZero::Store()
{
    if (mCalibrMode) {
        if (!mRows[0].IsZeroed) return;
        gAutoCalCh = mRows[0].Chan;
        gAutoCalQ0 = mRows[0].NewQ0;
        return;
    }
    for (const ReZeroRow& Row : mRows) {
        if (!Row.IsZeroed) continue;
        gFile.Calibr[Row.Chan].Q0 = Row.NewQ0;
        gFile.Calibr[Row.Chan].Log0 = Row.LogZero;
    }
    ZeroAllRefTables();
    ResolveChannels();
}

bool cReZero::SaveData()
{
    const FormerChannels Former;
    const double FormerQ0 = gAutoCalQ0;
    Store();
    const bool IsSaved = mCalibrMode ? WriteIni() : WriteSession();
    mSaved = IsSaved;
    if (IsSaved) {
        mDirty = mGainTyped = false;
        for (ReZeroRow& Row : mRows)
            Row.IsZeroed = false;
    } else if (mCalibrMode)
        gAutoCalQ0 = FormerQ0;
    else
        Former.PutBack();
    return IsSaved;
}
