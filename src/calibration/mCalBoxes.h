// The numbers of the boxes in the window of the workbench.
#pragma once

/// The text boxes of the window.
enum eCalBox
{
    BoxChan,
    BoxPhys,
    BoxLog,
    BoxQ0,
    BoxQ1,
    BoxR2,
    BoxMinP,
    BoxMaxP,
    BoxMaximal,
    BoxCutOff, // percent
    BoxThreshold,
    CalBoxCnt
};

/// The check boxes of the window.
enum eCalFlag
{
    FlagAutomatic,
    FlagXisLog,
    FlagAutoAxes,
    FlagTorque
};
