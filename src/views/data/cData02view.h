// The data view without its window: what is loaded, shown, selected and changed, and all that its commands do.
#pragma once

#include "views/data/cDataMouse.h"
#include "views/data/cDataNav.h"
#include "views/data/cDataNumbers.h"
#include "views/data/cDataPlot.h"
#include "views/data/mViewEdit.h"
#include "views/data/mViewLoad.h"
#include "views/data/mViewProc.h"
#include "views/data/mViewSave.h"

#include <array>
#include <functional>
#include <string>

class cData02view
{
public:
    using Command = void (cData02view::*)();

    cData02view(iSurface& PlotSurface, iSurface& StripSurface) : Plot(PlotSurface), Nav(StripSurface) {}

    /// Loads FileName as that kind of data. False when that fails or is cancelled (reported to the user): what was
    /// shown stays.
    bool InitData(const std::string& FileName, int16_t Mode);

    /// Runs a command under its name; a failure is reported to the user. The plot is drawn anew behind it.
    void Run(const std::string& Name, Command Action);

    /// Fits the plot, and the strip where there is one, to their surfaces and the samples, and draws them.
    void Draw();
    void DrawStrip();

    /// Asks whether to close when samples were changed that no file has. False when the view is to stay.
    bool MayClose() const;

    /// The view is closed: its extra bands go.
    void Close() { Plot.Bands.DropExtra(); }

    // What the window shows.
    const std::string& Caption() const { return Data.Caption; }
    bool HasStrokeTable() const { return Data.HasStrokeTable(); }
    bool IsStrip() const; // the strip alone: there are no samples
    static bool HasSamples() { return cDataRange::LastSample() >= 1; }
    std::string StripText() const;
    cDataNumbers Numbers;
    std::string PointerText = "The value under the mouse is shown here.";
    std::array<std::string, 2> Inputs; // distance and time as typed in
    bool IsEdited = false;             // one of them was

    /// A number was typed.
    void Type(std::size_t Index, const std::string& Text);

    /// The width of the filter was typed. A text without a number changes nothing.
    static void TypeFilter(const std::string& Text);

    // The mouse on the plot and on the strip.
    void Press(double X) { Mouse.Press(X); }
    void Move(double X, double Y, bool IsHeld);
    void Release(double X);
    void Turn(double X, int Sideways, int Upward); // eighths of a degree
    void PressStrip(double X);
    void MoveStrip(double X, bool IsHeld);

    // Keys.
    void Step(int Way); // a tenth of the view
    void Page(int Way);
    void GoToStart();
    void GoToEnd();
    void MoveCursor(int Way);
    void Scroll(int Value);

    // Commands.
    void SaveData();
    void Export();
    void ZoomOut() { cDataRange::ZoomOut(); }
    void ZoomIn() { cDataRange::ZoomIn(); }
    void ShowDist();
    void ShowRate();
    void Filter();
    void Delete();
    void SetStartSel();
    void SetStopSel();
    void SelAllStrokes();
    void ProcStrokes();
    void ProcAll();
    void ProcSelection();
    void ProcessSplits();
    void ProcessStart();
    void PlotTypical();
    void PlotSamples();
    void Trim();
    void GetData();
    void SaveStrokeTable() { SaveStrokes(); }
    void AccVel();
    void Undo();

    /// Called when a report is wanted: of the typical pattern that was just made (ReportTypical), or of the samples
    /// First to Last as they are (ReportPrimary).
    std::function<void(int Kind, int32_t First, int32_t Last)> OnPlot;

    cDataPlot Plot;
    cDataNav Nav;

private:
    void ShowNumbers() { Numbers.Show(Plot.Range); }
    void NoteChange();
    void ForgetSelection();
    bool HasStop() const;
    ProcStretch Stretch() const;

    ViewData Data;
    ViewUndo LastChange;
    cDataMouse Mouse;
    bool IsChanged = false;  // samples differ from those of the file
    bool WasChanged = false; // and did before the last change
};
