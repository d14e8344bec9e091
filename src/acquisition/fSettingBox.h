// A frame of the logger set-up for one setting: its option buttons, what the logger has, and the button that sends it.
#pragma once

#include "acquisition/cLoggerSetUp.h"

#include <QGroupBox>

class QButtonGroup;
class QLabel;

/// How what the logger has compares with what is to be sent.
enum class eHas
{
    Unknown, // it was not read
    Same,
    Other
};

/// Shows in Label what the logger has, marked by how it compares. Next: what would be sent.
void ShowHas(QLabel& Label, eHas How, const QString& Text, const QString& Next);

class fSettingBox : public QGroupBox
{
public:
    /// Title of the frame, name and caption of the button.
    fSettingBox(cLoggerSetUp& InitSetUp, eLoggerSetting InitWhich, const char* Title, const char* Name,
                const char* Caption);

    /// Shows what the logger has as it is known now.
    void ShowState();

private:
    cLoggerSetUp& SetUp;
    eLoggerSetting Which;
    QButtonGroup* Choices;
    QLabel* Has;
};
