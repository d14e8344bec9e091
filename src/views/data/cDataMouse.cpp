// Drags and notches.
#include "views/data/cDataMouse.h"

#include <cmath>
#include <cstdlib>

namespace {
constexpr double DragLeast = 4;  // drawing units: less is a click
constexpr double SideStep = 0.1; // of the view's width
constexpr int Notch = 120;       // eighths of a degree
} // namespace

bool cDataMouse::IsDrag(double X) const
{
    return std::abs(X - DragFrom) >= DragLeast;
}

bool cDataMouse::Drag(cDataNav& Nav, double X) const
{
    if (!IsDrag(X)) return false;
    Nav.Select(DragFrom, X);
    return true;
}

// A touchpad turns the wheel in small parts of a notch; a turn sideways moves.
bool cDataMouse::Turn(cDataRange& Range, double X, int Sideways, int Upward)
{
    const bool IsSideways = std::abs(Sideways) > std::abs(Upward);
    WheelTurn += IsSideways ? Sideways : Upward;
    if (std::abs(WheelTurn) < Notch) return false;
    if (IsSideways)
        Range.MoveView(WheelTurn > 0 ? -SideStep : SideStep);
    else
        Range.ZoomAt(X, WheelTurn > 0);
    WheelTurn = 0;
    return true;
}
