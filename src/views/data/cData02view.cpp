// What the commands of the data view do.
#include "views/data/cData02view.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "files/mQVN.h"
#include "platform/mHost.h"
#include "processing/mProcess.h"
#include "processing/mStrokeLog.h"
#include "views/data/mSelNumbers.h"
#include "views/report/cData03report.h"

#include <utility>

namespace {
constexpr const char* ClickFirst = "Click on the curves first: that is where the cursor is put.";
constexpr const char* StrokesFirst = "Select strokes on the strip first.";
} // namespace

bool cData02view::InitData(const std::string& FileName, int16_t Mode)
{
    if (!Guard("Opening " + FileName, [&] { return LoadView(FileName, Mode, Data); })) return false;
    Plot.Bands.DropExtra();
    Plot.Range.ClearSelection();
    Plot.Range.FirstSample = 0;
    Nav.FirstRow = Nav.LastRow = Nav.Cursor = 0;
    LastChange.Clear();
    IsChanged = IsEdited = false;
    Inputs = {Data.DistText, Data.TimeText};
    return true;
}

void cData02view::Run(const std::string& Name, Command Action)
{
    if (!Data.RawFN.empty()) gRawFN = Data.RawFN; // a recording that was started since has another
    Guard(Name, [&] {
        (this->*Action)();
        return true;
    });
    UpdateProgress(0);
    Draw();
    DrawStrip();
}

bool cData02view::MayClose() const
{
    return !IsChanged || AskYesNo("Samples were changed in this view, and no file has the changes. The recording is as "
                                  "it was. Close the view?",
                                  TitleWarning);
}

void cData02view::Type(std::size_t Index, const std::string& Text)
{
    Inputs[Index] = Text;
    IsEdited = true;
}

void cData02view::NoteChange()
{
    WasChanged = std::exchange(IsChanged, true);
}

void cData02view::ForgetSelection()
{
    Plot.Bands.DropExtra();
    Plot.Range.ClearSelection();
    Numbers.MarkOld();
}

ProcStretch cData02view::Stretch() const
{
    const int32_t Start = Plot.Range.SelStart(), Stop = Plot.Range.SelStop();
    return {Start, Stop, Val(Inputs[0]), Val(Inputs[1]), SelectionDist(Start, Stop)};
}

// Whatever begins at a start without a stop would run to the end of the recording unseen.
bool cData02view::HasStop() const
{
    if (!Plot.Range.IsOpen()) return true;
    MsgBox("The selection starts at " + FormatNum(gRaw(0, Plot.Range.SelStart()), "0.0") +
               " s and has no stop yet. Click on the curves where it ends and press \"2 Stop\".",
           TitleInformation);
    return false;
}

void cData02view::SaveData()
{
    gDistInp = Val(Inputs[0]);
    gTimeInp = Val(Inputs[1]);
    const cDataRange& Range = Plot.Range;
    const bool HasRows = IsStrip() || (HasStrokeTable() && Nav.HasSelection() && !Range.HasSelection());
    const bool IsSaved =
        HasRows ? SaveRows(Nav.FirstRow, Nav.LastRow) : SaveFrames(Range.SelStart(), Range.SelStop(), Data.Map);
    if (!IsSaved) return;
    IsEdited = false;
    UpdateStatus("Saved.");
}

void cData02view::Export()
{
    cDataRange& Range = Plot.Range;
    if (!HasSamples()) return UpdateStatus("There are no samples to be exported.");
    if (!Range.HasSelection()) {
        if (!AskOkCancel("The selection is not set. Do you want to export the whole sample?", TitleWarning)) return;
        Range.Select(0, cDataRange::LastSample());
    }
    if (ExportSamples(Data, Range.SelStart(), Range.SelStop())) UpdateStatus("Exported.");
}

// A stop that was not set becomes the last sample, which is then seen.
void cData02view::ShowDist()
{
    cDataRange& Range = Plot.Range;
    if (!Plot.Bands.ShowDist(Range.SelStart(), Range.SelStop() == 0 ? cDataRange::LastSample() : Range.SelStop()))
        return;
    const bool WasOpen = Range.IsOpen();
    Range.EndSelection();
    if (WasOpen) ShowNumbers();
    Numbers.ShowDist(Range);
}

void cData02view::ShowRate()
{
    if (HasKeyChannel()) Plot.Bands.ShowRate();
}

void cData02view::Filter()
{
    if (!FilterSamples(LastChange)) return UpdateStatus("There are too few samples to be filtered.");
    NoteChange();
    UpdateStatus("Times start at zero and spikes are repaired, in memory; Ctrl+Z undoes it.");
}

void cData02view::Delete()
{
    if (!DeleteSamples(Plot.Range.SelStart(), Plot.Range.SelStop(), Data.Map, LastChange))
        return UpdateStatus("Select the samples to be deleted first.");
    NoteChange();
    ForgetSelection();
    UpdateStatus("The selection is deleted in memory; Ctrl+Z brings it back.");
}

void cData02view::Undo()
{
    if (!LastChange.Run()) return UpdateStatus("There is nothing to undo.");
    Plot.Bands.DropExtra();
    IsChanged = WasChanged;
}

void cData02view::SetStartSel()
{
    if (IsStrip()) return Nav.SetStart();
    cDataRange& Range = Plot.Range;
    if (Range.Cursor < 0) return UpdateStatus(ClickFirst);
    Range.SetStart(Range.Cursor);
    ShowNumbers();
}

void cData02view::SetStopSel()
{
    if (IsStrip()) return Nav.SetStop();
    cDataRange& Range = Plot.Range;
    if (Range.Cursor < 0) return UpdateStatus(ClickFirst);
    Range.SetStop(Range.Cursor);
    ShowNumbers();
}

void cData02view::SelAllStrokes()
{
    if (IsStrip()) return Nav.SelectAll();
    if (!HasKeyChannel()) return;
    int32_t Start = 0, Stop = 0;
    if (!FindAllStrokes(Start, Stop)) return UpdateStatus("There is no stroke in this recording");
    Plot.Range.Select(Start, Stop);
    ShowNumbers();
}

void cData02view::ProcStrokes()
{
    if (!HasStop()) return;
    int32_t Stop = Plot.Range.SelStop();
    KeyWindow Win = WindowAt(Plot.Range.SelStart());
    if (!ExportStrokes(Win, Plot.Range.SelStart(), Stop)) return;
    Plot.Range.Select(Plot.Range.SelStart(), Stop);
    UpdateStatus("The strokes are in " + StrokeLogFN);
}

void cData02view::ProcAll()
{
    Plot.Range.Select(0, cDataRange::LastSample());
    ProcSelection();
}

void cData02view::ProcSelection()
{
    if (!HasStop()) return;
    Plot.Range.EndSelection();
    if (ProcSel(Data, Stretch())) UpdateStatus("Sample " + gFile.Desc[gFile.Desc.UBound()].SampleID + " is stored.");
}

void cData02view::ProcessSplits()
{
    if (ProcSplits(Data, Stretch(), SelectionDist)) UpdateStatus("Each split is stored as a sample.");
}

// A start is all that it needs.
void cData02view::ProcessStart()
{
    if (ProcStart(Plot.Range.SelStart())) UpdateStatus("The strokes are stored as samples.");
}

void cData02view::PlotTypical()
{
    if (!HasStop()) return;
    Plot.Range.EndSelection();
    if (PlotProc(Plot.Range.SelStart(), Plot.Range.SelStop()) && OnPlot) OnPlot(ReportTypical, 0, 0);
}

void cData02view::PlotSamples()
{
    if (!Plot.Range.HasSelection()) return UpdateStatus("Select the samples to be plotted first.");
    if (OnPlot) OnPlot(ReportPrimary, Plot.Range.SelStart(), Plot.Range.SelStop());
}

void cData02view::Trim()
{
    if (!Nav.HasSelection()) return UpdateStatus(StrokesFirst);
    if (!TrimRows(Nav.FirstRow, Nav.LastRow, LastChange)) return UpdateStatus("No stroke lies between those selected.");
    WasChanged = IsChanged;
    Nav.SelectAll();
}

void cData02view::GetData()
{
    if (!Nav.HasSelection()) return UpdateStatus(StrokesFirst);
    if (IsChanged && !AskYesNo("Samples were changed in this view, and no file has the changes. Take others in their "
                               "place?",
                               TitleWarning))
        return;
    if (!GetRawData(Nav.FirstRow, Nav.LastRow, Data)) return;
    ForgetSelection();
    LastChange.Clear();
    IsChanged = WasChanged = false;
    Plot.Range.FirstSample = 0;
    Plot.Range.Cursor = -1;
}

void cData02view::AccVel()
{
    if (!Plot.Range.HasSelection()) return UpdateStatus("Select the samples to be integrated first.");
    if (AccToVel(Plot.Range.SelStart(), Plot.Range.SelStop(), LastChange)) NoteChange();
}
