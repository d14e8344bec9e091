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

TEST_CASE_FIXTURE(FreshState, "a text that a setting cannot hold gives its default")
{
    const struct
    {
        const char* Key;
        const char* Text;
        const char* Held;
    } Rows[] = {
        {"gTCPport", "32767", "32767"},
        {"gTCPport", "32768", "6000"},
        {"gTCPport", "-32768", "-32768"},
        {"gTCPport", "6000x", "6000"},
        {"gTCPport", "", "6000"},
        {"gDataFreq", "12.5", "12.5"},
        {"gDataFreq", "fast", "25"},
        {"gXScale", "2.5", "2"},
        {"ToolBar", "0", "0"},
        {"ToolBar", "false", "0"},
        {"ToolBar", "7", "-1"},
        {"ToolBar", "yes", "-1"},
        {"gQVNbauds", "3000000000", "57600"},
        {"gRowersDBFN", " a ", " a "},
    };
    for (const auto& Row : Rows) {
        CAPTURE(Row.Key);
        CAPTURE(Row.Text);
        const Setting* const Item = FindSetting(Row.Key);
        REQUIRE(Item);
        Settings.SaveSetting(Item->Section, Row.Key, Row.Text);
        LoadSettings();
        SaveSetting(Row.Key);
        CHECK(Settings.GetSetting(Item->Section, Row.Key) == Row.Held);
    }
}
