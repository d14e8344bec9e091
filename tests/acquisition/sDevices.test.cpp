// Serial devices as a made-up kernel shows them.
#include "platform/plain/sDevices.h"
#include "support/Case.h"

TEST_CASE("port numbers follow the names of devices that have hardware, with numbers as numbers")
{
    TempFolder Classes;
    const auto Make = [&](const std::string& Name, const char* Type) {
        std::filesystem::create_directories(Classes.Path(Name) + "/device");
        if (Type) REQUIRE(SaveWhole(Classes.Path(Name) + "/type", Type, Durability::Fast));
    };
    Make("ttyUSB10", nullptr);
    Make("ttyUSB9", nullptr);
    Make("ttyS0", "0\n");
    Make("ttyS1", "4\n");
    Make("ttyACM0", nullptr);
    std::filesystem::create_directories(Classes.Path("tty7"));
    CHECK(SerialDevices(Classes.Path("")) == Texts{"/dev/ttyACM0", "/dev/ttyS1", "/dev/ttyUSB9", "/dev/ttyUSB10"});
    CHECK(SerialDevices(Classes.Path("none")).empty());
}
