// What the commands of the data view do.
#include "views/data/fData02view.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "files/mQVN.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "processing/mProcess.h"
#include "processing/mStrokeLog.h"
#include "views/data/mViewSave.h"
#include "views/report/cData03report.h"
#include "widgets/qPlace.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>

#include <utility>

namespace {
constexpr int DistChan = 16;
constexpr int StripHeight = 110; // above the plot
constexpr const char* ClickFirst = "Click on the curves first: that is where the cursor is put.";
} // namespace

bool fData02view::InitData(const std::string& FileName, int16_t Mode)
{
    const bool IsLoaded = Guard("Opening " + FileName, [&] { return LoadView(FileName, Mode, Data); });
    if (!IsLoaded) return false;
    View.DropExtraBands();
    View.SelStart = View.SelStop = View.FirstSample = 0;
    Nav.FirstRow = Nav.LastRow = Nav.Cursor = 0;
    LastChange.Clear();
    IsChanged = IsEdited = false;
    setWindowTitle(Shown(Data.Caption));
    txtInps[0]->setText(Shown(Data.DistText));
    txtInps[1]->setText(Shown(Data.TimeText));
    for (QWidget* Control : std::initializer_list<QWidget*>{Strip, lbStrip, cmdTrim, cmdGetRawData, cmdSaveStrokes})
        Control->setVisible(Data.HasStrokeTable());
    Show();
    ShowStrip();
    return true;
}

// Each command ends with the plot as it has become, whatever it did.
void fData02view::Run(const char* What, Command Action)
{
    const std::string Name = Plain(QString(What).remove('&'));
    if (!Data.RawFN.empty()) gRawFN = Data.RawFN; // a recording that was started since has another
    Guard(Name, [&] {
        (this->*Action)();
        return true;
    });
    UpdateProgress(0);
    Show();
    ShowStrip();
    // The keys go on working, unless the command brought another window to the front.
    if (QWidget* Focus = QApplication::focusWidget(); !Focus || isAncestorOf(Focus)) setFocus();
}

void fData02view::Show()
{
    View.Clip();
    const bool HasSamples = cDataView::LastSample() >= 1;
    for (QPushButton* Button : SampleCommands)
        Button->setEnabled(HasSamples);
    Surface->setVisible(!IsStrip());
    Bar->setVisible(!IsStrip());
    Strip->setMaximumHeight(IsStrip() ? QWIDGETSIZE_MAX : StripHeight);
    const QSignalBlocker Quiet(Bar);
    Bar->setPageStep(cDataView::ScrollPage());
    Bar->setValue(View.ScrollValue());
    View.SetUpPoly();
    View.Draw();
}

void fData02view::ShowStrip()
{
    if (!Data.HasStrokeTable()) return;
    Nav.Clip();
    Nav.Draw();
    const std::string Note = FrequencyNote();
    lbStrip->setText(Shown(Nav.Caption() + (Note.empty() ? "" : "\n" + Note)));
}

bool fData02view::IsStrip() const
{
    return Data.HasStrokeTable() && cDataView::LastSample() < 1;
}

// Texts of a former selection keep standing, grey, when the new one holds no whole stroke.
void fData02view::ShowNumbers()
{
    const auto Texts = SelectionNumbers(View.SelStart, View.SelStop);
    for (std::size_t i = 1; i < txtSel.size(); ++i) {
        if (Texts) txtSel[i]->setText(Shown((*Texts)[i]));
        txtSel[i]->setEnabled(Texts.has_value());
    }
    UpdateStatus(Texts ? GapNote(View.SelStart, View.SelStop)
                       : "There is no whole stroke in the selection, by channel " + gFile.KeyChanID);
}

void fData02view::ShowCursor()
{
    const int32_t Sample = View.Cursor;
    if (Sample < 0 || Sample > cDataView::LastSample()) return;
    txtCur[0]->setText(Shown(FormatNum(gRaw(0, Sample), "0.0")));
    if (gRaw.ChannelUBound() >= DistChan) lbCurDist->setText(Shown(FormatNum(gRaw(DistChan, Sample), "0.00")));
    if (cDataView::HasDist()) txtCur[1]->setText(Shown(FormatNum(At(gDist, Sample), "0.0")));
}

void fData02view::Changed()
{
    WasChanged = std::exchange(IsChanged, true);
    View.DropExtraBands();
    View.SelStart = View.SelStop = 0;
    for (std::size_t i = 1; i < txtSel.size(); ++i)
        txtSel[i]->setEnabled(false);
}

ProcStretch fData02view::Stretch() const
{
    return {View.SelStart, View.SelStop, Val(Plain(txtInps[0]->text())), Val(Plain(txtInps[1]->text())),
            SelectionDist(View.SelStart, View.SelStop)};
}

void fData02view::SaveData()
{
    gDistInp = Val(Plain(txtInps[0]->text()));
    gTimeInp = Val(Plain(txtInps[1]->text()));
    const bool HasRows = IsStrip() || (Data.HasStrokeTable() && Nav.HasSelection() && !View.HasSelection());
    const bool IsSaved =
        HasRows ? SaveRows(Nav.FirstRow, Nav.LastRow) : SaveFrames(View.SelStart, View.SelStop, Data.Map);
    if (!IsSaved) return;
    IsEdited = false;
    UpdateStatus("Saved.");
}

void fData02view::Export()
{
    if (cDataView::LastSample() < 1) return UpdateStatus("There are no samples to be exported.");
    if (!View.HasSelection()) {
        if (!AskOkCancel("The selection is not set. Do you want to export the whole sample?", TitleWarning)) return;
        View.SelStart = 0;
        View.SelStop = cDataView::LastSample();
    }
    if (ExportSamples(Data, View.SelStart, View.SelStop)) UpdateStatus("Exported.");
}

void fData02view::ZoomOut()
{
    cDataView::ZoomOut();
}

void fData02view::ZoomIn()
{
    cDataView::ZoomIn();
}

void fData02view::ShowDist()
{
    if (!View.ShowDist()) return;
    const auto Texts = DistTexts(View.SelStart, View.SelStop);
    for (std::size_t i = 0; i < Texts.size(); ++i) {
        txtSel[7 + i]->setText(Shown(Texts[i]));
        txtSel[7 + i]->setEnabled(true);
    }
}

void fData02view::ShowRate()
{
    if (HasKeyChannel()) View.ShowRate();
}

void fData02view::Filter()
{
    if (!FilterSamples(LastChange)) return UpdateStatus("There are too few samples to be filtered.");
    WasChanged = std::exchange(IsChanged, true);
    UpdateStatus("Times start at zero and spikes are repaired, in memory; Ctrl+Z takes it back.");
}

void fData02view::Delete()
{
    if (!DeleteSamples(View.SelStart, View.SelStop, Data.Map, LastChange))
        return UpdateStatus("Select the samples to be deleted first.");
    Changed();
    UpdateStatus("The selection is deleted in memory; Ctrl+Z brings it back.");
}

void fData02view::Undo()
{
    if (!LastChange.Run()) return UpdateStatus("There is nothing to take back.");
    View.DropExtraBands();
    IsChanged = WasChanged;
}

void fData02view::SetStartSel()
{
    if (IsStrip()) {
        Nav.FirstRow = Nav.Cursor;
        return;
    }
    if (View.Cursor < 0) return UpdateStatus(ClickFirst);
    View.SelStart = View.Cursor;
    if (View.SelStop <= View.SelStart) View.SelStop = 0; // a new selection begins
    if (View.HasSelection()) ShowNumbers();
}

void fData02view::SetStopSel()
{
    if (IsStrip()) {
        Nav.LastRow = Nav.Cursor;
        if (Nav.LastRow < Nav.FirstRow) std::swap(Nav.FirstRow, Nav.LastRow);
        return;
    }
    if (View.Cursor < 0) return UpdateStatus(ClickFirst);
    View.SelStop = View.Cursor;
    if (View.SelStop < View.SelStart) std::swap(View.SelStart, View.SelStop);
    ShowNumbers();
}

void fData02view::SelAllStrokes()
{
    if (IsStrip()) return Nav.SelectAll();
    if (!HasKeyChannel()) return;
    if (FindAllStrokes(View.SelStart, View.SelStop))
        ShowNumbers();
    else
        UpdateStatus("There is no stroke in this recording");
}

void fData02view::ProcStrokes()
{
    KeyWindow Win = WindowAt(View.SelStart);
    if (ExportStrokes(Win, View.SelStart, View.SelStop)) UpdateStatus("The strokes are in " + StrokeLogFN);
}

void fData02view::ProcAll()
{
    View.SelStart = 0;
    View.SelStop = cDataView::LastSample();
    ProcSelection();
}

void fData02view::ProcSelection()
{
    View.EndSelection();
    if (ProcSel(Data, Stretch())) UpdateStatus("Sample " + gFile.Desc[gFile.Desc.UBound()].SampleID + " is stored.");
}

void fData02view::ProcessSplits()
{
    if (ProcSplits(Data, Stretch(), SelectionDist)) UpdateStatus("Each split is stored as a sample.");
}

void fData02view::ProcessStart()
{
    if (ProcStart(View.SelStart)) UpdateStatus("The strokes are stored as samples.");
}

void fData02view::Plot()
{
    View.EndSelection();
    if (PlotProc(View.SelStart, View.SelStop) && OnPlot) OnPlot(ReportTypical, 0, 0);
}

void fData02view::PlotSamples()
{
    if (!View.HasSelection()) return UpdateStatus("Select the samples to be plotted first.");
    if (OnPlot) OnPlot(ReportPrimary, View.SelStart, View.SelStop);
}

void fData02view::Trim()
{
    if (!Nav.HasSelection()) return UpdateStatus("Select strokes on the strip first.");
    if (!TrimRows(Nav.FirstRow, Nav.LastRow, LastChange)) return UpdateStatus("No stroke lies between those selected.");
    WasChanged = IsChanged;
    Nav.SelectAll();
}

void fData02view::GetData()
{
    if (!Nav.HasSelection()) return UpdateStatus("Select strokes on the strip first.");
    if (IsChanged && !AskYesNo("Samples were changed in this view, and no file has the changes. Take others in their "
                               "place?",
                               TitleWarning))
        return;
    if (!GetRawData(Nav.FirstRow, Nav.LastRow, Data)) return;
    Changed();
    LastChange.Clear();
    IsChanged = false;
    View.FirstSample = 0;
    View.Cursor = -1;
}

void fData02view::SaveStrokeTable()
{
    SaveStrokes();
}

void fData02view::AccVel()
{
    if (!View.HasSelection()) return UpdateStatus("Select the samples to be integrated first.");
    if (AccToVel(View.SelStart, View.SelStop, LastChange)) WasChanged = std::exchange(IsChanged, true);
}

void fData02view::closeEvent(QCloseEvent* Event)
{
    if (IsChanged && !AskYesNo("Samples were changed in this view, and no file has the changes. The recording is as it "
                               "was. Close the view?",
                               TitleWarning))
        return Event->ignore();
    KeepPlace(*this, "fData02view");
    View.DropExtraBands();
    QWidget::closeEvent(Event);
}
