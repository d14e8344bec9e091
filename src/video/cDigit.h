// Digitising of one clip: the points of the frame that is shown, what the mouse does to them, and their keeping.
#pragma once

#include "video/cMarks.h"
#include "video/mVidID.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

enum eDigitMode : int16_t
{
    DigitNone,
    DigitAngle, // three clicks give one angle
    DigitBody   // the stick figure is placed frame by frame
};

// The buttons that begin digitising.
enum eDigIt
{
    DigItAngle,
    DigItBody,    // goes on with what is kept under the file's name
    DigItPlayBody // goes on with what is kept of the current sample
};

/// Places are pixels of the picture, 0,0 the corner of the first; a frame beyond the last picture counts as the last,
/// since that is what is seen there. Points are numbered as in gDots, from 1.
class cDigit
{
public:
    explicit cDigit(DigitClip InitClip) : Clip(std::move(InitClip)) {}

    /// Begins as the button Index does. Faults of the figure are reported to the user.
    void Begin(int Index, const std::string& CurSample);

    /// Finds what is kept of the clip under a sample's identifier, or under its name when that is empty, and takes its
    /// points.
    void InitRower(const std::string& SampleID);

    /// Leaves the frame, whose points are stored when they were changed, and shows the points of another.
    void SetNewFrame(int Frame);

    /// Stores the frame's points with their angles, which are all formed anew. Nothing when none was changed. A folded
    /// joint has no angle, which is reported to the user once.
    void SaveFrame();

    /// Makes Dot the point that SetDot places.
    void SelectDot(int Dot);

    /// Places the current point, and goes on by Step to the next; behind the last comes the first.
    void SetDot(double X, double Y, int Step);

    /// Takes the current frame's points away. False when it has none.
    bool DeleteFrame();

    /// Takes the last placing, dragging or deleting back; its frame becomes the current one. False when there is none.
    bool Undo();

    // The mouse: a press, a move, a release of its button. Reach is half the width of a point's mark. Places are
    // rounded to a tenth.
    void Press(double X, double Y, double Reach);
    void Move(double X, double Y, double Reach);
    void Release();

    /// Adds a corner of the angle; of four the oldest goes.
    void DoAngles(double X, double Y);

    /// Stores the points and their row of gVideoID in the session, and saves it. False when that failed (reported to
    /// the user): then the session is as it was.
    bool SaveRower();

    /// The same as "Save Data" does: a row that is there is rewritten only after a question.
    bool SaveData();

    eDigitMode Mode() const { return mDigitMode; }
    int Frame() const { return mFrame; }
    int CurDot() const { return mCurDot; }
    int LastDot() const { return mLastDot; } // the point that was placed last on this frame, 0 for none
    int HoverDot() const { return mOverDot ? mHoverDot : 0; }
    bool IsDragging() const { return mDragging; }
    bool IsFound() const { return mFound; }
    bool NeedsSaving() const { return mDirty || mFrameDirty; }
    bool CanUndo() const { return !Steps.empty() || !mAngPts.empty(); }
    const VideoIDRow& Video() const { return mVideo; }
    const DigitClip& Of() const { return Clip; }

    /// The points of the current frame.
    const FrameMarks& Marks() const { return mMarks; }

    /// The angle at a point as its places are now, degrees: a neighbour that is not yet placed on this frame stands
    /// where it stood last. Nothing for a point without IsAngle.
    std::optional<double> ShownAngle(int Dot) const;

    /// The corners of the angle, and the angle at the second when there are three, degrees.
    const std::vector<VideoPoint>& Corners() const { return mAngPts; }
    std::optional<double> CornerAngle() const;

    /// Name of what the next click places.
    std::string NextName() const;

    /// The points of all frames; those of the current one as they were stored last.
    const cMarks& All() const { return Kept; }

private:
    struct UndoStep
    {
        int Frame = 0;
        FrameMarks Marks;
        int CurDot = 0;
    };

    void EraseRower();
    void DrawRower(int Frame);
    void KeepStep() { Steps.push_back({mFrame, mMarks, mCurDot}); }
    int HitTest(double X, double Y, double Reach) const;
    void MoveSegs(int Dot, const VideoPoint& Place) const;
    std::optional<double> AngleOnFrame(int Dot);
    void RenameFormer();
    bool Store(bool (*StoreRow)(const VideoIDRow&));

    DigitClip Clip;
    std::string Session; // path of the session that the points belong to
    eDigitMode mDigitMode = DigitNone;
    VideoIDRow mVideo;
    std::string mFormerFN; // name that the video was kept under, when it is another now
    bool mFound = false;
    cMarks Kept;

    int mFrame = 0;
    FrameMarks mMarks;
    FrameMarks Latest; // of each point the last place on any frame
    int mCurDot = 1;
    int mLastDot = 0;
    int mHoverDot = 0;
    bool mOverDot = false;
    bool mDragging = false;
    bool HasMoved = false; // since the press
    int DotBefore = 0;     // the current point ahead of the press
    bool mFrameDirty = false;
    bool mDirty = false;
    std::vector<UndoStep> Steps;
    std::vector<VideoPoint> mAngPts;
    std::set<std::pair<int, int>> Reported; // frame and point of folded joints
};
