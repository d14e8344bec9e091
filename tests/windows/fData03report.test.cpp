// The report window: opened from the menu, read, saved in three forms, printed, closed.
#include "views/report/fData03report.h"
#include "ShellState.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "platform/qt/qSurface.h"

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrinter>
#include <QTableView>

#include <cmath>
#include <filesystem>

namespace {
void MakeSession()
{
    gFile = {};
    gFile.Desc.Grow().SampleID = "Race 1";
    gFile.Desc[1].DataCount = 50;
    gFile.Desc[1].Rate = 36;
    for (const char* Name : {"A1", "H1"}) {
        CalibrRow& Channel = gFile.Calibr.Grow();
        Channel.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
        Channel.ParamID = Name;
        DataRow& Row = gFile.Data.Grow();
        Row.SampleID = "Race 1";
        Row.ParamID = Name;
        for (int j = 0; j <= 50; ++j)
            Row.Values.push_back(*Name == 'A' ? -50 * std::cos(j / 8.0) : 400 * std::sin(j / 8.0));
    }
    ViewRow& Row = gFile.View3.Grow();
    Row.ID = "Seat 1";
    Row.Mode = 1;
    Row.Color = 1;
    Row.MinXPar = -60, Row.MaxXPar = 60;
    Row.MinYPar = -500, Row.MaxYPar = 500;
    Row.Y1 = Row.Y2 = 100;
    Row.Arguments = "A1,H1";
    Row.Functions = "MaxY";
}

bool HasColour(const QImage& Picture, QRgb Colour)
{
    for (int y = 0; y < Picture.height(); ++y)
        for (int x = 0; x < Picture.width(); ++x)
            if (Picture.pixel(x, y) == Colour) return true;
    return false;
}
} // namespace

TEST_CASE_FIXTURE(ShellState, "a stored sample's report is chosen, read, saved whole in every form, printed and closed")
{
    Start();
    MakeSession();
    gCurFile = Folder.Path("s.txt");
    Choose("mnuViewTyp");
    auto& Samples = *Find<QWidget>("fDataGrid_Desc").findChild<QTableView*>("DataGrid");
    Q_EMIT Samples.doubleClicked(Samples.model()->index(0, 3));
    auto& Window = dynamic_cast<fData03report&>(Find<QWidget>("fData03report"));
    CHECK(Find<QLabel>("lParName_0").text() == "Seat 1 MaxY");
    CHECK(Find<QLineEdit>("txtR1_0").text() == "399 N");
    CHECK(HasColour(dynamic_cast<qSurface&>(Find<QWidget>("picGraph")).Grab(), qRgb(255, 0, 0)));
    Choose("mnuReportSample");
    QTest::keyClick(&Find<QListWidget>("lstTests"), Qt::Key_Escape);
    Choose("mnuReportIsTable");
    CHECK_FALSE(Find<QWidget>("picTable").isVisible());

    const auto Save = [&](const std::string& Name) {
        Dialogs.Files.push_back(Folder.Path(Name));
        QTest::keyClick(&Find<QWidget>("picGraph"), Qt::Key_S, Qt::ControlModifier);
        return ReadWhole(Folder.Path(Name)).value_or("");
    };
    const std::string Drawing = Save("r.svg");
    CHECK(Drawing.find("Race 1") != std::string::npos);
    CHECK(Drawing.find("<polyline") != std::string::npos);
    CHECK(Save("r.pdf").starts_with("%PDF-1."));
    CHECK(Save("again.pdf").size() == Save("r.pdf").size());
    Save("r.PNG");
    CHECK(HasColour(QImage(Shown(Folder.Path("r.PNG"))), qRgb(255, 0, 0)));
    Dialogs.Told.clear();
    CHECK(Save("r.doc").empty());
    CHECK(Save("none/r.pdf").empty());
    REQUIRE(Dialogs.Told.size() == 4); // two file dialogs, two failures
    CHECK(Dialogs.Told[1].find("r.doc") != std::string::npos);

    QPrinter Printer;
    Printer.setOutputFileName(Shown(Folder.Path("paper.pdf")));
    CHECK(Window.PrintOn(Printer));
    CHECK(std::filesystem::file_size(Folder.Path("paper.pdf")) > 2000);
    QTest::keyClick(&Window, Qt::Key_Escape);
    QTest::qWait(10);
    CHECK(!Main.findChild<QWidget*>("fData03report"));
}
