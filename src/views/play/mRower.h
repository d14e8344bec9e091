// A rower in a boat in space: the joints of the body on a seat behind a stretcher, with the hands on an oar.
#pragma once

#include "core/mGlobData.h"

#include <array>
#include <string>
#include <vector>

/// A place in the boat in metres: x towards the bow, y upward from the water, z to the left of who looks to the bow.
struct BoatPlace
{
    double X = 0;
    double Y = 0;
    double Z = 0;
};

/// The joints of the figure in their order.
enum eJoint : int
{
    JointToes,
    JointAnkle,
    JointKnee,
    JointHip,
    JointShoulder,
    JointHead,
    JointElbow,
    JointHand, // on the oar's handle
    JointBlade,
    JointGate,
    JointCount
};
using Joints = std::array<BoatPlace, JointCount>;

/// Lengths of the body in metres. Those that the crew's row lacks are in proportion to its height, and without a
/// height, or without a row, to that of a body of 1.85 m.
struct Body
{
    double Height = 0;
    double Foot = 0;
    double Shank = 0;
    double Thigh = 0;
    double Trunk = 0;
    double Head = 0;
    double UpperArm = 0;
    double ForeArm = 0; // with the wrist, to the middle of the hand
    double Shoulders = 0;
    double HipsToSeat = 0;
};

/// A seat's place, stretcher, gate and oar in metres and radians. What the boat's row lacks is the usual of the boat
/// type.
struct Rig
{
    BoatPlace Gate;
    BoatPlace Toes;
    double SeatY = 0;
    double FootSize = 0;
    double FootAngle = 0;
    double Outboard = 0; // from the gate to the middle of the blade
    double BladeLength = 0;
    bool IsScull = false;
};

/// Body and rig of a seat by the session; what had to be assumed goes to Notes.
Body BodyOf(int Seat, std::vector<std::string>& Notes);
Rig RigOf(int Seat, std::vector<std::string>& Notes);

/// How the rower sits at a moment.
struct Posture
{
    double Seat = 0;   // m, 0 with straight legs, negative towards the stern
    double Trunk = 0;  // radians from upright, negative leaning to the stern
    double Angle = 0;  // radians of the oar, negative towards the catch
    double Lever = 0;  // m from the gate to the hands
    double Dipped = 0; // 1 with the blade in the water, 0 with the blade above it
};

/// The joints in that posture. Where the arms are too short for it the hands stay on the oar.
Joints PlaceJoints(const Body& Who, const Rig& Boat, const Posture& Now);

/// The heels on the stretcher.
BoatPlace Heels(const Rig& Boat);
