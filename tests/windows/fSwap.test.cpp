// Sample corrections and sample chooser, clicked and typed into.
#include "ShellState.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "platform/qt/qSurface.h"
#include "views/samples/fSamples.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include <cmath>
#include <filesystem>

namespace {
void MakeSamples()
{
    for (const char* Name : {"A1", "H1", "A2", "H2", "Vs"})
        gFile.Calibr.Grow().ParamID = Name;
    gFile.ChanCnt = 5;
    gFile.Model = 61;
    for (const char* ID : {"Sample 1", "Sample 2", "Empty"})
        gFile.Desc.Grow().SampleID = ID;
    for (int Sample = 1; Sample <= 2; ++Sample)
        for (const CalibrRow& Chan : gFile.Calibr) {
            DataRow& Row = gFile.Data.Grow();
            Row.SampleID = gFile.Desc[Sample].SampleID;
            Row.ParamID = Chan.ParamID;
            for (int j = 0; j <= 50; ++j)
                Row.Values.push_back(Chan.ParamID[0] == 'A' ? -50 * std::cos(j / 8.1)
                                                            : 300 * Sample * std::max(0.0, std::sin(j / 8.1)));
        }
}
} // namespace

TEST_CASE_FIXTURE(ShellState, "a correction is typed in, undone, kept from being lost and saved behind a backup")
{
    Start();
    MakeSamples();
    SetCurFile(Folder.Path("s.txt"));
    REQUIRE(SaveWhole(gCurFile, "former"));
    Choose("mnuViewSwap");
    QTest::keyClicks(&Find<QLineEdit>("txtWhat"), "H1");
    Main.activateWindow();
    REQUIRE(QTest::qWaitForWindowActive(&Main));
    QTest::keyClick(&Find<QLineEdit>("txtWhat"), Qt::Key_N, Qt::AltModifier);
    QTest::keyClicks(QApplication::focusWidget(), "2");
    const double Peak = gFile.Data[2].Values[13];
    Click("cmdScale");
    CHECK(gFile.Data[2].Values[13] == 2 * Peak);
    CHECK(Plain(Find<QLabel>("lbOutput").text()) == "H1 was scaled 2 2 times.");
    QTest::keyClick(&Find<QWidget>("fSwap"), Qt::Key_Z, Qt::ControlModifier);
    CHECK(gFile.Data[2].Values[13] == Peak);
    Click("cmdOffset");
    Dialogs.AnswerYes = false;
    QTest::keyClick(&Find<QWidget>("fSwap"), Qt::Key_Escape);
    QTest::qWait(10);
    CHECK(Dialogs.Told.size() == 1);
    Main.OpenFile(Folder.Path("other.txt"));
    CHECK(gCurFile == Folder.Path("s.txt"));
    CHECK(!Main.close());
    CHECK(Dialogs.Told.size() == 3);
    QTest::keyClick(&Find<QWidget>("cmdOffset"), Qt::Key_S, Qt::ControlModifier); // a key of the File menu, too
    CHECK(Find<QLabel>("lbOutput").text().startsWith("Saved: "));
    CHECK(std::filesystem::file_size(Folder.Path("s.bak")) == 6);
    CHECK(std::filesystem::file_size(gCurFile) > 1000);
    QTest::keyClick(&Find<QWidget>("fSwap"), Qt::Key_Escape);
    QTest::qWait(10);
    CHECK(!Main.findChild<QWidget*>("fSwap"));
}

TEST_CASE_FIXTURE(ShellState, "the sample chooser shows each sample's strokes and hands on the one that was chosen")
{
    Start();
    MakeSamples();
    int16_t Chosen = -1;
    const auto Open = [&] {
        auto* Dialog = new dSamples(&Main);
        Dialog->OnChosen = [&](int16_t Sample) { Chosen = Sample; };
        Dialog->open();
        return Dialog;
    };
    dSamples* Dialog = Open();
    auto* List = Dialog->findChild<QListWidget*>("lstTests");
    auto* Picture = Dialog->findChild<qSurface*>("picSample");
    REQUIRE(List->count() == 3);
    QTest::qWait(20);
    const QImage First = Picture->Grab();
    QTest::keyClick(List, Qt::Key_Down);
    const QImage Second = Picture->Grab();
    CHECK(First != Second);
    QTest::keyClick(List, Qt::Key_Down);
    CHECK(Picture->Grab() != Second);
    QTest::keyClick(List, Qt::Key_Up);
    CHECK(Picture->Grab() == Second);
    Picture->Line(10, 20, HUGE_VAL, std::nan("")); // what a session with such values asks for
    QTest::keyClick(List, Qt::Key_Return);
    CHECK(Chosen == 2);
    CHECK(gChosenSample == 2);
    QTest::keyClick(Open(), Qt::Key_Escape);
    CHECK(Chosen == 2);
    CHECK(gChosenSample == 0);
}
