// The main window's life: start, commands, arrangement of windows, end.
#include "core/shell/frmMain.h"

#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "base/mNumText.h"
#include "core/mDataWindow.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "core/shell/fMenu.h"
#include "files/mFrameRate.h"
#include "files/mMain.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qIcons.h"
#include "widgets/qWorkArea.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QRadioButton>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>

namespace {
constexpr int WatchEvery = 100; // ms
const QColor AlarmColour(200, 0, 0);

// The session file among what is dragged over the window, empty when there is none.
QString SessionFile(const QMimeData* Things)
{
    for (const QUrl& Address : Things->urls())
        if (Address.isLocalFile() && Address.fileName().endsWith(".txt", Qt::CaseInsensitive))
            return Address.toLocalFile();
    return {};
}
} // namespace

frmMain::frmMain(qStatus& InitStatus)
    : Status(InitStatus), Area(new qWorkArea(this)), Options([this](eNotice What) {
          if (What == eNotice::OptionsSaved) ShowOptions();
      })
{
    setObjectName("frmMain");
    setWindowIcon(ProgramIcon());
    setAcceptDrops(true);
    Area->setObjectName("MdiArea");
    setCentralWidget(Area);
    BuildMenus();
    BuildToolBar();
    BuildStatusBar();
    ShowTitle();
    Status.OnTitle = [this] { ShowTitle(); };
    QObject::connect(&Watch, &QTimer::timeout, this, [this] { ShowLogging(); });
    Watch.start(WatchEvery);
}

frmMain::~frmMain()
{
    Status.OnTitle = nullptr;
    Status.Detach();
}

bool frmMain::Load(const std::string& Folder)
{
    const bool Found = StartUp(Folder);
    Command("mnuWinToolbar")->setChecked(gToolBar);
    Command("mnuWinStatusBar")->setChecked(gStatusBar);
    ShowOptions();
    ShowBars();
    PlaceWindow();
    return Found;
}

void frmMain::ShowOptions()
{
    const std::span<const ToolButton> Buttons = AllToolButtons();
    for (std::size_t i = 0; i < Buttons.size(); ++i)
        findChild<QToolButton*>("cmdToolBar_" + QString::number(i))
            ->setText(gLanguage == LanguageRussian ? Buttons[i].Russian : Buttons[i].Caption);
    IsLogShown = false; // a running recording puts its own caption there again
    ShowLogging();
    if (auto* Chosen = findChild<QRadioButton*>(gConnection == ConnectionTCP ? "opConnection_1" : "opConnection_0"))
        Chosen->setChecked(true);
}

bool frmMain::EndForSession()
{
    const char* const Running = gLogging         ? "A recording is running"
                                : IsReplayOpen() ? "A recording is being played"
                                                 : "The link to the logger is open";
    if (IsAcquiring() &&
        !AskYesNo(std::string(Running) + ", with the channels of the open session. End it, and go on to "
                                         "the other session?",
                  TitleWarning))
        return false;
    if (!Area->CloseAsking()) return false;
    EndAcquisition();
    return true;
}

void frmMain::OpenFile(const std::string& Path)
{
    if (!EndForSession()) return;
    if (!Guard("Opening the session", [&] { return OpenSession(Path); })) return;
    if (const auto Rate = SessionRate()) AskDataFreq(*Rate, "The session is sampled");
}

QAction* frmMain::Command(const char* Name) const
{
    return findChild<QAction*>(Name);
}

void frmMain::ShowBars()
{
    gToolBar = Command("mnuWinToolbar")->isChecked();
    gStatusBar = Command("mnuWinStatusBar")->isChecked();
    findChild<QToolBar*>("tbToolBar")->setVisible(gToolBar);
    statusBar()->setVisible(gStatusBar);
}

void frmMain::ShowTitle()
{
    setWindowTitle(gFileTitle.empty() ? QString("Skarvelin") : Shown(gFileTitle) + " - Skarvelin");
}

// A recording may also end by itself: at the end of a replay, or on a full disk.
void frmMain::ShowLogging()
{
    if (gLogging != IsLogShown) {
        IsLogShown = gLogging;
        auto* Button = findChild<QToolButton*>("cmdToolBar_6");
        Button->setText(gLogging ? "Stop Log" : "Start Log");
        Button->setIcon(gLogging ? DrawnIcon("stop", AlarmColour) : DrawnIcon("record", IconColour));
    }
    auto* Running = findChild<QLabel*>("sbStatusBar_2");
    if (const bool Alarm = IsLogStarving(); Alarm != Running->property("alarm").toBool()) {
        Running->setProperty("alarm", Alarm);
        Running->style()->polish(Running);
    }
}

void frmMain::AddWindow(QWidget* Window)
{
    QMdiSubWindow* Frame = Area->addSubWindow(Window);
    Frame->setAttribute(Qt::WA_DeleteOnClose);
    Window->show();
    Activate(*Window);
}

QSize frmMain::AreaSize() const
{
    return Area->viewport()->size();
}

void frmMain::Activate(QWidget& Window)
{
    for (QMdiSubWindow* Frame : Area->subWindowList())
        if (Frame->widget() == &Window) Area->setActiveSubWindow(Frame);
    Window.setFocus();
}

void frmMain::Cascade()
{
    Area->cascadeSubWindows();
}

void frmMain::Tile(Qt::Orientation Direction)
{
    Area->Tile(Direction);
}

void frmMain::PlaceBeside(const std::vector<QWidget*>& Windows, Qt::Orientation Direction)
{
    QList<QMdiSubWindow*> Frames;
    for (QWidget* Window : Windows)
        for (QMdiSubWindow* Frame : Area->subWindowList())
            if (Frame->widget() == Window) Frames.push_back(Frame);
    Area->Tile(Direction, Frames);
    for (auto Window = Windows.rbegin(); Window != Windows.rend(); ++Window)
        Activate(**Window);
}

// A place kept on a screen that is gone would hide the window, so it is moved onto one that is there.
void frmMain::PlaceWindow()
{
    constexpr int32_t Far = 1 << 20; // farther than any screen
    const auto Pixels = [](float Side) { return RoundWithin(static_cast<double>(Side), -Far, Far); };
    const QRect Kept(Pixels(gMainPlace.Left), Pixels(gMainPlace.Top), Pixels(gMainPlace.Width),
                     Pixels(gMainPlace.Height));
    const QScreen* Screen = QGuiApplication::screenAt(Kept.center());
    if (!Screen) Screen = QGuiApplication::primaryScreen();
    const QRect Free = Screen->availableGeometry();
    QRect Place(QPoint(), Kept.isEmpty() ? QSize(1280, 860) : Kept.size());
    Place.setSize(Place.size().boundedTo(Free.size()));
    if (Kept.isEmpty() || !Free.intersects(Kept))
        Place.moveCenter(Free.center());
    else
        Place.moveTopLeft(Kept.topLeft());
    setGeometry(Place);
}

void frmMain::KeepPlace()
{
    const QRect Place = isMaximized() || isFullScreen() ? normalGeometry() : geometry();
    gMainPlace = {static_cast<float>(Place.left()), static_cast<float>(Place.top()), static_cast<float>(Place.width()),
                  static_cast<float>(Place.height())};
}

void frmMain::closeEvent(QCloseEvent* Event)
{
    if (gLogging && !AskYesNo("A recording is running. Stop it and leave?", TitleWarning)) return Event->ignore();
    if (!Area->CloseAsking()) return Event->ignore();
    StopAll();
    CloseLink();
    CloseDForms();
    Area->closeAllSubWindows();
    KeepPlace();
    ShutDown();
    Event->accept();
}

void frmMain::dragEnterEvent(QDragEnterEvent* Event)
{
    if (!SessionFile(Event->mimeData()).isEmpty()) Event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* Event)
{
    OpenFile(Plain(SessionFile(Event->mimeData())));
}
