// The settings store on QSettings; every value is kept as the text it is.
#include "platform/qt/qSettings.h"

#include "platform/qt/qText.h"

#include <QStandardPaths>

qSettings::qSettings(const std::string& Path) : Store(Shown(Path), QSettings::IniFormat) {}

std::string qSettings::UserPath()
{
    return Plain(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + "/settings.ini");
}

std::optional<std::string> qSettings::GetSetting(const std::string& Section, const std::string& Key) const
{
    const QVariant Value = Store.value(Shown(Section + "/" + Key));
    if (!Value.isValid()) return {};
    // A list comes from a file edited by hand: a text with a comma that was not quoted.
    return Plain(Value.typeId() == QMetaType::QStringList ? Value.toStringList().join(',') : Value.toString());
}

void qSettings::SaveSetting(const std::string& Section, const std::string& Key, const std::string& Value)
{
    Store.setValue(Shown(Section + "/" + Key), Shown(Value));
}
