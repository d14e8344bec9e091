// Texts and their captions, in two groups beside each other.
#include "calibration/fCalTexts.h"

#include "calibration/cCalibr.h"
#include "platform/qt/qText.h"
#include "widgets/qDecimal.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
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

QLabel* Caption(const QString& Text, int Index, QWidget* Parent, QWidget* Buddy = nullptr)
{
    auto* Label = new QLabel(Text, Parent);
    Label->setObjectName(QString("LabArr1_%1").arg(Index));
    Label->setBuddy(Buddy);
    Label->setMinimumWidth(Label->sizeHint().width());
    return Label;
}
// An unchanged text leaves the cursor where it is; a text that is too long shows its beginning.
void Show(QLineEdit& Box, const std::string& Text)
{
    if (Plain(Box.text()) == Text) return;
    Box.setText(Shown(Text));
    if (!Box.hasFocus()) Box.setCursorPosition(0);
}
} // namespace

fCalTexts::fCalTexts(QWidget* Watcher, cCalibr& InitCalibr) : QWidget(Watcher), Filter(Watcher), Calibr(InitCalibr)
{
    auto* Groups = new QHBoxLayout(this);
    Groups->setContentsMargins(0, 0, 0, 0);
    Groups->setSpacing(16);
    Groups->addLayout(BuildBoxes());
    Groups->addLayout(BuildRanges(), 1);
}

void fCalTexts::ShowTexts()
{
    for (std::size_t i = 0; i < Boxes.size(); ++i)
        Show(*Boxes[i], Calibr.Box(static_cast<eCalBox>(i)));
    Show(*txtSensID, Calibr.SensID());
    Show(*txtArrMin, Calibr.ArrMin());
    Show(*txtArrMax, Calibr.ArrMax());
    const std::string Hint = Calibr.AnalysHint().empty() ? "" : "\n" + Calibr.AnalysHint();
    if (const QString Text = Shown(Calibr.Analys() + Hint).remove('\r').trimmed(); txtAnalys->toPlainText() != Text)
        txtAnalys->setPlainText(Text);
}

bool fCalTexts::IsTyping() const
{
    return txtSensID->hasFocus();
}

QLineEdit* fCalTexts::AddText(const char* Name, const QString& Text, const char* Tip)
{
    auto* Box = new QLineEdit(Text, this);
    Box->setObjectName(Name);
    Box->setToolTip(Tip);
    Box->setAlignment(Qt::AlignRight);
    Box->setMinimumWidth(fontMetrics().horizontalAdvance("-00000.00"));
    Box->installEventFilter(Filter);
    TakeDecimalComma(*Box);
    return Box;
}

void fCalTexts::AddBox(QGridLayout& Grid, int Index, int Row, int Column)
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

QLayout* fCalTexts::BuildBoxes()
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

QLayout* fCalTexts::BuildRanges()
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
    BuildAnalys();
    for (QLineEdit* Box : {txtArrMin, txtArrMax, LinMin, LinMax})
        Box->setMaximumWidth(fontMetrics().horizontalAdvance("-00000000.000000"));
    Grid->addWidget(txtAnalys, 3, 0, 1, 4);
    Grid->setRowStretch(3, 1);
    Grid->setColumnStretch(3, 1);
    return Grid;
}

void fCalTexts::BuildAnalys()
{
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
    txtAnalys->installEventFilter(Filter);
}
