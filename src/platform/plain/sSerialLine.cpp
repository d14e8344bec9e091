// The kernel's own form of line settings, since the portable one knows a few speeds only and 256000 is not among them.
#include "platform/plain/sSerialLine.h"

#include "base/mNumText.h"

#include <asm/termbits.h>
#include <sys/ioctl.h>
#include <vector>

namespace {
std::vector<std::string> SplitCommas(const std::string& Text)
{
    std::vector<std::string> Parts(1);
    for (const char Letter : Text)
        if (Letter == ',')
            Parts.emplace_back();
        else
            Parts.back() += Letter;
    return Parts;
}

tcflag_t ParityFlags(const std::string& Letter)
{
    if (Letter == "e" || Letter == "E") return PARENB;
    if (Letter == "o" || Letter == "O") return PARENB | PARODD;
    return 0;
}
} // namespace

bool SetSerialLine(int Descriptor, const std::string& Settings)
{
    const auto Parts = SplitCommas(Settings);
    const double Speed = Val(Parts[0]);
    if (Parts.size() != 4 || Speed < 1 || Speed > 4000000) return false;
    termios2 Line{};
    Line.c_iflag = IGNBRK;
    Line.c_cflag = BOTHER | CREAD | CLOCAL | ParityFlags(Parts[1]) | (Parts[2] == "7" ? CS7 : CS8) |
                   (Parts[3] == "2" ? CSTOPB : 0);
    Line.c_ispeed = Line.c_ospeed = static_cast<speed_t>(Speed);
    Line.c_cc[VMIN] = 1;
    return ioctl(Descriptor, TCSETS2, &Line) == 0;
}

int SerialSpeed(int Descriptor)
{
    termios2 Line{};
    return ioctl(Descriptor, TCGETS2, &Line) == 0 ? static_cast<int>(Line.c_ospeed) : 0;
}
