// The rower of seat 1 from the side as a stick figure: the joints of body and oar at any time.
#pragma once

#include "sim/cCanvas.h"
#include "sim/cRowerModel.h"

#include <array>
#include <functional>
#include <optional>

/// What the figure has places of. The body's joints come first.
enum eStickJoint
{
    StickToes,
    StickAnkle,
    StickKnee,
    StickHip,
    StickShoulder,
    StickElbow,
    StickHand,
    StickHead,
    StickGate,
    StickBlade,
    StickJoints
};
using StickPlaces = std::array<CanvasPlace, StickJoints>;

/// A joint's name, as in the table of the truth.
const char* StickName(int Joint);

class cStickFigure
{
public:
    static constexpr int Width = 640; // pixels
    static constexpr int Height = 360;

    /// The figure is moved by the channels of seat 1 in File. Model must outlive it.
    cStickFigure(const DataFile& File, cRowerModel& Model);

    /// Where everything is at T seconds, in pixels.
    StickPlaces At(double T) const;

    /// The angle between the limbs at a joint in degrees; nothing where limbs end.
    static std::optional<double> Angle(const StickPlaces& Places, int Joint);

    /// The picture at T seconds with its number and its time.
    Picture Draw(double T, int Number) const;

private:
    void PlaceOar(double T, StickPlaces& Metres) const;
    void DrawBoat(cCanvas& On, const StickPlaces& Places) const;

    bool IsErg;
    std::function<double(double)> Seat;
    std::function<double(double)> Trunk;
    std::function<double(double)> Handle; // degrees of the oar, on an ergometer m of chain
    std::function<double(double)> Lift;   // vertical degrees
};
