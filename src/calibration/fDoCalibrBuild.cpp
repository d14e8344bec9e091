// The controls of the calibration workbench.
#include "calibration/fDoCalibr.h"
#include "calibration/mChanGrid.h"
#include "platform/qt/qText.h"
#include "widgets/qDecimal.h"
#include "widgets/qMnemonics.h"
#include "widgets/qWorkArea.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>

namespace {
struct BoxShape
{
    const char* Caption;
    bool IsTyped; // by the user
    const char* Tip;
};

constexpr BoxShape BoxShapes[CalBoxCnt] = {
    {"&Channel", true, "Number of the channel to calibrate"},
    {"Physical &Value", true, "The load on the sensor now; with Torque in automatic calibration the lever"},
    {"&Logical Value", false, "Raw count of the channel"},
    {"Q0", true, "Offset of the running line in physical units; what stands here is saved"},
    {"Q1", true, "Gain of the running line in physical units a count; what stands here is saved"},
    {"Correlation", true, "Square of the correlation of the running line"},
    {"Minimal Physical", false, "Lowest physical value taken"},
    {"Maximal Physical", false, "Highest physical value taken"},
    {"Calculated Maximal", false, "Physical value of the highest count, 16384, on the running line"},
    {"CutOff / Overlap (%)", true, "Part of the range that an analysis leaves out at either end"},
    {"Threshold ", true, "Threshold that is saved with an analysis"},
};

struct CommandShape
{
    const char* Caption;
    const char* Tip;
};

constexpr CommandShape CommandShapes[] = {
    {"St&art Data   ( \"a\")", "Begins to take frames for the channel (Enter while the link is closed)"},
    {"St&op Data", "Ends the taking and closes the link (o, Escape)"},
    {"&Put Point (Space)", "Takes the present count with the physical value as a point (Enter)"},
    {"&Save", "Saves the points in a file of their own and the calibration in the session; s saves the session alone"},
    {"E&xit", "Closes the window; points that are not saved are lost"},
    {"Store...", "Saves the points in a file"},
    {"Load...", "Takes the points from a file"},
    {"Analysis", "Computes the curves of the use chosen under \"Apply\""},
    {"Set as Auto-Calibr", "Makes this channel with Q0 and Q1 the calibrator of automatic calibration"},
    {"Save Ref.Table", "Makes a reference table from Min to Max; points outside are dropped"},
    {"Find Limits", "Takes Min and Max from the points, 4 units within them"},
    {"&Delete data", "Deletes all points (d)"},
    {"&Undo", "Brings back the points that were deleted, dropped or replaced last"},
};

QLabel* Caption(const QString& Text, int Index, QWidget* Parent, QWidget* Buddy = nullptr)
{
    auto* Label = new QLabel(Text, Parent);
    Label->setObjectName(QString("LabArr1_%1").arg(Index));
    Label->setBuddy(Buddy);
    Label->setMinimumWidth(Label->sizeHint().width());
    return Label;
}
} // namespace

fDoCalibr::fDoCalibr()
    : qDataWindow("fDoCalibr", "Calibration Process"), CalGr(new qSurface(this)), Graph(*CalGr, Calibr),
      State(new QLabel(this)), Apply(new QButtonGroup(this))
{
    Tag.clear();
    setProperty(AsksToClose, true);
    CalGr->setObjectName("CalGr");
    CalGr->setMouseTracking(true);
    CalGr->installEventFilter(this);
    CalGr->OnResize = [this] { Graph.Draw(); };
    State->setObjectName("lbState");
    State->setStyleSheet("font-weight: bold; padding: 2px 4px");
    auto* Controls = new QHBoxLayout;
    Controls->setSpacing(16);
    Controls->addLayout(BuildBoxes());
    Controls->addLayout(BuildRanges(), 1);
    Controls->addLayout(BuildButtons());
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(6, 6, 6, 6);
    Layout->addWidget(CalGr, 1);
    Layout->addWidget(State);
    Layout->addLayout(BuildChoices());
    Layout->addLayout(Controls);
    Boxes[BoxChan]->setToolTip(Boxes[BoxChan]->toolTip() + ":\n" + Shown(ChanList()));
    TakeMnemonics(*this);
    setFocusProxy(Boxes[BoxChan]);
    connect(&Look, &QTimer::timeout, this, [this] { ShowTexts(); });
    constexpr int LookMs = 250;
    Look.start(LookMs);
    ShowTexts();
}

QLineEdit* fDoCalibr::AddText(const char* Name, const QString& Text, const char* Tip)
{
    auto* Box = new QLineEdit(Text, this);
    Box->setObjectName(Name);
    Box->setToolTip(Tip);
    Box->setAlignment(Qt::AlignRight);
    Box->setMinimumWidth(fontMetrics().horizontalAdvance("-00000.00"));
    Box->installEventFilter(this);
    TakeDecimalComma(*Box);
    return Box;
}

void fDoCalibr::AddBox(QGridLayout& Grid, int Index, int Row, int Column)
{
    const BoxShape& Shape = BoxShapes[Index];
    QLineEdit* Box = AddText(qPrintable(QString("TBoxArr_%1").arg(Index)), {}, Shape.Tip);
    QLabel* Label = Caption(Shape.Caption, Index, this, Box);
    if (Column == 0) Box->setMinimumWidth(fontMetrics().horizontalAdvance("-00.000000000"));
    Box->setReadOnly(!Shape.IsTyped);
    if (!Shape.IsTyped) Box->setFocusPolicy(Qt::NoFocus);
    const auto Number = static_cast<eCalBox>(Index);
    connect(Box, &QLineEdit::textEdited, this,
            [this, Number](const QString& Text) { Calibr.SetBox(Number, Plain(Text)); });
    Grid.addWidget(Label, Row, Column);
    Grid.addWidget(Box, Row, Column + 1);
    Boxes[static_cast<std::size_t>(Index)] = Box;
}

QLayout* fDoCalibr::BuildBoxes()
{
    constexpr int Rows = BoxMinP; // in the left column
    auto* Grid = new QGridLayout;
    Grid->setVerticalSpacing(3);
    for (int i = 0; i < CalBoxCnt; ++i)
        AddBox(*Grid, i, i % Rows, i / Rows * 2);
    txtSensID = AddText("txtSensID", {}, "Identifier of the sensor; names its files");
    txtSensID->setValidator(nullptr);
    constexpr int MostLetters = 30; // that the channel table keeps
    txtSensID->setMaxLength(MostLetters);
    connect(txtSensID, &QLineEdit::textEdited, this, [this](const QString& Text) { Calibr.SetSensID(Plain(Text)); });
    Grid->addWidget(Caption("Sensor ID", 11, this, txtSensID), CalBoxCnt - Rows, 2);
    Grid->addWidget(txtSensID, CalBoxCnt - Rows, 3);
    Grid->setRowStretch(Rows, 1);
    return Grid;
}

QLayout* fDoCalibr::BuildChoices()
{
    constexpr struct
    {
        const char* Caption;
        const char* Tip;
    } Shapes[] = {{"A&utomatic", "Physical values come from the calibrator channel"},
                  {"X is Logical", "Counts along the bottom of the graph"},
                  {"Auto Axes", "Axes by the points, otherwise by the channel's Min and Max"},
                  {"Torque", "In automatic calibration the calibrator is multiplied by the lever"}};
    auto* Layout = new QHBoxLayout;
    Layout->setSpacing(10);
    for (std::size_t i = 0; i < Flags.size(); ++i) {
        const auto Number = static_cast<eCalFlag>(i);
        Flags[i] = new QCheckBox(Shapes[i].Caption, this);
        Flags[i]->setObjectName(QString("chArr_%1").arg(i));
        Flags[i]->setToolTip(Shapes[i].Tip);
        Flags[i]->setFocusPolicy(Qt::TabFocus);
        Flags[i]->setChecked(Calibr.Flag(Number));
        connect(Flags[i], &QCheckBox::toggled, this, [this, Number](bool On) {
            Calibr.SetFlag(Number, On);
            DrawAnew();
        });
        Layout->addWidget(Flags[i]);
    }
    Layout->addStretch();
    Layout->addWidget(BuildApply());
    return Layout;
}

QWidget* fDoCalibr::BuildApply()
{
    constexpr const char* Captions[] = {"Linear", "Square one line", "Square two lines", "Absolute", "Ref.Table"};
    auto* Frame = new QWidget(this);
    Frame->setObjectName("Frame1");
    auto* Layout = new QHBoxLayout(Frame);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->setSpacing(10);
    Layout->addWidget(new QLabel("Apply:", Frame));
    for (int i = 0; i < 5; ++i) {
        auto* Button = new QRadioButton(Captions[i], Frame);
        Button->setObjectName(QString("opApply_%1").arg(i));
        Button->setFocusPolicy(Qt::TabFocus);
        Button->setChecked(i == Calibr.Approx());
        Apply->addButton(Button, i);
        Layout->addWidget(Button);
    }
    connect(Apply, &QButtonGroup::idClicked, this, [this](int Index) {
        Calibr.SetApprox(static_cast<eApprox>(Index));
        DrawAnew();
    });
    return Frame;
}

QLayout* fDoCalibr::BuildRanges()
{
    auto* Grid = new QGridLayout;
    Grid->setVerticalSpacing(3);
    txtArrMin = AddText("txtArrMin", {}, "Lowest physical value of the reference table");
    txtArrMax = AddText("txtArrMax", {}, "Highest physical value of the reference table");
    QLineEdit* LinMin = AddText("txtLinMin", "-30", "Lower end of the straight range: a note, no command reads it");
    QLineEdit* LinMax = AddText("txtLinMax", "30", "Upper end of the straight range: a note, no command reads it");
    connect(txtArrMin, &QLineEdit::textEdited, this, [this](const QString& Text) { Calibr.SetArrMin(Plain(Text)); });
    connect(txtArrMax, &QLineEdit::textEdited, this, [this](const QString& Text) { Calibr.SetArrMax(Plain(Text)); });
    Grid->addWidget(Caption("Min", 12, this), 0, 1, Qt::AlignCenter);
    Grid->addWidget(Caption("Max", 13, this), 0, 2, Qt::AlignCenter);
    Grid->addWidget(Caption("All", 14, this, txtArrMin), 1, 0);
    Grid->addWidget(txtArrMin, 1, 1);
    Grid->addWidget(txtArrMax, 1, 2);
    Grid->addWidget(Caption("Lin", 15, this, LinMin), 2, 0);
    Grid->addWidget(LinMin, 2, 1);
    Grid->addWidget(LinMax, 2, 2);
    txtAnalys = new QTextEdit(this); // the plain one lays itself out for ever at some narrow widths
    txtAnalys->setAcceptRichText(false);
    txtAnalys->setObjectName("txtAnalys");
    txtAnalys->setReadOnly(true);
    txtAnalys->setTabChangesFocus(true);
    txtAnalys->setFocusPolicy(Qt::ClickFocus);
    QFont Small = font();
    Small.setPointSizeF(Small.pointSizeF() * 0.9);
    txtAnalys->setFont(Small);
    constexpr int Lines = 9; // of the longest analysis
    txtAnalys->setMinimumHeight(QFontMetrics(Small).lineSpacing() * Lines + 16);
    txtAnalys->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    txtAnalys->installEventFilter(this);
    for (QLineEdit* Box : {txtArrMin, txtArrMax, LinMin, LinMax})
        Box->setMaximumWidth(fontMetrics().horizontalAdvance("-00000000.000000"));
    Grid->addWidget(txtAnalys, 3, 0, 1, 4);
    Grid->setRowStretch(3, 1);
    Grid->setColumnStretch(3, 1);
    return Grid;
}

QLayout* fDoCalibr::BuildButtons()
{
    constexpr int Rows = 7;
    auto* Grid = new QGridLayout;
    Grid->setVerticalSpacing(3);
    for (int i = 0; i < CommandCnt; ++i) {
        auto* Button = new QPushButton(CommandShapes[i].Caption, this);
        Button->setObjectName(i == cmdUndo ? QString("cmdUndo") : QString("cmdArr_%1").arg(i));
        Button->setToolTip(CommandShapes[i].Tip);
        Button->setFocusPolicy(Qt::TabFocus);
        Button->installEventFilter(this);
        connect(Button, &QPushButton::clicked, this, [this, i] { Obey(i); });
        Buttons[static_cast<std::size_t>(i)] = Button;
        Grid->addWidget(Button, i % Rows, i / Rows);
    }
    Grid->setRowStretch(Rows, 1);
    return Grid;
}
