// Performance monitors as HID devices, through hidapi.
#pragma once

#include "platform/iMonitor.h"

#include <string>
#include <vector>

struct hid_device_;

class sHidMonitor : public iMonitor
{
public:
    sHidMonitor() = default;
    ~sHidMonitor() override;
    sHidMonitor(const sHidMonitor&) = delete;
    sHidMonitor& operator=(const sHidMonitor&) = delete;

    std::vector<std::string> Discover() override;
    eMonitorCode Open(int16_t Unit) override;
    eMonitorCode Command(std::span<const uint8_t> Frame, std::vector<uint8_t>& Reply, int Wait) override;
    void Close() override;
    std::string Reason() const override { return Failure; }

private:
    eMonitorCode Leave();
    bool DropOldReports();

    std::vector<std::string> Paths; // of the units of the last discovery
    hid_device_* Device = nullptr;
    std::string Failure;
};
