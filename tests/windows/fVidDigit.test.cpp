// Digitising and anthropometry by clicks on the picture of a video window.
#include "ShellState.h"
#include "files/mTextIO.h"
#include "records/mAntro.h"
#include "support/FakeMedia.h"
#include "video/fVideoPicture.h"

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>

namespace {
struct DigitWindows : ShellState
{
    DigitWindows()
    {
        gHost.MakeMedia = [] { return std::make_unique<FakeMedia>(10, 0.04); };
        Start();
        gDots.Grow() = {"HIP", "Hip", 0};
        gDots.Grow() = {"KNEE", "Knee", 1};
        gDots.Grow() = {"ANK", "Ankle", 0};
        gSegs.Grow() = {"TH", "Thigh", "HIP", "KNEE"};
        gSegs.Grow() = {"SH", "Shank", "KNEE", "ANK"};
        SetCurFile(Folder.Path("s.txt"));
        REQUIRE(WriteSession());
    }

    std::string Box(const char* Name) { return Plain(Find<QLineEdit>(Name).text()); }
    std::string Label(const char* Name) { return Plain(Find<QLabel>(Name).text()); }
    QPoint At(double X, double Y) { return Find<fVideoPicture>("picVideoWindow").FromPicture({X, Y}).toPoint(); }
    void ClickPicture(double X, double Y)
    {
        QTest::mouseClick(&Find<QWidget>("picVideoWindow"), Qt::LeftButton, {}, At(X, Y));
    }
    void Begin()
    {
        Dialogs.Files = {"row.mp4"};
        Choose("mnuVidDigit");
        REQUIRE(Find<QWidget>("fVidDigit").isVisible());
    }
    std::string Kept() const { return ReadWhole(Folder.Path("s_points.csv")).value_or(""); }
};
} // namespace

TEST_CASE_FIXTURE(DigitWindows, "a body is digitised by clicks, dragged, undone, saved and found again")
{
    Begin();
    CHECK((Box("txtFrameN") == "9" && Label("lbNext") == "Next: Hip")); // at the last picture
    Click("cmdVidContr_0");
    ClickPicture(100, 100);
    ClickPicture(200, 100);
    ClickPicture(200, 200);
    CHECK((Box("txtFrameN") == "0" && Label("lbCurPt") == "Ankle" && Label("lbNext") == "Next: Hip"));
    CHECK((Label("lDotName_1") == "Knee" && Label("lbX_1") == "200"));
    CHECK(std::abs(Val(Label("lbA_1")) - 90) < 1);
    Click("cmdUndo");
    CHECK((Label("lbX_2").empty() && Label("lbNext") == "Next: Ankle"));
    ClickPicture(200, 200);

    QWidget& Surface = Find<QWidget>("picVideoWindow");
    QTest::mousePress(&Surface, Qt::LeftButton, {}, At(200, 200));
    QTest::mouseMove(&Surface, At(300, 100));
    QTest::mouseRelease(&Surface, Qt::LeftButton, {}, At(300, 100));
    CHECK(std::abs(Val(Label("lbA_1")) - 180) < 1);

    Find<QComboBox>("cboSkip").setCurrentText("5");
    Click("cmdSkip_1");
    CHECK((Box("txtFrameN") == "5" && Label("lbX_1").empty()));
    ClickPicture(50, 60);
    Click("cmdVidContr_1");
    CHECK(Box("txtFrameN") == "4");
    Click("cmdSkip_0");
    CHECK((Box("txtFrameN") == "0" && !Label("lbX_1").empty()));
    Click("cmdSave");
    CHECK(Kept().find("T,row,5,HIP,") != std::string::npos);
    CHECK(Kept().find("T,row,0,ANK,") != std::string::npos);

    Click("cmdDelFrame");
    CHECK(Label("lbX_1").empty());
    Dialogs.Told.clear();
    Find<QWidget>("fVidDigit").parentWidget()->close();
    CHECK(Dialogs.Told == Texts{"Warning: Save data?"});
    CHECK(Kept().find("T,row,0,") == std::string::npos);
    QTest::qWait(0);
    Click("cmdDigIt_1");
    Click("cmdVidContr_0");
    Click("cmdSkip_1");
    CHECK((Box("txtFrameN") == "1" && Label("lbX_0").empty()));
    Find<QComboBox>("cboSkip").setCurrentText("2");
    Click("cmdSkip_1");
    Click("cmdSkip_1");
    CHECK((Box("txtFrameN") == "5" && Label("lbX_0") == "50"));
}

TEST_CASE_FIXTURE(DigitWindows, "an angle is measured by three clicks")
{
    gDots.Clear();
    Begin();
    CHECK(Box("txtFrameN") == "1");
    ClickPicture(100, 100);
    ClickPicture(200, 100);
    CHECK(Box("txtCoords_2").empty());
    ClickPicture(200, 200);
    CHECK(std::abs(Val(Box("txtCoords_2")) - 90) < 1);
}

TEST_CASE_FIXTURE(DigitWindows, "a picture with a known length gives the rower's segments in millimetres")
{
    gFile.Crew.Grow().RowerID = "R1";
    QImage Photo(400, 300, QImage::Format_RGB32);
    Photo.fill(Qt::darkGray);
    REQUIRE(Photo.save(Shown(Folder.Path("still.png"))));
    Dialogs.Files = {Folder.Path("still.png")};
    Choose("mnuCalibrAnthro");
    QTest::keyClicks(&Find<QLineEdit>("txtKnown"), "1000");
    ClickPicture(50, 50);
    ClickPicture(250, 50);
    QTest::mouseClick(&Find<QLabel>("lbName_2"), Qt::LeftButton);
    ClickPicture(100, 100);
    ClickPicture(100, 190);
    CHECK(std::abs(Val(Label("lbLength_2")) - 450) < 10);
    Click("cmdSave");
    REQUIRE(gAntro.UBound() == 1);
    CHECK((gAntro[1].RowerID == "R1" && std::abs(gAntro[1].Shank - 450) < 10 && gAntro[1].Thigh == 0));
}
