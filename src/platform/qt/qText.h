// Text between the engine, which keeps UTF-8, and the toolkit.
#pragma once

#include <QString>

#include <string>

inline QString Shown(const std::string& Text)
{
    return QString::fromStdString(Text);
}

inline std::string Plain(const QString& Text)
{
    return Text.toStdString();
}
