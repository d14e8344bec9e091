// The controls of the window of digitising.
#include "video/fVidDigit.h"

#include "platform/qt/qSurface.h"
#include "platform/qt/qText.h"
#include "video/f1Video.h"
#include "video/mDigitDraw.h"
#include "widgets/qMnemonics.h"
#include "widgets/qPlace.h"
#include "widgets/qWorkArea.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
QLabel* AddLabel(QWidget* Parent, const QString& Name, const QString& Text)
{
    auto* Label = new QLabel(Text, Parent);
    Label->setObjectName(Name);
    return Label;
}

QLineEdit* AddBox(QWidget* Parent, const QString& Name, const char* Longest)
{
    auto* Box = new QLineEdit(Parent);
    Box->setObjectName(Name);
    Box->setReadOnly(true);
    Box->setMinimumHeight(Box->sizeHint().height());
    Box->setFixedWidth(Box->fontMetrics().horizontalAdvance(Longest) + 16);
    return Box;
}
} // namespace

void fVidDigit::InitControls(int Mode)
{
    setWindowTitle("Video Digitising Data");
    setProperty(AsksToClose, true);
    const bool IsBody = Mode == DigitBody;
    auto* Layout = new QVBoxLayout(this);
    Layout->addLayout(BuildFrame());
    Layout->addWidget(BuildCurrent());
    frBody = new fPointTable;
    frBody->OnChoose = [this](int Dot) {
        Digit.SelectDot(Dot);
        ShowAll();
    };
    frBody->setVisible(IsBody);
    Layout->addWidget(frBody, 3);
    picAngles = new qSurface(this);
    picAngles->setObjectName("picAngles");
    picAngles->setMinimumHeight(84);
    picAngles->setToolTip("Angles of the joints (degrees) over the frames; the line is the frame that is shown");
    picAngles->OnResize = [this] { DrawAngles(*picAngles, Digit); };
    picAngles->setVisible(IsBody);
    Layout->addWidget(picAngles, 2);
    Layout->addLayout(BuildCommands());
    if (!IsBody) Layout->addStretch(1);
    TakeMnemonics(*this);
    for (QWidget* Each : findChildren<QWidget*>())
        Each->installEventFilter(this);
}

QLayout* fVidDigit::BuildFrame()
{
    auto* Row = new QHBoxLayout;
    auto* lbFrameN = AddLabel(this, "lbFrameN", "Frame Number");
    txtFrameN = AddBox(this, "txtFrameN", "0000000");
    lbFrameN->setBuddy(txtFrameN);
    cboSkip = new QComboBox(this);
    cboSkip->setObjectName("cboSkip");
    cboSkip->addItems({"1", "2", "5"});
    cboSkip->setToolTip("Frames that a skip goes over");
    auto* lbSkip = AddLabel(this, "lbSkip", "S&kip");
    lbSkip->setBuddy(cboSkip);
    for (QWidget* Each : {static_cast<QWidget*>(lbFrameN), static_cast<QWidget*>(txtFrameN),
                          static_cast<QWidget*>(lbSkip), static_cast<QWidget*>(cboSkip)})
        Row->addWidget(Each);
    const std::tuple<const char*, const char*, const char*, int> Ways[] = {
        {"cmdSkip_0", "Back", "Ctrl+Left in the video", -1}, {"cmdSkip_1", "On", "Ctrl+Right in the video", 1}};
    for (const auto& [Name, Caption, Tip, Way] : Ways) {
        auto* Button = AddButton(Name, Caption, Tip, nullptr);
        connect(Button, &QPushButton::clicked, this, [this, Way = Way] { Skip(Way); });
        Row->addWidget(Button);
    }
    Row->addStretch(1);
    return Row;
}

QWidget* fVidDigit::BuildCurrent()
{
    auto* frAngle = new QGroupBox("Current", this);
    frAngle->setObjectName("frAngle");
    auto* Grid = new QGridLayout(frAngle);
    lbCurPt = AddLabel(frAngle, "lbCurPt", "Point");
    lbNext = AddLabel(frAngle, "lbNext", "");
    lbNext->setWordWrap(true);
    Grid->addWidget(lbCurPt, 1, 0);
    const char* const Captions[] = {"X", "Y", "Angle (deg)"};
    for (int i = 0; i < 3; ++i) {
        txtCoords[static_cast<std::size_t>(i)] = AddBox(frAngle, QString("txtCoords_%1").arg(i), "00000.0");
        Grid->addWidget(AddLabel(frAngle, QString("lbCoords_%1").arg(i), Captions[i]), 0, i + 1);
        Grid->addWidget(txtCoords[static_cast<std::size_t>(i)], 1, i + 1);
    }
    Grid->addWidget(lbNext, 0, 4, 2, 1);
    Grid->setColumnStretch(4, 1);
    return frAngle;
}

QPushButton* fVidDigit::AddButton(const char* Name, const char* Caption, const char* Tip, void (fVidDigit::*Work)())
{
    auto* Button = new QPushButton(Caption, this);
    Button->setObjectName(Name);
    Button->setToolTip(Tip);
    if (Work) connect(Button, &QPushButton::clicked, this, Work);
    return Button;
}

QLayout* fVidDigit::BuildCommands()
{
    auto* Grid = new QGridLayout;
    int Place = 0;
    constexpr int Columns = 3;
    const auto Add = [&](QWidget* Button) {
        Grid->addWidget(Button, Place / Columns, Place % Columns);
        ++Place;
    };
    cmdUndo =
        AddButton("cmdUndo", "&Undo", "Takes the last point, drag or deletion back: Ctrl+Z", &fVidDigit::UndoLast);
    Add(cmdUndo);
    const std::initializer_list<QPushButton*> BodyButtons = {
        AddButton("cmdDelFrame", "&Delete Frame", "Takes the points of this frame away; Undo brings them back",
                  &fVidDigit::DeleteFrame),
        AddButton("cmdExport", "&Export", "Writes all points of the clip as a table", &fVidDigit::ExportTable),
        AddButton("cmdAngles", "&Take as Curves...",
                  "Puts the angles of whole strokes into a sample, as curves of 51 points", &fVidDigit::TakeAngles)};
    for (QPushButton* Each : BodyButtons) {
        Each->setVisible(Digit.Mode() == DigitBody);
        if (Digit.Mode() == DigitBody) Add(Each);
    }
    Add(AddButton("cmdSave", "&Save Data", "Saves the points with the session", &fVidDigit::SaveData));
    return Grid;
}

void fVidDigit::closeEvent(QCloseEvent* Event)
{
    if (!MayEnd()) return Event->ignore();
    KeepPlace(*this, Section);
    Detach();
    QWidget::closeEvent(Event);
}
