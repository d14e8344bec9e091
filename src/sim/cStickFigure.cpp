// The body sits by seat and trunk, the hands go where the handle is, knees and elbows follow. Metres: x to the bow from
// the toes, y up from the water.
#include "sim/cStickFigure.h"

#include "base/mNumText.h"
#include "sim/cTruth.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
constexpr double Radian = std::numbers::pi / 180;

// A rower of 1.85 m in a usual rig.
constexpr CanvasPlace Toes{-0.06, 0.36};
constexpr CanvasPlace Ankle{0.08, 0.18};
constexpr double HipAtCatch = 0.36;
constexpr double HipHeight = 0.32;
constexpr double Shank = 0.46;
constexpr double Thigh = 0.48;
constexpr double TrunkLength = 0.52;
constexpr double HeadOut = 0.24; // from the shoulder
constexpr double UpperArm = 0.31;
constexpr double ForeArm = 0.34;
constexpr double Inboard = 0.90;
constexpr double Outboard = 2.4; // to the middle of the blade
constexpr double BladeHeight = 0.06;
constexpr CanvasPlace Gate{0.38, 0.50};
constexpr double ErgHandHeight = 0.62;
constexpr double ChainStart = -0.42; // x of an ergometer's handle with no chain out

// The picture.
constexpr double PixelsAMetre = 150;
constexpr double Left = 1.35; // m shown to the left of the toes' zero
constexpr double WaterRow = 300;
constexpr double LimbWidth = 7;
constexpr uint32_t Sky = 0xE8F1F8;
constexpr uint32_t Water = 0x7FB2D6;
constexpr uint32_t Hull = 0x7A4A22;
constexpr uint32_t Limb = 0x1E2B45;
constexpr uint32_t OarColour = 0xC62828;
constexpr uint32_t Mark = 0xFFC400;
constexpr uint32_t Ink = 0x101010;

CanvasPlace ToPixels(CanvasPlace Metres)
{
    return {(Metres.X + Left) * PixelsAMetre, WaterRow - Metres.Y * PixelsAMetre};
}

// The joint between two limbs, on the side that Bend says: 1 to the left of who looks from A to B, else -1. Limbs that
// are too short lie straight.
CanvasPlace Between(CanvasPlace A, CanvasPlace B, double FromA, double ToB, double Bend)
{
    const double Dx = B.X - A.X;
    const double Dy = B.Y - A.Y;
    const double Far = std::hypot(Dx, Dy);
    const double Along = (FromA * FromA - ToB * ToB + Far * Far) / (2 * Far);
    const double Off = std::sqrt(std::max(0.0, FromA * FromA - Along * Along)) * Bend;
    return {A.X + (Dx * Along - Dy * Off) / Far, A.Y + (Dy * Along + Dx * Off) / Far};
}

std::function<double(double)> SignalOf(const DataFile& File, cRowerModel& Model, char Kind)
{
    auto Value = Model.SensorOf(ChannelOfSeat1(File, Kind)).Value;
    if (Value) return Value;
    return [](double) { return 0.0; };
}
} // namespace

const char* StickName(int Joint)
{
    constexpr std::array<const char*, StickJoints> Names = {"Toes",  "Ankle", "Knee", "Hip",  "Shoulder",
                                                            "Elbow", "Hand",  "Head", "Gate", "Blade"};
    return Names[static_cast<std::size_t>(Joint)];
}

cStickFigure::cStickFigure(const DataFile& File, cRowerModel& Model)
    : IsErg(Model.IsErg()), Seat(SignalOf(File, Model, 'S')), Trunk(SignalOf(File, Model, 'T')),
      Handle(SignalOf(File, Model, IsErg ? 'L' : 'A')), Lift(SignalOf(File, Model, 'V'))
{
}

void cStickFigure::PlaceOar(double T, StickPlaces& Metres) const
{
    if (IsErg) {
        Metres[StickGate] = Metres[StickBlade] = {ChainStart - 0.4, ErgHandHeight};
        Metres[StickHand] = {ChainStart + Handle(T), ErgHandHeight};
        return;
    }
    const double Angle = Handle(T) * Radian;
    const CanvasPlace Blade{Gate.X - Outboard * std::sin(Angle), BladeHeight + Outboard * std::sin(Lift(T) * Radian)};
    Metres[StickGate] = Gate;
    Metres[StickBlade] = Blade;
    Metres[StickHand] = {Gate.X + Inboard * std::sin(Angle), Gate.Y + (Gate.Y - Blade.Y) * Inboard / Outboard};
}

StickPlaces cStickFigure::At(double T) const
{
    StickPlaces Metres;
    const double Lean = Trunk(T) * Radian;
    const CanvasPlace Hip{HipAtCatch + Seat(T), HipHeight};
    const CanvasPlace Shoulder{Hip.X + TrunkLength * std::sin(Lean), Hip.Y + TrunkLength * std::cos(Lean)};
    PlaceOar(T, Metres);
    Metres[StickToes] = Toes;
    Metres[StickAnkle] = Ankle;
    Metres[StickHip] = Hip;
    Metres[StickKnee] = Between(Ankle, Hip, Shank, Thigh, 1);
    Metres[StickShoulder] = Shoulder;
    Metres[StickHead] = {Shoulder.X + HeadOut * std::sin(Lean / 2), Shoulder.Y + HeadOut * std::cos(Lean / 2)};
    Metres[StickElbow] = Between(Shoulder, Metres[StickHand], UpperArm, ForeArm, 1);
    StickPlaces Pixels;
    std::transform(Metres.begin(), Metres.end(), Pixels.begin(), ToPixels);
    return Pixels;
}

std::optional<double> cStickFigure::Angle(const StickPlaces& Places, int Joint)
{
    if (Joint < StickAnkle || Joint > StickElbow) return {};
    const auto Place = static_cast<std::size_t>(Joint);
    const CanvasPlace& At = Places[Place];
    const auto Direction = [&](const CanvasPlace& To) { return std::atan2(To.Y - At.Y, To.X - At.X); };
    const double Between = std::abs(Direction(Places[Place + 1]) - Direction(Places[Place - 1])) / Radian;
    return std::min(Between, 360 - Between);
}

void cStickFigure::DrawBoat(cCanvas& On, const StickPlaces& Places) const
{
    constexpr double HullWidth = 16;
    constexpr double Ends = 2; // m to either side
    const double Deck = IsErg ? 0.14 : 0.04;
    On.Line(ToPixels({-Ends, Deck}), ToPixels({IsErg ? 1.35 : Ends + 1, Deck}), HullWidth, Hull);
    On.Line(ToPixels({HipAtCatch - 0.1, 0.22}), ToPixels({HipAtCatch + 0.75, 0.22}), 2, Ink);
    const CanvasPlace Hip = Places[StickHip];
    On.Line({Hip.X - 18, Hip.Y + 14}, {Hip.X + 18, Hip.Y + 14}, 6, Ink);
    On.Line(Places[StickHand], Places[StickBlade], 4, OarColour);
    if (!IsErg) On.Dot(Places[StickGate], 6, Ink);
    if (!IsErg) On.Dot(Places[StickBlade], 9, OarColour);
}

Picture cStickFigure::Draw(double T, int Number) const
{
    const StickPlaces Places = At(T);
    cCanvas On(Width, Height);
    On.FillBelow(0, Sky);
    On.FillBelow(WaterRow, Water);
    DrawBoat(On, Places);
    for (int Joint = StickToes; Joint < StickHand; ++Joint)
        On.Line(Places[static_cast<std::size_t>(Joint)], Places[static_cast<std::size_t>(Joint) + 1], LimbWidth, Limb);
    On.Line(Places[StickShoulder], Places[StickHead], LimbWidth, Limb);
    On.Dot(Places[StickHead], 18, Limb);
    for (int Joint = StickToes; Joint <= StickHand; ++Joint)
        On.Dot(Places[static_cast<std::size_t>(Joint)], 2.5, Mark);
    On.Figures({20, 20}, 22, FormatNum(Number, "00000"), Ink);
    On.Figures({Width - 150, 20}, 22, FormatNum(T, "000.00"), Ink);
    return On.Shown();
}
