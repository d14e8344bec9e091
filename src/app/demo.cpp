// skarvelin-demo FOLDER [--file FILE]... [--size WIDTHxHEIGHT] [--picture FILE] [--controls FILE]
// [--monitor FILE] COMMAND...: the desktop program with its ini file and settings in FOLDER, for demonstrations,
// pictures of its windows and checks of what they show. A command is the name of a menu entry or of a button of the
// window in front, NAME=TEXT to type into a box, key:NAME to press a key, click:NAME@X,Y to click on a control at
// shares of its size, wait:MILLISECONDS, memory:MEGABYTES to let the program have no more than that in addition. Each
// FILE answers a question for a file. With
// --picture or --controls the program ends behind the last command, when it has saved what the window looks like, or
// the list of its controls (see widgets/qControls.h). With --monitor a performance monitor is attached that gives the
// replies in FILE.
#include "acquisition/cOwnLink.h"
#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "app/qProgram.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "platform/plain/sMonitor.h"
#include "platform/qt/qText.h"
#include "widgets/qControls.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QHash>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>

namespace {
constexpr int FramesForPicture = 300;     // more than a sweep of the traces
constexpr int PatienceForPicture = 60000; // ms
constexpr int LookMs = 50;
constexpr int CommandMs = 100; // from one command to the next
constexpr int StillMs = 1000;

int Distance(QRgb A, QRgb B)
{
    return std::max({std::abs(qRed(A) - qRed(B)), std::abs(qGreen(A) - qGreen(B)), std::abs(qBlue(A) - qBlue(B))});
}

// The Most colours for a picture of these, the most frequent first: half of them as they are, the others as far apart
// as it takes for every colour to have one near it.
QList<QRgb> Choose(const QList<QRgb>& Colours, qsizetype Most)
{
    QList<QRgb> Chosen = Colours;
    for (int Near = 1; Chosen.size() > Most; ++Near) {
        Chosen = Colours.first(Most / 2);
        for (const QRgb Each : Colours.sliced(Most / 2)) {
            const auto IsNear = [&](QRgb Other) { return Distance(Each, Other) <= Near; };
            if (std::none_of(Chosen.begin(), Chosen.end(), IsNear)) Chosen << Each;
            if (Chosen.size() > Most) break;
        }
    }
    return Chosen;
}

// The picture in 256 colours: a much smaller file than one with all the shades of smooth lines. None becomes one that
// looks different.
QImage InFewColours(const QImage& Picture)
{
    QHash<QRgb, int> Counts;
    for (int y = 0; y < Picture.height(); ++y)
        for (int x = 0; x < Picture.width(); ++x)
            ++Counts[Picture.pixel(x, y)];
    QList<QRgb> Colours = Counts.keys();
    std::sort(Colours.begin(), Colours.end(),
              [&](QRgb A, QRgb B) { return std::pair(Counts[B], A) < std::pair(Counts[A], B); });
    return Picture.convertToFormat(QImage::Format_Indexed8, Choose(Colours, 256),
                                   Qt::ThresholdDither | Qt::AvoidDither);
}

// The window with the dialog above it, if one is open, or what fills the screen in its place.
QImage Seen(QWidget& Window)
{
    QWidget* Front = QApplication::activeWindow();
    QPixmap Picture = (Front && Front->isFullScreen() ? *Front : Window).grab();
    if (QWidget* Dialog = QApplication::activeModalWidget()) {
        QPainter Painter(&Picture);
        QRect Place = Dialog->rect();
        Place.moveCenter(Window.rect().center());
        Painter.drawPixmap(Place.topLeft(), Dialog->grab());
        Painter.drawRect(Place.adjusted(-1, -1, 0, 0));
    }
    return Picture.toImage();
}

// The program's dialogs, with files that the command line gives and proposed answers taken as they are.
class DemoDialogs : public qDialogs
{
public:
    QStringList Files;

    std::optional<std::string> ExecComDlg(const std::string& Title, const std::string& Ext, eFileMode Mode,
                                          const std::string& Folder) override
    {
        return Files.isEmpty() ? qDialogs::ExecComDlg(Title, Ext, Mode, Folder) : Plain(Files.takeFirst());
    }
};

// Runs the menu command of that name, or presses the button of that name in the window that is in front.
void Press(QWidget& Window, const QString& Name)
{
    QWidget* Front = QApplication::focusWidget();
    while (Front && !Front->parentWidget()->inherits("QMdiSubWindow") && Front->parentWidget() != &Window)
        Front = Front->parentWidget();
    if (auto* Command = Window.findChild<QAction*>(Name); Command && Command->isEnabled()) return Command->trigger();
    for (QWidget* Place : {Front, &Window})
        if (auto* Button = Place ? Place->findChild<QAbstractButton*>(Name) : nullptr; Button && Button->isEnabled())
            return Button->click();
    std::fputs(("There is no command " + Plain(Name) + ".\n").c_str(), stderr);
    QApplication::exit(2);
}

void PressKey(QWidget* Target, int Key, const QString& Text = {})
{
    QKeyEvent Event(QEvent::KeyPress, Key, Qt::NoModifier, Text);
    if (Target) QApplication::sendEvent(Target, &Event);
}

// Types over what the box of that name holds.
void Type(QWidget& Window, const QString& Name, const QString& Text)
{
    auto* Box = Window.findChild<QLineEdit*>(Name);
    if (!Box) return Press(Window, Name);
    Box->setFocus();
    Box->selectAll();
    for (const QChar Letter : Text)
        PressKey(Box, 0, Letter);
}

// Clicks at a share of the width and height of the control of that name: NAME@X,Y.
void ClickAt(QWidget& Window, const QString& Text)
{
    auto* Target = Window.findChild<QWidget*>(Text.section('@', 0, 0));
    const QStringList Shares = Text.section('@', 1).split(',');
    if (!Target || Shares.size() != 2) return Press(Window, Text);
    const QPointF Place(Target->width() * Shares[0].toDouble(), Target->height() * Shares[1].toDouble());
    for (const auto Kind : {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool IsDown = Kind == QEvent::MouseButtonPress;
        QMouseEvent Event(Kind, Place, Target->mapToGlobal(Place),
                          Kind == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          IsDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(Target, &Event);
    }
}

// Memory becomes short: the program can have that much in addition to what it has.
void LimitMemory(double Megabytes)
{
    const auto Pages = Val(ReadWhole("/proc/self/statm").value_or(""));
    const auto Limit =
        static_cast<rlim_t>(Pages * static_cast<double>(sysconf(_SC_PAGESIZE)) + Megabytes * 1024 * 1024);
    const rlimit Limits{Limit, Limit};
    setrlimit(RLIMIT_AS, &Limits);
}

void Obey(QWidget& Window, const QString& Word)
{
    // Without a screen nobody gives the keyboard back to the window when a dialog has closed.
    if (!QApplication::activeWindow()) QApplication::setActiveWindow(&Window);
    if (Word.startsWith("key:"))
        PressKey(QApplication::focusWidget(), QKeySequence(Word.mid(4))[0].key());
    else if (Word.startsWith("click:"))
        ClickAt(Window, Word.mid(6));
    else if (Word.startsWith("memory:"))
        LimitMemory(Val(Plain(Word.mid(7))));
    else if (Word.contains('='))
        Type(Window, Word.section('=', 0, 0), Word.section('=', 1));
    else
        Press(Window, Word);
}

// What is kept of the program's end: a picture of the window, a list of the controls, or both.
struct Wanted
{
    QString Picture;
    QString Controls;

    bool IsAny() const { return !Picture.isEmpty() || !Controls.isEmpty(); }
};

bool Keep(QWidget& Window, const Wanted& What)
{
    if (!What.Picture.isEmpty() && !InFewColours(Seen(Window)).save(What.Picture, "PNG", 0)) return false;
    return What.Controls.isEmpty() || SaveWhole(Plain(What.Controls), Plain(ListControls(Window)));
}

// Keeps what is wanted and ends the program, as soon as enough frames have come, or, where nothing sends any, when the
// windows have had time to open.
void KeepAtEnd(QWidget& Window, const Wanted& What)
{
    auto* Look = new QTimer(&Window);
    QObject::connect(Look, &QTimer::timeout, &Window, [&Window, What, Look, Waited = 0]() mutable {
        const bool IsClosed = gLinkWatch.State() == cLinkWatch::eState::Closed && !gOwnLink && !gReplaying;
        const bool IsStill = IsClosed || IsLinkDiverted();
        Waited = IsStill ? Waited + LookMs : 0;
        if (IsStill ? Waited < StillMs : gFrameCnt < FramesForPicture) return;
        Look->stop();
        QApplication::exit(Keep(Window, What) ? 0 : 1);
    });
    Look->start(LookMs);
    QTimer::singleShot(PatienceForPicture, &Window, [] {
        std::fputs("No frames came.\n", stderr);
        QApplication::exit(1);
    });
}

// The command line behind the folder.
struct Options
{
    QStringList Files;
    QSize Size{1280, 800};
    Wanted AtEnd;
    QString Replies; // file of a performance monitor's replies
    QStringList Commands;
};

// Nothing when an option is unknown or lacks its value.
std::optional<Options> Parse(QStringList Words)
{
    Options Parsed;
    while (!Words.isEmpty() && Words[0].startsWith("--")) {
        if (Words.size() < 2) return {};
        const QString Option = Words.takeFirst(), Value = Words.takeFirst();
        if (Option == "--file")
            Parsed.Files << Value;
        else if (Option == "--size")
            Parsed.Size = {Value.section('x', 0, 0).toInt(), Value.section('x', 1).toInt()};
        else if (Option == "--picture")
            Parsed.AtEnd.Picture = Value;
        else if (Option == "--controls")
            Parsed.AtEnd.Controls = Value;
        else if (Option == "--monitor")
            Parsed.Replies = Value;
        else
            return {};
    }
    Parsed.Commands = Words;
    return Parsed;
}

// Starts each command a moment behind the one before. Gives the time of the last one, ms.
int Schedule(frmMain& Main, const QStringList& Commands)
{
    int Delay = 0;
    for (const QString& Word : Commands)
        if (Word.startsWith("wait:"))
            Delay += Word.mid(5).toInt();
        else
            QTimer::singleShot(Delay += CommandMs, Qt::PreciseTimer, &Main, [&Main, Word] { Obey(Main, Word); });
    return Delay;
}

int Demo(qToolkit&)
{
    QStringList Words = QApplication::arguments().mid(1);
    const std::string Folder = Words.isEmpty() ? "" : Plain(Words.takeFirst()) + "/";
    const std::optional<Options> Line = Parse(Words);
    if (Folder.empty() || !Line) {
        std::fputs("usage: skarvelin-demo FOLDER [--file FILE]... [--size WIDTHxHEIGHT] [--picture FILE] "
                   "[--controls FILE] [--monitor FILE] COMMAND...\n",
                   stderr);
        return 2;
    }
    qProgram Program(Folder + "settings.ini");
    if (!Line->Replies.isEmpty()) {
        std::vector<PlayedReply> Replies = ParseReplies(ReadWhole(Plain(Line->Replies)).value_or(""));
        if (Replies.empty()) {
            std::fputs(("There are no replies in " + Plain(Line->Replies) + ".\n").c_str(), stderr);
            return 2;
        }
        Program.UseMonitor(std::make_unique<sMonitor>(std::move(Replies)));
    }
    Program.Start(Folder);
    DemoDialogs Dialogs;
    Dialogs.Files = Line->Files;
    iDialogs* const Former = std::exchange(gHost.Dialogs, &Dialogs);
    frmMain& Main = Program.Main();
    if (Line->AtEnd.IsAny()) Main.setGeometry(QRect(QPoint(), Line->Size));
    const int Delay = Schedule(Main, Line->Commands);
    if (Line->AtEnd.IsAny()) QTimer::singleShot(Delay, Qt::PreciseTimer, &Main, [&] { KeepAtEnd(Main, Line->AtEnd); });
    const int Exit = QApplication::exec();
    gHost.Dialogs = Former;
    return Exit;
}
} // namespace

int main(int Count, char** Args)
{
    return RunProgram(Count, Args, Demo);
}
