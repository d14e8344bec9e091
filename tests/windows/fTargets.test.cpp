// The targets editor, typed into and clicked.
#include "ShellState.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableView>

namespace {
constexpr const char* Former = "Targets\r\nID\tGroup\tSex\tWeight\tBoats\tAge\tCatch\tForce\r\n"
                               "1\tFirst\tM\tH\t1x 2x\tA\t-60.00\t300.00\r\n"
                               "2\tSecond\tM\tH\t8+\tA\t-55.00\t280.00\r\n"
                               "3\tPattern\tM\tH\t8+\tA\t-50.00\t200.00\r\nEnd\r\n";

struct TargetState : ShellState
{
    TargetState()
    {
        Start();
        Main.activateWindow();
        REQUIRE(QTest::qWaitForWindowActive(&Main));
        REQUIRE(SaveWhole(Folder.Path("Targets.ini"), Former));
        Choose("mnuSetTargets");
    }
    QTableView& Grid() { return Find<QTableView>("DataGrid"); }
    std::string Cell(int Row, int Column) { return Plain(Grid().model()->index(Row, Column).data().toString()); }
    void GoTo(int Row, int Column) { Grid().setCurrentIndex(Grid().model()->index(Row, Column)); }
    static void Key(Qt::Key Pressed, Qt::KeyboardModifiers With = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), Pressed, With);
        QApplication::processEvents(); // an editor closes in a later turn
    }
    static void Type(const std::string& Text)
    {
        for (const char Letter : Text)
            QTest::keyClick(QApplication::focusWidget(), Letter);
    }
    bool IsOpen()
    {
        QTest::qWait(10);
        return Main.findChild<QWidget*>("fTargets") != nullptr;
    }
};
} // namespace

TEST_CASE_FIXTURE(TargetState,
                  "targets are edited by keys, and O&K keeps the former file and takes what is being typed")
{
    gCurFile = Folder.Path("s.txt");
    std::tie(gFile.Sex, gFile.Category, gFile.BoatType, gFile.AgeGroup) = std::tuple("M", "H", "8+", "A");
    GoTo(1, 6);
    Key(Qt::Key_Return);
    Type("-58.126 deg");
    Key(Qt::Key_Return);
    CHECK(Cell(1, 6) == "-58.13");
    CHECK(Find<QLabel>("lbChoice").text().contains("takes row 2, Second."));
    Key(Qt::Key_Insert);
    CHECK(Grid().currentIndex().row() == 3);
    CHECK(Cell(3, 1) == "Pattern");
    CHECK(Find<QLabel>("lbChoice").text().contains("takes row 3, Pattern."));
    GoTo(0, 1);
    Key(Qt::Key_Delete);
    CHECK(Cell(0, 1) == "Second");
    Key(Qt::Key_Delete);
    Key(Qt::Key_Z, Qt::ControlModifier);
    CHECK(Cell(0, 6) == "-58.13");
    GoTo(2, 7);
    Type("1e3");
    Key(Qt::Key_K, Qt::AltModifier);
    CHECK(!IsOpen());
    CHECK(Dialogs.Told.empty());
    CHECK(ReadWhole(Folder.Path("Targets.bak")) == Former);
    CHECK(ReadWhole(Folder.Path("Targets.ini")) == "Targets\r\nID\tGroup\tSex\tWeight\tBoats\tAge\tCatch\tForce\r\n"
                                                   "2\tSecond\tM\tH\t8+\tA\t-58.13\t280.00\r\n"
                                                   "3\tPattern\tM\tH\t8+\tA\t-50.00\t200.00\r\n"
                                                   "3\tPattern\tM\tH\t8+\tA\t-50.00\t1000.00\r\nEnd\r\n");
}

TEST_CASE_FIXTURE(TargetState, "Cancel drops what is being typed and stays, changes are not lost unasked")
{
    Grid().horizontalHeader()->resizeSection(1, 222);
    for (const bool ByMouse : {true, false}) {
        CAPTURE(ByMouse);
        GoTo(2, 7);
        Type("999");
        if (ByMouse)
            Click("cmdCancel");
        else
            Key(Qt::Key_C, Qt::AltModifier);
        CHECK(Cell(2, 7) == "200.00");
        CHECK(Grid().currentIndex().row() == 0);
    }
    GoTo(2, 0);
    Type("End of all");
    Click("cmdOK");
    REQUIRE(Dialogs.Told.size() == 1);
    CHECK(Dialogs.Told[0].find("Row 3: the identifier \"End of all\"") != std::string::npos);
    Dialogs.AnswerYes = false;
    Key(Qt::Key_Escape);
    CHECK(IsOpen());
    Dialogs.AnswerYes = true;
    Key(Qt::Key_Escape);
    CHECK(!IsOpen());
    CHECK(Dialogs.Told.size() == 3);
    CHECK(ReadWhole(Folder.Path("Targets.ini")) == Former);
    CHECK(Settings.GetSetting("TargGrid", "Targets_Height") == "420");
    Choose("mnuSetTargets");
    CHECK(std::abs(Grid().columnWidth(1) - 222) <= 1);
}

TEST_CASE_FIXTURE(TargetState, "a file of another kind is not written over")
{
    Key(Qt::Key_Escape);
    REQUIRE(!IsOpen());
    REQUIRE(SaveWhole(Folder.Path("Targets.ini"), "a letter"));
    Choose("mnuSetTargets");
    Click("cmdAdd");
    Key(Qt::Key_Insert);
    Key(Qt::Key_Delete);
    Key(Qt::Key_K, Qt::AltModifier);
    CHECK(IsOpen());
    CHECK(ReadWhole(Folder.Path("Targets.ini")) == "a letter");
}
