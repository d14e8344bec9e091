// The two lists, the check boxes beside the second, and the buttons between them.
#include "acquisition/fDeviceTab.h"

#include "acquisition/fSettingBox.h"
#include "base/mNumText.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

namespace {
constexpr int RowSpace = 6; // px above and below the text of a row together

// Fills a list anew, unless it shows that already, and keeps its current row.
void Fill(QListWidget& List, const QStringList& Texts)
{
    QStringList Old;
    for (int i = 0; i < List.count(); ++i)
        Old << List.item(i)->text();
    if (Old == Texts) return;
    const int Row = List.currentRow();
    List.clear();
    List.addItems(Texts);
    List.setCurrentRow(std::min<int>(Row, List.count() - 1));
}
} // namespace

fDeviceTab::fDeviceTab(cLoggerSetUp& InitSetUp, cDeviceTable& InitTable)
    : SetUp(InitSetUp), Table(InitTable), Found(new QListWidget(this)), Registered(new QListWidget(this)),
      Has(new QLabel(this)),
      Mode(new fSettingBox(SetUp, Table.Kind().Setting, Table.Kind().Title,
                           Table.Kind().Setting == SettingBT ? "cmdSetBT" : "cmdSetBLE", "Set &Mode"))
{
    Found->setObjectName(NameOf("lst", "found"));
    Found->setMinimumWidth(fontMetrics().horizontalAdvance("0000,0000,0000_") + 8);
    auto* FoundHead = new QLabel("&Found", this);
    FoundHead->setBuddy(Found);
    auto* Layout = new QGridLayout(this);
    Layout->addWidget(FoundHead, 0, 0);
    Layout->addWidget(Found, 1, 0);
    Layout->addWidget(AddButton("cmd" + QString(Table.Kind().Name) + "Find", "F&ind",
                                Table.Kind().Setting == SettingBT ? "Looks for devices for 13 seconds"
                                                                  : "Looks for sensors for 2 seconds",
                                &fDeviceTab::Find),
                      2, 0);
    Layout->addLayout(BuildMoves(), 1, 1);
    Layout->addWidget(new QLabel("ON/OFF Registered", this), 0, 2, 1, 2);
    Layout->addWidget(BuildRegistered(), 1, 2, 1, 2);
    Layout->addWidget(AddButton("cmdRead" + QString(Table.Kind().Name), "Read &Table",
                                "Reads the table of registered devices; changes that were not registered are lost",
                                &fDeviceTab::Read),
                      2, 2);
    Layout->addWidget(AddButton("cmdReg" + QString(Table.Kind().Name), "Re&gister", "Sends the table to the logger",
                                &fDeviceTab::Register),
                      2, 3);
    Layout->addWidget(Has, 3, 2, 1, 2);
    Layout->addWidget(Mode, 0, 4, 4, 1);
    Layout->setColumnStretch(0, 1);
    Layout->setColumnStretch(2, 1);
    Layout->setColumnStretch(3, 1);
    Layout->setRowStretch(4, 1);
    connect(Found, &QListWidget::itemDoubleClicked, this, [this] { Select(); });
    ShowState();
}

QWidget* fDeviceTab::BuildRegistered()
{
    auto* Frame = new QWidget(this);
    auto* Layout = new QGridLayout(Frame);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->setVerticalSpacing(2);
    Registered->setObjectName(NameOf("lst", "reg"));
    Registered->setUniformItemSizes(true);
    Registered->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int Height = fontMetrics().height() + RowSpace;
    Registered->setStyleSheet(QString("QListWidget::item { height: %1px }").arg(Height));
    Registered->setFixedHeight(static_cast<int>(cDeviceTable::MaxRows) * Height + 2 * Registered->frameWidth());
    Found->setFixedHeight(Registered->height());
    Registered->setMinimumWidth(fontMetrics().horizontalAdvance("0000,0000,0000_") + 8);
    auto* Boxes = new QVBoxLayout;
    Boxes->setSpacing(0);
    Boxes->setContentsMargins(0, Registered->frameWidth(), 0, Registered->frameWidth());
    for (std::size_t Row = 0; Row < Switches.size(); ++Row) {
        auto* Box = new QCheckBox(Frame);
        Box->setObjectName(NameOf("ch", "List_") + QString::number(Row));
        Box->setAccessibleName(QString("Device %1 on").arg(Row));
        Box->setToolTip("Checked: the logger uses the device");
        Box->setFixedHeight(Height);
        connect(Box, &QCheckBox::toggled, this, [this, Row](bool IsOn) {
            Table.SetOn(Row, IsOn);
            ShowState();
        });
        Switches[Row] = Box;
        Boxes->addWidget(Box);
    }
    Has->setObjectName(QString("lbHas_%1").arg(Table.Kind().TableKey));
    Layout->addLayout(Boxes, 0, 0);
    Layout->addWidget(Registered, 0, 1);
    Layout->setRowStretch(1, 1);
    return Frame;
}

QLayout* fDeviceTab::BuildMoves()
{
    const QString Name = Table.Kind().Name;
    auto* Layout = new QVBoxLayout;
    Layout->addWidget(AddButton("cmdSel" + Name, "=>", "Registers the device that was found", &fDeviceTab::Select));
    Layout->addWidget(AddButton("cmdDel" + Name, "<=", "Takes the device out of the table", &fDeviceTab::Delete));
    Layout->addSpacing(RowSpace);
    Layout->addWidget(AddButton("cmd" + Name + "Up", "Up", "Moves the device up in the table", &fDeviceTab::MoveUp));
    Layout->addWidget(AddButton("cmd" + Name + "Down", "Down", "Moves it down", &fDeviceTab::MoveDown));
    Layout->addStretch();
    return Layout;
}

QPushButton* fDeviceTab::AddButton(const QString& Name, const char* Caption, const char* Tip,
                                   void (fDeviceTab::*Action)())
{
    auto* Button = new QPushButton(Caption, this);
    Button->setObjectName(Name);
    Button->setToolTip(Tip);
    Button->setAutoDefault(false);
    connect(Button, &QPushButton::clicked, this, Action);
    return Button;
}

QString fDeviceTab::NameOf(const char* Begin, const char* End) const
{
    return QString("%1%2%3").arg(Begin, Table.Kind().Name, End);
}

void fDeviceTab::ShowState()
{
    QStringList Devices;
    for (const std::string& Each : Table.Found())
        Devices << Shown(Each);
    Fill(*Found, Devices);
    if (Found->currentRow() < 0) Found->setCurrentRow(0);
    Devices.clear();
    for (const LoggerDevice& Each : Table.Registered())
        Devices << Shown(Each.Text);
    Fill(*Registered, Devices);
    for (std::size_t Row = 0; Row < Switches.size(); ++Row) {
        const bool IsThere = Row < Table.Registered().size();
        const QSignalBlocker Silent(Switches[Row]);
        Switches[Row]->setEnabled(IsThere);
        Switches[Row]->setChecked(IsThere && Table.Registered()[Row].IsOn);
        QListWidgetItem* Item = IsThere ? Registered->item(static_cast<int>(Row)) : nullptr;
        const bool IsOther = Table.IsRead() && !Table.IsSame(Row);
        if (Item) Item->setBackground(IsOther ? QColor("#ffe2a8") : QColor(Qt::transparent));
    }
    const int Count = Table.Differences();
    ShowHas(*Has,
            !Table.IsRead() ? eHas::Unknown
            : Count == 0    ? eHas::Same
                            : eHas::Other,
            Count == 0 ? "as shown" : Shown(FormatNum(Count, "0") + (Count == 1 ? " row differs" : " rows differ")),
            "Register");
    Mode->ShowState();
}

void fDeviceTab::Find()
{
    SetUp.Find(Table);
}

void fDeviceTab::Read()
{
    SetUp.Read(Table);
}

void fDeviceTab::Register()
{
    SetUp.Register(Table);
}

void fDeviceTab::Select()
{
    const int Row = Found->currentRow();
    if (Row < 0) return MsgBox("Choose a device that was found first.", TitleInformation);
    if (!Table.Select(static_cast<std::size_t>(Row)))
        return MsgBox("The device is registered already, or the table is full.", TitleInformation);
    ShowState();
    Registered->setCurrentRow(Registered->count() - 1);
}

void fDeviceTab::Delete()
{
    const int Row = Registered->currentRow();
    if (Row < 0) return MsgBox("Choose a registered device first.", TitleInformation);
    Table.Delete(static_cast<std::size_t>(Row));
    ShowState();
}

void fDeviceTab::MoveUp()
{
    Move(-1);
}

void fDeviceTab::MoveDown()
{
    Move(1);
}

void fDeviceTab::Move(int Step)
{
    const int Row = Registered->currentRow();
    if (Row < 0 || !Table.Move(static_cast<std::size_t>(Row), Step)) return;
    ShowState();
    Registered->setCurrentRow(Row + Step);
}
