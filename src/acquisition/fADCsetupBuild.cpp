// The controls of the logger set-up.
#include "acquisition/fADCsetup.h"

#include "acquisition/fDeviceTab.h"
#include "acquisition/fSettingBox.h"
#include "acquisition/fSlaveBox.h"
#include "core/mGlobData.h"
#include "platform/qt/qText.h"
#include "widgets/qPlace.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QTreeWidget>

namespace {
constexpr QSize UsualSize(820, 640);
constexpr int RefreshMs = 40;

// Room for a text of that many lines.
int LinesHigh(const QWidget& Widget, int Lines)
{
    return Widget.fontMetrics().lineSpacing() * Lines + Widget.fontMetrics().height();
}
} // namespace

fADCsetup::fADCsetup(QWidget* Parent) : QDialog(Parent)
{
    setObjectName("fADCsetup");
    setWindowTitle("Skarvelin Setup");
    setAttribute(Qt::WA_DeleteOnClose);
    Tabs = new QTabWidget(this);
    Tabs->setObjectName("tabSetUp");
    Tabs->setUsesScrollButtons(true);
    AddTab(BuildSampling(), "&Sampling");
    for (cDeviceTable* Table : {&Logger.Wireless(), &Logger.Sensors()}) {
        Devices.push_back(new fDeviceTab(Logger, *Table));
        AddTab(Devices.back(), Table->Kind().Title);
    }
    AddTab(BuildSensors(), "Clock, Sensors");
    AddTab(BuildCommands(), "Commands");
    auto* Parts = new QSplitter(Qt::Vertical, this);
    Parts->setChildrenCollapsible(false);
    Parts->addWidget(Tabs);
    Parts->addWidget(BuildLog());
    Parts->setStretchFactor(0, 3);
    Parts->setStretchFactor(1, 2);
    auto* Layout = new QVBoxLayout(this);
    Layout->addWidget(BuildState());
    Layout->addWidget(Parts, 1);
    Layout->addLayout(BuildButtons());
    RestorePlace(*this, "fADCsetup", UsualSize);
    Refresh.setSingleShot(true);
    Refresh.setInterval(RefreshMs);
    connect(&Refresh, &QTimer::timeout, this, [this] { ShowState(); });
    Logger.OnChange = [this] {
        if (!Refresh.isActive()) Refresh.start();
    };
    Logger.ReadMaster();
    ShowState();
}

void fADCsetup::AddTab(QWidget* Page, const char* Title)
{
    auto* Area = new QScrollArea(this);
    Area->setFrameShape(QFrame::NoFrame);
    Area->setWidgetResizable(true);
    Area->setWidget(Page);
    Tabs->addTab(Area, Title);
}

QPushButton* fADCsetup::AddButton(const ButtonShape& Shape)
{
    auto* Button = new QPushButton(Shape.Caption, this);
    Button->setObjectName(Shape.Name);
    Button->setToolTip(Shape.Tip);
    Button->setAutoDefault(false);
    connect(Button, &QPushButton::clicked, this, Shape.Action);
    return Button;
}

QWidget* fADCsetup::BuildState()
{
    auto* Frame = new QWidget(this);
    State = new QLabel(Frame);
    State->setObjectName("lbState");
    State->setWordWrap(true);
    State->setTextFormat(Qt::PlainText);
    Progress = new QProgressBar(Frame);
    Progress->setObjectName("barProgress");
    Progress->setMinimumWidth(fontMetrics().horizontalAdvance("#WLDEVFND=10___"));
    Stopper = AddButton(
        {"cmdStop", "S&top", "Ends the wait for an answer; commands that wait are not sent", &fADCsetup::Stop});
    auto* Layout = new QHBoxLayout(Frame);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->addWidget(State, 1);
    Layout->addWidget(Progress);
    Layout->addWidget(Stopper);
    return Frame;
}

QWidget* fADCsetup::BuildSampling()
{
    auto* Page = new QWidget;
    Settings = {
        new fSettingBox(Logger, SettingFreq, "Sampling Frequency", "cmdAppFreq", "Apply &Frequency"),
        new fSettingBox(Logger, SettingBaud, "Baud Rate", "cmdAppBaud", "Apply &Baud Rate"),
        new fSettingBox(Logger, SettingGPS, "GPS", "cmdAppGPS", "Apply &GPS"),
    };
    Slaves = new fSlaveBox(Logger);
    auto* Layout = new QGridLayout(Page);
    int Column = 0;
    for (fSettingBox* Each : Settings)
        Layout->addWidget(Each, 0, Column++);
    Layout->addWidget(Slaves, 1, 0, 1, Column);
    Layout->setRowStretch(2, 1);
    return Page;
}

QWidget* fADCsetup::BuildSensors()
{
    struct Row
    {
        ButtonShape Button;
        const char* Key;
    };
    const Row Rows[] = {
        {{"cmdTime", "Set Cloc&k", "Sets the logger's clock to this machine's local time", &fADCsetup::SetClock},
         "UTC"},
        {{"cmdSN", "Serial &Number", "Reads the logger's serial number", &fADCsetup::AskSerial}, "SN"},
        {{"cmdADC", "&ADC Hardware",
          "Reads the converter's configuration, and begins the command that sets it on the tab Commands",
          &fADCsetup::AskADC},
         "ADCHWCFG"},
        {{"cmdZeroAcc", "&Zero Accelerometer", "Zeroes accelerometer and gyroscope; the boat must be at rest and level",
          &fADCsetup::ZeroAcc},
         "GYROCFG"},
    };
    auto* Page = new QWidget;
    auto* Layout = new QGridLayout(Page);
    int Line = 0;
    for (const Row& Each : Rows) {
        auto* Value = new QLabel(Page);
        Value->setObjectName(QString("lb%1").arg(Each.Key));
        Value->setTextFormat(Qt::PlainText);
        Value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        Values.emplace_back(Value, Each.Key);
        Layout->addWidget(AddButton(Each.Button), Line, 0);
        Layout->addWidget(Value, Line++, 1);
    }
    Layout->setColumnStretch(1, 1);
    Layout->setRowStretch(Line, 1);
    return Page;
}

QWidget* fADCsetup::BuildCommands()
{
    auto* Page = new QWidget;
    txtSend = new QLineEdit(Page);
    txtSend->setObjectName("txtSend");
    txtSend->setPlaceholderText("#COMMAND");
    connect(txtSend, &QLineEdit::returnPressed, this, &fADCsetup::SendText);
    txtResp = new QPlainTextEdit(Page);
    txtResp->setObjectName("txtResp");
    txtResp->setReadOnly(true);
    txtResp->setMinimumHeight(LinesHigh(*txtResp, 2));
    auto* Diagnostic = new QComboBox(Page);
    Diagnostic->setObjectName("cboDiagnostic");
    Diagnostic->addItem("Diagnostic commands...");
    for (const DiagnosticCommand& Each : DiagnosticCommands())
        if (!Each.NeedsKeyChan || gKeyChan > 0)
            Diagnostic->addItem(QString("%1   %2").arg(Each.Command, Each.Meaning), QString(Each.Command));
    Diagnostic->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Diagnostic->setToolTip("Puts a command into the box above, from where it is sent");
    connect(Diagnostic, &QComboBox::activated, this, [this, Diagnostic](int Index) {
        if (Index > 0) txtSend->setText(Diagnostic->itemData(Index).toString());
    });
    auto* Caption = new QLabel("C&ommand", Page);
    Caption->setBuddy(txtSend);
    auto* Layout = new QGridLayout(Page);
    Layout->addWidget(Caption, 0, 0);
    Layout->addWidget(txtSend, 0, 1);
    Layout->addWidget(
        AddButton({"cmdSend", "Send", "Sends the command with a CR behind it (Enter)", &fADCsetup::SendText}), 0, 2);
    Layout->addWidget(Diagnostic, 1, 1, 1, 2);
    Layout->addWidget(new QLabel("Response", Page), 2, 0, Qt::AlignTop);
    Layout->addWidget(txtResp, 2, 1, 2, 1);
    Layout->addWidget(AddButton({"cmdResponce", "Read Responce", "Shows what has come since the last answer",
                                 &fADCsetup::ReadResponse}),
                      2, 2);
    Layout->setColumnStretch(1, 1);
    Layout->setRowStretch(3, 1);
    return Page;
}

QWidget* fADCsetup::BuildLog()
{
    auto* Frame = new QWidget(this);
    Log = new QTreeWidget(Frame);
    Log->setObjectName("lstLog");
    Log->setRootIsDecorated(false);
    Log->setUniformRowHeights(true);
    Log->setSelectionMode(QAbstractItemView::ExtendedSelection);
    Log->setHeaderLabels({"Time", "Sent", "Received"});
    for (const int Column : {0, 1})
        Log->header()->setSectionResizeMode(Column, QHeaderView::ResizeToContents);
    Log->setMinimumHeight(LinesHigh(*Log, 3));
    auto* Copy = AddButton({"cmdCopyLog", "Cop&y", "Copies the log, or the lines chosen in it", &fADCsetup::CopyLog});
    auto* Key = new QShortcut(QKeySequence::Copy, Log);
    Key->setContext(Qt::WidgetShortcut);
    connect(Key, &QShortcut::activated, this, &fADCsetup::CopyLog);
    auto* Layout = new QGridLayout(Frame);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->addWidget(Log, 0, 0, 2, 1);
    Layout->addWidget(Copy, 0, 1);
    Layout->setRowStretch(1, 1);
    return Frame;
}

QLayout* fADCsetup::BuildButtons()
{
    const ButtonShape Commands[] = {
        {"cmdRun", "&Run and Exit", "Connects the BLE sensors, lets the logger send frames and closes this window",
         &fADCsetup::RunAndExit},
        {"cmdSave", "Sa&ve to Master", "Keeps the settings in the logger when it is switched off", &fADCsetup::Save},
        {"cmdRead", "Rea&d Master", "Reads all settings of the logger", &fADCsetup::Read},
        {"cmdReset", "R&eset", "Resets the logger: settings that were not saved are lost", &fADCsetup::Reset},
        {"cmdExit", "&Cancel", "Lets the logger send frames and closes this window", &fADCsetup::reject},
    };
    auto* Layout = new QHBoxLayout;
    for (const ButtonShape& Each : Commands)
        Layout->addWidget(AddButton(Each));
    return Layout;
}
