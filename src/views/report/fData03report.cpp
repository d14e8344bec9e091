// Menus, plots and values of the report window.
#include "views/report/fData03report.h"

#include "platform/mHost.h"
#include "platform/qt/qSurface.h"
#include "platform/qt/qText.h"
#include "views/report/cReportPlots.h"
#include "views/report/qReportFile.h"
#include "widgets/qMnemonics.h"
#include "widgets/qPlace.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>
#include <QScrollArea>
#include <QSplitter>

#include <algorithm>

namespace {
constexpr const char* TableKey = "IsTable";
constexpr int32_t White = 0xFFFFFF;
constexpr int TableWidth = 240;
} // namespace

fData03report::fData03report() : picGraph(new qSurface(this)), picTable(new QScrollArea(this))
{
    setObjectName("fData03report");
    setAttribute(Qt::WA_DeleteOnClose);
    setFocusPolicy(Qt::StrongFocus);
    picGraph->setObjectName("picGraph");
    picGraph->OnResize = [this] { DrawPlot(); };
    auto* Split = new QSplitter(this);
    Split->addWidget(picGraph);
    Split->addWidget(BuildTable());
    Split->setStretchFactor(0, 1);
    Split->setSizes({3 * TableWidth, TableWidth});
    auto* Head = new QLabel(this);
    Head->setObjectName("lbHead");
    Head->setTextFormat(Qt::PlainText);
    Head->setStyleSheet("padding: 2px 10px;");
    auto* Notes = new QLabel(this);
    Notes->setObjectName("lbNotes");
    Notes->setWordWrap(true);
    Notes->setTextFormat(Qt::PlainText);
    Notes->setStyleSheet("color: #b00000; padding: 4px;");
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->setSpacing(0);
    Layout->setMenuBar(BuildMenus());
    Layout->addWidget(Head);
    Layout->addWidget(Split, 1);
    Layout->addWidget(Notes);
    TakeKey(*this, QKeySequence::Save, [this] { Save(); });
    TakeKey(*this, QKeySequence::Print, [this] { Print(); });
}

QMenuBar* fData03report::BuildMenus()
{
    auto* Bar = new QMenuBar(this);
    const auto Add = [](QMenu* Menu, const char* Name, const char* Caption, const QKeySequence& Key) {
        QAction* Entry = Menu->addAction(Caption);
        Entry->setObjectName(Name);
        Entry->setShortcut(Key); // shown here, taken as a key of the window
        Entry->setShortcutContext(Qt::WidgetShortcut);
        return Entry;
    };
    QMenu* File = Bar->addMenu("&Report");
    connect(Add(File, "mnuReportSample", "&Another Sample...", {}), &QAction::triggered, this, [this] {
        if (OnChoose) OnChoose();
    });
    connect(Add(File, "mnuReportPrint", "&Print...", QKeySequence::Print), &QAction::triggered, this,
            [this] { Print(); });
    connect(Add(File, "mnuReportSave", "&Save as PDF, SVG or PNG...", QKeySequence::Save), &QAction::triggered, this,
            [this] { Save(); });
    connect(Add(File, "mnuReportClose", "&Close", Qt::Key_Escape), &QAction::triggered, this,
            [this] { (parentWidget() ? parentWidget() : this)->close(); });
    mnuReportIsTable = Add(Bar->addMenu("&Options"), "mnuReportIsTable", "&Table", {});
    mnuReportIsTable->setCheckable(true);
    mnuReportIsTable->setChecked(gHost.Settings->GetSetting(Section, TableKey).value_or("1") != "0");
    picTable->setVisible(mnuReportIsTable->isChecked());
    connect(mnuReportIsTable, &QAction::toggled, this, [this](bool IsOn) {
        gHost.Settings->SaveSetting(Section, TableKey, IsOn ? "1" : "0");
        picTable->setVisible(IsOn);
    });
    return Bar;
}

QWidget* fData03report::BuildTable()
{
    picTable->setObjectName("picTable");
    picTable->setWidgetResizable(true);
    picTable->setFrameShape(QFrame::NoFrame);
    picTable->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    picTable->setFocusPolicy(Qt::NoFocus);
    auto* Content = new QWidget(picTable);
    auto* Layout = new QVBoxLayout(Content);
    Values = new QGridLayout;
    Values->setVerticalSpacing(2);
    Values->setColumnStretch(0, 1);
    Layout->addLayout(Values);
    Layout->addStretch();
    picTable->setWidget(Content);
    return picTable;
}

void fData03report::InitData(int Kind, int16_t Sample, int32_t First, int32_t Last)
{
    Report.InitData(Kind, Sample, First, Last);
    setWindowTitle("Report - " + Shown(Report.Title));
    QStringList Facts;
    for (const auto& [Label, Value] : Report.Facts)
        Facts << Shown(Label + " " + Value);
    findChild<QLabel*>("lbHead")->setText((Facts << Shown(Report.Comment)).join("     "));
    auto* Notes = findChild<QLabel*>("lbNotes");
    QStringList Lines;
    for (const std::string& Note : Report.Notes)
        Lines << Shown(Note);
    Notes->setToolTip(Lines.join("\n"));
    constexpr qsizetype MostLines = 3;
    if (Lines.size() > MostLines)
        Lines = Lines.mid(0, MostLines - 1) << QString("%1 more.").arg(Lines.size() - MostLines + 1);
    Notes->setText(Lines.join("\n"));
    Notes->setVisible(!Lines.isEmpty());
    PrintReport();
    DrawPlot();
}

// A label and a value for each function, made as they are needed.
void fData03report::PrintReport()
{
    int Row = 0;
    for (const ReportLine& Line : Report.PrintReport())
        for (const RowValue& Each : Line.Values) {
            auto* Label = new QLabel(Shown(Each.Label).trimmed(), this);
            Label->setObjectName(QString("lParName_%1").arg(Row));
            Label->setTextFormat(Qt::PlainText);
            Label->setWordWrap(true);
            auto* Box = new QLineEdit(Shown(ValueText(Each) + " " + ValueUnit(Line, Each)).trimmed(), this);
            Box->setObjectName(QString("txtR1_%1").arg(Row));
            Box->setAlignment(Qt::AlignRight);
            Box->setReadOnly(true);
            Box->setFixedWidth(fontMetrics().horizontalAdvance("-0000.00 m/s²  "));
            Box->setAccessibleName(Label->text());
            Values->addWidget(Label, Row, 0);
            Values->addWidget(Box, Row, 1);
            ++Row;
        }
    if (Row > 0) return;
    Values->addWidget(new QLabel("Values are those of the functions\nthat rows name, for typical strokes.", this), 0,
                      0);
}

void fData03report::DrawPlot()
{
    constexpr double Margin = 6;
    picGraph->Clear(White);
    const SurfacePoint Size = picGraph->Size();
    DrawReportPlots(*picGraph, Report, {Margin, Size.X - Margin, Margin, Size.Y - Margin});
}

bool fData03report::PrintOn(QPrinter& Printer)
{
    Printer.setFullPage(true);
    Printer.setDocName(Shown(Report.Title));
    QPainter Painter;
    if (!Painter.begin(&Printer)) {
        MsgBox("The printer " + Plain(Printer.printerName()) + " cannot be used.", TitleError);
        return false;
    }
    cReportPage Pages(Report);
    const double Width = std::min<double>(Printer.width(), static_cast<double>(Printer.height()) *
                                                               cReportPage::PageSize.X / cReportPage::PageSize.Y);
    Painter.translate((Printer.width() - Width) / 2, 0); // in the middle of wider paper
    for (int Page = 0; Page < Pages.Pages(); ++Page) {
        if (Page > 0) Printer.newPage();
        PaintReportPage(Painter, Pages, Page, Width);
    }
    return true;
}

void fData03report::Print()
{
    QPrinter Printer(QPrinter::HighResolution);
    Printer.setPageSize(QPageSize(QPageSize::A4));
    QPrintDialog Dialog(&Printer, this);
    Dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    if (Dialog.exec() == QDialog::Accepted && PrintOn(Printer)) UpdateStatus("Printed: " + Report.Title);
}

void fData03report::Save()
{
    const std::string Proposed = gCurDir + gFileTitle + " " + Report.Title + ".pdf";
    const std::string Path = ExecComDlg("Save the Report as .pdf, .svg or .png", "pdf", eFileMode::Out, Proposed);
    if (!Path.empty() && WriteReportFile(Report, Path)) UpdateStatus("Saved: " + Path);
}

void fData03report::keyPressEvent(QKeyEvent* Event)
{
    if (Event->key() == Qt::Key_Escape)
        (parentWidget() ? parentWidget() : this)->close();
    else
        QWidget::keyPressEvent(Event);
}

void fData03report::closeEvent(QCloseEvent* Event)
{
    KeepPlace(*this, Section);
    QWidget::closeEvent(Event);
}
