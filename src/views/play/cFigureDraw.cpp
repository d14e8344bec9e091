// The figure as a person in a boat, drawn from its pixel array.
#include "views/play/cFigure.h"

#include "base/mNumText.h"
#include "processing/mViewRow.h"

#include <algorithm>

namespace {
constexpr int32_t Skin = 0x86AEDB, Shorts = 0x5A3C28, Wood = 0x5E6A72, Water = 0xD8B48C, Hull = 0xE6DCD0,
                  HullEdge = 0xA8988A, Metal = 0x8A8078, Blade = 0x3A3AC8, HairDark = 0x2A3440;
constexpr double ShankWidth = 0.095, ThighWidth = 0.145, TrunkWidth = 0.20, ArmWidth = 0.075, FootWidth = 0.075;
constexpr double HullTop = 0.16, HullDepth = 0.10, HullHalfWidth = 0.26; // m
constexpr double RiggerRoot = 0.3; // m towards the stern from the gate, where the rigger stands on the hull
constexpr double HullReach = 2.6;  // m of the hull on either side of the gate
} // namespace

SurfacePlace cFigure::JointAt(int Joint) const
{
    const PixelColumn& Column = Pixels[Point];
    const auto Index = static_cast<std::size_t>(2 * Joint + 1);
    return {Column[Index] * Pixel, Column[Index + 1] * Pixel};
}

// The other side of the boat.
SurfacePlace cFigure::Mirrored(SurfacePlace Place) const
{
    if (View.Oper == OperFigureXZ) return {Place.X, 2 * ZeroY - Place.Y};
    return {2 * ZeroX - Place.X, Place.Y};
}

// The pen's round ends stay in the rectangle too: only that is wiped for the next picture.
void cFigure::Limb(iSurface& Surface, SurfacePlace A, SurfacePlace B, int32_t Colour, double Width) const
{
    const int32_t Pen = RoundWithin(Width * Scale, 1, 200);
    const double Edge = Pen / 2.0;
    Surface.SetPen(Colour, Pen);
    DrawClipped(Surface, {Frame.Left + Edge, Frame.Right - Edge, Frame.Top + Edge, Frame.Bottom - Edge},
                std::array{A, B});
}

void cFigure::Dot(iSurface& Surface, SurfacePlace At, double Radius, int32_t Colour) const
{
    const double R = Radius * Scale;
    if (At.X - R < Frame.Left || At.X + R > Frame.Right || At.Y - R < Frame.Top || At.Y + R > Frame.Bottom) return;
    Surface.SetPen(Colour);
    Surface.SetFill(Colour);
    Surface.Circle(At.X, At.Y, R);
    Surface.SetFill(NoFill);
}

void cFigure::Draw(iSurface& Surface) const
{
    if (Pixels.empty()) return;
    DrawBoat(Surface);
    const bool IsFromAbove = View.Oper == OperFigureXZ;
    if (IsFromAbove) DrawLegs(Surface);
    DrawUpperBody(Surface);
    if (!IsFromAbove) DrawLegs(Surface);
    // A sweep rower's other hand is on the same handle, a sculler's on the other scull, which a view from the side
    // hides.
    if (HasTwoSides()) DrawArm(Surface, true);
    if (HasTwoSides() && Boat.IsScull) DrawOar(Surface, true);
    DrawArm(Surface, false);
    DrawOar(Surface, false);
}

// A box, as far as it lies in the rectangle.
void cFigure::Board(iSurface& Surface, SurfacePlace A, SurfacePlace B, int32_t Colour) const
{
    const double Left = std::max(std::min(A.X, B.X), Frame.Left), Right = std::min(std::max(A.X, B.X), Frame.Right);
    const double Top = std::max(std::min(A.Y, B.Y), Frame.Top), Bottom = std::min(std::max(A.Y, B.Y), Frame.Bottom);
    if (Right <= Left || Bottom <= Top) return;
    Surface.SetPen(Colour);
    Surface.SetFill(Colour);
    Surface.Box(Left, Top, Right, Bottom);
    Surface.SetFill(NoFill);
}

// A place in the boat as it is seen now.
SurfacePlace cFigure::Seen(double X, double Y, double Z) const
{
    return Project({X + Pixels[Point][0] * Pixel / Scale, Y, Z});
}

void cFigure::DrawBoat(iSurface& Surface) const
{
    if (View.Oper == OperFigureXZ)
        DrawBoatFromAbove(Surface);
    else if (View.Oper == OperFigureYZ)
        DrawBoatFromStern(Surface);
    else
        DrawBoatFromSide(Surface);
}

// Hull, stretcher, the seat on its slides, the rigger to the gate, and the water line.
void cFigure::DrawBoatFromSide(iSurface& Surface) const
{
    const double Stern = Boat.Gate.X - HullReach, Bow = Boat.Gate.X + HullReach;
    const BoatPlace Heel = Heels(Boat);
    const SurfacePlace Hip = JointAt(JointHip);
    const double SeatY = Hip.Y + Scale * Who.HipsToSeat;
    Board(Surface, Seen(Stern, HullTop, 0), Seen(Bow, -HullDepth, 0), Hull);
    Limb(Surface, Seen(Stern, HullTop, 0), Seen(Bow, HullTop, 0), HullEdge, 0.015);
    Limb(Surface, {Frame.Left, ZeroY}, {Frame.Right, ZeroY}, Water, 0.02);
    Limb(Surface, Seen(Boat.Toes.X, Boat.Toes.Y, 0), Seen(Heel.X, Heel.Y, 0), Metal, 0.03);
    Limb(Surface, {Hip.X - 0.12 * Scale, SeatY}, {Hip.X + 0.12 * Scale, SeatY}, Metal, 0.05);
    Limb(Surface, Seen(Boat.Gate.X, HullTop, 0), JointAt(JointGate), Metal, 0.025);
}

void cFigure::DrawBoatFromAbove(iSurface& Surface) const
{
    const double Stern = Boat.Gate.X - HullReach, Bow = Boat.Gate.X + HullReach;
    const double Side = Boat.Gate.Z < 0 ? -HullHalfWidth : HullHalfWidth;
    const SurfacePlace Hip = JointAt(JointHip), Gate = JointAt(JointGate);
    const SurfacePlace Root = Seen(Boat.Gate.X - RiggerRoot, 0, Side);
    Board(Surface, Seen(Stern, 0, HullHalfWidth), Seen(Bow, 0, -HullHalfWidth), Hull);
    for (const double Edge : {-HullHalfWidth, HullHalfWidth})
        Limb(Surface, Seen(Stern, 0, Edge), Seen(Bow, 0, Edge), HullEdge, 0.015);
    Limb(Surface, Seen(Boat.Toes.X, 0, -0.14), Seen(Boat.Toes.X, 0, 0.14), Metal, 0.04);
    Limb(Surface, {Hip.X, Hip.Y - 0.1 * Scale}, {Hip.X, Hip.Y + 0.1 * Scale}, Metal, 0.2);
    Limb(Surface, Root, Gate, Metal, 0.025);
    if (Boat.IsScull) Limb(Surface, Mirrored(Root), Mirrored(Gate), Metal, 0.025);
}

void cFigure::DrawBoatFromStern(iSurface& Surface) const
{
    const SurfacePlace Deck = Project({0, HullTop, 0});
    Board(Surface, Project({0, HullTop, HullHalfWidth}), Project({0, -HullDepth, -HullHalfWidth}), Hull);
    Limb(Surface, {Frame.Left, ZeroY}, {Frame.Right, ZeroY}, Water, 0.02);
    Limb(Surface, Deck, JointAt(JointGate), Metal, 0.025);
    if (Boat.IsScull) Limb(Surface, Deck, Mirrored(JointAt(JointGate)), Metal, 0.025);
}

// From the stern the feet and the knees stand apart.
void cFigure::DrawLegs(iSurface& Surface) const
{
    const double Apart = HasTwoSides() ? 0.11 * Scale : 0;
    for (const double Side : {-Apart, Apart}) {
        const auto Leg = [&](int Joint) {
            const SurfacePlace At = JointAt(Joint);
            return View.Oper == OperFigureXZ ? SurfacePlace{At.X, At.Y + Side} : SurfacePlace{At.X + Side, At.Y};
        };
        Limb(Surface, Leg(JointHip), Leg(JointKnee), Shorts, ThighWidth);
        Limb(Surface, Leg(JointKnee), Leg(JointAnkle), Skin, ShankWidth);
        Limb(Surface, Leg(JointAnkle), Leg(JointToes), HairDark, FootWidth);
        if (Apart == 0) return;
    }
}

void cFigure::DrawUpperBody(iSurface& Surface) const
{
    const SurfacePlace Hip = JointAt(JointHip), Shoulder = JointAt(JointShoulder), Head = JointAt(JointHead);
    const int32_t Shirt = PaperInk(RowColour(View));
    const double Width = HasTwoSides() ? TrunkWidth * 1.1 : TrunkWidth;
    const SurfacePlace Other = HasTwoSides() ? Mirrored(Shoulder) : Shoulder;
    const SurfacePlace Neck{(Shoulder.X + Other.X) / 2, (Shoulder.Y + Other.Y) / 2};
    Limb(Surface, Hip, Neck, Shirt, Width);
    if (HasTwoSides()) Limb(Surface, Shoulder, Other, Shirt, TrunkWidth * 0.7);
    Limb(Surface, Neck, Head, Skin, ArmWidth);
    Dot(Surface, Head, 0.42 * Who.Head, HairDark);
    Dot(Surface, {Head.X - (HasTwoSides() ? 0 : 0.05 * Scale), Head.Y + 0.02 * Scale}, 0.36 * Who.Head, Skin);
}

void cFigure::DrawArm(iSurface& Surface, bool IsMirrored) const
{
    SurfacePlace Shoulder = JointAt(JointShoulder), Elbow = JointAt(JointElbow), Hand = JointAt(JointHand);
    if (IsMirrored) {
        Shoulder = Mirrored(Shoulder);
        if (Boat.IsScull) {
            Elbow = Mirrored(Elbow);
            Hand = Mirrored(Hand);
        } else {
            Elbow = {(Shoulder.X + Hand.X) / 2, (Shoulder.Y + Hand.Y) / 2};
        }
    }
    Limb(Surface, Shoulder, Elbow, Skin, ArmWidth);
    Limb(Surface, Elbow, Hand, Skin, ArmWidth * 0.85);
}

void cFigure::DrawOar(iSurface& Surface, bool IsMirrored) const
{
    const auto At = [&](int Joint) { return IsMirrored ? Mirrored(JointAt(Joint)) : JointAt(Joint); };
    const SurfacePlace Hand = At(JointHand), Tip = At(JointBlade), Gate = At(JointGate);
    Limb(Surface, Hand, Tip, Wood, 0.035);
    const double Share = Boat.BladeLength / (Boat.Outboard + Lever);
    const SurfacePlace Root{Tip.X + (Hand.X - Tip.X) * Share, Tip.Y + (Hand.Y - Tip.Y) * Share};
    Limb(Surface, Root, Tip, Blade, 0.13);
    Dot(Surface, Hand, 0.045, Skin);
    Dot(Surface, Gate, 0.04, Metal);
}
