// Reports out and in, with a limit of time.
#include "platform/hid/sHidMonitor.h"

#include "platform/mMonitorFrame.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <hidapi/hidapi.h>

namespace {
constexpr uint16_t Vendor = 0x17A4;
constexpr std::size_t LongestReport = 121; // with its number

// Text of the library as UTF-8.
std::string Utf8(const wchar_t* Text)
{
    std::string Bytes;
    for (; Text && *Text; ++Text) {
        const uint32_t Letter = std::char_traits<wchar_t>::to_int_type(*Text);
        const auto Add = [&](uint32_t Lead, uint32_t Shift) {
            Bytes += static_cast<char>(Lead | (Letter >> Shift & 0x3F));
        };
        if (Letter < 0x80) {
            Bytes += static_cast<char>(Letter);
        } else if (Letter < 0x800) {
            Bytes += static_cast<char>(0xC0 | Letter >> 6U);
            Add(0x80, 0);
        } else {
            Bytes += static_cast<char>(0xE0 | (Letter >> 12U & 0xF));
            Add(0x80, 6);
            Add(0x80, 0);
        }
    }
    return Bytes;
}

int64_t Milliseconds()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}
} // namespace

sHidMonitor::~sHidMonitor()
{
    Close();
    hid_exit();
}

// A unit may show more than one interface under one path.
std::vector<std::string> sHidMonitor::Discover()
{
    std::vector<std::string> Products;
    Paths.clear();
    hid_device_info* First = hid_enumerate(Vendor, 0);
    for (const hid_device_info* Each = First; Each; Each = Each->next) {
        const std::string Path = Each->path ? Each->path : "";
        if (Path.empty() || std::ranges::find(Paths, Path) != Paths.end()) continue;
        Paths.push_back(Path);
        const std::string Name = Utf8(Each->product_string);
        Products.push_back(Name.empty() ? "Performance monitor" : Name);
    }
    hid_free_enumeration(First);
    return Products;
}

eMonitorCode sHidMonitor::Open(int16_t Unit)
{
    Close();
    Failure.clear();
    if (Unit < 0 || static_cast<std::size_t>(Unit) >= Paths.size()) return eMonitorCode::NotOpened;
    Device = hid_open_path(Paths[static_cast<std::size_t>(Unit)].c_str());
    if (Device) return eMonitorCode::Success;
    Failure = Utf8(hid_error(nullptr));
    return eMonitorCode::NotOpened;
}

// An answer that came after its time must not be taken for the next one.
bool sHidMonitor::DropOldReports()
{
    std::array<uint8_t, LongestReport> Old{};
    int Count = 0;
    do
        Count = hid_read_timeout(Device, Old.data(), Old.size(), 0);
    while (Count > 0);
    return Count == 0;
}

eMonitorCode sHidMonitor::Command(std::span<const uint8_t> Frame, std::vector<uint8_t>& Reply, int Wait)
{
    Reply.clear();
    if (!Device) return eMonitorCode::Gone;
    const std::vector<uint8_t> Report = PackReport(Frame);
    if (Report.empty()) return eMonitorCode::TooLong;
    const int64_t End = Milliseconds() + Wait;
    if (!DropOldReports() || hid_write(Device, Report.data(), Report.size()) < 0) return Leave();
    std::array<uint8_t, LongestReport> Came{};
    for (int64_t Rest = Wait; Rest > 0; Rest = End - Milliseconds()) {
        const int Count = hid_read_timeout(Device, Came.data(), Came.size(), static_cast<int>(Rest));
        if (Count < 0) return Leave();
        if (Count > 0) Reply = FrameInReport({Came.data() + 1, static_cast<std::size_t>(Count) - 1});
        if (!Reply.empty()) return eMonitorCode::Success;
    }
    return eMonitorCode::NoAnswer;
}

eMonitorCode sHidMonitor::Leave()
{
    Close();
    return eMonitorCode::Gone;
}

void sHidMonitor::Close()
{
    if (Device) hid_close(Device);
    Device = nullptr;
}
