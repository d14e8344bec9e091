// What the data view shows, and what mouse and keys do in it.
#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "views/data/cData02view.h"

#include <algorithm>

namespace {
constexpr double ArrowStep = 0.1; // of the view's width
} // namespace

bool cData02view::IsStrip() const
{
    return HasStrokeTable() && !HasSamples();
}

void cData02view::Draw()
{
    Plot.Range.Clip();
    Plot.SetUpPoly();
    Plot.Draw();
}

void cData02view::DrawStrip()
{
    if (!HasStrokeTable()) return;
    Nav.Clip();
    Nav.Draw();
}

std::string cData02view::StripText() const
{
    const std::string Note = FrequencyNote();
    return Nav.Caption() + (Note.empty() ? "" : "\n" + Note);
}

void cData02view::TypeFilter(const std::string& Text)
{
    const auto Number = LeadingNumber(Text);
    if (!Number) return;
    StdFilter = *Number;
    SaveSetting("StdFilter");
}

void cData02view::Move(double X, double Y, bool IsHeld)
{
    PointerText = Plot.PointerText(X, Y);
    if (IsHeld && Mouse.Drag(Plot.Range, X)) Plot.Draw();
}

void cData02view::Release(double X)
{
    Guard("Selection", [&] {
        if (Mouse.IsDrag(X)) {
            if (Mouse.Drag(Plot.Range, X)) ShowNumbers();
        } else if (Plot.Range.SetCursor(X)) {
            Numbers.ShowCursor(Plot.Range.Cursor);
        }
        return true;
    });
    Draw();
}

void cData02view::Turn(double X, int Sideways, int Upward)
{
    if (Mouse.Turn(Plot.Range, X, Sideways, Upward)) Draw();
}

void cData02view::PressStrip(double X)
{
    Mouse.Press(X);
    Nav.Cursor = Nav.RowAt(X);
    DrawStrip();
}

void cData02view::MoveStrip(double X, bool IsHeld)
{
    PointerText = cDataNav::RowText(Nav.RowAt(X));
    if (IsHeld && Mouse.Drag(Nav, X)) DrawStrip();
}

void cData02view::Step(int Way)
{
    if (!IsStrip()) {
        Plot.Range.MoveView(Way * ArrowStep);
        return Draw();
    }
    Nav.Cursor = std::max(Nav.Cursor + Way, 1);
    DrawStrip();
    PointerText = cDataNav::RowText(Nav.Cursor);
}

void cData02view::Page(int Way)
{
    Plot.Range.MoveView(Way);
    Draw();
}

void cData02view::GoToStart()
{
    Plot.Range.FirstSample = 0;
    Draw();
}

void cData02view::GoToEnd()
{
    Plot.Range.ScrollToEnd();
    Draw();
}

void cData02view::MoveCursor(int Way)
{
    if (IsStrip()) return Step(Way);
    Plot.Range.MoveCursor(Way);
    Numbers.ShowCursor(Plot.Range.Cursor);
    Draw();
}

void cData02view::Scroll(int Value)
{
    Plot.Range.Scroll(Value);
    Plot.Draw();
}
