// The controls of the data view and where they stand.
#include "base/mNumText.h"
#include "core/mSettings.h"
#include "platform/qt/qSurface.h"
#include "platform/qt/qText.h"
#include "views/data/fData02view.h"
#include "views/data/mSelNumbers.h"
#include "widgets/qDecimal.h"
#include "widgets/qMnemonics.h"
#include "widgets/qWorkArea.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

fData02view::fData02view()
    : cDataWindow(ViewTag), Surface(new qSurface(this)), Strip(new qSurface(this)),
      Bar(new QScrollBar(Qt::Horizontal, this)), lbStrip(new QLabel(this)), lbPointer(new QLabel(this)),
      lbCurDist(new QLabel(this)), txtFilter(AddBox("txtFilter", false)), View(*Surface, *Strip),
      Options([this](eNotice What) {
          if (What == eNotice::OptionsSaved) ShowFilter();
      })
{
    setObjectName("fData02view");
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty(AsksToClose, true);
    setFocusPolicy(Qt::StrongFocus);
    BuildPlot();
    auto* Below = new QHBoxLayout;
    Below->addLayout(BuildCommands());
    Below->addLayout(BuildInputs());
    Below->addLayout(BuildNumbers());
    Below->addStretch(1);
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(6, 6, 6, 6);
    Layout->setSpacing(4);
    Layout->addLayout(BuildHead());
    Layout->addWidget(Strip, 1);
    Layout->addWidget(Surface, 100);
    Layout->addWidget(Bar);
    Layout->addLayout(Below);
    TakeKey(*this, QKeySequence::Undo, [this] { Run("Undo", &cData02view::Undo); });
    TakeMnemonics(*this);
}

void fData02view::BuildPlot()
{
    Surface->setObjectName("picData");
    Strip->setObjectName("DataNav");
    Bar->setObjectName("HScroll1");
    Bar->setRange(0, cDataRange::ScrollMax);
    for (qSurface* Plot : {Surface, Strip}) {
        Plot->setMouseTracking(true);
        Plot->installEventFilter(this);
    }
    Surface->OnResize = [this] { View.Draw(); };
    Strip->OnResize = [this] { View.DrawStrip(); };
    connect(Bar, &QScrollBar::valueChanged, this, [this](int Value) { View.Scroll(Value); });
}

QLayout* fData02view::BuildHead()
{
    lbStrip->setObjectName("lbStrip");
    lbPointer->setObjectName("lbPointer");
    auto* Row = new QHBoxLayout;
    Row->addWidget(lbStrip);
    Row->addStretch();
    Row->addWidget(lbPointer);
    return Row;
}

QPushButton* fData02view::AddButton(const QString& Name, const char* Caption, const char* Tip,
                                    cData02view::Command Action)
{
    auto* Button = new QPushButton(Caption, this);
    Button->setObjectName(Name);
    Button->setToolTip(Tip);
    Button->setFocusPolicy(Qt::TabFocus);
    connect(Button, &QPushButton::clicked, this, [this, Caption, Action] { Run(Caption, Action); });
    return Button;
}

QLineEdit* fData02view::AddBox(const char* Name, bool IsReadOnly)
{
    auto* Box = new QLineEdit(this);
    Box->setObjectName(Name);
    Box->setReadOnly(IsReadOnly);
    Box->setAlignment(Qt::AlignRight);
    Box->setFixedWidth(fontMetrics().horizontalAdvance("0000000.0"));
    if (IsReadOnly) Box->setFocusPolicy(Qt::NoFocus);
    TakeDecimalComma(*Box);
    return Box;
}

QLayout* fData02view::BuildCommands()
{
    struct
    {
        const char* Caption;
        const char* Tip;
        cData02view::Command Action;
        bool IsForTable = false; // works on the table of strokes too
    } const Commands[] = {
        {"&Save Data", "Saves the selected frames as a recording of their own", &cData02view::SaveData, true},
        {"E&xport", "Writes the selected samples as text (X)", &cData02view::Export},
        {"Zoom &Out", "Shows more of the recording (O, mouse wheel)", &cData02view::ZoomOut},
        {"Zoom &In", "Shows less of the recording (I, mouse wheel)", &cData02view::ZoomIn},
        {"Dist", "Adds a band of the distance rowed", &cData02view::ShowDist},
        {"Rate", "Adds a band of the stroke rate", &cData02view::ShowRate},
        {"Filter", "Sets times to zero and repairs spikes", &cData02view::Filter},
        {"&Delete", "Removes the selected samples; Ctrl+Z brings them back", &cData02view::Delete},
        {"&1 Start", "The selection starts at the cursor (click on the curves, or Shift and arrow keys)",
         &cData02view::SetStartSel, true},
        {"&2 Stop", "The selection stops at the cursor (click on the curves, or Shift and arrow keys)",
         &cData02view::SetStopSel, true},
        {"Proc Strokes", "Writes a row of figures for every stroke selected", &cData02view::ProcStrokes},
        {"Proc &All", "Makes a sample of the whole recording", &cData02view::ProcAll},
        {"&Proc Sel", "Makes a sample of the selection", &cData02view::ProcSelection},
        {"Proc Splits", "Makes a sample of each split", &cData02view::ProcessSplits},
        {"Proc Start", "Makes a sample of each of the first strokes of the selection", &cData02view::ProcessStart},
    };
    auto* Grid = new QGridLayout;
    Grid->setSpacing(3);
    constexpr int Rows = 5;
    int Place = 0;
    const auto Add = [&](QPushButton* Button) {
        Grid->addWidget(Button, Place % Rows, Place / Rows);
        ++Place;
    };
    for (const auto& Each : Commands) {
        QPushButton* Button = AddButton(QString("CmdArr_%1").arg(Place), Each.Caption, Each.Tip, Each.Action);
        if (!Each.IsForTable) SampleCommands.push_back(Button);
        Add(Button);
    }
    Add(AddButton("cmdPlotRaw", "Plot Se&l", "Shows the selected samples in the plots of the report",
                  &cData02view::PlotSamples));
    Add(AddButton("cmdSelAll", "Sel All Strokes", "Selects from the first stroke to the last one (Ctrl+A)",
                  &cData02view::SelAllStrokes));
    SampleCommands.push_back(
        AddButton("cmdPlotProc", "&Report", "Shows the typical stroke of the selection", &cData02view::PlotTypical));
    Add(SampleCommands.back());
    SampleCommands.push_back(AddButton("cmdAccVel", "Acc. to Vel.",
                                       "Integrates the boat's acceleration to its velocity", &cData02view::AccVel));
    Add(SampleCommands.back());
    TableCommands = {
        AddButton("cmdGetRawData", "&Get Data", "Reads the selected strokes of the recording", &cData02view::GetData),
        AddButton("cmdTrim", "&Trim", "Keeps the selected strokes in the table only", &cData02view::Trim),
        AddButton("cmdSaveStrokes", "Save &Strokes", "Writes the table of strokes beside the session",
                  &cData02view::SaveStrokeTable)};
    for (QPushButton* Button : TableCommands)
        Add(Button);
    Grid->setRowStretch(Rows, 1);
    return Grid;
}

QLayout* fData02view::BuildInputs()
{
    auto* Grid = new QGridLayout;
    Grid->setSpacing(3);
    lbCurDist->setFixedWidth(txtFilter->width());
    int Row = 0;
    const auto Add = [&](const char* Caption, QWidget* Box) {
        auto* Label = new QLabel(Caption, this);
        Label->setBuddy(Box);
        Grid->addWidget(Label, Row, 0);
        Grid->addWidget(Box, Row, 1);
        ++Row;
    };
    constexpr const char* Names[] = {"txtInps_0", "txtInps_1"};
    constexpr const char* CursorNames[] = {"txtCur_0", "txtCur_1"};
    for (std::size_t i = 0; i < txtInps.size(); ++i) {
        txtInps[i] = AddBox(Names[i], false);
        txtCur[i] = AddBox(CursorNames[i], true);
        connect(txtInps[i], &QLineEdit::textEdited, this,
                [this, i](const QString& Text) { View.Type(i, Plain(Text)); });
    }
    lbCurDist->setObjectName("lbCurDist");
    lbCurDist->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    ShowFilter();
    connect(txtFilter, &QLineEdit::textEdited, this, [](const QString& Text) { cData02view::TypeFilter(Plain(Text)); });
    Add("Distance (m)", txtInps[0]);
    Add("Time (s)", txtInps[1]);
    Add("Filter (SD)", txtFilter);
    Add("Cursor (s)", txtCur[0]);
    Add("Rowed (m)", txtCur[1]);
    Add("Logged (m)", lbCurDist);
    Grid->setRowStretch(Row, 1);
    return Grid;
}

void fData02view::ShowFilter()
{
    txtFilter->setText(Shown(FormatNum(StdFilter, "0.0")));
}

QLayout* fData02view::BuildNumbers()
{
    constexpr const char* OwnLabels[] = {"", "From (s)", "To (s)"};
    constexpr std::size_t Rows = 6; // as many in a column
    auto* Grid = new QGridLayout;
    Grid->setVerticalSpacing(3);
    for (std::size_t i = 1; i < txtSel.size(); ++i) {
        const char* Caption = i < 3 ? OwnLabels[i] : i == 11 ? "Proc. Rate" : SelLabels[i];
        txtSel[i] = new QLabel(this);
        txtSel[i]->setObjectName(QString("txtSel_%1").arg(i));
        txtSel[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        txtSel[i]->setMinimumWidth(fontMetrics().horizontalAdvance("00000.0%"));
        txtSel[i]->setStyleSheet("QLabel:enabled { font-weight: bold }");
        const auto Row = static_cast<int>((i - 1) % Rows), Column = static_cast<int>((i - 1) / Rows * 2);
        auto* Label = new QLabel(Caption, this);
        Label->setContentsMargins(12, 0, 0, 0);
        Grid->addWidget(Label, Row, Column);
        Grid->addWidget(txtSel[i], Row, Column + 1);
    }
    Grid->setRowStretch(static_cast<int>(Rows), 1);
    return Grid;
}
