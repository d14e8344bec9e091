// How long a frame takes from the logger to the screen: latency FOLDER RECORDING SECONDS opens the program with its ini
// file and settings in FOLDER, with both channel indicators and the rower's panel, plays RECORDING to it over TCP at a
// hundred frames a second, and prints how long after its writing each frame stood on the panel's picture, and the
// longest that the program was busy with one event.
#include "shares.h"

#include "app/qProgram.h"
#include "base/mSafeSave.h"
#include "core/mDataWindow.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "platform/qt/qSurface.h"

#include <QAction>
#include <QApplication>
#include <QTimer>

#include <algorithm>
#include <arpa/inet.h>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {
using Clock = std::chrono::steady_clock;
constexpr auto Step = std::chrono::milliseconds(10);
constexpr std::size_t FirstSeconds = 2; // windows open in them

double Ms(Clock::duration Taken)
{
    return std::chrono::duration<double, std::milli>(Taken).count();
}

// Where each frame of a recording begins: a byte of 128 or above, three of its head, the last two of which are its
// length.
std::vector<std::size_t> FrameStarts(const std::string& Bytes)
{
    std::vector<std::size_t> Starts;
    for (std::size_t i = 0; i + 4 < Bytes.size();) {
        Starts.push_back(i);
        i += 5 + static_cast<uint8_t>(Bytes[i + 2]) + 128U * static_cast<uint8_t>(Bytes[i + 3]);
    }
    Starts.push_back(Bytes.size());
    return Starts;
}

// A logger that writes the frames of a recording in time and remembers when.
class Logger
{
public:
    Logger(const std::string& Recording, std::size_t Frames) : Bytes(Recording), Starts(FrameStarts(Bytes))
    {
        Starts.resize(std::min(Starts.size(), Frames + 1));
        Written = std::vector<std::atomic<Clock::time_point>>(Starts.size() - 1);
        Listening = socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in Place{};
        Place.sin_family = AF_INET;
        Place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t Size = sizeof Place;
        if (bind(Listening, reinterpret_cast<sockaddr*>(&Place), Size) != 0 || listen(Listening, 1) != 0) return;
        getsockname(Listening, reinterpret_cast<sockaddr*>(&Place), &Size);
        Port = ntohs(Place.sin_port);
        Work = std::thread([this] { Play(); });
    }
    ~Logger()
    {
        shutdown(Listening, SHUT_RDWR);
        Work.join();
        close(Listening);
    }
    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;

    int32_t Port = 0;
    std::vector<std::atomic<Clock::time_point>> Written;
    std::atomic<bool> IsDone = false;

private:
    void Play()
    {
        const int Link = accept(Listening, nullptr, nullptr);
        auto Next = Clock::now();
        for (std::size_t i = 0; i < Written.size(); ++i) {
            std::this_thread::sleep_until(Next += Step);
            Written[i] = Clock::now();
            if (send(Link, &Bytes[Starts[i]], Starts[i + 1] - Starts[i], MSG_NOSIGNAL) < 0) break;
        }
        IsDone = true;
        close(Link);
    }

    std::string Bytes;
    std::vector<std::size_t> Starts;
    int Listening = -1;
    std::thread Work;
};

// Knows the number of the newest frame that the windows before it in the list have drawn.
class Newest : public cDataWindow
{
public:
    Newest() : cDataWindow(DataTag) {}
    // The simulated logger's clock stands at one step in its first frame.
    void DrawData() override { Frame = std::lround(gData[0] * 1000.0 / Step.count()) - 1; }
    void SetLive(bool) override {}
    void Unload() override {}

    long Frame = -1;
};

class Toolkit : public QApplication
{
public:
    using QApplication::QApplication;

    std::function<void()> OnPainted; // the picture of Panel has been painted on its window
    QWidget* Panel = nullptr;
    Clock::duration Longest{};

    bool notify(QObject* Receiver, QEvent* Event) override
    {
        const bool IsPicture = Event->type() == QEvent::Paint && Receiver == Panel;
        const auto Begin = Clock::now();
        const bool IsTaken = QApplication::notify(Receiver, Event);
        if (Panel) Longest = std::max(Longest, Clock::now() - Begin);
        if (IsPicture) OnPainted();
        return IsTaken;
    }
};

// The surface of the rower's panel. Surfaces are known by their class alone, which is not one that the toolkit knows.
QWidget* Picture(const QWidget& Window)
{
    for (QWidget* Part : Window.findChild<QWidget*>("fData01real")->findChildren<QWidget*>())
        if (dynamic_cast<qSurface*>(Part)) return Part;
    return nullptr;
}

void Print(const std::vector<double>& Times, Clock::duration Longest)
{
    std::printf("frame to picture, %zu frames: median %.1f ms, 99 %% %.1f ms, longest %.1f ms; longest event %.1f ms\n",
                Times.size(), Share(Times, 0.5), Share(Times, 0.99), Share(Times, 1), Ms(Longest));
}
} // namespace

int main(int Count, char** Words)
{
    Toolkit Program(Count, Words);
    const QStringList Line = QApplication::arguments();
    if (Line.size() != 4) return 2;
    const std::string Folder = Line[1].toStdString() + "/";
    const auto Recording = ReadWhole(Line[2].toStdString());
    if (!Recording) return 1;
    Logger Source(*Recording, 100 * (FirstSeconds + Line[3].toUInt()));

    qProgram Parts(Folder + "settings.ini");
    Parts.Start(Folder);
    gLinkPort = Source.Port;
    for (const char* Name : {"mnuCalibrCheck", "mnuSampleRower", "mnuWindowTileVertical"})
        Parts.Main().findChild<QAction*>(Name)->trigger();
    Newest Last;
    std::vector<double> Times;
    long Shown = -1;
    Program.OnPainted = [&] {
        for (; Shown < Last.Frame; ++Shown) {
            const auto Frame = static_cast<std::size_t>(Shown + 1);
            if (Frame >= 100 * FirstSeconds) Times.push_back(Ms(Clock::now() - Source.Written[Frame].load()));
        }
    };
    QTimer Watch;
    QObject::connect(&Watch, &QTimer::timeout, &Program, [&] {
        if (!Program.Panel && Last.Frame > 100) Program.Panel = Picture(Parts.Main());
        if (Source.IsDone) QApplication::quit();
    });
    Watch.start(500);
    QApplication::exec();
    if (Times.empty()) return 1;
    Print(Times, Program.Longest);
    return 0;
}
