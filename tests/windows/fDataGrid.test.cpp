// The record grid, typed into and clicked.
#include "ShellState.h"
#include "files/mMain.h"
#include "files/mTextIO.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTableView>

namespace {
struct GridState : ShellState
{
    GridState()
    {
        std::filesystem::copy_file(SOURCE_FOLDER "/demo/eight.txt", Folder.Path("s.txt"));
        Start();
        Main.activateWindow();
        REQUIRE(QTest::qWaitForWindowActive(&Main));
        REQUIRE(OpenSession(Folder.Path("s.txt")));
    }
    void Open(const char* Entry, const char* Name)
    {
        Choose(Entry);
        Window = &Find<QWidget>(Name);
        Grid = Window->findChild<QTableView*>("DataGrid");
        Grid->setFocus();
    }
    template <class Control>
    Control& Part(const char* Name)
    {
        auto* Found = Window->findChild<Control*>(Name);
        REQUIRE_MESSAGE(Found, Name);
        return *Found;
    }
    void Press(const char* Name) { QTest::mouseClick(&Part<QWidget>(Name), Qt::LeftButton); }
    int Column(const char* Head) const
    {
        for (int i = 0; i < Grid->model()->columnCount(); ++i)
            if (Grid->model()->headerData(i, Qt::Horizontal).toString() == Head) return i;
        return -1;
    }
    QModelIndex At(int Row, const char* Head) const { return Grid->model()->index(Row, Column(Head)); }
    std::string Cell(int Row, const char* Head) const { return Plain(At(Row, Head).data().toString()); }
    void GoTo(int Row, const char* Head) { Grid->setCurrentIndex(At(Row, Head)); }
    void Mark(int Top, const char* Left, int Bottom, const char* Right)
    {
        Grid->selectionModel()->select({At(Top, Left), At(Bottom, Right)}, QItemSelectionModel::ClearAndSelect);
    }
    static void Key(Qt::Key Pressed, Qt::KeyboardModifiers With = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), Pressed, With);
        QApplication::processEvents(); // an editor closes in a later turn
    }
    static void Type(const char* Text)
    {
        for (; *Text; ++Text)
            QTest::keyClick(QApplication::focusWidget(), *Text);
        QApplication::processEvents();
    }
    std::string Words() { return Plain(Part<QLabel>("lbWords").text()); }
    bool IsOpen(const char* Name)
    {
        QTest::qWait(10);
        return Main.findChild<QWidget*>(Name) != nullptr;
    }

    QWidget* Window = nullptr;
    QTableView* Grid = nullptr;
};
} // namespace

TEST_CASE_FIXTURE(GridState, "every entry of the menu opens its grid, with the rows of the session")
{
    const std::tuple<const char*, const char*, const char*, int> Entries[] = {
        {"mnuSetCrew", "fDataGrid_Crew", "Crew Data", gFile.Crew.UBound()},
        {"mnuSetCalibr", "fDataGrid_Calibr", "Calibration Data", gFile.Calibr.UBound()},
        {"mnuSetBoat", "fDataGrid_Boat", "Boat Set-up Data", gFile.Boat.UBound()},
        {"mnuSetAntro", "fDataGrid_Antro", "Anthropometry", 0},
        {"mnuSetView1", "fDataGrid_View1", "Aquisition Display", gFile.View1.UBound()},
        {"mnuSetView3", "fDataGrid_View3", "Report Display", gFile.View3.UBound()},
        {"mnuSetView4", "fDataGrid_View4", "Animation Display", gFile.View4.UBound()},
        {"mnuViewTyp", "fDataGrid_Desc", "Processed samples descriptors", 0},
        {"mnuSetDots", "fDataGrid_Dots", "Points for video digitising", 0},
        {"mnuSetSegs", "fDataGrid_Segs", "Segments for video digitising", 0},
    };
    for (const auto& [Entry, Name, Caption, Count] : Entries) {
        CAPTURE(Entry);
        Open(Entry, Name);
        CHECK(Window->windowTitle() == Caption);
        CHECK(Grid->model()->rowCount() == Count);
        Key(Qt::Key_Escape);
        CHECK(!IsOpen(Name));
    }
    gCurFile.clear();
    Choose("mnuSetCrew");
    CHECK(!IsOpen("fDataGrid_Crew"));
    CHECK(Dialogs.Told == Texts{"Information: Crew Data belong to a session: open one first."});
}

TEST_CASE_FIXTURE(GridState, "cells are typed into, a wrong one says why and stays, and O&K saves what stands there")
{
    Open("mnuSetCalibr", "fDataGrid_Calibr");
    GoTo(16, "Seat");
    Type("2x");
    Key(Qt::Key_Return);
    CHECK(Words() == "Seat: \"2x\" is no number");
    CHECK(dynamic_cast<QLineEdit*>(QApplication::focusWidget()));
    Press("cmdOK"); // does not close over it
    CHECK(IsOpen("fDataGrid_Calibr"));
    CHECK(gFile.Calibr[17].Seat == 1);
    Key(Qt::Key_Escape);
    CHECK(Cell(16, "Seat") == "1");
    Type("3");
    Key(Qt::Key_Return);
    GoTo(17, "ParamID");
    Type("G1");
    Key(Qt::Key_Return);
    CHECK(At(17, "ParamID").data(Qt::ToolTipRole).toString() ==
          "Row 17 has the same: what looks for it finds that one.");
    CHECK(At(17, "ParamID").data(Qt::BackgroundRole).isValid());
    CHECK(!At(16, "ParamID").data(Qt::BackgroundRole).isValid());
    CHECK(!(At(0, "Chan").flags() & Qt::ItemIsEditable));
    GoTo(18, "Proc Mode");
    Key(Qt::Key_Return);
    auto* List = dynamic_cast<QComboBox*>(QApplication::focusWidget());
    REQUIRE(List);
    CHECK(List->itemText(3) == "3  Absolute");
    List->setCurrentIndex(3);
    Q_EMIT List->activated(3);
    QApplication::processEvents();
    CHECK(Cell(18, "Proc Mode") == "3");
    GoTo(19, "Q0");
    Type("1,5");
    Key(Qt::Key_K, Qt::AltModifier);
    CHECK(!IsOpen("fDataGrid_Calibr"));
    REQUIRE(OpenSession(gCurFile));
    CHECK((gFile.Calibr[17].Seat == 3 && gFile.Calibr[18].ParamID == "G1"));
    CHECK((gFile.Calibr[19].ProcMode == 3 && gFile.Calibr[20].Q0 == 1.5));
    CHECK(std::filesystem::exists(Folder.Path("s.bak")));
}

TEST_CASE_FIXTURE(GridState, "rows and blocks are edited by keys as in a spreadsheet, and all of it is undone")
{
    Open("mnuSetCrew", "fDataGrid_Crew");
    GoTo(1, "Name");
    Key(Qt::Key_Insert);
    CHECK((Cell(2, "Name") == "Sam Rivers" && Grid->model()->rowCount() == 9));
    CHECK(Part<QLabel>("lblStatus").text() == "   #3");
    Key(Qt::Key_Delete);
    CHECK(Cell(2, "Name").empty());
    Key(Qt::Key_F2, Qt::ControlModifier);
    CHECK(Cell(2, "Name") == "Sam Rivers");
    Key(Qt::Key_Delete, Qt::ControlModifier);
    CHECK(Grid->model()->rowCount() == 8);
    Mark(0, "Seat", 1, "Name");
    Key(Qt::Key_C, Qt::ControlModifier);
    CHECK(QApplication::clipboard()->text() == "1\t2\tKim Ferry\n2\t1\tSam Rivers\n");
    GoTo(6, "Seat");
    Key(Qt::Key_V, Qt::ControlModifier);
    CHECK((Cell(6, "Name") == "Kim Ferry" && Cell(7, "Seat") == "2"));
    Mark(0, "Coach", 7, "Coach");
    Key(Qt::Key_D, Qt::ControlModifier);
    GoTo(0, "Name");
    Key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    CHECK(Cell(1, "Name") == "Kim Ferry");
    Key(Qt::Key_End);
    CHECK(Grid->currentIndex().row() == 7);
    Key(Qt::Key_PageUp);
    CHECK(Grid->currentIndex().row() == 6);
    for (int i = 0; i < 6; ++i)
        Key(Qt::Key_Z, Qt::ControlModifier);
    CHECK((Cell(1, "Name") == "Sam Rivers" && Cell(6, "Name") == "Pat Waters"));
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    CHECK(Cell(2, "Name") == "Sam Rivers");
    Dialogs.AnswerYes = false;
    Key(Qt::Key_Escape);
    CHECK((IsOpen("fDataGrid_Crew") && Dialogs.Told.size() == 1));
    Press("cmdCancel");
    CHECK((!IsOpen("fDataGrid_Crew") && Dialogs.Told.size() == 1));
    CHECK(gFile.Crew.UBound() == 8);
}

TEST_CASE_FIXTURE(GridState, "a filter leaves the rows that hold its words, and a block goes past the others")
{
    Open("mnuSetCalibr", "fDataGrid_Calibr");
    QTest::keyClicks(&Part<QLineEdit>("txtFilter"), "frc-2");
    CHECK((Grid->isRowHidden(0) && !Grid->isRowHidden(17) && Grid->isRowHidden(18)));
    Part<QWidget>("DataGrid").setFocus();
    Key(Qt::Key_Home);
    CHECK(Cell(Grid->currentIndex().row(), "ParamID") == "H1");
    Mark(17, "Log.0", Grid->model()->rowCount() - 1, "Log.0");
    Key(Qt::Key_Delete);
    CHECK((Cell(17, "Log.0") == "0" && Cell(16, "Log.0") != "0" && Cell(18, "Log.0") != "0"));
    Part<QLineEdit>("txtFilter").clear();
    CHECK(!Grid->isRowHidden(0));
}

TEST_CASE_FIXTURE(GridState, "dates are chosen in a calendar, rowers come from the database and go there")
{
    gRowersDBFN = Folder.Path("rowers.txt");
    Open("mnuSetCrew", "fDataGrid_Crew");
    GoTo(0, "Birth Date");
    Key(Qt::Key_Return);
    Key(Qt::Key_Down, Qt::AltModifier);
    auto* Calendar = QApplication::focusWidget()->window()->findChild<QCalendarWidget*>();
    if (!Calendar) Calendar = Main.findChild<QCalendarWidget*>();
    REQUIRE(Calendar);
    CHECK(Calendar->selectedDate() == QDate(1999, 2, 11));
    Q_EMIT Calendar->clicked(QDate(2001, 12, 24));
    QApplication::processEvents();
    Key(Qt::Key_Return);
    CHECK(Cell(0, "Birth Date") == "2001-12-24");
    Press("cmdDataBase");
    Press("cmdToDB");
    CHECK(Part<QListWidget>("DBList").count() == 8);
    GoTo(5, "Name");
    Part<QListWidget>("DBList").setCurrentRow(0);
    Press("cmdFromDB");
    CHECK((Cell(5, "Name") == "Kim Ferry" && Cell(5, "Seat") == "6" && Cell(5, "Birth Date") == "2001-12-24"));
    Press("cmdOK");
    CHECK(!IsOpen("fDataGrid_Crew"));
    CHECK(ReadWhole(gRowersDBFN).value().find("Kim Ferry\tR01\t1.86") != std::string::npos);
    CHECK(gFile.Crew[6].Name == "Kim Ferry");
}

TEST_CASE_FIXTURE(GridState, "a table goes out and comes in by files, and the grid follows what others change")
{
    Open("mnuSetCalibr", "fDataGrid_Calibr");
    gFile.Calibr[1].Q0 = 77;
    Dialogs.Files = {Folder.Path("t.csv"), Folder.Path("t.csv"), SOURCE_FOLDER "/demo/single.txt",
                     Folder.Path("new.txt")};
    REQUIRE(WriteSession());
    CHECK(Cell(0, "Q0") == "77");
    Press("cmdExport");
    GoTo(0, "Q0");
    Type("1");
    Key(Qt::Key_Return);
    gFile.Calibr[1].Q0 = 78;
    REQUIRE(WriteSession());
    CHECK(Cell(0, "Q0") == "1"); // edits are not lost
    Press("cmdImport");
    CHECK(Cell(0, "Q0") == "77");
    const int Count = Grid->model()->rowCount();
    Press("cmdRead");
    CHECK(Grid->model()->rowCount() < Count);
    Press("cmdUndo");
    CHECK(Grid->model()->rowCount() == Count);
    Press("cmdSaveAs");
    CHECK(gFileTitle == "new");
    CHECK(ReadWhole(Folder.Path("new.txt")).value().find("\r\nnew\t") != std::string::npos);
}

TEST_CASE_FIXTURE(GridState, "columns up to the name stay in sight, and widths and place are kept by kind")
{
    Main.resize(1024, 768);
    Open("mnuSetCrew", "fDataGrid_Crew");
    auto& Frozen = Part<QTableView>("DataGrid_frozen");
    REQUIRE(Frozen.isVisible());
    GoTo(2, "Hips to seat (mm)");
    CHECK(Frozen.columnWidth(2) == Grid->columnWidth(2));
    CHECK(Frozen.width() == Grid->columnWidth(0) + Grid->columnWidth(1) + Grid->columnWidth(2));
    GoTo(2, "Rower ID");
    CHECK(Grid->visualRect(At(2, "Rower ID")).left() >= Frozen.width());
    GoTo(2, "Hips to seat (mm)");
    GoTo(2, "Name");
    Type("Ann");
    CHECK(!Frozen.isVisible());
    Key(Qt::Key_Return);
    CHECK((Frozen.isVisible() && Cell(2, "Name") == "Ann"));
    const QPoint Place = Frozen.visualRect(At(3, "Side")).center();
    QTest::mouseClick(Frozen.viewport(), Qt::LeftButton, {}, Place);
    QTest::mouseDClick(Frozen.viewport(), Qt::LeftButton, {}, Place);
    QTest::qWait(10);
    auto* Sides = Grid->findChild<QComboBox*>();
    REQUIRE(Sides);
    CHECK(Sides->view()->isVisible());
    Sides->hidePopup();
    Sides->setCurrentIndex(4);
    Q_EMIT Sides->activated(4);
    QApplication::processEvents();
    CHECK(Cell(3, "Side") == "4");
    Grid->setColumnWidth(6, 222);
    Press("cmdCancel");
    QTest::qWait(10);
    CHECK(Settings.GetSetting("DataGrid", "Crew_Height"));
    CHECK(Settings.GetSetting("DataGrid", "Crew_ColW_06"));
    Open("mnuSetCrew", "fDataGrid_Crew");
    CHECK(std::abs(Grid->columnWidth(6) - 222) <= 4);
}
