// Names of the numbers that sessions and settings store. Their fields stay integers, since a number outside these lists
// is kept as it is.
#pragma once

#include <cstdint>

/// Logger models: Model of a session.
enum eModel : int16_t
{
    ModelOldest = 0, // an old file whose channel lines begin with the session's identifier
    ModelOld = 1,    // an old file with the oars of the whole boat in its Sess section
    ModelMasterFirst = 60,
    ModelMaster = 61,
    ModelMasterLast = 65,
    ModelSlave16 = 66, // an old slave of 16 channels alone
    ModelSlave8 = 67,
    ModelEncoder = 68 // a slave with an encoder
};

/// Whether a logger of that model is a master that sends its slaves' blocks.
constexpr bool IsMasterModel(int Model)
{
    return Model >= ModelMasterFirst && Model <= ModelMasterLast;
}

/// Whether a logger of that model is a slave without a master.
constexpr bool IsSlaveModel(int Model)
{
    return Model >= ModelSlave16 && Model <= ModelEncoder;
}

/// What begins a stroke: KeyMode of a session, gKeyMode.
enum eKeyMode : int16_t
{
    KeyDecreasing, // the key channel falls through its threshold
    KeyIncreasing,
    KeyMinimum,
    KeyMaximum
};

/// Whether Mode is one of the key modes; another one finds no stroke.
constexpr bool IsKeyMode(int Mode)
{
    return Mode >= KeyDecreasing && Mode <= KeyMaximum;
}

/// How counts become physical values: ProcMode of a channel, and fApproxMode of the calibration workbench. Any other
/// number is read as linear.
enum eApprox : int16_t
{
    ApproxLinear,
    ApproxOneLine,  // the square curve upward
    ApproxTwoLines, // a square curve upward and one downward
    ApproxAbsolute, // the amount of the linear value
    ApproxRefTable
};

/// Kind of sensor: Mode of a channel.
enum eSensor : int16_t
{
    SensorPlain,
    SensorAngle // degrees at a lever: derived variables take the arc in metres
};

/// Side of the boat on which a row of channels, crew or rig stands; 0 has none.
enum eSide : int16_t
{
    SideRight = 1, // with one oar
    SideLeft = 2,
    SideRightScull = 3,
    SideLeftScull = 4
};

/// What a derived variable is drawn over: Mode of a view row.
enum eRowMode : int16_t
{
    RowOverPosition, // the position of the sample
    RowOverArgument  // the value of argument 0
};

/// Operations of derived variables: Oper of a view row, with the names that the operations have.
enum eOper : int16_t
{
    OperNone,
    OperAdd,
    OperSubstract,
    OperMultiplay,
    OperAverage,
    OperIntegral,
    OperDifferent,
    OperSegSpeed,
    OperPower,
    OperArower,
    OperFigureXY = 11, // these draw a figure of the rower
    OperFigureXZ,
    OperFigureYZ,
    OperFigureLast = 15
};

/// How a session is reached: gConnection.
enum eConnection : int16_t
{
    ConnectionSerial,
    ConnectionTCP // a wireless logger
};

/// gLanguage.
enum eLanguage : int16_t
{
    LanguageEnglish,
    LanguageRussian
};

/// Where the splits of a recording end: gSplitPar.
enum eSplit : int16_t
{
    SplitNone,
    SplitTime,
    SplitDistance,
    SplitStrokes
};

/// What the coach's panel shows of an oar: mDisplayMode.
enum eDisplay : int16_t
{
    DisplayLatest,
    DisplayAverage
};

/// How the coach's panel shows the oars of a sculler: mScullMode.
enum eScull : int16_t
{
    ScullTogether,
    ScullSeparate
};

/// Buttons of the playback control: the codes of DoAction.
enum ePlayCode : int16_t
{
    PlayToStart,
    PlayPrevious,
    PlayRun,
    PlayPause,
    PlayNext,
    PlayToEnd,
    PlayClose
};
