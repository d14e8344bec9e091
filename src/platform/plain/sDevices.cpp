// Serial devices as the kernel shows them.
#include "platform/plain/sDevices.h"

#include "base/mError.h"
#include "base/mNumText.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {
// The kernel reserves names for ports that the board does not have; their type reads 0.
bool HasHardware(const fs::path& Class)
{
    std::error_code Ignored;
    if (!fs::exists(Class / "device", Ignored)) return false;
    std::string Type;
    std::ifstream(Class / "type") >> Type;
    return Type != "0";
}

// Natural sort order: ttyUSB10 comes after ttyUSB9.
bool Ahead(const std::string& A, const std::string& B)
{
    const auto Digits = [](const std::string& Name) { return Name.find_last_not_of("0123456789") + 1; };
    const std::size_t InA = Digits(A), InB = Digits(B);
    const int Order = A.compare(0, InA, B, 0, InB);
    return Order != 0 ? Order < 0 : Val(A.substr(InA)) < Val(B.substr(InB));
}
} // namespace

std::vector<std::string> SerialDevices(const std::string& Classes)
{
    std::vector<std::string> Names;
    std::error_code Ignored;
    for (const fs::directory_entry& Entry : fs::directory_iterator(Classes, Ignored))
        if (HasHardware(Entry.path())) Names.push_back(Entry.path().filename().string());
    std::sort(Names.begin(), Names.end(), Ahead);
    for (std::string& Name : Names)
        Name.insert(0, "/dev/");
    return Names;
}

// One that can be opened here is locked by the program that has it.
std::string WhyShut(const std::string& Path)
{
    const int Descriptor = open(Path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    const int Error = Descriptor < 0 ? errno : EBUSY;
    if (Descriptor >= 0) close(Descriptor);
    switch (Error) {
    case EBUSY:
        return Path + " is in use by another program: close that one";
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return Path + " is not there: plug the logger in";
    case EACCES:
    case EPERM:
        return Path + " may not be used by this user";
    default:
        return Path + ": " + SystemReason(Error);
    }
}
