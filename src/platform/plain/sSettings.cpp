// The store of settings in memory.
#include "platform/plain/sSettings.h"

std::optional<std::string> sSettings::GetSetting(const std::string& Section, const std::string& Key) const
{
    const auto Found = Values.find({Section, Key});
    if (Found == Values.end()) return {};
    return Found->second;
}

void sSettings::SaveSetting(const std::string& Section, const std::string& Key, const std::string& Value)
{
    Values[{Section, Key}] = Value;
}
