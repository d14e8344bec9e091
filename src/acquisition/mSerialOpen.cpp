// The fast speed, and the one in its place.
#include "acquisition/mSerialOpen.h"

#include "platform/mHost.h"

namespace {
constexpr const char* FastLine = "256000,n,8,1";
constexpr const char* NearFastLine = "230400,n,8,1";
} // namespace

bool OpenDevice(iSerialPort& Comm, const std::string& Device, const std::string& Settings, eWaiting Waiting)
{
    if (Comm.Open(Device, Settings, Waiting)) return true;
    if (Settings != FastLine || !Comm.Open(Device, NearFastLine, Waiting)) return false;
    UpdateStatus("This machine refuses 256000 baud on " + Device + ": it is open at 230400");
    return true;
}
