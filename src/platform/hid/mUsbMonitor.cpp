// Which way this program was built with.
#include "platform/hid/mUsbMonitor.h"

#ifdef SKARVELIN_HIDAPI
#include "platform/hid/sHidMonitor.h"

std::unique_ptr<iMonitor> MakeUsbMonitor()
{
    return std::make_unique<sHidMonitor>();
}
#else
std::unique_ptr<iMonitor> MakeUsbMonitor()
{
    return {};
}
#endif
