// What the record grid does with its rows.
#include "records/fDataGrid.h"

#include "base/mNumText.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "records/fCrewDB.h"
#include "records/mAntro.h"
#include "widgets/qPlace.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>

#include <filesystem>
#include <utility>

void fDataGrid::ShowPosition()
{
    constexpr int LongTable = 15; // rows above which a filter is of use
    Filter->setVisible(Model.rowCount() > LongTable || !txtFilter->text().isEmpty());
    lblStatus->setText("   #" + Shown(FormatNum(Grid->currentIndex().row() + 1, "0")));
}

void fDataGrid::ShowWords(const std::string& Words)
{
    lbWords->setText(Shown(Words));
}

void fDataGrid::Move(bool HasMoved)
{
    if (!HasMoved) QApplication::beep();
}

// To the first row that is shown from Row on.
void fDataGrid::GoToEnd(int Row, int By)
{
    if (Model.rowCount() == 0) return;
    Grid->GoToRow(Row);
    if (Grid->isRowHidden(Row)) Move(Grid->Step(By));
}

bool fDataGrid::Save()
{
    if (!Grid->FinishEdit()) return false;
    IsStoring = true;
    const bool IsDone = Guard(Rows->Kind.Caption, [this] { return Rows->Save(); });
    IsStoring = false;
    return IsDone;
}

void fDataGrid::Store()
{
    if (Save()) Leave();
}

void fDataGrid::SaveAs()
{
    if (!Grid->FinishEdit()) return;
    const std::string Path = ExecComDlg("Input New Data File Name", "txt", eFileMode::Out, gCurDir);
    if (Path.empty()) return;
    if (std::filesystem::is_regular_file(Path) && !AskYesNo("Are you sure to replace file " + Path + "?", TitleWarning))
        return;
    if (!Guard(Rows->Kind.Caption, [&] { return Rows->SaveAs(Path); })) return;
    gHost.Status->SetPanel(1, "Calibration in " + std::filesystem::path(Path).filename().string());
}

void fDataGrid::Import(const char* Title, const char* Ext)
{
    if (!Grid->FinishEdit()) return;
    const std::string Path = ExecComDlg(Title, Ext, eFileMode::In, gCurDir);
    if (Path.empty()) return;
    const auto AskEmpty = [](const std::string& Question) {
        return AskYesNo(Question + "\n\nEmpty the grid?", TitleWarning);
    };
    const auto Step = Rows->Import(Path, AskEmpty);
    if (!Step) return;
    Grid->Do(*Step);
    ShowWords(FormatNum(Model.rowCount(), "0") + " rows were read from " + Path +
              ". O&K stores them, Undo takes them back.");
}

void fDataGrid::Export()
{
    if (!Grid->FinishEdit()) return;
    const std::string Path =
        ExecComDlg("Table to Write", "csv", eFileMode::Out, gCurDir + gFileTitle + " " + Rows->Kind.Name + ".csv");
    if (!Path.empty() && Rows->Export(Path)) ShowWords("Written: " + Path);
}

void fDataGrid::ReadIDs()
{
    if (!Grid->FinishEdit()) return;
    const std::string Path = ExecComDlg("File to Load Data From", "txt", eFileMode::In, gCurDir);
    if (Path.empty()) return;
    int Taken = 0;
    const auto Step = Rows->ReadIDs(Path, Taken);
    if (!Step) return;
    Grid->Do(*Step);
    ShowWords(FormatNum(Taken, "0") + " channels have Q0 and Q1 of their sensors from " + Path);
}

void fDataGrid::TakeAntro()
{
    if (!Grid->FinishEdit() || !LoadAntro()) return;
    Grid->Do(TakeNewestAntro(Rows->Grid, Grid->MarkedRows()));
}

void fDataGrid::ChangeColour()
{
    constexpr int Colours = 8;
    const int Number = RoundWithin(
        Val(Model.rowCount() > 0 ? Rows->Grid.Cell(Rows->Grid.Current(), Rows->Grid.FindColumn("Color")) : ""), 0,
        1000);
    if (Number < 1) return ShowWords("The row has no colour of the table: numbers are 1 to 8.");
    int32_t& Colour = gRGB[static_cast<std::size_t>((Number - 1) % Colours + 1)];
    const auto Chosen = gHost.Dialogs->ChooseColour(Colour);
    if (!Chosen) return;
    Colour = *Chosen;
    Grid->viewport()->update();
    ShowWords("Colour " + FormatNum((Number - 1) % Colours + 1, "0") +
              " is another now, for all curves with its number.");
}

void fDataGrid::AddRowersDB()
{
    RowersDB->OnFromDB = [this](int Index) {
        if (!Grid->FinishEdit() || Model.rowCount() == 0) return;
        const int Row = Rows->Grid.Current();
        const GridRow& Former = Rows->Grid.Row(Row);
        Grid->Do(GridStep{Row, {Former}, {Rows->Crew.Rower(Index, Former)}, Row});
    };
    RowersDB->OnToDB = [this] {
        if (!Grid->FinishEdit()) return;
        const int Taken = Rows->Crew.Export(Rows->Grid);
        RowersDB->Fill();
        ShowWords(FormatNum(Taken, "0") + " rowers were taken. The database is written with O&K.");
    };
}

void fDataGrid::ShowRowersDB()
{
    if (!Rows->Crew.IsOpen() && !Rows->Crew.Read()) return;
    RowersDB->Fill();
    RowersDB->show();
}

void fDataGrid::OpenSample(const QModelIndex& Cell)
{
    const std::string SampleID = Rows->Grid.Cell(Cell.row(), 0);
    const int Sample = FindDesc(gFile, SampleID, DescKey::TestID);
    if (Sample < 1) return ShowWords("The session has no sample " + SampleID + " yet: store the table first.");
    if (OnSample) OnSample(static_cast<int16_t>(Sample));
}

// The session's rows may have been changed by another window. Without edits of its own the grid shows them.
void fDataGrid::Hear(eNotice What)
{
    if (IsStoring || !Rows->IsStale() || (What == eNotice::SessionSaved && HasChanges())) return;
    Grid->CancelEdit();
    if (!Rows->Load()) return;
    Model.Refill();
    Grid->GoToRow(0);
    ShowWords("The session's rows have changed: these are the new ones.");
}

void fDataGrid::Leave()
{
    (parentWidget() ? parentWidget() : this)->close();
}

bool fDataGrid::eventFilter(QObject* Object, QEvent* Event)
{
    if (Object != Grid || Event->type() != QEvent::KeyPress) return QWidget::eventFilter(Object, Event);
    const auto& Key = static_cast<const QKeyEvent&>(*Event);
    const bool IsCtrl = Key.modifiers() == Qt::ControlModifier;
    if (!IsCtrl && (Key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    const int Code = Key.key();
    const bool IsUp = Code == Qt::Key_Up || Code == Qt::Key_PageUp;
    const bool IsDown = Code == Qt::Key_Down || Code == Qt::Key_PageDown;
    if (IsCtrl ? IsUp : Code == Qt::Key_Home)
        GoToEnd(0, 1);
    else if (IsCtrl ? IsDown : Code == Qt::Key_End)
        GoToEnd(Model.rowCount() - 1, -1);
    else if (!IsCtrl && (IsUp || IsDown))
        Move(Grid->Step(IsUp ? -1 : 1));
    else
        return false;
    return true;
}

void fDataGrid::keyPressEvent(QKeyEvent* Event)
{
    if (Event->key() == Qt::Key_Escape)
        Leave();
    else
        QWidget::keyPressEvent(Event);
}

void fDataGrid::closeEvent(QCloseEvent* Event)
{
    if (!IsLeaving && !Grid->FinishEdit()) return Event->ignore();
    if (!IsLeaving && HasChanges() &&
        !AskYesNo(std::string(Rows->Kind.Caption) + ": the table is changed. Close it without storing it?",
                  TitleWarning))
        return Event->ignore();
    KeepPlace(*this, Section, Prefix());
    Grid->Widths().Keep(Section, Prefix());
    QWidget::closeEvent(Event);
}
