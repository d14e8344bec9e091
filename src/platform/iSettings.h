// The per-user store of settings: text values by section and key.
#pragma once

#include <optional>
#include <string>

class iSettings
{
public:
    virtual ~iSettings() = default;

    /// The stored value, or nothing when the key was never saved.
    virtual std::optional<std::string> GetSetting(const std::string& Section, const std::string& Key) const = 0;

    virtual void SaveSetting(const std::string& Section, const std::string& Key, const std::string& Value) = 0;
};
