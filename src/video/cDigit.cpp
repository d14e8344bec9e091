// Placing, dragging and undoing of points, frame by frame, and their way into the session.
#include "video/cDigit.h"

#include "base/mNumText.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "video/mFigure.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr std::size_t CornerCnt = 3;

double Tenth(double X)
{
    return RoundHalfEven(X * 10) / 10;
}

bool IsNear(const VideoPoint& Place, double X, double Y, double Reach)
{
    return std::abs(Place.X - X) <= Reach && std::abs(Place.Y - Y) <= Reach;
}
} // namespace

void cDigit::Begin(int Index, const std::string& CurSample)
{
    Session = gCurFile;
    mDigitMode = Index == DigItAngle ? DigitAngle : DigitBody;
    if (const std::string Faults = ResolveSegs(); !Faults.empty() && mDigitMode == DigitBody)
        MsgBox("The figure is not whole:\n" + Faults + "Set-Up, Video Dots and Video Segments hold it.", TitleWarning);
    if (Index == DigItBody) {
        mVideo = InitVidData(Clip);
        InitRower("");
    } else
        InitRower(CurSample);
}

void cDigit::InitRower(const std::string& SampleID)
{
    mAngPts.clear();
    mFormerFN.clear();
    const bool IsMade = SampleID.empty() && !mVideo.SampleID.empty(); // the row of a new video
    VideoIDRow Row = FindVidData(Clip, SampleID, mFound);
    if (!mFound && IsMade) Row = mVideo;
    if (mFound && Row.VideoFN != Clip.Title) {
        if (AskYesNo("What is kept of sample " + Row.SampleID + " belongs to the video " + Row.VideoFN +
                         ". Is this the same clip, and do its points go on here?",
                     TitleWarning))
            mFormerFN = Row.VideoFN;
        else
            mFound = false;
    }
    Kept.Load(Row.SampleID, mFormerFN.empty() ? Clip.Title : mFormerFN);
    mVideo = Row;
    mVideo.VideoFN = Clip.Title;
    mVideo.FirstFrame = 1;
    mVideo.FrameCnt = Clip.Pictures;
    mVideo.Length = static_cast<float>(Clip.Duration);
    mVideo.DotCnt = gDots.UBound();
    Latest.Resize(gDots.UBound());
    EraseRower();
}

void cDigit::EraseRower()
{
    mMarks.Clear();
    mMarks.Resize(gDots.UBound());
    mCurDot = 1;
    mLastDot = 0;
    mOverDot = false;
    mDragging = false;
}

void cDigit::DrawRower(int Frame)
{
    const FrameMarks Stored = Kept.On(Frame);
    for (int Dot = 1; Dot <= gDots.UBound(); ++Dot) {
        if (!Stored[Dot].Place.IsPlaced()) continue;
        mCurDot = Dot;
        SetDot(Stored[Dot].Place.X, Stored[Dot].Place.Y, 1);
        mMarks[Dot].Angle = Stored[Dot].Angle;
    }
    mFrameDirty = false;
}

void cDigit::SetNewFrame(int Frame)
{
    SaveFrame();
    mFrame = std::clamp(Frame, 0, std::max(Clip.Pictures, 1) - 1);
    EraseRower();
    if (mDigitMode == DigitBody) DrawRower(mFrame);
}

void cDigit::SelectDot(int Dot)
{
    if (Dot >= 1 && Dot <= gDots.UBound()) mCurDot = Dot;
}

// The ends of the segments that meet at a point go with it; the session keeps where they stood last.
void cDigit::MoveSegs(int Dot, const VideoPoint& Place) const
{
    for (SegRow& Row : gSegs) {
        if (Row.StartPoint == Dot) {
            Row.X1 = static_cast<float>(Place.X);
            Row.Y1 = static_cast<float>(Place.Y);
        }
        if (Row.EndPoint == Dot) {
            Row.X2 = static_cast<float>(Place.X);
            Row.Y2 = static_cast<float>(Place.Y);
        }
    }
}

void cDigit::SetDot(double X, double Y, int Step)
{
    if (gDots.UBound() < 1) return;
    mMarks[mCurDot].Place = {X, Y};
    Latest[mCurDot].Place = {X, Y};
    MoveSegs(mCurDot, {X, Y});
    mLastDot = mCurDot;
    mFrameDirty = true;
    mCurDot += Step;
    if (mCurDot > gDots.UBound()) mCurDot = 1;
}

std::optional<double> cDigit::ShownAngle(int Dot) const
{
    if (gDots[Dot].IsAngle == 0 || !mMarks[Dot].Place.IsPlaced()) return {};
    const auto [End, Start] = JointOf(Dot);
    return JointAngle(Latest[End].Place, mMarks[Dot].Place, Latest[Start].Place);
}

std::optional<double> cDigit::AngleOnFrame(int Dot)
{
    if (gDots[Dot].IsAngle == 0) return {};
    const auto [End, Start] = JointOf(Dot);
    const VideoPoint& A = mMarks[End].Place;
    const VideoPoint& B = mMarks[Dot].Place;
    const VideoPoint& C = mMarks[Start].Place;
    if (A.IsPlaced() && B.IsPlaced() && C.IsPlaced() && IsFolded(A, B, C) && Reported.insert({mFrame, Dot}).second)
        MsgBox("Point " + gDots[Dot].PointName + " on frame " + FormatNum(mFrame, "0") +
                   ": the joint is folded, its sides lie on each other. It stays where it is, without an angle.",
               TitleWarning);
    return JointAngle(A, B, C);
}

void cDigit::SaveFrame()
{
    if (!mFrameDirty) return;
    for (int Dot = 1; Dot <= gDots.UBound(); ++Dot)
        mMarks[Dot].Angle = AngleOnFrame(Dot);
    Kept.Put(mFrame, mMarks);
    mFrameDirty = false;
    mDirty = true;
}

bool cDigit::DeleteFrame()
{
    if (std::none_of(mMarks.begin(), mMarks.end(), [](const Mark& Each) { return Each.Place.IsPlaced(); }))
        return false;
    KeepStep();
    EraseRower();
    mFrameDirty = true;
    SaveFrame();
    return true;
}

bool cDigit::Undo()
{
    if (mDigitMode == DigitAngle) {
        if (mAngPts.empty()) return false;
        mAngPts.pop_back();
        return true;
    }
    if (Steps.empty()) return false;
    const UndoStep Step = std::move(Steps.back());
    Steps.pop_back();
    if (Step.Frame != mFrame) SetNewFrame(Step.Frame);
    EraseRower();
    for (int Dot = 1; Dot <= gDots.UBound(); ++Dot) {
        mMarks[Dot] = Step.Marks[Dot];
        if (mMarks[Dot].Place.IsPlaced()) Latest[Dot].Place = mMarks[Dot].Place;
    }
    mCurDot = Step.CurDot;
    mFrameDirty = true;
    return true;
}

int cDigit::HitTest(double X, double Y, double Reach) const
{
    for (int Dot = 1; mDigitMode == DigitBody && Dot <= mMarks.UBound(); ++Dot)
        if (IsNear(mMarks[Dot].Place, X, Y, Reach)) return Dot;
    for (std::size_t i = 0; mDigitMode == DigitAngle && i < mAngPts.size(); ++i)
        if (IsNear(mAngPts[i], X, Y, Reach)) return static_cast<int>(i) + 1;
    return 0;
}

// A point that was dragged is corrected: the point that was next is next again. One that was only pressed is chosen.
void cDigit::Press(double X, double Y, double Reach)
{
    Move(X, Y, Reach);
    HasMoved = false;
    if (mOverDot) {
        mDragging = true;
        DotBefore = mCurDot;
        if (mDigitMode == DigitBody) {
            KeepStep();
            mCurDot = mHoverDot;
        }
    } else if (mDigitMode == DigitAngle)
        DoAngles(Tenth(X), Tenth(Y));
    else if (mDigitMode == DigitBody) {
        KeepStep();
        SetDot(Tenth(X), Tenth(Y), 1);
    }
}

void cDigit::Move(double X, double Y, double Reach)
{
    if (mDragging) {
        HasMoved = true;
        if (mDigitMode == DigitBody)
            SetDot(Tenth(X), Tenth(Y), 0);
        else
            At(mAngPts, mHoverDot - 1) = {Tenth(X), Tenth(Y)};
        return;
    }
    const int Hit = HitTest(X, Y, Reach);
    mOverDot = Hit > 0;
    if (mOverDot) mHoverDot = Hit;
}

void cDigit::Release()
{
    if (mDragging && mDigitMode == DigitBody) {
        if (HasMoved)
            mCurDot = DotBefore;
        else
            Steps.pop_back();
    }
    mDragging = false;
}

void cDigit::DoAngles(double X, double Y)
{
    if (mAngPts.size() == CornerCnt) mAngPts.erase(mAngPts.begin());
    mAngPts.push_back({X, Y});
}

std::optional<double> cDigit::CornerAngle() const
{
    if (mAngPts.size() < CornerCnt) return {};
    return JointAngle(mAngPts[0], mAngPts[1], mAngPts[2]);
}

std::string cDigit::NextName() const
{
    if (mDigitMode == DigitBody) return gDots.UBound() < 1 ? "" : gDots[mCurDot].PointName;
    constexpr const char* Names[] = {"First side", "Corner", "Second side", "Second side"};
    return mDigitMode == DigitAngle ? Names[mAngPts.size()] : "";
}
