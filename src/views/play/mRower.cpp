// Lengths of rower and rig, and the geometry of the joints.
#include "views/play/mRower.h"

#include "base/mNumText.h"
#include "processing/mOper.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double UsualHeight = 1.85;
constexpr double Millimetre = 0.001;
constexpr double BladeCentre = 0.24; // m from the blade's tip
constexpr double BladeOut = 0.22;    // m, the blade's middle above the water between strokes
constexpr double BladeIn = -0.06;
constexpr double SoleToAnkle = 0.08;

double Part(float Kept, double Usual)
{
    return Kept > 0 ? static_cast<double>(Kept) : Usual;
}

// A dimension of the rig, kept in millimetres.
double Dimension(float Kept, double Usual)
{
    return Kept != 0 ? static_cast<double>(Kept) * Millimetre : Usual;
}

template <class Row>
const Row* OfSeat(const RowArray<Row>& Table, int Seat)
{
    const auto Found = std::find_if(Table.begin(), Table.end(), [&](const Row& Each) { return Each.Seat == Seat; });
    return Found == Table.end() ? nullptr : &*Found;
}

// Where a joint between two bones bends from the straight line between their ends, Aside being the side to which it
// bends. Bones that are too short make it straight.
BoatPlace Bend(const BoatPlace& From, const BoatPlace& To, double First, double Second, const BoatPlace& Aside)
{
    const BoatPlace Way{To.X - From.X, To.Y - From.Y, To.Z - From.Z};
    const double Length = std::max(std::hypot(Way.X, Way.Y, Way.Z), 1e-9);
    const BoatPlace Unit{Way.X / Length, Way.Y / Length, Way.Z / Length};
    const double Along = std::clamp((Length * Length + First * First - Second * Second) / (2 * Length), 0.0, First);
    const double Off = Length >= First + Second ? 0 : std::sqrt(First * First - Along * Along);
    const double Share = Length >= First + Second ? Length * First / (First + Second) : Along;
    const double Dot = Aside.X * Unit.X + Aside.Y * Unit.Y + Aside.Z * Unit.Z;
    const BoatPlace Side{Aside.X - Dot * Unit.X, Aside.Y - Dot * Unit.Y, Aside.Z - Dot * Unit.Z};
    const double Size = std::max(std::hypot(Side.X, Side.Y, Side.Z), 1e-9);
    return {From.X + Share * Unit.X + Off * Side.X / Size, From.Y + Share * Unit.Y + Off * Side.Y / Size,
            From.Z + Share * Unit.Z + Off * Side.Z / Size};
}

BoatPlace AnkleOf(const Rig& Boat)
{
    const BoatPlace Heel = Heels(Boat);
    return {Heel.X + SoleToAnkle * std::sin(Boat.FootAngle), Heel.Y + SoleToAnkle * std::cos(Boat.FootAngle), 0};
}

// Hips with straight legs, which lie slightly above the line from heel to seat.
double StraightHipX(const Body& Who, const Rig& Boat)
{
    const BoatPlace Ankle = AnkleOf(Boat);
    const double Rise = Boat.SeatY + Who.HipsToSeat - Ankle.Y;
    const double Leg = 0.99 * (Who.Shank + Who.Thigh);
    return Ankle.X + std::sqrt(std::max(Leg * Leg - Rise * Rise, 0.0));
}
} // namespace

Body BodyOf(int Seat, std::vector<std::string>& Notes)
{
    const CrewRow* const Known = OfSeat(gFile.Crew, Seat);
    const CrewRow Row = Known ? *Known : CrewRow{};
    Body Who;
    Who.Height = Part(Row.Height, UsualHeight);
    const double H = Who.Height;
    Who.Foot = Part(Row.Foot, 0.142 * H);
    Who.Shank = Part(Row.Shank, 0.242 * H);
    Who.Thigh = Part(Row.Thigh, 0.247 * H);
    Who.Trunk = Part(Row.Trunk, 0.295 * H);
    Who.Head = Part(Row.Head, 0.147 * H);
    Who.UpperArm = Part(Row.UpperArm, 0.179 * H);
    Who.ForeArm = Part(Row.ForeArm, 0.147 * H) + Part(Row.Wrist, 0.047 * H);
    Who.Shoulders = Part(Row.ShouldersWidth, 0.216 * H);
    Who.HipsToSeat = Part(Row.HipsToSeat, 0.058 * H);
    if (!Known || !(Row.Height > 0))
        Notes.push_back("The crew has no height for seat " + FormatNum(Seat, "0") + ": a body of 1.85 m is drawn");
    return Who;
}

Rig RigOf(int Seat, std::vector<std::string>& Notes)
{
    const BoatRow* const Known = OfSeat(gFile.Boat, Seat);
    const BoatRow Row = Known ? *Known : BoatRow{};
    Rig Boat;
    Boat.IsScull = Row.Side >= SideRightScull || (Row.Side == 0 && gFile.BoatType.ends_with('x'));
    const bool IsScull = Boat.IsScull;
    const double Sideways = Row.Side == SideLeft || Row.Side == SideLeftScull ? 1 : -1;
    Boat.SeatY = Dimension(Row.YSeat, 0.17);
    Boat.Gate = {Dimension(Row.XSeat, 0.12),
                 Boat.SeatY + Dimension(Sideways < 0 ? Row.GateHeightR : Row.GateHeightL, 0.17),
                 Sideways * Dimension(Row.HalfSpan, IsScull ? 0.795 : 0.845)};
    Boat.Toes = {Boat.Gate.X + Dimension(Row.XFootToes, -0.42), Boat.SeatY + Dimension(Row.YFootToes, 0.06), 0};
    Boat.FootSize = Dimension(Row.FootSize, 0.285);
    Boat.FootAngle = Part(Row.FootAngle, 42) * DegreeRad;
    Boat.BladeLength = Part(Row.BladeLength, IsScull ? 0.45 : 0.55);
    Boat.Outboard = std::max(
        Part(Row.OarLength, IsScull ? 2.88 : 3.74) - Part(Row.OarInboard, IsScull ? 0.88 : 1.14) - BladeCentre, 0.5);
    if (!Known)
        Notes.push_back("The boat has no row for seat " + FormatNum(Seat, "0") + ": the usual rig of a " +
                        (IsScull ? "sculling" : "sweep") + " boat is drawn");
    return Boat;
}

// The sole rises from the heels to the toes, which are nearer to the stern.
BoatPlace Heels(const Rig& Boat)
{
    return {Boat.Toes.X + Boat.FootSize * std::cos(Boat.FootAngle),
            Boat.Toes.Y - Boat.FootSize * std::sin(Boat.FootAngle), 0};
}

Joints PlaceJoints(const Body& Who, const Rig& Boat, const Posture& Now)
{
    Joints At;
    const double Inward = Boat.Gate.Z < 0 ? 1 : -1; // from the gate to the middle of the boat
    const double BladeY = BladeOut + (BladeIn - BladeOut) * Now.Dipped;
    At[JointGate] = Boat.Gate;
    At[JointHand] = {Boat.Gate.X + Now.Lever * std::sin(Now.Angle),
                     Boat.Gate.Y + (Boat.Gate.Y - BladeY) * Now.Lever / Boat.Outboard,
                     Boat.Gate.Z + Inward * Now.Lever * std::cos(Now.Angle)};
    At[JointBlade] = {Boat.Gate.X - Boat.Outboard * std::sin(Now.Angle), BladeY,
                      Boat.Gate.Z - Inward * Boat.Outboard * std::cos(Now.Angle)};
    At[JointToes] = Boat.Toes;
    At[JointAnkle] = AnkleOf(Boat);
    At[JointHip] = {StraightHipX(Who, Boat) + Now.Seat, Boat.SeatY + Who.HipsToSeat, 0};
    At[JointKnee] = Bend(At[JointAnkle], At[JointHip], Who.Shank, Who.Thigh, {0, 1, 0});
    const auto AlongTrunk = [&](double Length) {
        return BoatPlace{At[JointHip].X + Length * std::sin(Now.Trunk), At[JointHip].Y + Length * std::cos(Now.Trunk)};
    };
    At[JointShoulder] = AlongTrunk(Who.Trunk);
    At[JointHead] = AlongTrunk(Who.Trunk + 0.62 * Who.Head);
    At[JointShoulder].Z = -Inward * Who.Shoulders / 2;
    At[JointElbow] = Bend(At[JointShoulder], At[JointHand], Who.UpperArm, Who.ForeArm, {0.4, -1, -0.5 * Inward});
    return At;
}
