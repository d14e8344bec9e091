// Controls of the re-zero window and what they do.
#include "calibration/fDoReZero.h"

#include "acquisition/mComFast.h"
#include "core/mHost.h"
#include "core/mIni.h"
#include "platform/qt/qMnemonics.h"
#include "platform/qt/qPlace.h"
#include "platform/qt/qText.h"

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
constexpr const char* Resting = "Choose a group and start the data; leave the sensors unloaded.";

// A column: object name of its boxes, head, where its text is, and the colour of the first row's.
struct Column
{
    const char* Name;
    const char* Head;
    std::string ReZeroRow::*Text;
    const char* FirstColour;
};

constexpr Column Table[] = {
    {"txtNames", "Name(s)", &ReZeroRow::Name, nullptr},
    {"txtChans", "Channel", &ReZeroRow::ChanText, nullptr},
    {"LogVals", "Logical Value", &ReZeroRow::LogText, "#ff0000"},
    {"PhysVals", "Physical Value", &ReZeroRow::PhysText, "#0000ff"},
    {"txtOldQ0", "Old Q0", &ReZeroRow::OldQ0Text, nullptr},
    {"txtNewQ0", "New Q0", &ReZeroRow::NewQ0Text, nullptr},
    {"txtLZero", "Logical Zero", &ReZeroRow::LZeroText, nullptr},
    {"txtQ1", "Q1", &ReZeroRow::Q1Text, nullptr},
};
constexpr std::size_t ChanColumn = 1, Q1Column = 7;
} // namespace

fDoReZero::fDoReZero(bool CalibratorMode)
    : qDataWindow("fDoReZero", CalibratorMode ? "Setting Calibrator" : "ReZeroing Channels"), ReZeroing(CalibratorMode),
      opParGr(new QButtonGroup(this)), State(new QLabel(this))
{
    Tag.clear();
    State->setObjectName("lbState");
    State->setStyleSheet("font-weight: bold");
    auto* Layout = new QGridLayout(this);
    Layout->addWidget(BuildGroups(), 0, 0);
    Layout->addLayout(BuildRows(), 0, 1, 2, 1);
    Layout->addLayout(BuildCommands(), 2, 0, 1, 2);
    Layout->addWidget(State, 3, 0, 1, 2);
    Layout->setRowStretch(1, 1);
    Layout->setColumnStretch(1, 1);
    TakeMnemonics(*this);
    setFocusPolicy(Qt::StrongFocus);
    ShowState(CalibratorMode ? "Start the data; leave the calibrator unloaded." : Resting);
    ShowRows();
}

QGroupBox* fDoReZero::BuildGroups()
{
    auto* Frame = new QGroupBox("&Groups", this);
    auto* Layout = new QVBoxLayout(Frame);
    constexpr const char* Captions[] = {"&Horiz. Angles", "&Vert. Angles", "Handle &Forces", "Seats", "&Gates"};
    for (int i = 0; i < cReZero::GroupCnt; ++i) {
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
    for (int c = 0; c < Columns; ++c) {
        const Column& Shape = Table[c];
        auto* Head = new QLabel(Shape.Head, this);
        Head->setAlignment(Qt::AlignCenter);
        Grid->addWidget(Head, 0, c);
        for (int i = 0; i < cReZero::MaxRows; ++i) {
            auto* Box = new QLineEdit(this);
            Box->setObjectName(QString("%1_%2").arg(Shape.Name).arg(i));
            Box->setAlignment(c == 0 ? Qt::AlignLeft : Qt::AlignRight);
            Box->setMinimumWidth(fontMetrics().horizontalAdvance("-0000.000000"));
            Box->setReadOnly(c != ChanColumn && c != Q1Column);
            if (Box->isReadOnly()) Box->setFocusPolicy(Qt::NoFocus);
            if (i == 0 && Shape.FirstColour) Box->setStyleSheet(QString("color: %1").arg(Shape.FirstColour));
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
    Grid->setRowStretch(cReZero::MaxRows + 1, 1);
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
    return Layout;
}

void fDoReZero::ShowState(const char* Text)
{
    State->setText(Text);
}

// One blank row stands where no group was chosen yet.
void fDoReZero::ShowRows()
{
    const auto Rows = ReZeroing.Rows();
    for (std::size_t i = 0; i < Boxes.size(); ++i)
        for (std::size_t c = 0; c < Boxes[i].size(); ++c) {
            QLineEdit* Box = Boxes[i][c];
            Box->setVisible(i == 0 || i < Rows.size());
            const QString Text = i < Rows.size() ? Shown(Rows[i].*Table[c].Text) : QString();
            if (Box->text() != Text && !Box->hasFocus()) Box->setText(Text);
        }
}

void fDoReZero::ChooseGroup(int Index)
{
    if (ReZeroing.ChooseGroup(Index))
        Group = Index;
    else if (QAbstractButton* Former = opParGr->button(Group))
        Former->setChecked(true);
    ShowRows();
    ShowState(ReZeroing.Rows().empty() ? "The session has no channel of this group." : Resting);
}

void fDoReZero::StartData()
{
    if (gLinkWatch.State() == cLinkWatch::eState::Closed && OpenLink()) SendRun();
    setFocus();
    ReZeroing.StartData();
    Tag = DataTag;
    ShowRows();
    ShowState("Waiting for data.");
}

void fDoReZero::StopData()
{
    Tag.clear();
    CloseLink();
    ShowState("Data are stopped.");
}

void fDoReZero::DrawData()
{
    ReZeroing.DrawData();
    ShowRows();
}

void fDoReZero::SetLive(bool Live)
{
    ShowState(Live ? "Data are coming. ReZero makes the present counts the zeros."
                   : "Data have stopped coming: the values shown are old.");
    for (const auto& Row : Boxes)
        for (const std::size_t c : {std::size_t{2}, std::size_t{3}})
            Row[c]->setEnabled(Live);
}

void fDoReZero::ReZero()
{
    if (ReZeroing.ReZero()) ShowState("New zeros, not saved yet.");
    ShowRows();
}

void fDoReZero::GetFromLogger()
{
    if (ReZeroing.Rows().empty()) return MsgBox("Choose a group first.", TitleInformation);
    const std::string Path = ExecComDlg("Load Raw Calibration Data", "qvn", eFileMode::In);
    if (!Path.empty() && ReZeroing.GetFromFile(Path)) ShowState("New zeros from the recording, not saved yet.");
    ShowRows();
}

void fDoReZero::AddNewContr()
{
    const std::string Name = InputBox("Input the name of parameter", "Creation of new data view", "");
    if (Name.empty()) return;
    if (!ReZeroing.AddChannel(Name))
        ShowState("There is no such channel, it is shown already, or there is no row left.");
    ShowRows();
}

void fDoReZero::SaveData()
{
    if (ReZeroing.SaveData()) ShowState("The zeros are saved.");
}

// A space typed by chance must not press a button.
bool fDoReZero::eventFilter(QObject* Watched, QEvent* Event)
{
    const bool IsKey = Event->type() == QEvent::KeyPress || Event->type() == QEvent::KeyRelease;
    if (IsKey && static_cast<QKeyEvent*>(Event)->key() == Qt::Key_Space) return true;
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

// The question is a reminder: the window closes whatever the answer is.
void fDoReZero::closeEvent(QCloseEvent* Event)
{
    if (ReZeroing.IsDirty()) AskYesNo("Are you sure to discard changes?", TitleWarning);
    KeepPlace(*this, Section);
    qDataWindow::closeEvent(Event);
}
