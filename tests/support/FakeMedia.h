// A clip for tests: a number of pictures of one colour at a steady rate.
#pragma once

#include "platform/iMedia.h"

class FakeMedia : public iMedia
{
public:
    FakeMedia(int Frames, double Step) : Facts{640, 480, Frames * Step, Step, Frames, "fake"} {}

    bool Open(const std::string& Path) override { return Path.find("none") == std::string::npos; }
    void Close() override {}
    std::string Reason() const override { return "not there"; }
    ClipInfo Info() const override { return Facts; }
    double IndexDone() const override { return 1; }
    void WaitForIndex() override {}
    double TimeOf(int Frame) override { return Frame * Facts.Step; }
    int FrameAt(double Time) override { return static_cast<int>(Time / Facts.Step); }
    std::shared_ptr<const Picture> Frame(int) override
    {
        return std::make_shared<Picture>(Picture{640, 480, std::vector<uint32_t>(640 * 480, 0xFF808080)});
    }

private:
    ClipInfo Facts;
};
