// The per-user settings store: one ini file a user.
#pragma once

#include "platform/iSettings.h"

#include <QSettings>

class qSettings : public iSettings
{
public:
    /// The store in the file at Path, which need not exist.
    explicit qSettings(const std::string& Path);

    /// Where this user's store lives.
    static std::string UserPath();

    std::optional<std::string> GetSetting(const std::string& Section, const std::string& Key) const override;
    void SaveSetting(const std::string& Section, const std::string& Key, const std::string& Value) override;

private:
    QSettings Store;
};
