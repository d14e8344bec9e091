// A settings store in memory, for programs whose result depends on their command line alone.
#pragma once

#include "platform/iSettings.h"

#include <map>
#include <utility>

class sSettings : public iSettings
{
public:
    std::optional<std::string> GetSetting(const std::string& Section, const std::string& Key) const override;
    void SaveSetting(const std::string& Section, const std::string& Key, const std::string& Value) override;

private:
    std::map<std::pair<std::string, std::string>, std::string> Values;
};
