// The animated figure of a row of the play view: a rower in a boat, moved through a stored cycle by boat acceleration,
// seat, trunk and oar angle.
#pragma once

#include "views/mAxis.h"
#include "views/play/mRower.h"

#include <string>
#include <vector>

class cFigure
{
public:
    /// Takes row number Row of View4 with the sample of row Sample of Desc: argument 0 is the boat's acceleration in
    /// m/s², 1 the seat in m, 2 the trunk in degrees or m, 3 the oar's angle in degrees. What the sample lacks is
    /// assumed and named in Notes. Throws RunError when the sample has no rate or fewer than two points.
    void InitViewID(int Row, int Sample);

    /// Fits the figure into a rectangle, in the same scale in both directions, and computes it for all points: its
    /// pixels are of that size.
    void SetScales(const PlotRect& Rect, double PixelSize);

    /// Takes the point at this fraction of the cycle.
    void CalcAnim(double Frac);

    /// Draws the figure at the point taken last.
    void Draw(iSurface& Surface) const;

    /// What was assumed.
    const std::vector<std::string>& Notes() const { return Assumed; }

    /// Position of the boat at each point, m, against one that runs at the mean speed.
    const std::vector<double>& Positions() const { return BoatPos; }

    /// Highest first index of the pixel array.
    static constexpr int LastPixel = 2 * JointCount;

    /// The pixel array, by point and first index. Of joint j, an eJoint from 0, index 2 j + 1 is x, to the right, and
    /// 2 j + 2 is y, downward, both in pixels of the surface from its top left. Index 0, the spare one, is how far the
    /// boat has moved from its mean place, in pixels along the axis on which x in the boat is shown.
    ///
    ///     from the side (Oper 11)                 from above (12)            from the stern (13)
    ///          head                                   blade                        head
    ///      shoulder\        right is the bow            \                       shoulders
    ///       elbow   \                                    gate              hand--    --hand
    ///   knee  hand   \                             hand---\               gate          gate
    ///   /   \   gate  hip                         hip  shoulders              knees
    /// toes-ankle          ___blade               feet at the left    blade              blade
    using PixelColumn = std::array<int32_t, LastPixel + 1>;
    const std::vector<PixelColumn>& AnimArr() const { return Pixels; }

private:
    std::vector<double> Curve(std::size_t Arg) const;
    void CreateBoatPosArr();
    void TakeSeat();
    void TakeTrunk();
    void TakeOar();
    void FillAnimArr();
    SurfacePlace Project(const BoatPlace& Place) const;
    SurfacePlace JointAt(int Joint) const;
    SurfacePlace Seen(double X, double Y, double Z) const;
    void Limb(iSurface& Surface, SurfacePlace A, SurfacePlace B, int32_t Colour, double Width) const;
    void Dot(iSurface& Surface, SurfacePlace At, double Radius, int32_t Colour) const;
    void Board(iSurface& Surface, SurfacePlace A, SurfacePlace B, int32_t Colour) const;
    void DrawBoat(iSurface& Surface) const;
    void DrawBoatFromSide(iSurface& Surface) const;
    void DrawBoatFromAbove(iSurface& Surface) const;
    void DrawBoatFromStern(iSurface& Surface) const;
    void DrawLegs(iSurface& Surface) const;
    void DrawUpperBody(iSurface& Surface) const;
    void DrawArm(iSurface& Surface, bool IsMirrored) const;
    void DrawOar(iSurface& Surface, bool IsMirrored) const;
    SurfacePlace Mirrored(SurfacePlace Place) const;
    bool HasTwoSides() const { return View.Oper == OperFigureXZ || View.Oper == OperFigureYZ; }

    ViewRow View;
    std::vector<std::vector<double>> ArgValues; // of each argument, none where the sample lacks it
    int PntCnt = 0;
    double Step = 0; // s
    double Lever = 0;
    std::vector<double> BoatPos;
    std::vector<Posture> Postures;
    Body Who;
    Rig Boat;
    std::vector<std::string> Assumed;

    PlotRect Frame;
    double Pixel = 1;
    double Scale = 1; // drawing units to the metre
    double ZeroX = 0;
    double ZeroY = 0;
    std::vector<PixelColumn> Pixels;
    std::size_t Point = 0;
};
