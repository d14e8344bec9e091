// What moves the figure, and its pixel array.
#include "views/play/cFigure.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "processing/mGlobFunc.h"
#include "processing/mOper.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr std::size_t ArgBoat = 0, ArgSeat = 1, ArgTrunk = 2, ArgOar = 3;
constexpr double LegDrive = 0.58;                    // m that the seat moves when nobody measured it
constexpr double TrunkCatch = -25, TrunkFinish = 20; // degrees, when nobody measured them
constexpr double TrunkFactor = 1.3;                  // from a trunk measured in metres to the shoulders
constexpr double LargestLength = 3;                  // a trunk that moves by more is measured in degrees
constexpr double SteepestTrunk = 70;                 // degrees

double Largest(const std::vector<double>& Values)
{
    return *std::max_element(Values.begin(), Values.end());
}

double Span(const std::vector<double>& Values)
{
    return Largest(Values) - *std::min_element(Values.begin(), Values.end());
}
} // namespace

void cFigure::InitViewID(int Row, int Sample)
{
    View = gFile.View4[Row];
    const DescRow& Desc = gFile.Desc[Sample];
    PntCnt = Desc.DataCount;
    Step = Div(Div(60, Desc.Rate), PntCnt);
    Assumed.clear();
    ArgValues.clear();
    const auto Names = SplitStr(View.Arguments);
    for (const std::string& Name : Names) {
        const int Data = FindData(gFile.Data, Desc.SampleID, Name);
        ArgValues.push_back(Data >= 1 ? gFile.Data[Data].Values : std::vector<double>{});
    }
    Who = BodyOf(View.Seat, Assumed);
    Boat = RigOf(View.Seat, Assumed);
    const int Chan = Names.size() > ArgOar ? FindChan(gFile.Calibr, Names[ArgOar]) : -1;
    Lever = Chan >= 1 && gFile.Calibr[Chan].Lever > 0 ? gFile.Calibr[Chan].Lever : Boat.IsScull ? 0.84 : 1.01;
    Postures.assign(static_cast<std::size_t>(std::max(PntCnt, 0)) + 1, {});
    CreateBoatPosArr();
    TakeOar();
    TakeSeat();
    TakeTrunk();
}

// Values of an argument at all points; none where the sample lacks them.
std::vector<double> cFigure::Curve(std::size_t Arg) const
{
    if (Arg >= ArgValues.size() || ArgValues[Arg].size() < Postures.size()) return {};
    return {ArgValues[Arg].begin(), ArgValues[Arg].begin() + static_cast<std::ptrdiff_t>(Postures.size())};
}

// Velocity from acceleration, and position from velocity.
void cFigure::CreateBoatPosArr()
{
    BoatPos.assign(Postures.size(), 0);
    const std::vector<double> Acceleration = Curve(ArgBoat);
    if (Acceleration.empty())
        Assumed.emplace_back("The sample has no boat acceleration for argument 0: the boat stands");
    else
        BoatPos = GetIntegral(GetIntegral(Acceleration, Step), Step);
}

// The blade is in the water while the oar moves towards the finish: shown by its speed, since it has no sensor here.
void cFigure::TakeOar()
{
    const std::vector<double> Angles = Curve(ArgOar);
    if (Angles.empty()) {
        Assumed.emplace_back("The sample has no oar angle for argument 3: the oar stands");
        for (Posture& Each : Postures)
            Each.Lever = Lever;
        return;
    }
    std::vector<double> Speed;
    for (std::size_t k = 0; k < Angles.size(); ++k)
        Speed.push_back(Angles[(k + 1) % Angles.size()] - Angles[k == 0 ? Angles.size() - 1 : k - 1]);
    const double Fastest = std::max(Largest(Speed), 1e-9);
    for (std::size_t k = 0; k < Angles.size(); ++k) {
        Postures[k].Angle = Angles[k] * DegreeRad;
        Postures[k].Lever = Lever;
        Postures[k].Dipped = std::clamp(0.3 + 2 * Speed[k] / Fastest, 0.0, 1.0);
    }
}

// The seat is measured from anywhere: where it is farthest the legs are straight.
void cFigure::TakeSeat()
{
    std::vector<double> Places = Curve(ArgSeat);
    if (Places.empty()) {
        Assumed.emplace_back("The sample has no seat for argument 1: the seat follows the oar");
        const double Range = std::max(Span(Curve(ArgOar).empty() ? std::vector(1, 0.0) : Curve(ArgOar)), 1e-9);
        for (const Posture& Each : Postures)
            Places.push_back(LegDrive * Each.Angle / DegreeRad / Range);
    }
    for (std::size_t k = 0; k < Postures.size(); ++k)
        Postures[k].Seat = Places[k] - Largest(Places);
}

// A trunk in degrees is taken as it is. One in metres is where it is farthest when it leans to the bow as usual; the
// sensor hangs below the shoulders, hence the factor.
void cFigure::TakeTrunk()
{
    std::vector<double> Angles = Curve(ArgTrunk);
    if (Angles.empty()) {
        Assumed.emplace_back("The sample has no trunk for argument 2: the trunk follows the seat");
        const double Reach = std::max(
            -std::min_element(Postures.begin(), Postures.end(), [](auto& A, auto& B) { return A.Seat < B.Seat; })->Seat,
            1e-9);
        for (const Posture& Each : Postures)
            Angles.push_back(TrunkFinish + (TrunkFinish - TrunkCatch) * Each.Seat / Reach);
    } else if (Span(Angles) < LargestLength) {
        const double Farthest = Largest(Angles), Finish = Who.Trunk * std::sin(TrunkFinish * DegreeRad);
        for (std::size_t k = 0; k < Angles.size(); ++k) {
            const double Ahead = Finish + TrunkFactor * (Angles[k] - Farthest) - Postures[k].Seat;
            Angles[k] = std::asin(std::clamp(Ahead / Who.Trunk, -1.0, 1.0)) / DegreeRad;
        }
    }
    for (std::size_t k = 0; k < Postures.size(); ++k)
        Postures[k].Trunk = std::clamp(Angles[k], -SteepestTrunk, SteepestTrunk) * DegreeRad;
}

void cFigure::SetScales(const PlotRect& Rect, double PixelSize)
{
    const double Left = View.MinXPar, Right = View.MaxXPar, Low = View.MinYPar, High = View.MaxYPar;
    Frame = Rect;
    Pixel = PixelSize;
    const double ScaleX = SafeDiv(Frame.Width(), Right - Left), ScaleY = SafeDiv(Frame.Height(), High - Low);
    Scale = std::min(std::abs(ScaleX), std::abs(ScaleY)); // a body has the same scale in both directions
    ZeroX = (Frame.Left + Frame.Right) / 2 - Scale * (Left + Right) / 2;
    ZeroY = (Frame.Top + Frame.Bottom) / 2 + Scale * (Low + High) / 2;
    FillAnimArr();
}

// From the side, from above with the bow to the right, and from the stern, which the rower faces.
SurfacePlace cFigure::Project(const BoatPlace& Place) const
{
    const double Across = View.Oper == OperFigureYZ ? -Place.Z : Place.X;
    const double Up = View.Oper == OperFigureXZ ? Place.Z : Place.Y;
    return {ZeroX + Scale * Across, ZeroY - Scale * Up};
}

void cFigure::FillAnimArr()
{
    const auto InPixels = [&](double Length) { return static_cast<int32_t>(RoundHalfEven(Length / Pixel)); };
    Pixels.clear();
    for (std::size_t k = 0; k < Postures.size(); ++k) {
        PixelColumn Column{};
        Joints Places = PlaceJoints(Who, Boat, Postures[k]);
        Column[0] = InPixels(Scale * BoatPos[k]);
        for (std::size_t j = 0; j < Places.size(); ++j) {
            Places[j].X += BoatPos[k];
            const SurfacePlace At = Project(Places[j]);
            Column[2 * j + 1] = InPixels(At.X);
            Column[2 * j + 2] = InPixels(At.Y);
        }
        Pixels.push_back(Column);
    }
}

void cFigure::CalcAnim(double Frac)
{
    Point = static_cast<std::size_t>(RoundWithin(PntCnt * (Frac - std::floor(Frac)), 0, std::max(PntCnt, 0)));
}
