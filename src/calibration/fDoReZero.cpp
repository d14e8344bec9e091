// Controls of the re-zero window and what they do.
#include "calibration/fDoReZero.h"

#include "acquisition/mComFast.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qDecimal.h"
#include "widgets/qMnemonics.h"
#include "widgets/qPlace.h"
#include "widgets/qWorkArea.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {
constexpr const char* Section = "fDoReZero";
constexpr int LookMs = 250; // from one look at the link to the next

// A column: object name of its boxes, heading, member with its text, colour of the first row, tool tip.
struct Column
{
    const char* Name;
    const char* Head;
    std::string ReZeroRow::*Text;
    const char* FirstColour;
    const char* Tip;
};

constexpr Column Table[] = {
    {"txtNames", "Name(s)", &ReZeroRow::Name, nullptr, "Parameter that the channel measures"},
    {"txtChans", "Channel", &ReZeroRow::ChanText, nullptr,
     "Number of the channel; one typed counts from the next Start Data on"},
    {"LogVals", "Logical Value", &ReZeroRow::LogText, "#ff0000", "Raw count now"},
    {"PhysVals", "Physical Value", &ReZeroRow::PhysText, "#0000ff",
     "Value of this count by the channel's present calibration"},
    {"txtOldQ0", "Old Q0", &ReZeroRow::OldQ0Text, nullptr, "Offset in the session"},
    {"txtNewQ0", "New Q0", &ReZeroRow::NewQ0Text, nullptr, "Offset that Save Data stores"},
    {"txtLZero", "Logical Zero", &ReZeroRow::LZeroText, nullptr, "Count that reads as 0"},
    {"txtQ1", "Q1", &ReZeroRow::Q1Text, nullptr, "Gain in physical units a count; typed over, it counts at once"},
};
constexpr std::size_t ChanColumn = 1, Q1Column = 7;
} // namespace

fDoReZero::fDoReZero(bool CalibratorMode)
    : qDataWindow("fDoReZero", CalibratorMode ? "Setting Calibrator" : "ReZeroing Channels"), ReZeroing(CalibratorMode),
      opParGr(new QButtonGroup(this)), State(new QLabel(this))
{
    Tag.clear();
    State->setObjectName("lbState");
    State->setStyleSheet("font-weight: bold; padding: 2px 4px");
    State->setWordWrap(true);
    setProperty(AsksToClose, true);
    auto* Layout = new QGridLayout(this);
    Layout->setHorizontalSpacing(CalibratorMode ? 0 : 16); // no groups, no gap
    Layout->setVerticalSpacing(10);
    Layout->addWidget(State, 0, 0, 1, 3);
    Layout->addWidget(BuildGroups(), 1, 0, Qt::AlignTop);
    Layout->addLayout(BuildRows(), 1, 1, Qt::AlignTop);
    Layout->addLayout(BuildCommands(), 2, 0, 1, 2);
    Layout->setRowStretch(3, 1);
    Layout->setColumnStretch(1, 3);
    Layout->setColumnStretch(2, 1);
    TakeMnemonics(*this);
    setFocusPolicy(Qt::StrongFocus);
    connect(&Look, &QTimer::timeout, this, [this] { ShowState(); });
    Look.start(LookMs);
    ShowRows();
}

QGroupBox* fDoReZero::BuildGroups()
{
    auto* Frame = new QGroupBox("&Groups", this);
    auto* Layout = new QVBoxLayout(Frame);
    constexpr const char* Captions[] = {"&Horiz. Angles", "&Vert. Angles", "Handle &Forces", "Seats", "&Gates"};
    for (int i = 0; i < ReZeroGroupCnt; ++i) {
        auto* Button = new QRadioButton(Captions[i], Frame);
        Button->setObjectName(QString("opParGr_%1").arg(i));
        Button->installEventFilter(this);
        opParGr->addButton(Button, i);
        Layout->addWidget(Button);
    }
    Frame->setVisible(!ReZeroing.IsCalibrMode());
    connect(opParGr, &QButtonGroup::idClicked, this, [this](int Index) { ChooseGroup(Index); });
    return Frame;
}

QLayout* fDoReZero::BuildRows()
{
    auto* Grid = new QGridLayout;
    Grid->setHorizontalSpacing(6);
    Grid->setVerticalSpacing(4);
    for (int c = 0; c < Columns; ++c) {
        const Column& Shape = Table[c];
        auto* Head = new QLabel(Shape.Head, this);
        Head->setAlignment(Qt::AlignCenter);
        Head->setToolTip(Shape.Tip);
        Grid->addWidget(Head, 0, c);
        for (int i = 0; i < cReZero::MaxRows; ++i) {
            auto* Box = new QLineEdit(this);
            Box->setObjectName(QString("%1_%2").arg(Shape.Name).arg(i));
            Box->setAlignment(c == 0 ? Qt::AlignLeft : Qt::AlignRight);
            Box->setMinimumWidth(fontMetrics().horizontalAdvance("-0000.000000"));
            Box->setMaximumWidth(fontMetrics().horizontalAdvance("-0000000000.000000"));
            Box->setToolTip(Shape.Tip);
            Box->installEventFilter(this);
            TakeDecimalComma(*Box);
            if (i == 0 && Shape.FirstColour)
                Box->setStyleSheet(QString("QLineEdit:enabled { color: %1 }").arg(Shape.FirstColour));
            Boxes[static_cast<std::size_t>(i)][static_cast<std::size_t>(c)] = Box;
            Grid->addWidget(Box, i + 1, c);
        }
    }
    for (int i = 0; i < cReZero::MaxRows; ++i) {
        const auto& Row = Boxes[static_cast<std::size_t>(i)];
        connect(Row[ChanColumn], &QLineEdit::textEdited, this,
                [this, i](const QString& Text) { ReZeroing.SetChan(i, Plain(Text)); });
        connect(Row[Q1Column], &QLineEdit::textEdited, this,
                [this, i](const QString& Text) { ReZeroing.SetQ1(i, Plain(Text)); });
    }
    return Grid;
}

QLayout* fDoReZero::BuildCommands()
{
    struct
    {
        const char* Caption;
        void (fDoReZero::*Action)();
    } const Commands[] = {
        {"St&art Data", &fDoReZero::StartData},
        {"St&op Data", &fDoReZero::StopData},
        {"Re&Zero", &fDoReZero::ReZero},
        {"&Save Data", &fDoReZero::SaveData},
        {"&Cancel", &fDoReZero::Unload},
        {"Add Channel", &fDoReZero::AddNewContr},
        {"Get from Logger file", &fDoReZero::GetFromLogger},
    };
    auto* Layout = new QHBoxLayout;
    Layout->setSpacing(8);
    int Index = 0;
    for (const auto& Command : Commands) {
        auto* Button = new QPushButton(Command.Caption, this);
        Button->setObjectName(QString("cmdArr_%1").arg(Index));
        Button->setEnabled(!ReZeroing.IsCalibrMode() || Index < 5);
        Button->installEventFilter(this);
        connect(Button, &QPushButton::clicked, this, [this, Action = Command.Action] {
            Guard("ReZeroing", [&] {
                (this->*Action)();
                return true;
            });
        });
        Layout->addWidget(Button);
        ++Index;
    }
    Layout->addStretch();
    return Layout;
}

void fDoReZero::ShowState()
{
    const QString Text = Shown(ReZeroing.State(!Tag.empty()));
    if (State->text() != Text) State->setText(Text);
}

// One blank row is shown until a group is chosen.
void fDoReZero::ShowRows()
{
    const auto Rows = ReZeroing.Rows();
    for (std::size_t i = 0; i < Boxes.size(); ++i)
        for (std::size_t c = 0; c < Boxes[i].size(); ++c) {
            QLineEdit* Box = Boxes[i][c];
            Box->setVisible(i == 0 || i < Rows.size());
            const QString Text = i < Rows.size() ? Shown(Rows[i].*Table[c].Text) : QString();
            if (Box->text() != Text && !Box->hasFocus()) Box->setText(Text);
            const bool IsTyped = (c == ChanColumn || c == Q1Column) && i < Rows.size() && !ReZeroing.IsCalibrMode();
            Box->setReadOnly(!IsTyped);
            Box->setFocusPolicy(IsTyped ? Qt::StrongFocus : Qt::NoFocus);
        }
    ShowState();
}

void fDoReZero::ChooseGroup(int Index)
{
    if (ReZeroing.ChooseGroup(Index)) Group = Index;
    if (QAbstractButton* Chosen = opParGr->button(Group)) Chosen->setChecked(true);
    ShowRows();
}

void fDoReZero::StartData()
{
    if (gLinkWatch.State() == cLinkWatch::eState::Closed && OpenLink()) SendRun();
    setFocus();
    ReZeroing.StartData();
    Tag = DataTag;
    ShowRows();
}

void fDoReZero::StopData()
{
    Tag.clear();
    CloseLink();
    ShowState();
}

void fDoReZero::SetLive(bool Live)
{
    ShowState();
    for (const auto& Row : Boxes)
        for (const std::size_t c : {std::size_t{2}, std::size_t{3}})
            Row[c]->setEnabled(Live);
}

void fDoReZero::ReZero()
{
    ReZeroing.ReZero();
    ShowRows();
}

void fDoReZero::GetFromLogger()
{
    if (ReZeroing.Rows().empty()) return MsgBox("Choose a group first.", TitleInformation);
    const std::string Path = ExecComDlg("Load Raw Calibration Data", "qvn", eFileMode::In, gCurDir);
    if (!Path.empty()) ReZeroing.GetFromFile(Path);
    ShowRows();
}

void fDoReZero::AddNewContr()
{
    const std::string Name = InputBox("Input the name of parameter", "Creation of new data view", "");
    if (Name.empty()) return;
    if (!ReZeroing.AddChannel(Name))
        UpdateStatus("No row was added: the session has no channel " + Name +
                     ", it is shown already, or all nine rows "
                     "are taken.");
    ShowRows();
}

void fDoReZero::SaveData()
{
    ReZeroing.SaveData();
    ShowState();
}

// A space typed by accident must not press a button, and the letters of commands are no input for number boxes.
bool fDoReZero::eventFilter(QObject* Watched, QEvent* Event)
{
    const bool IsKey = Event->type() == QEvent::KeyPress || Event->type() == QEvent::KeyRelease;
    auto* const Key = IsKey ? static_cast<QKeyEvent*>(Event) : nullptr;
    if (Key && Key->key() == Qt::Key_Space) return true;
    const bool IsLetter = Key && (Key->key() == Qt::Key_A || Key->key() == Qt::Key_O || Key->key() == Qt::Key_S);
    if (IsLetter && !(Key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
        if (Event->type() == QEvent::KeyPress) keyPressEvent(Key);
        return true;
    }
    return qDataWindow::eventFilter(Watched, Event);
}

void fDoReZero::keyPressEvent(QKeyEvent* Event)
{
    switch (Event->key()) {
    case Qt::Key_A:
        return StartData();
    case Qt::Key_O:
        return StopData();
    case Qt::Key_Escape:
        return Unload();
    case Qt::Key_S:
    case Qt::Key_Space:
        return Event->accept();
    default:
        return qDataWindow::keyPressEvent(Event);
    }
}

// The question is a reminder: the window closes whatever the answer is. Only when the session or the program is closed
// does the answer No keep it open.
void fDoReZero::closeEvent(QCloseEvent* Event)
{
    if (ReZeroing.IsDirty() && !AskYesNo("Are you sure to discard changes?", TitleWarning) &&
        property(IsClosedFor).toBool())
        return Event->ignore();
    KeepPlace(*this, Section);
    qDataWindow::closeEvent(Event);
}
