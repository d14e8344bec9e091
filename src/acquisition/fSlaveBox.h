// The frame "Slave Cfg" of the logger set-up: which slaves there are, and what the logger and the session have.
#pragma once

#include "acquisition/cLoggerSetUp.h"

#include <QGroupBox>

class QButtonGroup;
class QCheckBox;
class QLabel;

class fSlaveBox : public QGroupBox
{
public:
    explicit fSlaveBox(cLoggerSetUp& InitSetUp);

    void ShowState();

private:
    void SetSlave();

    cLoggerSetUp& SetUp;
    QButtonGroup* Kinds;
    QCheckBox* opHR;
    QLabel* Has;
    QLabel* Session;
};
