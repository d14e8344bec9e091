// The parts of the main window, made from their tables.
#include "core/mDataWindow.h"
#include "core/mSettings.h"
#include "core/shell/fMenu.h"
#include "core/shell/fWindows.h"
#include "core/shell/frmMain.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qIcons.h"
#include "widgets/qSteady.h"

#include <QAction>
#include <QButtonGroup>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QRadioButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
constexpr int RedButton = 4;
constexpr QSize IconSize(28, 28);

QString WithoutMarks(QString Caption)
{
    return Caption.remove('&').remove("...").trimmed();
}
} // namespace

void frmMain::BuildMenus()
{
    for (const MenuTitle& Title : AllMenus()) {
        QMenu* Menu = menuBar()->addMenu(Title.Caption);
        Menu->setObjectName(Title.Name);
        Menu->setToolTipsVisible(true);
    }
    for (const MenuItem& Item : AllMenuItems()) {
        auto* Menu = menuBar()->findChild<QMenu*>(Item.Menu);
        if (!Item.Name) {
            Menu->addSeparator();
            continue;
        }
        QAction* Entry = Menu->addAction(Item.Caption);
        Entry->setParent(this);
        Entry->setObjectName(Item.Name);
        if (Item.Key) Entry->setShortcut(QKeySequence(Item.Key));
        Entry->setToolTip(Item.Why ? Item.Why : WithoutMarks(Item.Caption));
        Entry->setEnabled(Item.Action || Item.Window);
        QObject::connect(Entry, &QAction::triggered, this, [this, &Item] {
            Run(Item.Caption, [this, &Item] {
                if (Item.Action) return Item.Action(*this);
                OpenWindow(*this, Item.Window, {.Kind = Item.Kind});
            });
        });
    }
    for (const char* Name : {"mnuWinToolbar", "mnuWinStatusBar"}) {
        Command(Name)->setCheckable(true);
        Command(Name)->setChecked(true);
    }
}

void frmMain::Run(const QString& Caption, const std::function<void()>& Action)
{
    Guard(Plain(WithoutMarks(Caption)), [&] {
        Action();
        return true;
    });
}

void frmMain::BuildToolBar()
{
    auto* Bar = new QToolBar("Toolbar", this);
    Bar->setObjectName("tbToolBar");
    Bar->setMovable(false);
    Bar->setContextMenuPolicy(Qt::PreventContextMenu);
    addToolBar(Bar);
    int Number = 0;
    for (const ToolButton& Item : AllToolButtons()) {
        auto* Button = new QToolButton;
        Button->setObjectName("cmdToolBar_" + QString::number(Number));
        Button->setText(Item.Caption);
        Button->setIcon(DrawnIcon(Item.Icon, Number == RedButton ? QColor(Qt::white) : IconColour));
        Button->setIconSize(IconSize);
        Button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        const QAction* Entry = Item.Command ? Command(Item.Command) : nullptr;
        Button->setEnabled(Entry ? Entry->isEnabled() : Item.Action != nullptr);
        Button->setToolTip(Entry ? Entry->toolTip() : Item.Why ? Item.Why : WithoutMarks(Item.Caption));
        QObject::connect(Button, &QToolButton::clicked, this, [this, &Item] {
            if (Item.Command) return Command(Item.Command)->trigger();
            Run(Item.Caption, [this, &Item] { Item.Action(*this); });
            ShowLogging();
        });
        Bar->addWidget(Button);
        ++Number;
    }
    Bar->addSeparator();
    Bar->addWidget(BuildConnection());
}

QWidget* frmMain::BuildConnection()
{
    auto* Box = new QWidget;
    auto* Rows = new QVBoxLayout(Box);
    Rows->setContentsMargins(8, 2, 8, 2);
    Rows->setSpacing(4);
    auto* Group = new QButtonGroup(Box);
    for (int i = 0; i < 2; ++i) {
        auto* Choice = new QRadioButton(i == 0 ? "USB-COM" : "Wi-Fi TCP/IP");
        Choice->setObjectName("opConnection_" + QString::number(i));
        Choice->setToolTip(i == 0 ? "The logger is on a serial port" : "The logger is on the wireless network");
        Group->addButton(Choice, i);
        Rows->addWidget(Choice);
    }
    QObject::connect(Group, &QButtonGroup::idClicked, this, [](int Chosen) {
        gConnection = static_cast<int16_t>(Chosen);
        SaveSetting("gConnection");
    });
    return Box;
}

void frmMain::BuildStatusBar()
{
    statusBar()->setObjectName("sbStatusBar");
    std::array<QLabel*, 3> Panels{};
    constexpr std::array<int, 3> Widths = {2, 10, 9};
    for (std::size_t i = 0; i < Panels.size(); ++i) {
        Panels[i] = new QLabel;
        Panels[i]->setObjectName("sbStatusBar_" + QString::number(i + 1));
        // A long text is cut off rather than making the window wider.
        Panels[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        statusBar()->addWidget(new qSteady(*Panels[i]), Widths[i]);
    }
    auto* Progress = new QProgressBar;
    Progress->setObjectName("ProgressBar1");
    Progress->setRange(0, 100);
    Progress->setFixedWidth(160);
    statusBar()->addPermanentWidget(Progress);
    Progress->hide();
    Status.Attach(Panels, Progress);
}
