// The table of settings against a list of its own.
#include "core/mSettings.h"

#include "support/Case.h"

namespace {
std::string TypeOf(const Setting& Item)
{
    constexpr std::array<const char*, 5> Names = {"int16", "int32", "double", "boolean", "string"};
    return Names.at(Item.Global.index());
}
} // namespace

TEST_CASE_FIXTURE(FreshState, "every setting has the section, the type and the default of the golden list")
{
    const auto Golden = ReadWhole(SOURCE_FOLDER "/tests/golden/settings.txt");
    REQUIRE(Golden);
    std::string Found;
    for (const Setting& Item : AllSettings()) {
        // What a missing key has put into the global, as it is stored.
        SaveSetting(Item.Key);
        Found += Item.Section + "\t" + Item.Key + "\t" + TypeOf(Item) + "\t" +
                 Settings.GetSetting(Item.Section, Item.Key).value_or("nothing") + "\n";
    }
    CHECK(Found == *Golden);
}
