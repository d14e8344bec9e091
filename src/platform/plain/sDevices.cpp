// Serial devices as the kernel shows them.
#include "platform/plain/sDevices.h"

#include "base/mNumText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

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
