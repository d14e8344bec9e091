// Serial port: what the toolkit's port does on a broken line and with bytes left unread, put right.
#include "platform/qt/qSerialPort.h"

#include "base/mNumText.h"
#include "platform/plain/sDevices.h"
#include "platform/qt/qText.h"

#include <QStringList>

#include <algorithm>

namespace {
// "57600,n,8,1": speed, parity, data bits, stop bits.
bool Apply(QSerialPort& Port, const QStringList& Parts)
{
    if (Parts.size() != 4) return false;
    const QString Parity = Parts[1].toLower();
    return Port.setBaudRate(static_cast<qint32>(Val(Plain(Parts[0])))) &&
           Port.setParity(Parity == "e"   ? QSerialPort::EvenParity
                          : Parity == "o" ? QSerialPort::OddParity
                                          : QSerialPort::NoParity) &&
           Port.setDataBits(Parts[2] == "7" ? QSerialPort::Data7 : QSerialPort::Data8) &&
           Port.setStopBits(Parts[3] == "2" ? QSerialPort::TwoStop : QSerialPort::OneStop) &&
           Port.setFlowControl(QSerialPort::NoFlowControl);
}
} // namespace

qSerialPort::qSerialPort()
{
    NextTurn.setSingleShot(true);
    Failure.setSingleShot(true);
    QObject::connect(&NextTurn, &QTimer::timeout, &Port, [this] { Tell(); });
    QObject::connect(&Failure, &QTimer::timeout, &Port, [this] { TellFailure(); });
    QObject::connect(&Port, &QSerialPort::readyRead, &Port, [this] { Tell(); });
    QObject::connect(&Port, &QSerialPort::errorOccurred, &Port, [this](auto Error) { Fail(Error); });
}

std::vector<std::string> qSerialPort::Devices() const
{
    return SerialDevices();
}

bool qSerialPort::Open(const std::string& Device, const std::string& Settings, eWaiting Waiting)
{
    Close();
    Port.setPortName(Shown(Device));
    if (!Port.open(QIODevice::ReadWrite)) return false;
    if (!Apply(Port, Shown(Settings).split(','))) {
        Close();
        return false;
    }
    // A pseudo-terminal has no such line; it works without.
    Port.setDataTerminalReady(true);
    if (Waiting == eWaiting::Dropped) {
        Port.clear();
        Port.readAll();
    }
    Failure.stop();
    return true;
}

bool qSerialPort::IsOpen() const
{
    return Port.isOpen() && !IsBroken;
}

std::size_t qSerialPort::InBufferCount() const
{
    return static_cast<std::size_t>(Port.bytesAvailable());
}

std::size_t qSerialPort::Input(std::span<uint8_t> Bytes)
{
    if (!Port.isOpen() || Bytes.empty()) return 0;
    const qint64 Taken = Port.read(reinterpret_cast<char*>(Bytes.data()), static_cast<qint64>(Bytes.size()));
    return Taken > 0 ? static_cast<std::size_t>(Taken) : 0;
}

bool qSerialPort::Output(const std::string& Text)
{
    if (!IsOpen() || Failure.isActive()) return false;
    const auto Size = static_cast<qint64>(Text.size());
    return Port.write(Text.data(), Size) == Size && Port.flush();
}

void qSerialPort::Close()
{
    NextTurn.stop();
    Failure.stop();
    IsBroken = false;
    if (Port.isOpen()) Port.close();
}

// The toolkit does not repeat its signal for bytes that a handler leaves, so the next turn is asked for here; a timer
// of no delay lets the window's events go first.
void qSerialPort::Tell()
{
    const auto IsEnough = [this] { return InBufferCount() >= std::max<std::size_t>(RThreshold, 1); };
    if (IsTelling || !IsEnough()) return;
    IsTelling = true;
    if (OnData) OnData();
    IsTelling = false;
    if (IsOpen() && IsEnough()) NextTurn.start(0);
}

// A hung-up line gives a storm of errors, and the port must not be closed inside its own signal: the first error
// asks for one later turn.
void qSerialPort::Fail(QSerialPort::SerialPortError Error)
{
    if (Error == QSerialPort::ReadError || Error == QSerialPort::ResourceError) {
        if (!Failure.isActive()) Failure.start(0);
    }
}

void qSerialPort::TellFailure()
{
    // Closing throws away what was received, so it comes last, unless the port was opened anew.
    IsBroken = true;
    NextTurn.stop();
    // The system's own words, as "No such file or directory", would not say what to do.
    if (OnError) OnError("the line was hung up: plug the logger in");
    if (IsBroken) Close();
}
