// The three forms of a report's file.
#include "views/report/qReportFile.h"

#include "base/mSafeSave.h"
#include "platform/mHost.h"
#include "platform/qt/qPainterSurface.h"
#include "platform/qt/qText.h"

#include <QBuffer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHashFunctions>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace {
constexpr SurfacePoint Sheet = cReportPage::PageSize;
constexpr int PdfDensity = 1200;      // dots an inch
constexpr int SvgDensity = 121;       // drawing units an inch: a page is as wide as A4
constexpr int PngScale = 2;           // dots a drawing unit
constexpr int PngDensity = 9524;      // dots a metre: a page is as wide as A4
constexpr double FinestStep = 1 / 8.; // of a drawing unit, on paper a fortieth of a millimetre

// The pages one below another.
void PaintStrip(QPainter& Painter, cReportPage& Report)
{
    for (int Page = 0; Page < Report.Pages(); ++Page) {
        PaintReportPage(Painter, Report, Page, Sheet.X);
        Painter.translate(0, Sheet.Y);
    }
}

// The writer puts the present time into the file: zeros of the same length keep all places in it.
void ClearDate(QByteArray& Bytes)
{
    const QByteArray Key = "/CreationDate (D:";
    for (qsizetype Place = Bytes.indexOf(Key); Place >= 0; Place = Bytes.indexOf(Key, Place + 1))
        for (qsizetype i = Place + Key.size(); i < Bytes.size() && Bytes[i] != ')'; ++i)
            if (Bytes[i] >= '0' && Bytes[i] <= '9') Bytes[i] = '0';
}

QByteArray Pdf(cReportPage& Report, const QString& Title)
{
    QBuffer File;
    File.open(QIODevice::WriteOnly);
    QPdfWriter Writer(&File);
    Writer.setTitle(Title);
    Writer.setCreator("Skarvelin");
    Writer.setResolution(PdfDensity);
    Writer.setPageSize(QPageSize(QPageSize::A4));
    Writer.setPageMargins({0, 0, 0, 0});
    QPainter Painter(&Writer);
    for (int Page = 0; Page < Report.Pages(); ++Page) {
        if (Page > 0) Writer.newPage();
        PaintReportPage(Painter, Report, Page, Writer.width());
    }
    Painter.end();
    QByteArray Bytes = File.data();
    ClearDate(Bytes);
    return Bytes;
}

QByteArray Svg(cReportPage& Report, const QString& Title)
{
    QBuffer File;
    QSvgGenerator Writer;
    Writer.setOutputDevice(&File);
    Writer.setTitle(Title);
    Writer.setDescription("Skarvelin");
    Writer.setResolution(SvgDensity);
    const QSize Size(Sheet.X, Sheet.Y * Report.Pages());
    Writer.setSize(Size);
    Writer.setViewBox(QRect(QPoint(), Size));
    QPainter Painter(&Writer);
    PaintStrip(Painter, Report);
    Painter.end();
    return File.data();
}

QByteArray Png(cReportPage& Report, const QString&)
{
    QImage Picture(Sheet.X * PngScale, Sheet.Y * PngScale * Report.Pages(), QImage::Format_RGB32);
    QPainter Painter(&Picture);
    Painter.scale(PngScale, PngScale);
    PaintStrip(Painter, Report);
    Painter.end();
    Picture.setDotsPerMeterX(PngDensity);
    Picture.setDotsPerMeterY(PngDensity);
    QBuffer File;
    Picture.save(&File, "PNG");
    return File.data();
}

struct Form
{
    const char* Ending;
    QByteArray (*Write)(cReportPage& Report, const QString& Title);
};
constexpr Form Forms[] = {{"pdf", Pdf}, {"svg", Svg}, {"png", Png}};
} // namespace

void PaintReportPage(QPainter& Painter, cReportPage& Report, int Page, double Width)
{
    Painter.save();
    Painter.scale(Width / Sheet.X, Width / Sheet.X);
    qPainterSurface Surface(Painter, Sheet, FinestStep);
    Report.Draw(Surface, Page);
    Painter.restore();
}

bool WriteReportFile(const cReport& Report, const std::string& Path)
{
    const QString Ending = QFileInfo(Shown(Path)).suffix().toLower();
    for (const Form& Each : Forms) {
        if (Ending != Each.Ending) continue;
        cReportPage Pages(Report);
        const QByteArray Bytes = Each.Write(Pages, Shown(Report.Title));
        if (!Bytes.isEmpty() && SaveWhole(Path, {Bytes.constData(), static_cast<std::size_t>(Bytes.size())}))
            return true;
        return FileFailed(CantWrite, Path, TitleError);
    }
    MsgBox("A report is saved under a name that ends with .pdf, .svg or .png, not as: " + Path, TitleError);
    return false;
}

bool WriteReportOffscreen(const cReport& Report, const std::string& Path)
{
    QHashSeed::setDeterministicGlobalSeed(); // fonts go into a PDF in the order of a hash
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {}); // it misses a desktop
    int Count = 1;
    char Name[] = "skarvelin-batch";
    char* Words[] = {Name, nullptr};
    const QGuiApplication Toolkit(Count, Words);
    return WriteReportFile(Report, Path);
}
